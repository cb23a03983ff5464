#include <fmt/core.h>
#include <sys/wait.h>

#include <CLI/App.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <system_error>

#include "cli/Console.h"
#include "cli/Program.h"
#include "report/Display.h"
#include "store/ReplacingFile.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

/// \p text as one word of the shell.
std::string ShellWord(std::string_view text) {
  bool const isPlain =
      text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-+./%=:@,") == std::string_view::npos;
  if (isPlain && !text.empty()) { return std::string(text); }
  std::string word = "'";
  for (char const c : text) { word += c == '\'' ? "'\\''" : std::string(1, c); }
  return word + "'";
}

struct GitAnswer {
  int status;
  std::string out;
};
/// What git answers, without the line's end; what it has to complain of goes nowhere.
GitAnswer Git(std::vector<std::string> const& arguments) {
  std::string command = "git";
  for (std::string const& argument : arguments) { command += " " + ShellWord(argument); }
  std::FILE* const pipe = ::popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr) { throw BadInput("cannot run git"); }
  GitAnswer answer{0, {}};
  char piece[4096];
  for (std::size_t read = 0; (read = std::fread(piece, 1, sizeof piece, pipe)) > 0;) { answer.out.append(piece, read); }
  int const status = ::pclose(pipe);
  answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (answer.out.ends_with('\n')) { answer.out.pop_back(); }
  if (answer.status == 127) { throw BadInput("there is no git"); }
  return answer;
}

/// How a shell finds this program: by its name alone where that is it.
std::string ProgramWord() {
  std::error_code error;
  std::filesystem::path const self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) { return "gattr"; }
  std::string const path = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
  for (std::size_t begin = 0; begin < path.size();) {
    std::size_t const end = std::min(path.find(':', begin), path.size());
    std::filesystem::path const candidate = std::filesystem::path(path.substr(begin, end - begin)) / "gattr";
    if (std::filesystem::exists(candidate, error)) {
      return std::filesystem::equivalent(candidate, self, error) ? "gattr" : ShellWord(self.string());
    }
    begin = end + 1;
  }
  return ShellWord(self.string());
}

struct Setting {
  std::string key, before, tail;  // of the value; the program's word stands between

  std::string Value(std::string const& program) const { return tail.empty() ? before : before + program + tail; }
  /// Whether it is what this program sets, be it installed elsewhere.
  bool IsOurs(std::string const& present) const {
    return tail.empty() ? present == before : present.starts_with(before) && present.ends_with(tail);
  }
};
// A text that cannot be read as a model, as one with git's marks in it, is shown as it is: a failure would end all that git shows.
Setting const kSettings[] = {{"diff.gattr.command", "", " diff --git"},
                             {"diff.gattr.textconv", "f() { ", R"( dump "$1" 2>/dev/null || cat "$1"; }; f)"},
                             {"merge.gattr.name", "models, by object, step and member", ""},
                             {"merge.gattr.driver", "", " merge %O %A %B --name %P"}};
constexpr std::string_view kAttributes = "*.gadb -text diff=gattr merge=gattr\n*.gattr.json diff=gattr merge=gattr\n";
constexpr char const* kBefore = "gattr.setup.attributes";  // what .gitattributes was: "none", "open" without the last line's end, "whole"

std::optional<std::string> Get(std::string const& key) {
  GitAnswer const answer = Git({"config", "--local", "--get", key});
  return answer.status == 0 ? std::optional(answer.out) : std::nullopt;
}
void Set(std::string const& key, std::string const& value) {
  if (Git({"config", "--local", key, value}).status != 0) { throw BadInput("git does not take the setting " + Quoted(key)); }
}
void Unset(std::string const& key) { Git({"config", "--local", "--unset", key}); }

std::filesystem::path AttributesPath() {
  GitAnswer const top = Git({"rev-parse", "--show-toplevel"});
  if (top.status != 0) { throw BadInput("this is no git repository with files"); }
  return std::filesystem::path(top.out) / ".gitattributes";
}
std::string ReadWhole(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
void WriteWhole(std::filesystem::path const& path, std::string const& text) {
  ReplacingFile file(path);
  file.Stream() << text;
  file.Commit();
}

void Say(std::string_view what, std::string const& where, std::string const& text) {
  std::cout << fmt::format("{:<8}{:<16}{}\n", what, where, Shown(text));
}

int SetUp() {
  std::filesystem::path const path = AttributesPath();
  int status = kDone;
  std::string const program = ProgramWord();
  for (Setting const& setting : kSettings) {
    std::optional<std::string> const present = Get(setting.key);
    std::string const value = setting.Value(program);
    if (present && !setting.IsOurs(*present)) {
      Say("left", ".git/config", setting.key + " = " + *present);
      Tell(fmt::format("gattr: {} is set to something else already: it is left so\n", setting.key));
      status = kRefused;
      continue;
    }
    bool const isSet = present && *present == value;
    if (!isSet) { Set(setting.key, value); }
    Say(isSet ? "is" : "set", ".git/config", setting.key + " = " + value);
  }
  bool const exists = std::filesystem::exists(path);
  std::string const before = ReadWhole(path);
  bool const isThere = before.find(kAttributes) != std::string::npos;
  if (!isThere) {
    bool const isOpen = !before.empty() && !before.ends_with('\n');
    WriteWhole(path, before + (isOpen ? "\n" : "") + std::string(kAttributes));
    Set(kBefore, !exists ? "none" : isOpen ? "open" : "whole");
  }
  for (std::size_t begin = 0; begin < kAttributes.size();) {
    std::size_t const end = kAttributes.find('\n', begin);
    Say(isThere ? "is" : "set", ".gitattributes", std::string(kAttributes.substr(begin, end - begin)));
    begin = end + 1;
  }
  return status;
}

int TakeBack() {
  std::filesystem::path const path = AttributesPath();
  for (Setting const& setting : kSettings) {
    std::optional<std::string> const present = Get(setting.key);
    if (!present) { continue; }
    bool const isOurs = setting.IsOurs(*present);
    if (isOurs) { Unset(setting.key); }
    Say(isOurs ? "unset" : "left", ".git/config", setting.key + " = " + *present);
  }
  std::optional<std::string> const before = Get(kBefore);
  if (before) { Unset(kBefore); }
  std::string text = ReadWhole(path);
  std::size_t at = text.find(kAttributes);
  if (!before || at == std::string::npos) { return kDone; }
  bool const wasOpen = *before == "open" && at > 0 && at + kAttributes.size() == text.size();
  text.erase(at, kAttributes.size());
  if (wasOpen) { text.pop_back(); }
  if (text.empty() && *before == "none") {
    std::filesystem::remove(path);
  } else {
    WriteWhole(path, text);
  }
  Say("unset", ".gitattributes", "*.gadb, *.gattr.json");
  return kDone;
}

constexpr char const* kGitSetupFooter =
    R"(Models are then compared and merged by object, step and member: `git diff` shows what `gattr diff` tells, `git log -p` and `git show`
the text of the model (`gattr dump`), and `git merge`, `rebase` and `cherry-pick` merge as `gattr merge` does. On a conflict your own
version stays in the working tree and the file is marked as not merged. Where the merge brings a warning that neither side had, the merged
model is in the working tree, and the file is marked too. The settings stand in .git/config, which is each clone's own,
the patterns in .gitattributes, which is to be committed. What others have set is left as it is, with the exit status 1.

Example: gattr git-setup)";

}  // namespace

void AddGitSetup(CLI::App& program, Action& action) {
  auto const undo = std::make_shared<bool>(false);
  CLI::App& command = *program.add_subcommand("git-setup", "Have git compare and merge models in this repository");
  command.add_flag("--undo", *undo, "take back what was set, and nothing else");
  command.footer(kGitSetupFooter);
  command.callback([undo, &action] { action = [undo] { return *undo ? TakeBack() : SetUp(); }; });
}

}  // namespace gattr::cli
