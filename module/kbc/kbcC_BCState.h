#pragma once

#include "framework/kprC_State.h"
#include "module/kbc/kbcC_TypeTable.h"
#include "module/kbc/kbcC_assert.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// What a boundary condition sets in a step: base of the types' states.
class DDB_API kbcC_BCState : public kprC_StateOf<kbcC_BCState, kprC_State> {
public:
  static constexpr omn_FixedString bcStateCmd() { return "boundaryConditionStates"; }
  static constexpr omn_FixedString pythonTypeName() { return "BoundaryConditionState"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }
  static constexpr omn_FixedString amplitudeCmd() { return "amplitude"; }

  kbcC_BCState();
  explicit kbcC_BCState(cls_ReadVisitor const& in);

  mdl_PropAttr<cow_String> amplitude;  ///< name of the amplitude that varies the values over the step

  /// False for the initial step and for buckle, frequency, static Riks, static linear perturbation and complex frequency.
  bool UseAmplitude(unsigned procedureType) const override;
  /// True for steady-state direct only.
  bool UseComplex(unsigned procedureType) const override;
  /// False for frequency and complex frequency.
  bool UseMagnitude(unsigned procedureType) const override;
  /// Drops what a step of \p procedureType has no use for.
  void ChangeProcedureType(unsigned procedureType) override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(deactivateCmd(), &kbcC_BCState::switchedOff_, cls_MemberText{"whether the condition is switched off in the step"});
    visit(
        amplitudeCmd(), &kbcC_BCState::amplitude,
        cls_MemberText{"name of the amplitude that varies the values over the step", "", static_cast<int>(kbcC_ErrorEnm::AmplitudeValue)});
  }

protected:
  [[noreturn]] void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const override;
};
