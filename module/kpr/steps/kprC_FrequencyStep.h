#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/CoreGeometry/rgnC_Region.h"

/// What eigenvectors are scaled to: a largest displacement of 1 or a generalized mass of 1.
enum class kprC_NormalizationEnm { DISPLACEMENT, MASS };
enum class kprC_AcousticEnm { AC_OFF, AC_ON, AC_PROJECTION };
template <> struct omu_EnumTable<kprC_NormalizationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DISPLACEMENT", 0}, {"MASS", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_AcousticEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"AC_OFF", 0}, {"AC_ON", 1}, {"AC_PROJECTION", 2}, {nullptr, 0}};
};

/// Natural frequencies and modes of vibration about the base state. The modal procedures build on them.
class DDB_API kprC_FrequencyStep final
    : public kprC_ProcedureStep<kprC_FrequencyStep, kprC_EigenRange, kprC_EigenExtraction, kprC_EigenFrequencies> {
public:
  using NormalizationEnm = kprC_NormalizationEnm;
  using AcousticEnm = kprC_AcousticEnm;
  using AllEigenEnm = kprC_AllEigenEnm;

  omu_PrimEnum<AcousticEnm> acousticCoupling = AcousticEnm::AC_ON;
  double acousticRangeFactor = 1.0;
  double firstCutoffMultiplier = 1.6;
  double intervalBias = 1.0;
  cls_xoList<double> intervalBoundaries;
  rgnC_Region limitSavedEigenvectorRegion;
  omu_PrimEnum<NormalizationEnm> normalization = NormalizationEnm::DISPLACEMENT;
  int numberInterval = 1;
  bool projectDamping = false;
  cls_xoList<int> residualModeDof;
  cls_xoList<cow_String> residualModeRegion;
  bool residualModes = false;
  double secondCutoffMultiplier = 1.3;
  bool simLinearDynamics = false;
  double substructureCutoffMultiplier = 5.0;

  kprC_FrequencyStep();
  explicit kprC_FrequencyStep(cls_ReadVisitor const& in);

  /// Refuses: 1 largest frequency; 2 number of eigenvalues; 140 a solver other than the direct symmetric or the default one; 91
  /// a negative property evaluation frequency; 237, 238, 239 cutoff multipliers that do not fall, or the last not above 1;
  /// 240 regions and degrees of freedom of residual modes that differ in number, and pair by pair 243, 244. Then by eigensolver:
  /// Lanczos 247, 155 all eigenvalues without a largest frequency, 84, 85, 92, and with boundaries of intervals 95, 94, 93;
  /// subspace 154 all eigenvalues, 3, 4; the multi-level one 247, 248, 241, 156 no largest frequency, 245 residual modes
  /// without a region. 86 an eigensolver that there is not.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(acousticCouplingCmd(), &kprC_FrequencyStep::acousticCoupling, acousticCouplingText());
    visit(acousticRangeFactorCmd(), &kprC_FrequencyStep::acousticRangeFactor, acousticRangeFactorText());
    visit(firstCutoffMultiplierCmd(), &kprC_FrequencyStep::firstCutoffMultiplier, firstCutoffMultiplierText());
    visit(intervalBiasCmd(), &kprC_FrequencyStep::intervalBias, intervalBiasText());
    visit(intervalBoundariesCmd(), &kprC_FrequencyStep::intervalBoundaries, intervalBoundariesText());
    visit(limitSavedEigenvectorRegionCmd(), &kprC_FrequencyStep::limitSavedEigenvectorRegion, limitSavedEigenvectorRegionText());
    visit(normalizationCmd(), &kprC_FrequencyStep::normalization, normalizationText());
    visit(numberIntervalCmd(), &kprC_FrequencyStep::numberInterval, numberIntervalText());
    visit(projectDampingCmd(), &kprC_FrequencyStep::projectDamping, projectDampingText());
    visit(residualModeDofCmd(), &kprC_FrequencyStep::residualModeDof, residualModeDofText());
    visit(residualModeRegionCmd(), &kprC_FrequencyStep::residualModeRegion, residualModeRegionText());
    visit(residualModesCmd(), &kprC_FrequencyStep::residualModes, residualModesText());
    visit(secondCutoffMultiplierCmd(), &kprC_FrequencyStep::secondCutoffMultiplier, secondCutoffMultiplierText());
    visit(simLinearDynamicsCmd(), &kprC_FrequencyStep::simLinearDynamics, simLinearDynamicsText());
    visit(substructureCutoffMultiplierCmd(), &kprC_FrequencyStep::substructureCutoffMultiplier, substructureCutoffMultiplierText());
  }

private:
  DDB_LOCAL void AssertLanczos() const;
  DDB_LOCAL void AssertSubspace() const;
  DDB_LOCAL void AssertMultilevel() const;
};
