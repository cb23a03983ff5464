#include <CLI/App.hpp>
#include <exception>
#include <iostream>
#include <memory>
#include <new>

#include "cli/Console.h"
#include "cli/ModelArgument.h"
#include "cli/Program.h"
#include "command/Difference.h"
#include "command/Replay.h"
#include "report/RenderDifference.h"
#include "store/ModelPath.h"
#include "text/Text.h"

namespace gattr::cli {

ddr_Model OpenModel(std::string const& path, Empty empty) {
  if (path.ends_with(".jsonl")) {
    Session session;
    if (auto const refused = Replay(session, path)) { throw BadInput(refused->message); }
    return session.Model();
  }
  bool const isNamed = path.ends_with(".gadb") || path.ends_with(".json");
  if (isNamed && empty == Empty::Refuse) { return ModelPath(path).Open(); }
  auto file = ModelPath::ByContent(path);
  if (file) { return file->Open(); }
  if (empty == Empty::Refuse) { throw BadInput(Quoted(path) + " is empty: expected a model"); }
  return Session().Model();
}

namespace {

struct DiffOptions {
  std::vector<std::string> models;
  Format format = Format::Text;
  std::string color;
  bool git = false;
};

int Compare(DiffOptions const& options) {
  std::string const &before = options.models[0], &now = options.models[1];
  ddr_Model const was = OpenModel(before), is = OpenModel(now);
  std::vector<ObjectDifference> const differences = DifferencesBetween(was, is);
  switch (options.format) {
    case Format::Json: RenderJson(std::cout, differences); break;
    case Format::Html: RenderHtml(std::cout, differences, before, now); break;
    default: RenderText(std::cout, differences, {TerminalWidth(), UseColor(options.color)});
  }
  return differences.empty() ? kDone : kRefused;
}

/// As git calls a program of its own choice: it ends where that tells of a difference by its status.
int CompareForGit(DiffOptions const& options) {
  std::vector<std::string> const& words = options.models;  // path, then file, hash and mode of either side
  if (words.size() == 1) {
    std::cout << "* Unmerged path " << Shown(words[0]) << '\n';
    return kDone;
  }
  if (words.size() < 7) { throw BadInput("--git takes what git gives to a diff command: a path, then file, hash and mode of both sides"); }
  bool const color = UseColor(options.color);
  std::cout << Styled("gattr diff " + Shown(words[0]), Style::Strong, color) << '\n';
  try {
    RenderText(std::cout, DifferencesBetween(OpenModel(words[1], Empty::NewModel), OpenModel(words[4], Empty::NewModel)), {0, color});
  } catch (std::bad_alloc const&) { throw; } catch (std::exception const& error) {  // a status would end git's command, other files too
    std::cout << "cannot be compared: " << Shown(error.what()) << '\n';
  }
  return kDone;
}

constexpr char const* kDiffFooter =
    R"(A and B are models, .gadb or .gattr.json, or journals, .jsonl, whose commands are run first. Told is what was edited, by object, step
and member: what follows from that, statuses and carried values, is not. `gattr history` shows it. A step or an attribute under
another name is told as renamed where nothing else can be meant. Exit status: 0 no difference, 1 some, 2 bad use or unreadable input.

Example: gattr diff monday.gadb forming.gadb)";

}  // namespace

void AddDiff(CLI::App& program, Action& action) {
  auto const options = std::make_shared<DiffOptions>();
  CLI::App& command = *program.add_subcommand("diff", "Tell in what two models differ");
  command.add_option("MODELS", options->models, "A and B: what was, and what is")->required()->type_name("")->expected(1, 9);
  AddFormat(command, options->format, {"text", "json", "html"});
  AddColor(command, options->color);
  command.add_flag("--git", options->git, "take the arguments that git gives to a diff command (see `gattr git-setup`)");
  command.footer(kDiffFooter);
  command.callback([options, &action] {
    action = [options] {
      if (options->git) { return CompareForGit(*options); }
      if (options->models.size() != 2) { throw BadInput("expected two models"); }
      return Compare(*options);
    };
  });
}

}  // namespace gattr::cli
