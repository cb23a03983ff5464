#pragma once

#include <cstdlib>

#include "module/kpr/engine/kprC_Attribute.h"

/// The per-step operations with a family's types: what kprC_Attribute does, in the words of Rules.
template <kprC_FamilyRules Rules> class kprC_StepAttribute : public kprC_Attribute {
public:
  using State = typename Rules::State;
  using Record = kprC_PropagatingState<State>;
  using Status_ = mdl_PropagationStatusEnm;
  using Error = typename Rules::Error;

  static constexpr kprC_StatusTable const& kStatuses = Rules::kStatuses;

  // classification of a status; each refuses a status that the family does not know
  static bool IsActive(Status_ status) { return kprC_FamilyOf<Rules>.Is(status, kprC_Active); }
  static bool IsPropagated(Status_ status) { return kprC_FamilyOf<Rules>.Is(status, kprC_Propagated); }
  static bool IsBuiltIn(Status_ status) { return kprC_FamilyOf<Rules>.Is(status, kprC_BuiltIn); }
  static bool IsIllegalMove(Status_ status) { return kprC_FamilyOf<Rules>.Is(status, kprC_IllegalMove); }
  static bool ChangedInStep(Status_ status) { return kprC_FamilyOf<Rules>.Is(status, kprC_Changed); }

  /// The record of a step; raises the unknown-step refusal.
  Record ConstGetStateQuad(cow_String const& step) const {
    Status(step);
    std::size_t const index = states_.Find(step.View());
    return Record(Steps()[index], states_.Status(index), Record::Typed(states_.StateHandle(index)), states_.RecordUid(index));
  }
  /// The same to be changed: what is changed becomes the step's own and shows at once; nothing else follows before the
  /// next pass. Good while the attribute is.
  Record& GetStateQuad(cow_String const& step) {
    Status(step);
    return static_cast<Record&>(states_.Lend(states_.Find(step.View())));
  }

  /// Puts a copy of \p state into the record of \p step. Without records one is begun; false when there are records but
  /// none of that step.
  virtual bool Insert(cow_String const& step, State const& state) { return PutState(step, state); }

  /// The numbers of what the editing layers refuse.
  static constexpr kprC_EditRefusalCodes EditRefusals() {
    constexpr auto const& edit = Rules::kEdit;
    auto const number = [](Error code) { return static_cast<int>(code); };
    auto const any = [](std::optional<Error> code) { return code ? std::optional(static_cast<int>(*code)) : std::nullopt; };
    kprC_EditRefusalCodes codes = {.noSuchAttribute = any(edit.noSuchAttribute),
                                   .copyUnknown = any(edit.copyUnknown),
                                   .noSteps = any(edit.noSteps),
                                   .noAttributes = any(edit.noAttributes),
                                   .nameInUse = any(edit.nameInUse),
                                   .unknownStep = number(edit.unknownStep),
                                   .suppressed = number(edit.suppressed),
                                   .amplitudeName = any(edit.amplitudeName),
                                   .amplitudeUnknown = any(edit.amplitudeUnknown),
                                   .fieldUnknown = any(edit.fieldUnknown),
                                   .notInStep = number(edit.notInStep),
                                   .readOnlyInStep = number(edit.readOnlyInStep),
                                   .droppedInStep = any(edit.droppedInStep),
                                   .inInitialStep = any(edit.inInitialStep),
                                   .inPerturbation = any(edit.inPerturbation),
                                   .typeNotAdmitted = any(edit.typeNotAdmitted),
                                   .propertyUnknown = any(edit.propertyUnknown)};
    codes.replaceCreateStep = number(Rules::kRefusals.replaceCreateStep);
    for (std::size_t i = 0; i < edit.behindModel.size(); ++i) { codes.behindModel[i] = any(edit.behindModel[i]); }
    if constexpr (requires { Rules::kLoadCase; }) { codes.notInLoadCase = number(Rules::kLoadCase.notActive); }
    return codes;
  }
  static std::span<kprC_Operation const> Operations() { return Rules::kOperations; }
  /// The edits that some of the family's types know beside them; none unless the family's base says which.
  static std::span<kprC_TypeEdit const> TypeEdits() { return {}; }
  /// Raises a refusal of the family by its number.
  [[noreturn]] static void Refuse(int code) {
    Rules::Assert(false, static_cast<Error>(code));
    std::abort();  // not reached: the refusal is raised above
  }

  /// A default state of the type for a step of \p procedureType.
  virtual std::unique_ptr<State> NewStateFor(unsigned procedureType) const = 0;
  /// The same where no step says more.
  std::unique_ptr<State> NewState() const { return NewStateFor(0); }

protected:
  kprC_History& States() override { return states_; }
  kprC_History const& States() const override { return states_; }

  /// Calls \p fn(state) with every own state whose status is an editable one.
  template <class Fn> void ForEachEditable(Fn&& fn) const {
    ForEachOwnEditable([&fn](std::size_t, kprC_State const& state) { fn(static_cast<State const&>(state)); });
  }
  /// What the type refuses of a state in force; \p index is that of its step.
  virtual void AssertState(State const& /*state*/, std::size_t /*index*/) const {}

  kprC_HistoryOf<Rules> states_;

private:
  std::unique_ptr<kprC_State> MakeState(unsigned procedureType) const override { return NewStateFor(procedureType); }
  bool InsertState(cow_String const& step, kprC_State const& state) override { return Insert(step, static_cast<State const&>(state)); }
  void AssertOwnState(kprC_State const& state, std::size_t index) const override { AssertState(static_cast<State const&>(state), index); }
};
