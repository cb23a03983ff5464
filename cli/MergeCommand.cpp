#include <fmt/core.h>

#include <CLI/App.hpp>
#include <iostream>
#include <memory>
#include <optional>

#include "cli/Console.h"
#include "cli/ModelArgument.h"
#include "cli/Program.h"
#include "command/Merge.h"
#include "command/Words.h"
#include "report/RenderDifference.h"
#include "report/RenderFindings.h"
#include "report/TextTable.h"
#include "store/ModelPath.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct MergeOptions {
  std::string base, ours, theirs, output, name;
  Format format = Format::Text;
  std::string color;
};

void PrintConflicts(std::vector<MergeConflict> const& conflicts, std::string const& color) {
  TextTable table({"object", "name", "step", "member", "base", "ours", "theirs", "conflict"});
  for (MergeConflict const& one : conflicts) {
    bool const hasValues = !(one.base.IsNull() && one.ours.IsNull() && one.theirs.IsNull());
    auto const value = [&](cls_Value const& of) { return hasValues ? SideText(of) : std::string(); };
    std::string why = RefusalText(one.refusal);
    if (!one.detail.empty()) { why += (why.empty() ? "" : " ") + OneLine(one.detail); }
    table.Add({{one.kind, Style::Faint},
               {one.name, Style::Strong},
               one.step,
               one.member,
               value(one.base),
               {value(one.ours), Style::Changed},
               {value(one.theirs), Style::Changed},
               why});
  }
  table.Print(std::cout, TerminalWidth(), UseColor(color));
}

void PrintJson(Merged const& merged) {
  Json conflicts = Json::array(), findings = Json::array();
  for (MergeConflict const& one : merged.conflicts) {
    conflicts.push_back({{"kind", one.kind},
                         {"name", one.name},
                         {"step", one.step},
                         {"member", one.member},
                         {"base", gattr::ToJson(one.base)},
                         {"ours", gattr::ToJson(one.ours)},
                         {"theirs", gattr::ToJson(one.theirs)},
                         {"module", one.refusal.module},
                         {"code", one.refusal.code},
                         {"message", one.refusal.message},
                         {"detail", one.detail}});
  }
  for (Finding const& one : merged.findings) { findings.push_back(gattr::ToJson(one)); }
  std::cout << JsonPage({{"conflicts", conflicts}, {"findings", findings}}) << '\n';
}

int Run(MergeOptions const& options) {
  bool const isJournal = options.ours.ends_with(".jsonl");
  if (isJournal && options.output.empty()) { throw BadInput("a journal is not written: -o names the model that is made"); }
  ddr_Model const base = OpenModel(options.base, Empty::NewModel);
  std::optional<ModelPath> path;
  if (!isJournal) { path = ModelPath::ByContent(options.ours); }
  if (!isJournal && !path) { throw BadInput(Quoted(options.ours) + " is empty: expected a model"); }
  ddr_Model const ours = isJournal ? OpenModel(options.ours) : path->Open();
  ddr_Model const theirs = OpenModel(options.theirs);
  Merged const merged = Merge(base, ours, theirs);
  if (merged.IsWhole()) {
    if (!options.output.empty()) {
      ModelPath(options.output).Save(merged.model, Changed::Overwrite);
    } else if (!merged.model.Equals(ours)) {
      path->Save(merged.model);
    }
  }
  if (options.format == Format::Json) {
    PrintJson(merged);
  } else if (!merged.conflicts.empty()) {
    PrintConflicts(merged.conflicts, options.color);
  }
  std::cout.flush();
  std::string const name = options.name.empty() ? options.ours : options.name;
  if (!merged.IsWhole()) {
    Tell(fmt::format("gattr: {}: {}, nothing is written\n", Shown(name), Counted(merged.conflicts.size(), "conflict")));
  }
  for (Finding const& one : merged.findings) {
    Tell(fmt::format("gattr: {}: merged, but neither side had this: {} {}\n", Shown(name), one.Row().id, Shown(FindingText(one))));
  }
  return merged.IsWhole() && merged.findings.empty() ? kDone : kRefused;
}

constexpr char const* kMergeFooter =
    R"(Of every object, step and member the result has what one side has made of it. Where both have made something else of it, where one
edits what the other deletes, where a rule refuses what comes out, or `gattr check` finds an error in it that neither side had, that is
a conflict: each is named with the values of all three, nothing is written, and the exit status is 1. It is 1, too, where the check
finds a warning that neither side had; then the result is written. Without -o it is written to OURS, in its form. The files may be
called anything, as those that git gives to a merge driver (`gattr git-setup`); an empty BASE is a model that nobody has made as yet.

Example: gattr merge monday.gadb mine.gadb hers.gadb -o both.gadb)";

}  // namespace

void AddMerge(CLI::App& program, Action& action) {
  auto const options = std::make_shared<MergeOptions>();
  CLI::App& command = *program.add_subcommand("merge", "Make one model of what two people have made of it");
  command.add_option("BASE", options->base, "the model that both began with")->required()->type_name("");
  command.add_option("OURS", options->ours, "what one has made of it")->required()->type_name("");
  command.add_option("THEIRS", options->theirs, "what the other has made of it")->required()->type_name("");
  command.add_option("-o,--output", options->output, "model to write instead of OURS")->type_name("MODEL");
  command.add_option("--name", options->name, "what messages call the result")->type_name("NAME");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer(kMergeFooter);
  command.callback([options, &action] { action = [options] { return Run(*options); }; });
}

}  // namespace gattr::cli
