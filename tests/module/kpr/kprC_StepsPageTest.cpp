#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>

#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "tests/module/kpr/kprTestSteps.h"
#include "tests/support/Page.h"

// docs/steps.md shows which procedure may follow which in a table that is made here.

namespace {

constexpr char const* kPage = "docs/steps.md";

using Sequence = std::vector<unsigned>;

/// The shortest legal sequence that ends with the procedure, the first of its length in the order of the labels.
std::optional<Sequence> ShortestTo(unsigned procedure) {
  std::vector<Sequence> level = {{}};
  for (int length = 0; length < 3; ++length) {
    std::vector<Sequence> next;
    for (Sequence const& sequence : level) {
      kprC_StepSequencer sequencer(cow_List<unsigned>(sequence), true);
      if (sequencer.MayFollow().Contains(procedure)) {
        Sequence found = sequence;
        found.push_back(procedure);
        return found;
      }
      for (auto const& candidates : {sequencer.AppendableGeneral(), sequencer.AppendablePerturbation()}) {
        for (unsigned const candidate : candidates) {
          next.push_back(sequence);
          next.back().push_back(candidate);
        }
      }
    }
    level = std::move(next);
  }
  return std::nullopt;
}

/// The procedures by their commands, "Step" left out.
template <class Procedures> std::string Names(Procedures const& procedures) {
  std::string names;
  for (unsigned const procedure : procedures) {
    std::string_view const command = kprC_FindProcedure(procedure)->command;
    names.append(names.empty() ? "" : ", ").append(command.substr(0, command.size() - std::string_view("Step").size()));
  }
  return names.empty() ? "nothing" : names;
}

/// A row per set of followers, in the order of the labels: what stands last, and what may come behind it.
std::string Table() {
  std::vector<std::pair<std::string, std::string>> rows;
  auto const add = [&](Sequence const& sequence) {
    kprC_StepSequencer const sequencer(cow_List<unsigned>(sequence), true);
    std::string const followers = Names(sequencer.AppendableGeneral()) + " | " + Names(sequencer.AppendablePerturbation());
    std::string last = sequence.empty() ? "the initial step alone" : Names(Sequence{sequence.back()});
    if (sequence.size() > 1) { last += " (behind " + Names(Sequence(sequence.begin(), sequence.end() - 1)) + ")"; }
    auto const same = std::find_if(rows.begin(), rows.end(), [&](auto const& row) { return row.second == followers; });
    if (same == rows.end()) {
      rows.emplace_back(last, followers);
    } else {
      same->first += ", " + last;
    }
  };
  add({});
  for (auto const& [label, procedure] : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    if (auto const sequence = ShortestTo(procedure)) { add(*sequence); }
  }
  std::string table = "| last step | general steps that may follow | perturbation steps that may follow |\n|---|---|---|\n";
  for (auto const& [last, followers] : rows) { table += "| " + last + " | " + followers + " |\n"; }
  return table;
}

TEST(StepsPage, ShowsWhichProcedureMayFollowWhich) { test::ExpectOnPage(kPage, "table of followers", Table()); }

TEST(StepsPage, NamesEveryProcedure) {
  std::ifstream in(std::string(GATTR_SOURCE_DIR "/") + kPage);
  std::string const page{std::istreambuf_iterator<char>(in), {}};
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    std::string const command = "`" + std::string(row.command.View()) + "`";
    if (row.label.Size() != 0) { EXPECT_NE(page.find(command), std::string::npos) << command; }
  }
}

}  // namespace
