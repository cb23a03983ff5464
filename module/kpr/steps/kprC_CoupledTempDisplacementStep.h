#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// How creep strains are integrated, if at all.
enum class kprC_CoupledCreepIntegrationEnm { IMPLICIT, EXPLICIT, NONE };
template <> struct omu_EnumTable<kprC_CoupledCreepIntegrationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"IMPLICIT", 0}, {"EXPLICIT", 1}, {"NONE", 2}, {nullptr, 0}};
};

/// Displacements and temperatures solved together, where each acts on the other.
class DDB_API kprC_CoupledTempDisplacementStep final
    : public kprC_ProcedureStep<kprC_CoupledTempDisplacementStep, kprC_Incrementation, kprC_SolutionTechnique, kprC_ContactControls,
                                kprC_AdaptiveStabilization> {
public:
  using CreepIntegrationEnm = kprC_CoupledCreepIntegrationEnm;

  double cetol = cls_unsetReal;
  omu_PrimEnum<CreepIntegrationEnm> creepIntegration = CreepIntegrationEnm::IMPLICIT;
  double deltmx = cls_unsetReal;

  kprC_CoupledTempDisplacementStep();
  explicit kprC_CoupledTempDisplacementStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments of a transient, 10 unless a
  /// creep tolerance or a change of temperature is given and what is given is above 0: a steady state has no tolerance to
  /// follow. 89, a creep integration that there is not, comes when the value is set.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(cetolCmd(), &kprC_CoupledTempDisplacementStep::cetol, cetolText());
    visit(creepIntegrationCmd(), &kprC_CoupledTempDisplacementStep::creepIntegration, creepIntegrationText());
    visit(deltmxCmd(), &kprC_CoupledTempDisplacementStep::deltmx, deltmxText());
  }
};
