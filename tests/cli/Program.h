#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace test {

inline std::string ReadFile(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// What a run of the program left behind.
struct Ran {
  int status;
  std::string out, err;

  std::vector<nlohmann::ordered_json> Lines() const {
    std::vector<nlohmann::ordered_json> lines;
    for (std::size_t begin = 0, end; begin < out.size(); begin = end + 1) {
      end = std::min(out.find('\n', begin), out.size());
      lines.push_back(nlohmann::ordered_json::parse(out.substr(begin, end - begin)));
    }
    return lines;
  }
  /// One of the lines, counted from 0, or from the last one with -1; a failure and null where there are not as many.
  nlohmann::ordered_json Line(int index) const {
    auto const lines = Lines();
    std::size_t const at = index < 0 ? lines.size() - static_cast<std::size_t>(-index) : static_cast<std::size_t>(index);
    if (at < lines.size()) { return lines[at]; }
    ADD_FAILURE() << "line " << index << " of " << lines.size() << " was asked for; the program said: " << err;
    return {};
  }
};

/// Runs the program in a folder of its own.
class Program : public ::testing::Test {
protected:
  Program() {
    std::string pattern = (std::filesystem::temp_directory_path() / "gattr-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~Program() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path Path(std::string const& name) const { return folder_ / name; }
  void Write(std::string const& name, std::string_view content) const { std::ofstream(Path(name), std::ios::binary) << content; }
  std::string Read(std::string const& name) const { return ReadFile(Path(name)); }

  /// The arguments reach the program as they are; \p input is its standard input, \p environment goes before the command.
  Ran Gattr(std::vector<std::string> const& arguments, std::string_view input = "", std::string const& environment = "") const {
    Write(".in", input);
    std::string command = "cd " + Quoted(folder_.string()) + " && " + environment + " " + Quoted(GATTR_PROGRAM);
    for (std::string const& argument : arguments) { command += " " + Quoted(argument); }
    int const status = std::system((command + " <.in >.out 2>.err").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read(".out"), Read(".err")};
  }

  /// The exit status of a line of the shell in which $G is the program; -1 where a signal ended it.
  int Shell(std::string const& line) const {
    int const status = std::system(("cd " + Quoted(folder_.string()) + " && G=" + Quoted(GATTR_PROGRAM) + "; " + line).c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

private:
  static std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char const c : text) { quoted += c == '\'' ? "'\\''" : std::string(1, c); }
    return quoted + "'";
  }

  std::filesystem::path folder_;
};

/// Two static steps and a condition, created in the first.
inline constexpr std::string_view kJournal = R"({"command": "StaticStep", "name": "Step-1", "initialInc": 0.1}
{"command": "StaticStep", "name": "Step-2", "initialInc": 0.1}
{"command": "Set", "name": "Rim"}
{"command": "DisplacementBC", "name": "Fix", "createStepName": "Step-1", "region": "Rim", "u1": 0.0}
)";

}  // namespace test
