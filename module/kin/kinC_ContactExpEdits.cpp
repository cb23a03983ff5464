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

namespace {

/// The step of a record that has gone: what it told of is still there, nothing is said of it.
constexpr std::size_t kGone = kprC_StepTable::npos;

/// What own records say of the element of a list, by their steps.
template <class V> using SaidBySteps = std::vector<std::pair<std::size_t, V>>;

/// What is said of each element of a list that has \p size of them.
template <class V>
std::vector<SaidBySteps<V>> Said(kinC_ContactExp const& contact, std::size_t size, mdl_PropList<V> kinC_ContactExpState::*list) {
  std::vector<SaidBySteps<V>> said(size);
  contact.ForEachRecord([&](std::size_t step, mdl_PropagationStatusEnm, cls_Object const* state) {
    if (state == nullptr) { return; }
    (static_cast<kinC_ContactExpState const*>(state)->*list).ForEachTold([&](std::size_t i, mdl_PropAttr<V> const& element) {
      if (i < size && element.HasValue()) { said[i].emplace_back(step, element.ConstGet()); }
    });
  });
  return said;
}

/// Edits in a row that are of one command in one step, given as one.
template <class Arguments> class Joining {
public:
  Joining(kinC_ContactExp const& contact, kprC_StepDependent::EditVisitor const& visit) : contact_(contact), visit_(visit) {}
  ~Joining() = default;
  Joining(Joining const&) = delete;
  Joining& operator=(Joining const&) = delete;

  /// \p apart: edits in which it differs are never one.
  template <class Add> void Join(std::string_view command, std::size_t step, Add&& add, bool apart = false) {
    if (command != command_ || step != step_ || apart != apart_) { Flush(); }
    command_ = command;
    step_ = step;
    apart_ = apart;
    add(arguments_);
  }
  void Flush() {
    bool const isGone = step_ == kGone;
    if (!command_.empty()) { visit_(command_, isGone ? cow_String() : contact_.Steps().Name(step_), arguments_); }
    arguments_ = Arguments();
    command_ = {};
  }

private:
  kinC_ContactExp const& contact_;
  kprC_StepDependent::EditVisitor const& visit_;
  std::string_view command_;
  std::size_t step_ = 0;
  bool apart_ = false;
  Arguments arguments_;
};

/// The edits that have a pair take part where \p said says so, in an order in which each can be done.
SaidBySteps<bool> PairEdits(SaidBySteps<bool> const& said) {
  if (said.empty()) { return {{kGone, true}}; }
  SaidBySteps<bool> edits;
  bool repeated = false, takesPart = false;
  for (auto const& [step, is] : said) {
    repeated = repeated || (is && takesPart);
    takesPart = is;
  }
  takesPart = false;
  auto const say = [&](std::size_t step, bool is) {
    if (!is && (!takesPart || repeated)) { edits.emplace_back(step, true); }
    edits.emplace_back(step, is);
    takesPart = is;
  };
  if (repeated) {  // what is there already is said where it is not yet: from behind
    for (std::size_t i = said.size(); i-- > 0;) { say(said[i].first, said[i].second); }
  } else {
    for (auto const& [step, is] : said) { say(step, is); }
  }
  return edits;
}

}  // namespace

void kinC_ContactExp::TellPairs(EditVisitor const& visit) const {
  Joining<kinC_PairArguments> joining(*this, visit);
  auto const tell = [&](bool excluded, std::size_t pair, std::size_t step, bool takesPart) {
    auto const add = [&](kinC_PairArguments& arguments) {
      arguments.pairs.Append(Domain(excluded)[pair]);
      arguments.excluded = excluded;
    };
    joining.Join(takesPart ? addPairsCmd() : removePairsCmd(), step, add, excluded);
  };
  bool inBoth = false;
  for (kinC_RegionPair const& one : includedPairs_) {
    for (kinC_RegionPair const& other : excludedPairs_) { inBoth = inBoth || one.Equals(other); }
  }
  std::vector<SaidBySteps<bool>> said[2];
  for (bool const excluded : {false, true}) {
    std::size_t const size = Domain(excluded).Size();
    said[excluded] = Said(*this, size, excluded ? &State_::activeExcludedPairs : &State_::activeIncludedPairs);
    if (inBoth) {  // one is in the other's way: all are named first where it does not matter
      for (bool const takesPart : {true, false}) {
        for (std::size_t i = 0; i < size; ++i) { tell(excluded, i, kGone, takesPart); }
      }
      continue;
    }
    std::vector<std::pair<std::size_t, std::pair<std::size_t, bool>>> later;
    for (std::size_t i = 0; i < size; ++i) {
      SaidBySteps<bool> const edits = PairEdits(said[excluded][i]);
      tell(excluded, i, edits[0].first, edits[0].second);
      for (std::size_t at = 1; at < edits.size(); ++at) { later.emplace_back(i, edits[at]); }
    }
    for (auto const& [pair, edit] : later) { tell(excluded, pair, edit.first, edit.second); }
  }
  for (std::size_t step = inBoth ? Steps().Size() : 0; step-- > 0;) {  // and are said from behind, where nothing is said before
    for (bool const excluded : {false, true}) {
      for (std::size_t i = 0; i < said[excluded].size(); ++i) {
        for (auto const& [at, takesPart] : said[excluded][i]) {
          if (at == step) { tell(excluded, i, step, true); }
          if (at == step && !takesPart) { tell(excluded, i, step, false); }
        }
      }
    }
  }
  joining.Flush();
}

void kinC_ContactExp::ForEachTypeEdit(EditVisitor const& visit) const {
  TellPairs(visit);
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, ...)                            \
  {                                                                                           \
    auto const said = Said(*this, regions##_.Size(), &State_::values);                        \
    Joining<kinC_AppendArguments> joining(*this, visit);                                      \
    for (std::size_t i = 0; i < said.size(); ++i) {                                           \
      std::size_t const step = said[i].empty() ? kGone : said[i][0].first;                    \
      joining.Join(appendInStepCmd(), step, [&](kinC_AppendArguments& arguments) {            \
        arguments.pairs.Append(regions##_[i]);                                                \
        arguments.command.Append(said[i].empty() ? Value() : said[i][0].second);              \
      });                                                                                     \
    }                                                                                         \
    joining.Flush();                                                                          \
    Joining<kinC_ChangeArguments> changing(*this, visit);                                     \
    for (std::size_t step = 0; step < Steps().Size(); ++step) {                               \
      for (std::size_t i = 0; i < said.size(); ++i) {                                         \
        for (std::size_t at = 1; at < said[i].size(); ++at) {                                 \
          if (said[i][at].first != step) { continue; }                                        \
          changing.Join(changeValuesInStepCmd(), step, [&](kinC_ChangeArguments& arguments) { \
            arguments.indices.Append(static_cast<int>(i));                                    \
            arguments.command.Append(said[i][at].second);                                     \
          });                                                                                 \
        }                                                                                     \
      }                                                                                       \
    }                                                                                         \
    changing.Flush();                                                                         \
  }
#include "module/kin/kinC_Assignments.def"
}

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
