#include "report/RenderMembers.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <span>

#include "command/Command.h"
#include "command/Words.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "report/RenderHistory.h"
#include "report/TextTable.h"
#include "text/Text.h"

namespace gattr {
namespace {

std::string NameOf(kprC_StepTable const& steps, std::size_t step) { return std::string(steps.Name(step).View()); }

/// "-12*" where the step says it, "-12 (Draw-1)" where that did; "freed" where it was given up.
std::string OriginText(Origin const& origin, cls_Value const& value, kprC_StepTable const& steps) {
  std::string const text = origin.HasValue() ? ValueText(value) : std::string(StandingText(origin.standing));
  if (origin.own) { return text + "*"; }
  return origin.step == kNoStep ? text : text + " (" + NameOf(steps, origin.step) + ")";
}

/// The value, or what an amplitude makes of it.
cls_Value ValueAt(Origin const& origin, std::span<Origin const> members, std::size_t step, AtTime const* at) {
  return at == nullptr ? origin.Value() : at->Of(origin, members, step);
}

/// "region Top, csys Global": what is given of the attribute itself.
std::string GivenText(kprC_StepDependent const& item) {
  std::string text;
  for (Origin const& origin : gattr::OwnMembers(item)) {
    if (origin.standing != Standing::Set) { continue; }
    text.append(text.empty() ? "" : ", ").append(origin.Member()).append(" ").append(ValueText(origin.Value()));
  }
  return text;
}

/// What the attribute acts on: the regions that it names.
std::string RegionText(kprC_StepDependent const& item) {
  std::string text;
  for (Origin const& origin : gattr::OwnMembers(item)) {
    if (origin.row->text.refers != cls_Reference::Region || !origin.HasValue()) { continue; }
    std::string const region = ValueText(origin.Value());
    if (!region.empty()) { text.append(text.empty() ? "" : ", ").append(region); }
  }
  return text;
}

constexpr std::string_view kMarks = "* said in that step; (...) the step that said it";

}  // namespace

void RenderMembers(std::ostream& out, FoundAttribute const& attribute, TextLayout const& layout, AtTime const* at) {
  kprC_StepDependent const& item = *attribute.item;
  kprC_StepTable const& steps = item.Steps();
  struct Run {
    mdl_PropagationStatusEnm status;
    bool tellsAll;
    std::vector<Origin> members;
  };
  std::vector<Run> runs;
  std::vector<std::size_t> runAt(steps.Size());
  std::vector<std::size_t> members;  // places of those of which something is said in any step
  auto const isTold = [](Origin const& origin) { return origin.standing != Standing::Unset || origin.own; };
  ForEachOriginRun(*attribute.family, item, [&](OriginRun const& run) {
    runs.push_back({run.status, run.inForce || item.IsSuppressed(), {run.members.begin(), run.members.end()}});
    for (std::size_t i = 0; i < run.members.size(); ++i) {
      if (isTold(run.members[i]) && std::ranges::find(members, i) == members.end()) { members.push_back(i); }
    }
    std::fill(runAt.begin() + static_cast<std::ptrdiff_t>(run.begin), runAt.begin() + static_cast<std::ptrdiff_t>(run.end),
              runs.size() - 1);
  });
  std::ranges::sort(members);
  out << Styled(Shown(ObjectText(attribute.family->ItemCmd(), item.Name().View())), Style::Strong, layout.color) << ": "
      << Shown(item.ConstructionName()) << (item.IsSuppressed() ? ", suppressed" : "") << '\n';
  if (std::string const given = GivenText(item); !given.empty()) {
    for (std::string const& line : WrappedLines("in all steps: " + Shown(given), layout.width)) { out << line << '\n'; }
  }
  out << '\n';
  StepGrid grid{{"member", ""}, {}, {{StepGrid::Cell{"status"}}}, [&](std::size_t row, std::size_t step) {
                  Run const& run = runs[runAt[step]];
                  if (row == 0) { return StepGrid::Cell{std::string(WordOf(run.status).word), StyleOf(run.status)}; }
                  Origin const* const origin = run.members.empty() ? nullptr : &run.members[members[row - 1]];
                  if (origin == nullptr || !isTold(*origin) || !(run.tellsAll || origin->own)) { return StepGrid::Cell(); }
                  cls_Value const value = ValueAt(*origin, run.members, step, at);
                  return StepGrid::Cell{OriginText(*origin, value, steps), origin->own ? Style::Strong : Style::Faint};
                }};
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    grid.steps.push_back({NameOf(steps, i), ProcedureWords(ProcedureText(steps.ProcedureType(i)))});
  }
  for (std::size_t const member : members) {
    grid.rows.push_back({StepGrid::Cell{std::string(runs.back().members[member].Member()), Style::Strong}});
  }
  grid.Print(out, layout);
  if (!members.empty()) { out << '\n' << Styled(kMarks, Style::Faint, layout.color) << '\n'; }
}

void RenderMembersCsv(std::ostream& out, FoundAttribute const& attribute, AtTime const* at) {
  kprC_StepTable const& steps = attribute.item->Steps();
  out << "step,status,member,value,standing,own,from\r\n";
  ForEachOriginRun(*attribute.family, *attribute.item, [&](OriginRun const& run) {
    for (std::size_t step = run.begin; step < run.end; ++step) {
      for (Origin const& origin : run.members) {
        if (origin.standing == Standing::Unset && !origin.own) { continue; }
        out << CsvField(NameOf(steps, step)) << ',' << WordOf(run.status).word << ',' << CsvField(origin.Member()) << ','
            << CsvValue(ValueAt(origin, run.members, step, at)) << ',' << StandingText(origin.standing) << ','
            << (origin.own ? "true" : "false") << ',' << (origin.step == kNoStep ? std::string() : CsvField(NameOf(steps, origin.step)))
            << "\r\n";
      }
    }
  });
}

void RenderExplanation(std::ostream& out, Explanation const& explanation, kprC_StepTable const& steps, TextLayout const& layout) {
  std::string const member = explanation.member.empty() ? "" : ", " + Shown(explanation.member) + ",";
  out << Styled(Shown(ObjectText(explanation.kind, explanation.name)) + member, Style::Strong, layout.color) << " in "
      << Shown(Quoted(steps.Name(explanation.step).View())) << ": "
      << Styled(std::string(WordOf(explanation.status).Text()), StyleOf(explanation.status), layout.color) << '\n';
  for (std::string const& line : WrappedLines(Shown(SentenceOf(explanation, steps)), layout.width)) { out << line << '\n'; }
  if (explanation.members.empty()) { return; }
  out << '\n';
  TextTable table({"member", explanation.inForce ? "value" : "value, not in force", "from"});
  for (Origin const& origin : explanation.members) {
    std::string const value = origin.HasValue() ? ValueText(origin.Value()) : std::string(StandingText(origin.standing));
    std::string const from = origin.own ? "here" : origin.step == kNoStep ? "default" : NameOf(steps, origin.step);
    table.Add({{origin.Member(), Style::Strong}, value, {from, origin.own ? Style::Changed : Style::Faint}});
  }
  table.Print(out, layout.width, layout.color);
}

void RenderInForce(std::ostream& out, InForce walk, TextLayout const& layout, AtTime const* at) {
  constexpr Style kInForceStyles[] = {Style::New, Style::Changed, Style::Off, Style::Kept};
  kprC_StepTable const& steps = kprC_Steps(walk.Model()).Table();
  std::optional<std::size_t> step;
  auto const makeTable = [] { return TextTable({"what", "attribute", "type", "region", "members"}); };
  TextTable table = makeTable();
  auto const print = [&] {
    if (!step) { return; }
    std::string const procedure = ProcedureWords(ProcedureText(steps.ProcedureType(*step)));
    out << Styled(Shown(NameOf(steps, *step)), Style::Strong, layout.color) << "  " << Styled(procedure, Style::Faint, layout.color)
        << '\n';
    table.Print(out, layout.width, layout.color);
    table = makeTable();
  };
  while (InForceAttribute const* const told = walk.Next()) {
    if (step != told->step) {
      print();
      if (step) { out << '\n'; }
      step = told->step;
    }
    kprC_StepDependent const& item = *told->attribute.item;
    std::string members;
    if (told->what == InForceChange::Gone) {
      members = WordOf(told->status).word;
    } else {
      std::vector<Origin> const origins = told->Origins();
      for (InForceMember const& member : told->members) {
        cls_Value const value = ValueAt(member.origin, origins, told->step, at);
        members.append(members.empty() ? "" : ", ")
            .append(member.origin.Member())
            .append(" ")
            .append(OriginText(member.origin, value, steps));
      }
    }
    auto const what = static_cast<std::size_t>(told->what);
    table.Add({{InForceText(told->what), kInForceStyles[what]},
               {std::string(item.Name().View()), Style::Strong},
               {item.ConstructionName(), Style::Faint},
               RegionText(item),
               members});
  }
  print();
  if (!step) { out << "nothing to tell\n"; }
}

}  // namespace gattr
