#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// How creep strains are integrated.
enum class kprC_CreepIntegrationEnm { IMPLICIT, EXPLICIT };
template <> struct omu_EnumTable<kprC_CreepIntegrationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"IMPLICIT", 0}, {"EXPLICIT", 1}, {nullptr, 0}};
};

/// Static equilibrium of materials that creep, swell or relax with time.
class DDB_API kprC_ViscoStep final
    : public kprC_ProcedureStep<kprC_ViscoStep, kprC_Incrementation, kprC_QuasiNewton, kprC_ContactIterations, kprC_Stabilization> {
public:
  using IntegrationEnm = kprC_CreepIntegrationEnm;

  double cetol = cls_unsetReal;
  omu_PrimEnum<IntegrationEnm> integration = IntegrationEnm::IMPLICIT;

  kprC_ViscoStep();
  explicit kprC_ViscoStep(cls_ReadVisitor const& in);

  /// Refuses what every general step refuses (kprC_AssertGeneral); then, with automatic increments, 32 no creep tolerance that is
  /// above 0.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(cetolCmd(), &kprC_ViscoStep::cetol, cetolText());
    visit(integrationCmd(), &kprC_ViscoStep::integration, integrationText());
  }
};
