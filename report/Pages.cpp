#include "report/Pages.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "command/Check.h"
#include "command/Members.h"
#include "command/Session.h"
#include "command/Variables.h"
#include "command/Words.h"
#include "module/kor/korC_Output.h"
#include "module/kpf/kpfC_Field.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/mesh/kprC_AdptMeshCons.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "module/kpr/procedures/kprC_StepSequencer.h"
#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/thr_Singleton.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

using Texts = std::vector<std::string>;

std::string Joined(Texts const& texts, std::string_view separator = ", ") {
  std::string joined;
  for (std::string const& text : texts) { joined.append(joined.empty() ? "" : separator).append(text); }
  return joined;
}

std::string Code(std::string_view text) { return "`" + std::string(text) + "`"; }

/// A row of a table; what would end a cell is escaped.
std::string Row(Texts const& cells) {
  std::string row = "|";
  for (std::string const& cell : cells) {
    row += ' ';
    for (char const c : cell) { row += c == '|' ? "\\|" : c == '\n' ? "\\n" : std::string(1, c); }
    row += " |";
  }
  return row + "\n";
}
std::string Head(Texts const& cells) {
  std::string rule = "|";
  for (std::size_t i = 0; i < cells.size(); ++i) { rule += "---|"; }
  return Row(cells) + rule + "\n";
}

std::string Refusals() {
  std::string text;
  for (nex_Catalogue const& catalogue : thr_GlobalSingleton<nex_Catalogues>::Instance().All()) {
    text += "## " + std::string(catalogue.module) + "\n\n" + Head({"code", "name", "class", "text", "raised by"});
    for (auto const rows : {catalogue.rows, catalogue.contents}) {
      for (nex_ErrorRow const& row : rows) {
        text +=
            Row({row.code < 0 ? "-" : std::to_string(row.code), row.name, row.valueError ? "omu_ValueErrorException" : "nex_TextException",
                 row.IsReserved() ? "(reserved)" : Code(row.text), row.raisedBy});
      }
    }
    text += "\n";
  }
  return text;
}

std::string Findings() {
  std::string text = Head({"identifier", "severity", "meaning"});
  for (FindingRow const& row : FindingRows()) { text += Row({row.id, std::string(SeverityText(row.severity)), std::string(row.meaning)}); }
  return text;
}

/// "of the model", "a region", what a member names.
std::string_view Named(cls_Reference reference) {
  switch (reference) {
    case cls_Reference::None: return "";
    case cls_Reference::Region: return "region";
    case cls_Reference::Amplitude: return "amplitude";
    case cls_Reference::Field: return "field";
    case cls_Reference::Connector: return "connector";
    case cls_Reference::CoordinateSystem: return "coordinate system";
    case cls_Reference::Axis: return "axis";
    case cls_Reference::Property: return "property";
    case cls_Reference::TimePoint: return "time point";
    case cls_Reference::Interaction: return "interaction";
    case cls_Reference::ContactControls: return "contact controls";
    case cls_Reference::Load: return "load";
    case cls_Reference::Filter: return "filter";
    case cls_Reference::IntegratedOutputSection: return "integrated output section";
  }
  return "";
}

/// The kind of a member or argument: its type, what it names, the texts that it takes.
std::string Kind(ArgumentInfo const& info, std::string_view named = "") {
  std::string kind = info.Type();
  if (!named.empty()) { kind += " (" + std::string(named) + ")"; }
  if (info.perStep) { kind += ", per step"; }
  if (!info.permissible.empty()) {
    Texts texts;
    for (std::string const& text : info.permissible) { texts.push_back(Code(text)); }
    kind += ": " + Joined(texts);
  }
  return kind;
}

std::string Default(ArgumentInfo const& info) { return info.preset.IsNull() ? "" : Code(JsonText(info.preset)); }

std::string Commands() {
  std::string text, group;
  for (CommandInfo const& command : Session::Commands()) {
    if (command.group != group) { text += "## Commands: " + (group = command.group) + "\n\n"; }
    text += "### " + command.name + "\n\n" + command.meaning + "\n\n";
    std::vector<ArgumentInfo> const arguments = command.Listed();
    if (arguments.empty()) { continue; }
    text += Head({"argument", "kind", "default", "unit", "meaning"});
    for (ArgumentInfo const& argument : arguments) {
      text += Row({Code(argument.name) + (argument.required ? " (required)" : ""), Kind(argument), Default(argument), argument.unit,
                   argument.meaning});
    }
    text += "\n";
  }
  return text;
}

Texts MemberCells(cls_MemberInfo const& info, ArgumentInfo const& described) {
  std::string name = Code(info.name);
  if (info.command != info.name) { name += ", in commands " + Code(info.command); }
  return {name, Kind(described, Named(info.refers)), Default(described), described.unit, described.meaning};
}

std::string Classes() {
  cls_ClassRegistrar const& registrar = cls_MetadataRegistrar::Registrar();
  std::string text = "## Classes\n\n";
  for (auto const& [typeId, metadata] : registrar.Classes()) {
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", typeId);
    cls_ClassMetadata const* const base = registrar.Find(metadata.baseId);
    text += "### " + metadata.name + "\n\n" + number;
    text += base == nullptr ? "" : ", a " + Code(base->name);
    text += metadata.CanBeRead() ? "" : ", abstract";
    std::vector<ArgumentInfo> const members = MembersOf(metadata);
    std::vector<ArgumentInfo> const inherited = base == nullptr ? std::vector<ArgumentInfo>() : MembersOf(*base);
    std::string rows;
    for (std::size_t i = 0; i < members.size(); ++i) {
      Texts const cells = MemberCells(metadata.members[i], members[i]);
      bool const asInBase = i < inherited.size() && cells == MemberCells(base->members[i], inherited[i]);
      if (!asInBase) { rows += Row(cells); }
    }
    text += rows.empty() ? "\n\n" : "\n\n" + Head({"member", "kind", "default", "unit", "meaning"}) + rows + "\n";
  }
  return text;
}

/// A procedure by its command, "Step" left out.
std::string ProcedureName(unsigned procedureType) {
  if (procedureType == kprC_ProcedureType::Initial) { return "Initial"; }
  std::string_view const command = kprC_FindProcedure(procedureType)->command;
  return std::string(command.substr(0, command.size() - std::string_view("Step").size()));
}
template <class Procedures> std::string ProcedureNames(Procedures const& procedures) {
  Texts names;
  for (unsigned const procedure : procedures) { names.push_back(ProcedureName(procedure)); }
  return names.empty() ? "nothing" : Joined(names);
}

/// The members that the class \p typeId has and \p bases have not, with their units: "`u1`, `u2` (length), `fixed`".
std::string OwnMembers(unsigned typeId, unsigned baseId) {
  cls_ClassRegistrar const& classes = cls_MetadataRegistrar::Registrar();
  std::string members, unit;
  auto const closeUnit = [&] { members += unit.empty() ? "" : " (" + unit + ")"; };
  for (cls_MemberInfo const& member : classes.Find(typeId)->members) {
    if (classes.Find(baseId)->Find(member.name) != nullptr) { continue; }
    if (member.unit != unit) { closeUnit(); }
    members += (members.empty() ? "`" : ", `") + member.name + "`";
    unit = member.unit;
  }
  closeUnit();
  return members;
}

/// The first class of the module that \p typeId extends.
unsigned FamilyBase(unsigned typeId) {
  cls_ClassRegistrar const& classes = cls_MetadataRegistrar::Registrar();
  for (;;) {
    cls_ClassMetadata const* base = classes.Find(classes.Find(typeId)->baseId);
    if (base == nullptr || base->typeId >> 16 != typeId >> 16) { return typeId; }
    typeId = base->typeId;
  }
}

/// Lines that say the same, in the order of the first of each; what they are of stands in the first cell.
class Grouped {
public:
  void Add(std::string const& head, Texts cells) {
    auto const same = std::ranges::find(lines_, cells, &Line::cells);
    if (same != lines_.end()) {
      same->heads.push_back(head);
    } else {
      lines_.push_back({{head}, std::move(cells)});
    }
  }
  /// The lines under \p headings; a column in which no line has a word is left out.
  std::string Table(Texts headings) const {
    std::vector<Texts> rows;
    for (Line const& line : lines_) {
      rows.push_back({Joined(line.heads)});
      rows.back().insert(rows.back().end(), line.cells.begin(), line.cells.end());
    }
    for (std::size_t column = headings.size(); column-- > 0;) {
      if (std::ranges::any_of(rows, [&](Texts const& row) { return !row[column].empty(); })) { continue; }
      auto const dropFrom = [column](Texts& row) { row.erase(row.begin() + static_cast<std::ptrdiff_t>(column)); };
      dropFrom(headings);
      std::ranges::for_each(rows, dropFrom);
    }
    std::string table = Head(headings);
    for (Texts const& row : rows) { table += Row(row); }
    return table;
  }

private:
  struct Line {
    Texts heads, cells;
  };
  std::vector<Line> lines_;
};

std::string TypesOf(kprC_StepAwareRepository const& repository) {
  Grouped types;
  for (auto const& construction : repository.Constructions()) {
    auto const item = repository.Construct(construction.command);
    item->Begin(cow_String("Initial"), kprC_ProcedureType::Initial);
    unsigned const state = item->StateAt(0)->DynTypeId();
    Texts members = {OwnMembers(item->DynTypeId(), FamilyBase(item->DynTypeId())), OwnMembers(state, FamilyBase(state))};
    std::erase(members, "");
    types.Add(Code(construction.command), {std::string(construction.label), item->CategoryText(), item->LoadCaseText(),
                                           std::string(ActsOnText(item->ActsOn())), Joined(members)});
  }
  return types.Table({"command", "label", "category", "in load cases", "acts on", "members"});
}

std::string AdmissionOf(kprC_StepAwareRepository const& repository) {
  std::vector<unsigned> procedures = {kprC_ProcedureType::Initial};
  for (kprC_ProcedureRow const& row : kprC_procedures) { procedures.push_back(row.type); }
  Grouped types;
  for (auto const& construction : repository.Constructions()) {
    auto const item = repository.Construct(construction.command);
    std::vector<unsigned> created, carried;
    for (unsigned const procedure : procedures) {
      bool const admitted = item->Admits(procedure, false);
      if (admitted) { created.push_back(procedure); }
      if (!admitted && item->Admits(procedure, true)) { carried.push_back(procedure); }
    }
    types.Add(Code(construction.command), {ProcedureNames(created), ProcedureNames(carried)});
  }
  return types.Table({"type", "may be created in", "may only be carried into"});
}

using Sequence = std::vector<unsigned>;

/// The shortest legal sequence that ends with the procedure, the first of its length in the order of the labels.
std::optional<Sequence> ShortestTo(unsigned procedure) {
  constexpr int kLongest = 3;
  std::vector<Sequence> level = {{}};
  for (int length = 0; length < kLongest; ++length) {
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

/// A row per set of followers, in the order of the labels: what stands last, and what may come behind it.
std::string Followers() {
  Grouped rows;
  auto const add = [&rows](Sequence const& sequence) {
    kprC_StepSequencer const sequencer(cow_List<unsigned>(sequence), true);
    std::string last = sequence.empty() ? "the initial step alone" : ProcedureName(sequence.back());
    if (sequence.size() > 1) { last += " (behind " + ProcedureNames(Sequence(sequence.begin(), sequence.end() - 1)) + ")"; }
    rows.Add(last, {ProcedureNames(sequencer.AppendableGeneral()), ProcedureNames(sequencer.AppendablePerturbation())});
  };
  add({});
  for (auto const& [label, procedure] : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    if (auto const sequence = ShortestTo(procedure)) { add(*sequence); }
  }
  return rows.Table({"last step", "general steps that may follow", "perturbation steps that may follow"});
}

std::string_view Answer(kprC_Answer answer) {
  return answer == kprC_Answer::Member ? "as the step says" : answer == kprC_Answer::Yes ? "yes" : "no";
}

/// The procedures in the order in which they are offered, with what is fixed of each.
std::string Procedures() {
  std::string text = Head({"label", "command", "perturbation", "explicit", "not mechanical", "nlgeom", "response", "adiabatic",
                           "load cases", "adaptive mesh", "period", "matrix solver", "convertSDI"});
  for (auto const& [label, type] : thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().Entries()) {
    kprC_ProcedureRow const* const row = kprC_FindProcedure(type);
    if (row == nullptr) { continue; }
    Texts cells = {Code(label), Code(row->command)};
    for (kprC_Answer const answer : {row->perturbation, row->isExplicit, row->nonmechanical, row->nlgeom, row->response, row->adiabatic,
                                     row->loadCases, row->adaptiveMesh, row->period, row->solver, row->convertSDI}) {
      cells.emplace_back(Answer(answer));
    }
    text += Row(cells);
  }
  return text;
}

/// How each family classifies the statuses, and what it refuses.
std::string Statuses() {
  constexpr std::pair<unsigned, std::string_view> kTraits[] = {
      {kprC_Active, "active"},     {kprC_Propagated, "propagated"}, {kprC_BuiltIn, "built in"},
      {kprC_Editable, "editable"}, {kprC_Changed, "changed"},       {kprC_IllegalMove, "in the way of a move"},
      {kprC_NoReset, "not reset"},
  };
  std::string text;
  for (auto const& [member, extension] : mdl_ExtensionSubject::Registered()) {
    auto const* family = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (family == nullptr) { continue; }
    text += "### " + member + "\n\n" + Head({"status", "text", "is"});
    for (std::size_t status = 0; status < family->Statuses().size(); ++status) {
      unsigned const traits = family->Statuses()[status];
      Texts is = {(traits & kprC_Known) == 0 ? "refused as unknown" : ""};
      for (auto const& [trait, word] : kTraits) {
        if ((traits & trait) != 0) { is.emplace_back(word); }
      }
      std::erase(is, "");
      omu_PrimEnum<mdl_PropagationStatusEnm, 1> const value(static_cast<mdl_PropagationStatusEnm>(status));
      text += Row({std::to_string(status), Code(value.View()), Joined(is)});
    }
    text += "\n";
  }
  return text;
}

/// The variables that output requests may ask for, a table to each category. Rows with the same procedures share a number.
std::string OutputVariables() {
  std::string text, category;
  Texts sets;
  for (VariableInfo const& info : Variables({})) {
    if (info.category != category) {
      category = info.category;
      text += (text.empty() ? "### " : "\n### ") + category + "\n\n" +
              Head({"variable", "meaning", "components", "of", "where", "class", "in", "procedures"});
    }
    std::string const procedures = Joined(info.procedures);
    auto const found = std::ranges::find(sets, procedures);
    std::size_t const number = static_cast<std::size_t>(found - sets.begin()) + 1;
    if (found == sets.end()) { sets.push_back(procedures); }
    text += Row({Code(info.name), info.description, Joined(info.components, " "), info.parent, info.location, info.output,
                 Joined(info.channels), std::to_string(number)});
  }
  text += "\n### Procedures\n\n" + Head({"number", "procedures"});
  for (std::size_t i = 0; i < sets.size(); ++i) { text += Row({std::to_string(i + 1), sets[i]}); }
  return text;
}

/// A family whose page is not called after its repository; one that shares the page tells its parts apart.
struct FamilyPage {
  std::string_view member, page;
  bool isShared;
};
constexpr FamilyPage kFamilyPages[] = {
    {kpfC_Field::predefinedFieldsCmd(), "fields", false},
    {kprC_AdptMeshCons::adptMeshConsRepositoryCmd(), "mesh-constraints", false},
    {korC_FieldOutput::repositoryCmd(), "output", true},
    {korC_HistoryOutput::repositoryCmd(), "output", true},
};

}  // namespace

std::vector<PagePart> PageParts() {
  std::vector<PagePart> parts = {
      {"docs/refusals.md", "refusals", Refusals()},
      {"docs/reference.md", "commands", Commands()},
      {"docs/reference.md", "classes", Classes()},
      {"docs/steps.md", "procedures", Procedures()},
      {"docs/steps.md", "table of followers", Followers()},
      {"docs/histories.md", "statuses", Statuses()},
      {"docs/check.md", "findings", Findings()},
      {"docs/output.md", "variables", OutputVariables()},
  };
  for (auto const& [member, extension] : mdl_ExtensionSubject::Registered()) {
    auto const* family = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (family == nullptr) { continue; }
    auto const* const own = std::ranges::find(kFamilyPages, std::string_view(member), &FamilyPage::member);
    bool const isNamed = own != std::end(kFamilyPages);
    std::string const page = "docs/" + (isNamed ? std::string(own->page) : SplitWords(member, '-')) + ".md";
    std::string const of = isNamed && own->isShared ? " of " + member : "";
    parts.push_back({page, "types" + of, TypesOf(*family)});
    parts.push_back({page, "procedures" + of, AdmissionOf(*family)});
  }
  return parts;
}

}  // namespace gattr
