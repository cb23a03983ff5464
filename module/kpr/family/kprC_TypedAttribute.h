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

/// An attribute of a family whose types stand in a table: Rules::Types() gives rows of Rules::TypeRow, Rules::kLoadCase the
/// refusals.
template <class Rules> class kprC_TypedAttribute : public kprC_StepAttribute<Rules> {
public:
  using CategoryEnm = decltype(Rules::TypeRow::category);

  CategoryEnm Category() const { return Type().category; }
  std::string ConstructionName() const override { return std::string(Type().command); }
  std::string Label() const override { return std::string(Type().label); }
  std::string CategoryText() const override { return std::string(omu_PrimEnum<CategoryEnm, 1>(Category()).View()); }
  std::string LoadCaseText() const override { return NYIForLoadCase() ? "not yet" : AllowedInALoadCase() ? "yes" : "no"; }
  /// Whether a load case may use attributes of this type.
  bool AllowedInALoadCase() const { return Type().loadCase != kprC_LoadCase::Refused; }
  /// Whether load cases do not yet support this type.
  bool NYIForLoadCase() const { return Type().loadCase == kprC_LoadCase::NotYet; }
  /// Whether a load case of \p step may use this attribute. With \p raise a no is refused: not active there or suppressed,
  /// of a type that load cases do not take, of one that they do not yet support.
  bool ValidInALoadCase(cow_String const& step, bool raise) const {
    auto const holds = [raise](bool condition, typename Rules::Error code) {
      if (raise) { Rules::Assert(condition, code); }
      return condition;
    };
    bool const active = !this->suppress_ && this->IsMember(step) && this->IsActiveIn(step);
    return holds(active, Rules::kLoadCase.notActive) && holds(AllowedInALoadCase(), Rules::kLoadCase.type) &&
           holds(!NYIForLoadCase(), Rules::kLoadCase.notYet);
  }

protected:
  /// A default state of the type, by its row.
  std::unique_ptr<typename Rules::State> DefaultState() const {
    return std::unique_ptr<typename Rules::State>(static_cast<typename Rules::State*>(Type().newState().release()));
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
  /// The type's row. Linear in the family's types.
  typename Rules::TypeRow const& Type() const { return *kprC_FindType(Rules::Types(), this->DynTypeId()); }
};
