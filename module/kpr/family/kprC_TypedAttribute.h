#pragma once

#include <mutex>
#include <vector>

#include "module/kpr/family/kprC_ProcedureRules.h"
#include "module/kpr/family/kprC_Types.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// A family's refusals of an attribute in a load case.
template <class Error> struct kprC_LoadCaseRefusals {
  Error notActive;
  Error type;    ///< of a type that no load case takes
  Error notYet;  ///< of a type that load cases do not yet support
};

/// An attribute of a family whose types stand in a table: Rules::Types() gives rows of Rules::TypeRow. Where they say something of
/// load cases, Rules::kLoadCase has the refusals; where they have a category, users see it.
template <class Rules> class kprC_TypedAttribute : public kprC_StepAttribute<Rules> {
public:
  using TypeRow = typename Rules::TypeRow;
  static constexpr bool kInLoadCases = requires(TypeRow const& row) { row.loadCase; };
  static constexpr bool kInCategories = requires(TypeRow const& row) { row.category; };

  /// The type's row. Linear in the family's types.
  TypeRow const& Type() const { return *kprC_FindType(Rules::Types(), this->DynTypeId()); }
  std::string ConstructionName() const override { return std::string(Type().command); }
  std::string Label() const override { return std::string(Type().label); }

  /// Whether the attribute has a record of \p step, with a state or without.
  bool HasStep(cow_String const& step) const { return this->IsMember(step); }
  /// Refuses (kEdit.notInStep) unless the attribute is in force in \p step: there, active and not suppressed.
  void CheckStep(cow_String const& step) const {
    Rules::Assert(!this->suppress_ && this->IsMember(step) && this->IsActive(this->Status(step)), Rules::kEdit.notInStep);
  }

  /// Whether the type may stand in a step of \p procedureType (0: the initial step): its row grants it, or the type's own rule,
  /// which is told with \p carried whether the attribute is carried into the step.
  bool ValidInStep(unsigned procedureType, bool carried, bool initialRelaxed, bool explicitOnly) const {
    return Type().Grants(procedureType, initialRelaxed, explicitOnly) || ValidByOwnRule(procedureType, carried);
  }
  bool ValidInStep(kprC_Procedure const& step, bool carried, bool initialRelaxed, bool explicitOnly) const {
    return ValidInStep(kprC_ProcedureTypeOf(&step), carried, initialRelaxed, explicitOnly);
  }
  /// The same with what follows from the procedure type worked out.
  bool ValidInStepButRelaxCheckOnInitial(unsigned procedureType, bool carried) const {
    return ValidInStep(procedureType, carried, procedureType == 0, kprC_IsExplicit(procedureType));
  }
  bool Admits(kprC_StepFacts step, bool carried) const override { return ValidInStepButRelaxCheckOnInitial(step.procedureType, carried); }

  auto Category() const requires kInCategories { return Type().category; }
  std::string CategoryText() const override {
    if constexpr (kInCategories) {
      return std::string(omu_PrimEnum<decltype(TypeRow::category), 1>(Type().category).View());
    } else {
      return {};
    }
  }
  std::string LoadCaseText() const override {
    if constexpr (kInLoadCases) {
      return NYIForLoadCase() ? "not yet" : AllowedInALoadCase() ? "yes" : "no";
    } else {
      return {};
    }
  }
  void AssertInLoadCase(cow_String const& step) const override {
    if constexpr (kInLoadCases) { ValidInALoadCase(step, true); }
  }
  kprC_ActsOn ActsOn() const override { return Type().actsOn; }
  /// Whether a load case may use attributes of this type.
  bool AllowedInALoadCase() const requires kInLoadCases { return Type().loadCase != kprC_LoadCase::Refused; }
  /// Whether load cases do not yet support this type.
  bool NYIForLoadCase() const requires kInLoadCases { return Type().loadCase == kprC_LoadCase::NotYet; }
  /// Whether a load case of \p step may use this attribute. With \p raise a no is refused: not active there or suppressed,
  /// of a type that load cases do not take, of one that they do not yet support.
  bool ValidInALoadCase(cow_String const& step, bool raise) const requires kInLoadCases {
    auto const holds = [raise](bool condition, typename Rules::Error code) {
      if (raise) { Rules::Assert(condition, code); }
      return condition;
    };
    bool const active = !this->suppress_ && this->IsMember(step) && this->IsActiveIn(step);
    return holds(active, Rules::kLoadCase.notActive) && holds(AllowedInALoadCase(), Rules::kLoadCase.type) &&
           holds(!NYIForLoadCase(), Rules::kLoadCase.notYet);
  }

protected:
  /// By the number that the member's list gives it, if any.
  [[noreturn]] void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const override {
    if (text.refusal >= 0) { this->Refuse(text.refusal); }
    kprC_StepAttribute<Rules>::RefuseValue(name, text, expected);
  }
  /// The type's own rule for steps that its row does not grant.
  virtual bool ValidByOwnRule(unsigned /*procedureType*/, bool /*carried*/) const { return false; }
  kprC_PassTable const& Pass() const override {
    static constexpr kprC_PassTable notPropagating = kprC_NotPropagating(Rules::kPass);
    return Type().propagates ? Rules::kPass : notPropagating;
  }
  bool RefusedWhereNotAdmitted() const override { return Type().refused; }
  /// A default state of the type, by its row.
  std::unique_ptr<typename Rules::State> DefaultState(unsigned procedureType) const {
    return std::unique_ptr<typename Rules::State>(static_cast<typename Rules::State*>(Type().newState(procedureType).release()));
  }
  /// The same for all attributes of the type unless their values count, and asked of it once.
  cow_Handle<kprC_Carrying> Carrying() const override {
    if (this->CarriedByValues()) { return kprC_StepAttribute<Rules>::Carrying(); }
    struct Answer {
      std::once_flag asked;
      cow_Handle<kprC_Carrying> carrying;
    };
    static std::vector<Answer> answers(Rules::Types().size());
    Answer& answer = answers[static_cast<std::size_t>(&Type() - Rules::Types().data())];
    std::call_once(answer.asked, [&] { answer.carrying = kprC_StepAttribute<Rules>::Carrying(); });
    return answer.carrying;
  }
};
