#pragma once

#include "module/kpr/kprC_ProcedureStep.h"

/// What the stabilization magnitude stands for.
enum class kprC_StabilizationEnm { NONE, DISSIPATED_ENERGY_FRACTION, DAMPING_FACTOR };
template <> struct omu_EnumTable<kprC_StabilizationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"NONE", 0}, {"DISSIPATED_ENERGY_FRACTION", 1}, {"DAMPING_FACTOR", 2}, {nullptr, 0}};
};

/// Static equilibrium under loads that are applied in increments, with or without large displacements. The increments
/// must be given before the step is valid.
class DDB_API kprC_StaticStep : public kprC_ProcedureStep<kprC_StaticStep> {
public:
  using StabilizationEnm = kprC_StabilizationEnm;

  kprC_StaticStep();
  explicit kprC_StaticStep(cls_ReadVisitor const& in);

  double adaptiveDampingRatio = cls_unsetReal;
  omu_PrimEnum<AmplitudeEnm> amplitude = AmplitudeEnm::RAMP;
  bool applyContactIterations = false;
  int contactIterations = 30;
  double contactSolutions = 1.0;
  bool continueDampingFactors = false;
  omu_PrimEnum<ExtrapolationEnm> extrapolation = ExtrapolationEnm::LINEAR;
  cow_String fullyPlastic;
  double initialInc = 0.0, minInc = 0.0, maxInc = 0.0;
  int maxNumInc = 100;
  bool noStop = false;
  int reformKernel = 8;
  omu_PrimEnum<SolutionTechniqueEnm> solutionTechnique = SolutionTechniqueEnm::FULL_NEWTON;
  bool stabilization = false;
  double stabilizationMagnitude = cls_unsetReal;
  omu_PrimEnum<StabilizationEnm> stabilizationMethod = StabilizationEnm::NONE;
  omu_PrimEnum<TimeIncrementationMethodEnm> timeIncrementationMethod = TimeIncrementationMethodEnm::AUTOMATIC;
  bool useLongTermSolution = false;

  virtual StabilizationEnm StabilizationMethod() const { return stabilizationMethod; }
  virtual double StabilizationMagnitude() const { return stabilizationMagnitude; }

  /// Refuses, in this order: 151 stabilization with the iterative solver; 74 time period, 71 initial increment; 75
  /// initial increment above the period; 5 number of increments; with automatic increments alone 72, 79, 80, 78, 73, 77
  /// their bounds; contact iterations 161 without a direct solver, 236 with another solution technique; 140 quasi-Newton
  /// with an unsymmetric solver; 249 adaptive damping ratio; 250 damping factors continued without one.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(adaptiveDampingRatioCmd(), &kprC_StaticStep::adaptiveDampingRatio, adaptiveDampingRatioText());
    visit(amplitudeCmd(), &kprC_StaticStep::amplitude, amplitudeText());
    visit(applyContactIterationsCmd(), &kprC_StaticStep::applyContactIterations, applyContactIterationsText());
    visit(contactIterationsCmd(), &kprC_StaticStep::contactIterations, contactIterationsText());
    visit(contactSolutionsCmd(), &kprC_StaticStep::contactSolutions, contactSolutionsText());
    visit(continueDampingFactorsCmd(), &kprC_StaticStep::continueDampingFactors, continueDampingFactorsText());
    visit(extrapolationCmd(), &kprC_StaticStep::extrapolation, extrapolationText());
    visit(fullyPlasticCmd(), &kprC_StaticStep::fullyPlastic, fullyPlasticText());
    visit(initialIncCmd(), &kprC_StaticStep::initialInc, initialIncText());
    visit(maxIncCmd(), &kprC_StaticStep::maxInc, maxIncText());
    visit(maxNumIncCmd(), &kprC_StaticStep::maxNumInc, maxNumIncText());
    visit(minIncCmd(), &kprC_StaticStep::minInc, minIncText());
    visit(noStopCmd(), &kprC_StaticStep::noStop, noStopText());
    visit(reformKernelCmd(), &kprC_StaticStep::reformKernel, reformKernelText());
    visit(solutionTechniqueCmd(), &kprC_StaticStep::solutionTechnique, solutionTechniqueText());
    visit(stabilizationCmd(), &kprC_StaticStep::stabilization, stabilizationText());
    visit(stabilizationMagnitudeCmd(), &kprC_StaticStep::stabilizationMagnitude, stabilizationMagnitudeText());
    visit(stabilizationMethodCmd(), &kprC_StaticStep::stabilizationMethod, stabilizationMethodText());
    visit(timeIncrementationMethodCmd(), &kprC_StaticStep::timeIncrementationMethod, timeIncrementationMethodText());
    visit(useLongTermSolutionCmd(), &kprC_StaticStep::useLongTermSolution, useLongTermSolutionText());
  }
};
