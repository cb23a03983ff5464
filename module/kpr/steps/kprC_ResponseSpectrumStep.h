#pragma once

#include "module/kpr/records/kprC_ResponseSpectrumComponent.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"

/// How the responses to motions in several directions are combined: before the modes are summed, or after.
enum class kprC_DirectionRuleEnm { ALGEBRAIC_SUM, ABSOLUTE_SUM, ROOT_SUM_OF_SQUARES };
/// How the peak responses of the modes, which do not come at one time, are summed.
enum class kprC_ModeRuleEnm { ABSOLUTE_SUM, ROOT_SUM_OF_SQUARES, TEN_PERCENT, COMPLETE_QUADRATIC };
template <> struct omu_EnumTable<kprC_DirectionRuleEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"ALGEBRAIC_SUM", 0}, {"ABSOLUTE_SUM", 1}, {"ROOT_SUM_OF_SQUARES", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_ModeRuleEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"ABSOLUTE_SUM", 0}, {"ROOT_SUM_OF_SQUARES", 1}, {"TEN_PERCENT", 2}, {"COMPLETE_QUADRATIC", 3}, {nullptr, 0}};
};

/// Estimate of the largest linear response to a motion of the supports, from the modes of a frequency step.
class DDB_API kprC_ResponseSpectrumStep final : public kprC_ProcedureStep<kprC_ResponseSpectrumStep, kprC_ModalDamping> {
public:
  using CompEnm = kprC_DirectionRuleEnm;
  using SumEnm = kprC_ModeRuleEnm;

  omu_PrimEnum<CompEnm> comp = CompEnm::ALGEBRAIC_SUM;
  cls_xo1DArrayList<kprC_ResponseSpectrumComponent> components;
  omu_PrimEnum<SumEnm> sum = SumEnm::ABSOLUTE_SUM;

  kprC_ResponseSpectrumStep();
  explicit kprC_ResponseSpectrumStep(cls_ReadVisitor const& in);

  /// Refuses: 42 no component; 36 more than three; 35 one without a spectrum; then what the damping refuses
  /// (kprC_ModalDamping).
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(compCmd(), &kprC_ResponseSpectrumStep::comp, compText());
    visit(componentsCmd(), &kprC_ResponseSpectrumStep::components, componentsText());
    visit(sumCmd(), &kprC_ResponseSpectrumStep::sum, sumText());
  }
};
