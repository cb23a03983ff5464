#pragma once

#include <array>
#include <concepts>
#include <cstdlib>
#include <optional>

#include "module/kpr/engine/kprC_History.h"
#include "module/kpr/engine/kprC_State.h"
#include "module/kpr/engine/kprC_StepDependent.h"

/// A family's refusals of the per-step operations; \p Error is the family's enumeration of codes.
template <class Error> struct kprC_StepRefusals {
  Error unknownStep;
  Error unknownStatus;
  Error notActive;            ///< deactivate
  Error resetInCreateStep;    ///< reset, and replacing the create step's procedure
  Error resetNotDeactivated;  ///< reset
  Error moveAcrossChange;
  Error moveOntoChange;
  Error moveInactive;
  Error movePropagated;
  Error moveFromPerturbation;
  Error moveNotAdmitted;
  Error createNotAdmitted;                ///< update of the states, and the check of every record
  Error anneal;                           ///< the check of every record: active in an anneal step
  std::optional<Error> setToPropagated;   ///< a caller sets a member to "PROPAGATED"
  std::optional<Error> offInInitialStep;  ///< deactivate, as far as the family refuses these
  std::optional<Error> offInPerturbation;
  std::optional<Error> cannotBeOff;  ///< active, but not editable
};

/// Procedures that nothing may be moved into, and the refusal. \p Set answers Contains(procedureType).
template <class Set, class Error> struct kprC_MoveTarget {
  Set procedures;
  Error refusal;
};

/// What a family's page of tables holds.
template <class R>
concept kprC_FamilyRules = requires(unsigned procedureType, typename R::Error error) {
  requires std::derived_from<typename R::State, kprC_State>;
  { R::kStatuses } -> std::same_as<kprC_StatusTable const&>;
  { R::kPass } -> std::same_as<kprC_PassTable const&>;
  { R::kRefusals } -> std::same_as<kprC_StepRefusals<typename R::Error> const&>;
  { std::begin(R::kMoveTargets)->procedures.Contains(procedureType) } -> std::same_as<bool>;
  { R::kOnCopy } -> std::same_as<bool const&>;           // a refused operation leaves the attribute as it was
  { R::kMoveInStepOrder } -> std::same_as<bool const&>;  // a move asks destination and steps between as it meets them
  { R::Kind(procedureType) } -> std::same_as<kprC_StepKind>;
  { R::IsFrequency(procedureType) } -> std::same_as<bool>;
  { R::IsAnneal(procedureType) } -> std::same_as<bool>;
  { R::kEdit } -> std::same_as<kprC_EditRefusals<typename R::Error> const&>;
  R::Assert(true, error);
};

/// The per-step operations of a family, by its page of tables.
/// Operations test before they change, except Move. Each ends with the whole history formed anew, and with the check of
/// every record; what such a late refusal leaves behind is the family's (Rules::kOnCopy).
template <kprC_FamilyRules Rules> class kprC_StepAttribute : public kprC_StepDependent {
public:
  using State = typename Rules::State;
  using StateHandle = cow_Handle<State>;
  using Record = kprC_PropagatingState<State>;
  using Status_ = mdl_PropagationStatusEnm;
  using Error = typename Rules::Error;

  static constexpr kprC_StatusTable const& kStatuses = Rules::kStatuses;

  // classification of a status; each refuses a status that the family does not know
  static bool IsActive(Status_ status) { return Is(status, kprC_Active); }
  static bool IsPropagated(Status_ status) { return Is(status, kprC_Propagated); }
  static bool IsBuiltIn(Status_ status) { return Is(status, kprC_BuiltIn); }
  static bool IsIllegalMove(Status_ status) { return Is(status, kprC_IllegalMove); }
  static bool ChangedInStep(Status_ status) { return Is(status, kprC_Changed); }

  bool IsSuppressed() const override { return suppress_; }
  void Suppress() override { suppress_ = true; }
  void Resume() override {
    Edit([&] {
      suppress_ = false;
      Sync();
    });
  }

  rgnC_Region const& Region() const { return region_; }
  cls_xoList<rgnC_Region> Regions(rgnC_RegionType type) const override {
    cls_xoList<rgnC_Region> regions;
    if (region_ && region_.Type() == type) { regions.Append(region_); }
    return regions;
  }
  cow_1DArrayList<cow_String> Amplitudes() const override {
    cow_Map<cow_String, bool> seen;
    cow_1DArrayList<cow_String> names;
    cls_ForEachReference(this->MemberRows(), static_cast<void const*>(this), [&](cls_Reference kind, std::string_view name) {
      if (kind == cls_Reference::Amplitude && seen.Insert(cow_String(name), true)) { names.Append(cow_String(name)); }
    });
    return names;
  }
  bool Redirect(cls_Redirection const& to) override {
    bool redirected = false;
    Edit([&] {
      redirected = cls_Redirect(this->MemberRows(), static_cast<void*>(this), to);
      if (redirected) { Sync(); }
    });
    return redirected;
  }

  kprC_StepTable const& Steps() const override { return states_.Steps(); }
  /// Raises the unknown-step refusal.
  Status_ Status(cow_String const& step) const override { return states_.Status(Known(step)); }
  Status_ StatusAt(std::size_t index) const override { return states_.Status(index); }
  cls_Object const* StateAt(std::size_t index) const override { return states_.State(index).ConstGet(); }
  cow_List<Status_> History() const override {
    cow_List<Status_> statuses;
    for (std::size_t i = 0; i < states_.Size(); ++i) { statuses.Append(states_.Status(i)); }
    return statuses;
  }
  /// The record of a step, which must be one of the attribute's. GetStateQuad separates its state from all others.
  Record ConstGetStateQuad(cow_String const& step) const { return states_.At(Known(step)); }
  Record GetStateQuad(cow_String const& step) {
    std::size_t const index = Known(step);
    if (StateHandle state = states_.State(index)) {
      state.Get().NewUid();
      states_.SetState(index, state);
    }
    return states_.At(index);
  }
  cow_String CreateStepName() const override {
    std::size_t const index = states_.CreateStep();
    return index == kprC_StepTable::npos ? cow_String() : Steps().Name(index);
  }
  bool IsMember(cow_String const& step) const override { return states_.Find(step.View()) != kprC_StepTable::npos; }
  bool IsActiveIn(cow_String const& step) const override { return IsActive(Status(step)); }
  bool IsEditable(cow_String const& step) const override { return Is(Status(step), kprC_Editable); }
  cow_String GetEditableStepName(cow_String const& step) const override { return IsEditable(step) ? step : CreateStepName(); }

  /// Puts a copy of \p state into the record of \p step. Without records one is begun; false when there are records but
  /// none of that step.
  virtual bool Insert(cow_String const& step, State const& state) {
    StateHandle copy(std::unique_ptr<State>(static_cast<State*>(state.Copy().release())));
    copy.Get().NewUid();
    if (states_.Size() == 0) {
      states_.StartWith(step, std::move(copy));
      return true;
    }
    std::size_t const index = states_.Find(step.View());
    if (index == kprC_StepTable::npos) { return false; }
    Edit([&] {
      states_.SetState(index, std::move(copy));
      if (HasProcedure()) { Sync(); }
    });
    return true;
  }

  bool SetInStep(cow_String const& step, kprC_Arguments const& members, std::string* unknown) override {
    std::size_t const index = states_.Size() == 0 ? kprC_StepTable::npos : Known(step);
    StateHandle const present = index == kprC_StepTable::npos ? nullptr : states_.State(index);
    std::unique_ptr<State> state = present ? Duplicate(*present) : NewState();
    state->SetSwitchedOff(false);
    for (auto const& [name, value] : members) {
      if (auto const* text = value.template As<std::string>()) {
        if (Rules::kRefusals.setToPropagated) { Rules::Assert(*text != "PROPAGATED", *Rules::kRefusals.setToPropagated); }
        AssertMemberState(index, name, *text);
      }
      if (!state->SetMember(name, value)) {
        *unknown = name;
        return false;
      }
    }
    return Insert(step, *state);
  }

  bool Remove(cow_String const& step) override {
    if (!IsMember(step)) { return false; }
    Edit([&] {
      states_.SetState(Known(step), nullptr);
      Sync();
    });
    return true;
  }

  /// Refuses an unknown step, and the initial one where the family says so. Nothing where there is no state or it is off
  /// already; else refuses a perturbation step where the family does, a step in which the attribute is not active, and one
  /// in which it is but cannot be edited where the family does.
  void Deactivate(cow_String const& step) override {
    std::size_t const index = Known(step);
    Refuse(Rules::kRefusals.offInInitialStep, Steps()[index].procedure && Steps().ProcedureType(index) == 0);
    StateHandle state = states_.State(index);
    if (!state || state->SwitchedOff()) { return; }
    auto const& procedure = Steps()[index].procedure;
    Refuse(Rules::kRefusals.offInPerturbation, procedure && procedure->Perturbation());
    Rules::Assert(IsActive(states_.Status(index)), Rules::kRefusals.notActive);
    Refuse(Rules::kRefusals.cannotBeOff, !Is(states_.Status(index), kprC_Editable));
    Edit([&] {
      State& off = state.Get();
      off.SetSwitchedOff(true);
      off.NewUid();
      states_.SetState(index, std::move(state));
      Sync();
    });
  }

  /// Takes back what \p step says, which must be neither the create step nor of a status that cannot be reset.
  void Reset(cow_String const& step) override {
    Rules::Assert(step != CreateStepName(), Rules::kRefusals.resetInCreateStep);
    std::size_t const index = Known(step);
    bool const refused = Rules::kStatuses[static_cast<std::size_t>(states_.Status(index))] & kprC_NoReset;
    Rules::Assert(!refused, Rules::kRefusals.resetNotDeactivated);
    Edit([&] {
      states_.SetState(index, nullptr);
      Sync();
    });
  }

  /// Moves what \p fromStep defines to \p toStep. Equal names: nothing. Refuses an unknown name; what AssertMove refuses;
  /// a change at the destination or between, in the family's order; then, with the records between emptied already, a source
  /// that is not active, propagated or of a perturbation procedure, and a destination whose procedure takes nothing or not
  /// this type.
  void Move(cow_String const& fromStep, cow_String const& toStep) override {
    if (fromStep == toStep) { return; }
    std::size_t const from = Known(fromStep), to = Known(toStep);
    Edit([&] {
      AssertMove(from, to);
      bool const destinationFirst = Rules::kMoveInStepOrder && to < from;
      if (destinationFirst) { AssertNoneChanged(to, to + 1, Rules::kRefusals.moveOntoChange); }
      std::size_t const first = std::min(from, to) + 1, last = std::max(from, to);
      AssertNoneChanged(first, last, Rules::kRefusals.moveAcrossChange);
      if (!destinationFirst) { AssertNoneChanged(to, to + 1, Rules::kRefusals.moveOntoChange); }
      states_.ClearStates(first, last);
      states_.NewUid();
      AssertSourceAndTarget(from, to);
      StateHandle moved = states_.State(from);
      if (moved) {
        moved.Get().ChangeProcedureType(Steps().ProcedureType(to));
        moved.Get().NewUid();
      }
      states_.Set(to, states_.Status(from), std::move(moved));
      states_.SetState(from, nullptr);
      Sync();
    });
  }

  void UpdateStates() override {
    std::size_t const index = states_.CreateStep();
    if (index != kprC_StepTable::npos && Steps()[index].procedure) {
      Rules::Assert(Admits(Steps().ProcedureType(index), false), Rules::kRefusals.createNotAdmitted);
    }
    Edit([&] { Sync(); });
  }

  /// Nothing while suppressed. Refuses an attribute that is active in an anneal step, then one whose type a step does not
  /// admit in which it is; then what the type refuses of itself and of its states. The family says for which statuses a
  /// step is asked; what is carried rests where its type is not admitted and holds nothing that its source does not, so
  /// that the own records are the ones to ask.
  void AssertValid() const override {
    if (suppress_) { return; }
    AssertSteps();
    AssertWhole();
    ForEachEditable([this](auto const& own) { AssertState(*own.state, own.index); });
  }

  /// Empties the record of a step whose procedure is being replaced: no state, no procedure, status 0. Refused for the
  /// create step. The history is formed when the new sequence is handed over.
  void ReplaceStep(cow_String const& step) {
    std::size_t const index = Known(step);
    ReplaceStep(index, Steps().WithReplaced(index, kprC_StepNameProcedurePair(Steps().Name(index), nullptr)));
  }

  void Restored(cls_ReadVisitor const& in) override {
    if (in.ReadsOwnRecordsOnly()) { return; }  // its repository has the steps
    std::size_t const stored = states_.Own().size();
    RestoreHistory(in, Steps());
    std::size_t const create = states_.CreateStep();
    std::size_t const told = create == kprC_StepTable::npos ? 0 : Steps().Size() - create;
    if (told != stored) { in.Refuse("states", "a state in every record from the create step on"); }
  }

  /// The numbers of what the editing layers refuse.
  static constexpr kprC_EditRefusalCodes EditRefusals() {
    constexpr auto const& edit = Rules::kEdit;
    auto const number = [](auto code) { return static_cast<int>(code); };
    return {number(edit.noSuchAttribute), number(edit.noSteps),
            number(edit.noAttributes),    number(edit.nameInUse),
            number(edit.unknownStep),     number(edit.suppressed),
            number(edit.amplitudeName),   number(edit.amplitudeUnknown),
            number(edit.fieldUnknown),    number(edit.notInStep),
            number(edit.readOnlyInStep),  edit.inInitialStep ? std::optional<int>(number(*edit.inInitialStep)) : std::nullopt};
  }
  /// Raises a refusal of the family by its number.
  [[noreturn]] static void Refuse(int code) {
    Rules::Assert(false, static_cast<Error>(code));
    std::abort();  // not reached: the refusal is raised above
  }

  /// A default state of the type.
  virtual std::unique_ptr<State> NewState() const = 0;

protected:
  kprC_History<Rules> const& States() const { return states_; }

  /// Forms the history: statuses and carried states of all records, and then the check of every record.
  virtual void Sync() {
    Form();
    AssertValid();
  }

  /// Calls \p fn with every own record whose status is an editable one.
  template <class Fn> void ForEachEditable(Fn&& fn) const {
    for (auto const& own : states_.Own()) {
      if (Is(own.status, kprC_Editable)) { fn(own); }
    }
  }

  /// The part of AssertValid that asks the steps alone.
  void AssertSteps() const {
    ForEachEditable(
        [this](auto const& own) { Rules::Assert(!Rules::IsAnneal(Steps().ProcedureType(own.index)), Rules::kRefusals.anneal); });
    ForEachEditable([this](auto const& own) {
      bool const carried = own.status != Status_::Created;
      Rules::Assert(Admits(Steps().ProcedureType(own.index), carried), Rules::kRefusals.createNotAdmitted);
    });
  }
  /// What the type refuses of itself as a whole, and of a state in force; \p index is that of its step.
  virtual void AssertWhole() const {}
  virtual void AssertState(State const& /*state*/, std::size_t /*index*/) const {}
  /// What the type refuses of a move before anything changes.
  virtual void AssertMove(std::size_t /*from*/, std::size_t /*to*/) const {}
  /// Refuses a word ("UNSET", "FREED", "PROPAGATED") where a member may not take that state in that step.
  /// \p index is npos while the attribute is being created.
  virtual void AssertMemberState(std::size_t /*index*/, std::string_view /*member*/, std::string_view /*word*/) const {}

  [[noreturn]] void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const override {
    if (text.refusal >= 0) { Refuse(text.refusal); }
    kprC_StepDependent::RefuseValue(name, text, expected);
  }

  bool suppress_ = false;
  rgnC_Region region_;
  cow_String fieldName_;
  kprC_History<Rules> states_;

private:
  static void Refuse(std::optional<Error> refusal, bool condition) {
    if (refusal) { Rules::Assert(!condition, *refusal); }
  }
  /// Runs what changes the attribute and may be refused late.
  template <class Fn> void Edit(Fn&& edit) {
    if constexpr (Rules::kOnCopy) {
      auto const states = states_;
      bool const suppressed = suppress_;
      try {
        edit();
      } catch (...) {
        states_ = states;
        suppress_ = suppressed;
        throw;
      }
    } else {
      edit();
    }
  }
  static bool Is(Status_ status, unsigned trait) {
    auto const number = static_cast<std::size_t>(status);
    unsigned const traits = number < Rules::kStatuses.size() ? Rules::kStatuses[number] : 0U;
    Rules::Assert((traits & kprC_Known) != 0, Rules::kRefusals.unknownStatus);
    return (traits & trait) != 0;
  }
  static std::unique_ptr<State> Duplicate(State const& state) {
    return std::unique_ptr<State>(static_cast<State*>(state.Copy().release()));
  }

  std::size_t Known(cow_String const& step) const {
    std::size_t const index = states_.Find(step.View());
    Rules::Assert(index != kprC_StepTable::npos, Rules::kRefusals.unknownStep);
    return index;
  }
  bool HasProcedure() const {
    for (std::size_t i = 0; i < Steps().Size(); i = Steps().SegmentEnd(i)) {
      if (Steps()[i].procedure) { return true; }
    }
    return false;
  }
  void AssertNoneChanged(std::size_t begin, std::size_t end, Error refusal) const {
    for (auto const& own : states_.Own()) {  // what is carried is never in the way
      bool const inside = own.index >= begin && own.index < end;
      Rules::Assert(!inside || !IsIllegalMove(own.status), refusal);
    }
  }
  void AssertSourceAndTarget(std::size_t from, std::size_t to) const {
    Status_ const status = states_.Status(from);
    Rules::Assert(IsActive(status), Rules::kRefusals.moveInactive);
    Rules::Assert(!IsPropagated(status), Rules::kRefusals.movePropagated);
    auto const& source = Steps()[from].procedure;
    Rules::Assert(!source || !source->Perturbation(), Rules::kRefusals.moveFromPerturbation);
    auto const& procedure = Steps()[to].procedure;
    if (!procedure) { return; }
    unsigned const type = kprC_ProcedureTypeOf(procedure.ConstGet());
    for (auto const& target : Rules::kMoveTargets) { Rules::Assert(!target.procedures.Contains(type), target.refusal); }
    Rules::Assert(Admits(type, false), Rules::kRefusals.moveNotAdmitted);
  }
  void Form() {
    states_.Form([this](unsigned procedureType) { return Admits(procedureType, true); });
  }

  void RestoreHistory(cls_ReadVisitor const& in, kprC_StepTable const& steps) override {
    // the repository, which calls later, has the name at hand, the visitor then has not
    std::string const member = Name().IsEmpty() ? "states" : std::string(Name().View()) + " / states";
    bool fits = in.ReadsOwnRecordsOnly() || Steps().SameNames(steps);
    auto stored = states_.Own();
    for (auto& own : stored) {
      std::size_t const index = steps.Find(Steps().Name(own.index).View());
      fits = fits && index != kprC_StepTable::npos;
      own.index = static_cast<std::uint32_t>(index);
    }
    if (!fits) { in.Refuse(member, "one record for each step of the sequence, in step order"); }
    states_.MatchTo(steps);
    Form();
    for (auto const& own : stored) {
      bool const same =
          states_.Status(own.index) == own.status && cls_MemberTraits<StateHandle>::Equal(states_.State(own.index), own.state);
      if (!same) {
        in.Refuse(member, "in step \"" + std::string(steps.Name(own.index).View()) +
                              "\" the status and the state that follow from the steps before");
      }
    }
    if (in.ReadsOwnRecordsOnly() && states_.Own().size() != stored.size()) {
      in.Refuse(member, "only records that say something of their own");
    }
  }

  void Initialize(kprC_StepTable const& steps) override {
    if (steps.Size() == 0) { return; }
    Edit([&] {
      MatchTo(steps);
      Sync();
    });
  }
  /// As Initialize, without the check of the records.
  void InitializeStateValues(kprC_StepTable const& steps) override {
    if (steps.Size() == 0) { return; }
    Edit([&] {
      MatchTo(steps);
      Form();
    });
  }
  void MatchTo(kprC_StepTable const& steps) {
    std::size_t const create = states_.CreateStep();
    bool const known = create == kprC_StepTable::npos || steps.Find(Steps().Name(create).View()) != kprC_StepTable::npos;
    Rules::Assert(known, Rules::kRefusals.unknownStep);
    states_.MatchTo(steps);
  }
  void InsertStep(std::size_t index, kprC_StepTable const& steps) override {
    Edit([&] {
      states_.InsertAt(index, steps);
      Sync();
    });
  }
  void RemoveStep(std::size_t index, kprC_StepTable const& steps) override {
    Edit([&] {
      states_.EraseAt(index, steps);
      Sync();
    });
  }
  void RenameStep(kprC_StepTable const& steps) override { states_.Attach(steps); }
  void AttachSteps(kprC_StepTable const& steps) override { states_.Attach(steps); }
  void ReplaceStep(std::size_t index, kprC_StepTable const& bare) override {
    Rules::Assert(index != states_.CreateStep(), Rules::kRefusals.resetInCreateStep);
    states_.Set(index, Status_::NotYetCreated, nullptr);
    states_.Attach(bare);
  }
};
