#include "module/kpr/engine/kprC_Attribute.h"

#include <algorithm>

#include "framework/mdl_Extension.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "platform/BasicUtils/cls_Weight.h"
#include "platform/CaeUtils/omu_KeyErrorException.h"

using Status_ = mdl_PropagationStatusEnm;

namespace {
constexpr std::size_t npos = kprC_StepTable::npos;
}  // namespace

kprC_Operation const& kprC_Family::Operation(kprC_Effect effect) const {
  auto const operation = std::ranges::find(operations, effect, &kprC_Operation::effect);
  static constexpr std::string_view kEffects[] = {"switching off", "taking back", "moving"};
  if (operation == operations.end()) { mdl_RefuseMissing(kEffects[static_cast<std::size_t>(effect)], "family's list of operations"); }
  return *operation;
}

// ---- what is asked

struct kprC_Attribute::Asked {
  kprC_Effect effect;
  cow_String const& step;
  cow_String const& toStep;
  std::size_t index = npos, to = npos;
  Status_ status = Status_::NotYetCreated;  // in the step, which no question changes
  bool emptied = false;                     // the records between were
};

std::size_t kprC_Attribute::Known(cow_String const& step) const {
  std::size_t const index = States().Find(step.View());
  if (index == npos && Family().lookUpByKey) {
    nex_Exception::Throw(omu_KeyErrorException("There is no step \"" + std::string(step.View()) + "\"."),
                         "module/kpr/engine/kprC_Attribute", __LINE__);
  }
  Family().Assert(index != npos, Family().unknownStep);
  return index;
}

bool kprC_Attribute::SaysSomething(std::size_t begin, std::size_t end) const {
  bool says = false;
  States().ForEachOwn([&](std::size_t index, kprC_History::Own const& own) {  // what is carried is never in the way
    says = says || (index >= begin && index < end && Is(own.status, kprC_IllegalMove));
  });
  return says;
}

bool kprC_Attribute::Holds(kprC_Ask ask, Asked& asked) {
  kprC_History& states = States();
  auto const is = [&](unsigned trait) { return Is(asked.status, trait); };
  switch (ask) {
    case kprC_Ask::UnknownStep:
      asked.index = states.Find(asked.step.View());
      asked.to = asked.effect == kprC_Effect::Move ? states.Find(asked.toStep.View()) : asked.index;
      if (asked.index == npos || asked.to == npos) { return true; }
      asked.status = states.Status(asked.index);
      return false;
    case kprC_Ask::SameStep: return asked.step == asked.toStep;
    case kprC_Ask::InitialStep: return Steps().IsInitial(asked.index);
    case kprC_Ask::IntoInitialStep: return Steps().IsInitial(asked.to);
    case kprC_Ask::CreateStep: return asked.step == CreateStepName();
    case kprC_Ask::NoState: return !states.HoldsState(asked.index);
    case kprC_Ask::SwitchedOff: return states.IsOff(asked.index);
    case kprC_Ask::PassedOver: return asked.status == Pass().notAdmitted;
    case kprC_Ask::Perturbation: {
      auto const& procedure = Steps()[asked.index].procedure;
      return procedure && procedure->Perturbation();
    }
    case kprC_Ask::Inactive: return !is(kprC_Active);
    case kprC_Ask::BuiltIn: return is(kprC_BuiltIn);
    case kprC_Ask::NotEditable: return !is(kprC_Editable);
    case kprC_Ask::Propagated: return is(kprC_Propagated);
    case kprC_Ask::NoReset: return (Family().statuses[static_cast<std::size_t>(asked.status)] & kprC_NoReset) != 0;
    case kprC_Ask::OfType: AssertOperation(asked.effect, asked.index, asked.to); return false;
    case kprC_Ask::DestinationFirst: return asked.to < asked.index && SaysSomething(asked.to, asked.to + 1);
    case kprC_Ask::Between: return SaysSomething(std::min(asked.index, asked.to) + 1, std::max(asked.index, asked.to));
    case kprC_Ask::Destination: return SaysSomething(asked.to, asked.to + 1);
    case kprC_Ask::EmptyBetween:
      states.Clear(std::min(asked.index, asked.to) + 1, std::max(asked.index, asked.to));
      states.NewUid();
      asked.emptied = true;
      return false;
    case kprC_Ask::Target: AssertTarget(asked.to); return false;
    case kprC_Ask::NotAdmittedLater:
      if (Steps().IsInitial(asked.to)) { return false; }
      [[fallthrough]];
    case kprC_Ask::NotAdmitted: return Steps()[asked.to].procedure && !Admits(Steps().Facts(asked.to), false);
  }
  return false;
}

bool kprC_Attribute::Ask(std::span<kprC_Test const> tests, Asked& asked) {
  for (kprC_Test const& test : tests) {
    if (!Holds(test.ask, asked)) { continue; }
    if (test.refusal < 0) { return false; }
    Family().refuse(test.refusal);
  }
  return true;
}

void kprC_Attribute::AssertTarget(std::size_t to) const {
  auto const& procedure = Steps()[to].procedure;
  if (!procedure) { return; }
  std::uint32_t const bit = kprC_ProcedureBit(Steps().ProcedureType(to));
  for (auto const& target : Family().targets) { Family().Assert((target.procedures & bit) == 0, target.refusal); }
}

template <class Fn> void kprC_Attribute::EditRecords(Fn&& edit) {
  bool const passed = checked_ && !suppress_;
  Edit([&] {
    passed_ = passed;
    edit();
  });
}

template <class Fn> void kprC_Attribute::Edit(Fn&& edit) {
  checked_ = passed_ = false;
  if (!Family().onCopy) { return edit(); }
  kprC_History const states = States();
  bool const suppressed = suppress_;
  try {
    edit();
  } catch (...) {
    States() = states;
    suppress_ = suppressed;
    throw;
  }
}

// ---- operations

void kprC_Attribute::Resume() {
  Edit([this] {
    suppress_ = false;
    Sync();
  });
}

bool kprC_Attribute::PutState(cow_String const& step, kprC_State const& state) {
  cow_Handle<kprC_State> copy(kprC_Duplicate(state));
  copy.Get().NewUid();
  kprC_History& states = States();
  if (states.Size() == 0) {
    states.StartWith(step, std::move(copy));
    return true;
  }
  std::size_t const index = states.Find(step.View());
  if (index == npos) { return false; }
  EditRecords([&] {
    // the create step stays the create step, also where it was switched off
    Status_ const status = states.IsCreateStep(index) ? Status_::Created : states.Status(index);
    bool const off = copy->SwitchedOff();
    states.Set(index, status, std::move(copy), off);
    if (Steps().HasProcedure()) { Sync(); }
  });
  return true;
}

void kprC_Attribute::EditStates(std::function<bool(kprC_State& state)> const& change) {
  Edit([&] {
    States().ChangeStates(change);
    Sync();
  });
}

void kprC_Attribute::Begin(cow_String const& step, unsigned procedureType) { InsertState(step, *MakeState(procedureType)); }

bool kprC_Attribute::SetInStep(cow_String const& step, kprC_Arguments const& members, std::string* unknown) {
  kprC_History const& states = States();
  std::size_t const index = states.Size() == 0 ? npos : Known(step);
  std::unique_ptr<kprC_State> state = index == npos ? nullptr : states.StateCopy(index);
  if (!state) { state = MakeState(index == npos ? 0 : Steps().ProcedureType(index)); }
  state->SetSwitchedOff(false);
  for (auto const& [name, value] : members) {
    if (auto const* text = value.template As<std::string>()) {
      Family().Assert(Family().setToPropagated < 0 || *text != "PROPAGATED", Family().setToPropagated);
      AssertMemberState(index, name, *text);
    }
    if (!state->SetMember(name, value)) {
      *unknown = name;
      return false;
    }
  }
  return InsertState(step, *state);
}

bool kprC_Attribute::Remove(cow_String const& step) {
  if (!IsMember(step)) { return false; }
  EditRecords([&] {
    std::size_t const index = Known(step);
    States().Clear(index, index + 1);
    Sync();
  });
  return true;
}

void kprC_Attribute::Deactivate(cow_String const& step) { Perform(Family().Operation(kprC_Effect::SwitchOff), step, step); }

void kprC_Attribute::Reset(cow_String const& step) { Perform(Family().Operation(kprC_Effect::TakeBack), step, step); }

void kprC_Attribute::Move(cow_String const& fromStep, cow_String const& toStep) {
  Perform(Family().Operation(kprC_Effect::Move), fromStep, toStep);
}

void kprC_Attribute::Perform(kprC_Operation const& operation, cow_String const& step, cow_String const& toStep) {
  Asked asked{.effect = operation.effect, .step = step, .toStep = toStep};
  if (operation.effect == kprC_Effect::Move) {
    return Edit([&] { MoveRecord(operation, asked); });
  }
  if (!Ask(operation.tests, asked)) { return; }
  EditRecords([&] {
    if (operation.effect == kprC_Effect::SwitchOff) {
      SwitchOff(asked.index);
    } else {
      States().Clear(asked.index, asked.index + 1);
    }
    Sync();
  });
}

void kprC_Attribute::SwitchOff(std::size_t index) {
  kprC_History& states = States();
  states.Set(index, states.Status(index), states.OffHandle(index), true);
}

void kprC_Attribute::MoveRecord(kprC_Operation const& operation, Asked& asked) {
  kprC_History& states = States();
  kprC_History const before = states;
  try {
    if (!Ask(operation.tests, asked)) { return; }
  } catch (...) {
    if (asked.emptied && !Family().onCopy) {  // until the next pass the records between show that they are empty
      for (std::size_t i = std::min(asked.index, asked.to) + 1; i < std::max(asked.index, asked.to); ++i) {
        states.Empty(i, before.Status(i));
      }
    }
    throw;
  }
  cow_Handle<kprC_State> moved = states.StateHandle(asked.index);
  Status_ const status = states.Status(asked.index);
  bool marked = false;
  if (moved) {
    marked = moved->SwitchedOff();
    moved.Get().NewUid();
  }
  states.Clear(asked.index, asked.index + 1);
  states.Set(asked.to, status, std::move(moved), marked);
  Sync();
}

void kprC_Attribute::UpdateStates() {
  std::size_t const index = States().CreateStep();
  if (index != npos && Steps()[index].procedure && RefusedWhereNotAdmitted()) {
    if (auto const refused = RefusedIn(Steps().Facts(index))) { Family().refuse(*refused); }
    Family().Assert(Admits(Steps().Facts(index), false), Family().createNotAdmitted);
  }
  Edit([this] { Sync(); });
}

void kprC_Attribute::ReplaceStep(cow_String const& step) {
  std::size_t const index = Known(step);
  EmptyStep(index, Steps().WithReplaced(index, kprC_StepNameProcedurePair(Steps().Name(index), nullptr)));
}

// ---- forming and checking

cow_Handle<kprC_Carrying> kprC_Attribute::Carrying() const {
  auto carrying = cow_Handle<kprC_Carrying>::Make();
  kprC_Carrying& made = carrying.Get();
  made.pass = &Pass();
  made.admitted = kprC_StepSet::Where([this](kprC_StepFacts step) { return Admits(step, true); });
  made.kept = kprC_StepSet::Where([this](kprC_StepFacts step) { return StaysFromInitial(step); });
  return carrying;
}

kprC_History::Span kprC_Attribute::FormHistory() {
  States().SetCarrying(Carrying());
  Span changed = States().Form();
  if (!CarriedByValues()) { return changed; }
  States().SetCarrying(Carrying());  // the creation may be another one now
  changed.Add(States().Form());
  return changed;
}

void kprC_Attribute::Sync() {
  Span const changed = FormHistory();
  AssertRecords(passed_ && !LooksAtSteps() && !CarriedByValues() ? changed : Span::All());
  checked_ = true;
}

void kprC_Attribute::AssertValid() const { AssertRecords(Span::All()); }

void kprC_Attribute::AssertRecords(Span steps) const {
  if (suppress_) { return; }
  AssertMembers();
  AssertSteps(steps);
  AssertWhole();
  ForEachOwnEditable([this](std::size_t index, kprC_State const& state) { AssertOwnState(state, index); }, steps);
}

void kprC_Attribute::AssertSteps(Span steps) const {
  if (!RefusedWhereNotAdmitted()) { return; }
  bool anneal = false, admitted = true;
  std::optional<int> refused;  // the lowest number of all steps
  States().ForEachOwn(steps, [&](std::size_t index, kprC_History::Own const& own) {
    if (!own.state || !Is(own.status, kprC_Editable)) { return; }
    kprC_StepFacts const step = Steps().Facts(index);
    anneal = anneal || step.procedureType == kprC_annealStepType;
    admitted = admitted && Admits(step, own.status != Status_::Created);
    auto const here = RefusedIn(step);
    if (here && (!refused || *here < *refused)) { refused = here; }
  });
  Family().Assert(!anneal, Family().anneal);
  if (refused) { Family().refuse(*refused); }
  Family().Assert(admitted, Family().createNotAdmitted);
}

// ---- members and what they name

bool kprC_Attribute::SetMember(std::string_view name, cls_Value const& value) {
  checked_ = false;
  return kprC_StepDependent::SetMember(name, value);
}

cls_xoList<rgnC_Region> kprC_Attribute::Regions(rgnC_RegionType type) const {
  cow_Map<cow_String, bool> seen;
  cls_xoList<rgnC_Region> regions;
  cls_ForEachReference(MemberRows(), static_cast<void const*>(this), [&](cls_Reference, std::string_view name, cls_Object const* whole) {
    auto const* const region = dynamic_cast<rgnC_Region const*>(whole);
    if (region != nullptr && region->Type() == type && seen.Insert(cow_String(name), true)) { regions.Append(*region); }
  });
  return regions;
}

cow_1DArrayList<cow_String> kprC_Attribute::Amplitudes() const {
  cow_Map<cow_String, bool> seen;
  cow_1DArrayList<cow_String> names;
  cls_ForEachReference(MemberRows(), static_cast<void const*>(this), [&](cls_Reference kind, std::string_view name, cls_Object const*) {
    if (kind == cls_Reference::Amplitude && seen.Insert(cow_String(name), true)) { names.Append(cow_String(name)); }
  });
  return names;
}

bool kprC_Attribute::Redirect(cls_Redirection const& to) {
  bool redirected = false;
  Edit([&] {
    redirected = cls_Redirect(MemberRows(), static_cast<void*>(this), to);
    if (redirected) { Sync(); }
  });
  return redirected;
}

void kprC_Attribute::ForEachRun(RunVisitor const& visit) const {
  States().ForEachRun(
      [&visit](std::size_t begin, std::size_t end, Status_ status, kprC_State const* state) { visit(begin, end, status, state); });
}

cow_List<Status_> kprC_Attribute::History() const {
  std::vector<Status_> statuses;
  statuses.reserve(States().Size());
  States().ForEachRun([&statuses](std::size_t begin, std::size_t end, Status_ status, kprC_State const*) {
    statuses.insert(statuses.end(), end - begin, status);
  });
  return cow_List<Status_>(std::move(statuses));
}

cow_String kprC_Attribute::CreateStepName() const {
  std::size_t const index = States().CreateStep();
  return index == npos ? cow_String() : Steps().Name(index);
}

// ---- the repository's calls

void kprC_Attribute::MatchTo(kprC_StepTable const& steps) {
  std::size_t const create = States().CreateStep();
  bool const known = create == npos || steps.Continues(Steps()) || steps.Find(Steps().Name(create).View()) != npos;
  Family().Assert(known, Family().unknownStep);
  States().Attach(steps);
}

void kprC_Attribute::Initialize(kprC_StepTable const& steps) {
  if (steps.Size() == 0) { return; }
  Edit([&] {
    MatchTo(steps);
    Sync();
  });
}

void kprC_Attribute::InitializeStateValues(kprC_StepTable const& steps) {
  if (steps.Size() == 0) { return; }
  Edit([&] {
    States().Attach(steps);
    FormHistory();
  });
}

void kprC_Attribute::FollowSteps(kprC_StepTable const& steps) {
  kprC_History& states = States();
  std::size_t const disturbed = steps.Disturbed() == 0 ? npos : states.Steps().Position(steps.Disturbed());
  bool const saidThere = disturbed != npos && states.HasOwn(disturbed);
  if (checked_ && !saidThere && states.IsFormed() && !LooksAtSteps()) { return states.Attach(steps); }
  Edit([&] {
    states.Attach(steps);
    Sync();
  });
}

bool kprC_Attribute::IsUpToDate(kprC_StepTable const& steps) const {
  return checked_ && Steps().Same(steps) && States().IsFormed() && !LooksAtSteps();
}

void kprC_Attribute::EmptyStep(std::size_t index, kprC_StepTable const& bare) {
  Family().Assert(!States().IsCreateStep(index), Family().replaceCreateStep);
  checked_ = false;
  States().Empty(index, Status_::NotYetCreated);
  States().Attach(bare);
}

std::size_t kprC_Attribute::WeightBeside(kprC_StepDependent const* now) const {
  constexpr std::size_t kWithoutRecords = 512;
  bool const isOfType = now != nullptr && now->DynTypeId() == DynTypeId();
  auto const* const later = isOfType ? static_cast<kprC_Attribute const*>(now) : nullptr;
  cls_Object const* const others[] = {later};
  return kWithoutRecords + States().WeightBeside(later == nullptr ? nullptr : &later->States()) + cls_HeldBytes(*this, others, "states");
}

void kprC_Attribute::Restored(cls_ReadVisitor const& in) {
  if (in.ReadsOwnRecordsOnly()) { return; }  // its repository has the steps
  std::size_t const stored = States().OwnCount();
  RestoreHistory(in, Steps());
  std::size_t const create = States().CreateStep();
  std::size_t const told = create == npos ? 0 : Steps().Size() - create;
  if (told != stored) { in.Refuse("states", "a state in every record from the create step on"); }
}

void kprC_Attribute::RestoreHistory(cls_ReadVisitor const& in, kprC_StepTable const& steps) {
  // the repository, which calls later, has the name at hand, the visitor then has not
  auto const refuse = [&](std::string const& expected) {
    in.Refuse(Name().IsEmpty() ? "states" : std::string(Name().View()) + " / states", expected);
  };
  struct Stored {
    std::size_t at;  // in the sequence
    Status_ status;
    cow_Handle<kprC_State> state;
  };
  std::vector<Stored> stored;
  stored.reserve(States().OwnCount());
  bool const stands = Steps().Same(steps);
  bool fits = in.ReadsOwnRecordsOnly() || stands || Steps().SameNames(steps);
  std::size_t next = 0;
  States().ForEachOwn([&](std::size_t index, kprC_History::Own const& own) {
    std::size_t const at = stands ? index : steps.Find(Steps().Name(index).View());
    fits = fits && at != npos && at >= next;
    next = at + 1;
    stored.push_back({at, own.status, own.state});
  });
  if (!fits) { refuse("one record for each step of the sequence, in step order"); }
  States().Attach(steps);
  FormHistory();
  for (Stored const& own : stored) {
    if (in.IsBrief()) { break; }  // tells nothing that follows
    kprC_State const* const state = States().State(own.at);
    bool const same = state == own.state.ConstGet() || (state != nullptr && state->Equals(*own.state));
    if (States().Status(own.at) != own.status || !same) {
      refuse("in step \"" + std::string(steps.Name(own.at).View()) + "\" the status and the state that follow from the steps before");
    }
  }
  if (in.ReadsOwnRecordsOnly() && States().OwnCount() != stored.size()) { refuse("only records that say something of their own"); }
}
