#include "module/kin/kinC_ContactExpEdits.h"

#include "module/kin/kinC_ContactExp.h"

namespace {

using Text = std::string;

kinC_ContactExp& Contact(kprC_StepDependent& item) { return static_cast<kinC_ContactExp&>(item); }

Text Counted(std::size_t count, Text const& what) { return std::to_string(count) + " " + what + (count == 1 ? "" : "s"); }

Text AddPairs(kprC_StepDependent& item, cow_String const& step, cls_Object const& arguments) {
  auto const& given = static_cast<kinC_PairArguments const&>(arguments);
  if (given.pairs.IsEmpty()) { return "There are no pairs to add."; }
  return Contact(item).AddPairs(given.pairs, step, given.excluded)
             ? ""
             : "One of the pairs takes part in the step already, in this domain or the other, or is given twice.";
}

Text RemovePairs(kprC_StepDependent& item, cow_String const& step, cls_Object const& arguments) {
  auto const& given = static_cast<kinC_PairArguments const&>(arguments);
  if (given.pairs.IsEmpty()) { return "There are no pairs to remove."; }
  return Contact(item).RemovePairs(given.pairs, step, given.excluded)
             ? ""
             : "One of the pairs does not take part in the step in that domain, or is given twice.";
}

/// Why values of kinds, \p counts of each, do not go with \p count of \p what; "" where they are of one kind, as many.
Text WhyNotAlike(std::initializer_list<std::size_t> counts, std::size_t count, Text const& what) {
  std::size_t kinds = 0, values = 0;
  for (std::size_t const of : counts) {
    kinds += of == 0 ? 0 : 1;
    values += of;
  }
  if (kinds != 1) { return "Values of one kind of assignments are to be given, not of " + std::to_string(kinds) + "."; }
  return values == count ? "" : "There are " + Counted(count, what) + " and " + Counted(values, "value") + ".";
}

Text AppendInStep(kprC_StepDependent& item, cow_String const& step, cls_Object const& arguments) {
  auto const& given = static_cast<kinC_AppendArguments const&>(arguments);
  Text why = WhyNotAlike(
      {
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) given.command.Size(),
#include "module/kin/kinC_Assignments.def"
      },
      given.pairs.Size(), "pair");
  if (!why.empty()) { return why; }
  auto const propagating = []<class V>(cls_xo1DArrayList<V> const& values) {
    kinC_ContactExp::Values<V> members;
    for (V const& value : values) { members.Append(mdl_PropAttr<V>(value)); }
    return members;
  };
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) \
  if (!given.command.IsEmpty()) { Contact(item).Append##Kind(step, given.pairs, propagating(given.command)); }
#include "module/kin/kinC_Assignments.def"
  return "";
}

Text ChangeValuesInStep(kprC_StepDependent& item, cow_String const& step, cls_Object const& arguments) {
  auto const& given = static_cast<kinC_ChangeArguments const&>(arguments);
  Text why = WhyNotAlike(
      {
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) given.command.Size(),
#include "module/kin/kinC_Assignments.def"
      },
      given.indices.Size(), "place");
  if (!why.empty()) { return why; }
  for (std::size_t i = 0; i < given.indices.Size(); ++i) {
    int const index = given.indices[i];
    bool done = true;
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...) \
  if (!given.command.IsEmpty()) { done = Contact(item).Change##Kind(step, index, given.command[i]); }
#include "module/kin/kinC_Assignments.def"
    if (!done) { return "There is no assignment " + std::to_string(index) + " of that kind in the step."; }
  }
  return "";
}

Text DeleteAssignments(kprC_StepDependent& item, cow_String const& /*step*/, cls_Object const& arguments) {
  auto const& given = static_cast<kinC_DeleteArguments const&>(arguments);
  bool any = false;
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...)                                        \
  if (!given.command.IsEmpty()) {                                                                         \
    any = true;                                                                                           \
    if (!Contact(item).Delete##Kind(given.command)) { return "One of \"" #command "\" does not exist."; } \
  }
#include "module/kin/kinC_Assignments.def"
  return any ? "" : "There are no assignments to delete.";
}

}  // namespace

std::span<kprC_TypeEdit const> kinC_Interaction::TypeEdits() {
  using Contact = kinC_ContactExp;
  static constexpr kprC_TypeEdit edits[] = {
      {Contact::addPairsCmd(), "has pairs of surfaces take part in general contact from a step on", Contact::TypeId(), true,
       &cls_Make<kinC_PairArguments>, &AddPairs},
      {Contact::removePairsCmd(), "takes pairs of surfaces out of general contact from a step on", Contact::TypeId(), true,
       &cls_Make<kinC_PairArguments>, &RemovePairs},
      {Contact::appendInStepCmd(), "assigns something to pairs or surfaces of general contact from a step on", Contact::TypeId(), true,
       &cls_Make<kinC_AppendArguments>, &AppendInStep},
      {Contact::changeValuesInStepCmd(), "changes what is assigned in general contact from a step on", Contact::TypeId(), true,
       &cls_Make<kinC_ChangeArguments>, &ChangeValuesInStep},
      {Contact::deleteCmd(), "takes assignments of general contact out of all steps; those behind them move up", Contact::TypeId(), false,
       &cls_Make<kinC_DeleteArguments>, &DeleteAssignments},
  };
  return edits;
}
