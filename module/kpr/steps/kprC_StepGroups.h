#pragma once

#include "module/kpr/records/kprC_Damping.h"
#include "module/kpr/records/kprC_MassScaling.h"
#include "module/kpr/steps/kprC_Step.h"
#include "module/kpr/steps/kprC_StepParameters.h"

// Parameters that come together in several step classes: fields, defaults, and a list. A step class names the groups that it
// has (kprC_ProcedureStep); what is checked of them stands in kprC_StepChecks.h.

/// What the stabilization magnitude stands for.
enum class kprC_StabilizationEnm { NONE, DISSIPATED_ENERGY_FRACTION, DAMPING_FACTOR };
template <> struct omu_EnumTable<kprC_StabilizationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"NONE", 0}, {"DISSIPATED_ENERGY_FRACTION", 1}, {"DAMPING_FACTOR", 2}, {nullptr, 0}};
};

/// Increments that adapt to convergence or stay as given. They must be given before a step is valid.
struct kprC_Incrementation {
  omu_PrimEnum<kprC_Step::AmplitudeEnm> amplitude = kprC_Step::AmplitudeEnm::STEP;
  omu_PrimEnum<kprC_Step::ExtrapolationEnm> extrapolation = kprC_Step::ExtrapolationEnm::LINEAR;
  double initialInc = 0.0, minInc = 0.0, maxInc = 0.0;
  int maxNumInc = 100;
  omu_PrimEnum<kprC_Step::TimeIncrementationMethodEnm> timeIncrementationMethod = kprC_Step::TimeIncrementationMethodEnm::AUTOMATIC;

  bool IsAutomatic() const { return timeIncrementationMethod == kprC_Step::TimeIncrementationMethodEnm::AUTOMATIC; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::amplitudeCmd(), &kprC_Incrementation::amplitude, P::amplitudeText());
    visit(P::extrapolationCmd(), &kprC_Incrementation::extrapolation, P::extrapolationText());
    visit(P::timeIncrementationMethodCmd(), &kprC_Incrementation::timeIncrementationMethod, P::timeIncrementationMethodText());
    visit(P::maxNumIncCmd(), &kprC_Incrementation::maxNumInc, P::maxNumIncText());
    visit(P::initialIncCmd(), &kprC_Incrementation::initialInc, P::initialIncText());
    visit(P::minIncCmd(), &kprC_Incrementation::minInc, P::minIncText());
    visit(P::maxIncCmd(), &kprC_Incrementation::maxInc, P::maxIncText());
  }
};

/// Fixed increments of a step on modes.
struct kprC_FixedIncrements {
  omu_PrimEnum<kprC_Step::AmplitudeEnm> amplitude = kprC_Step::AmplitudeEnm::STEP;
  double incSize = 0.1;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::amplitudeCmd(), &kprC_FixedIncrements::amplitude, P::amplitudeText());
    visit(P::incSizeCmd(), &kprC_FixedIncrements::incSize, P::incSizeText());
  }
};

struct kprC_ContactControls {
  int contactIterations = 30;
  double contactSolutions = 1.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::contactIterationsCmd(), &kprC_ContactControls::contactIterations, P::contactIterationsText());
    visit(P::contactSolutionsCmd(), &kprC_ContactControls::contactSolutions, P::contactSolutionsText());
  }
};

struct kprC_ContactIterations : kprC_ContactControls {
  bool applyContactIterations = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::applyContactIterationsCmd(), &kprC_ContactIterations::applyContactIterations, P::applyContactIterationsText());
    kprC_ContactControls::VisitMembers(visit);
  }
};

struct kprC_SolutionTechnique {
  omu_PrimEnum<kprC_Step::SolutionTechniqueEnm> solutionTechnique = kprC_Step::SolutionTechniqueEnm::FULL_NEWTON;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::solutionTechniqueCmd(), &kprC_SolutionTechnique::solutionTechnique, P::solutionTechniqueText());
  }
};

struct kprC_QuasiNewton : kprC_SolutionTechnique {
  int reformKernel = 8;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    kprC_SolutionTechnique::VisitMembers(visit);
    visit(P::reformKernelCmd(), &kprC_QuasiNewton::reformKernel, P::reformKernelText());
  }
};

/// Adaptive damping against local instabilities.
struct kprC_AdaptiveStabilization {
  omu_PrimEnum<kprC_StabilizationEnm> stabilizationMethod = kprC_StabilizationEnm::NONE;
  double stabilizationMagnitude = cls_unsetReal;
  double adaptiveDampingRatio = cls_unsetReal;
  bool continueDampingFactors = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::stabilizationMethodCmd(), &kprC_AdaptiveStabilization::stabilizationMethod, P::stabilizationMethodText());
    visit(P::stabilizationMagnitudeCmd(), &kprC_AdaptiveStabilization::stabilizationMagnitude, P::stabilizationMagnitudeText());
    visit(P::adaptiveDampingRatioCmd(), &kprC_AdaptiveStabilization::adaptiveDampingRatio, P::adaptiveDampingRatioText());
    visit(P::continueDampingFactorsCmd(), &kprC_AdaptiveStabilization::continueDampingFactors, P::continueDampingFactorsText());
  }
};

struct kprC_Stabilization : kprC_AdaptiveStabilization {
  bool stabilization = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::stabilizationCmd(), &kprC_Stabilization::stabilization, P::stabilizationText());
    kprC_AdaptiveStabilization::VisitMembers(visit);
  }
};

/// How far a static step goes.
struct kprC_StaticControls {
  cow_String fullyPlastic;
  bool noStop = false;
  bool useLongTermSolution = false;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::fullyPlasticCmd(), &kprC_StaticControls::fullyPlastic, P::fullyPlasticText());
    visit(P::noStopCmd(), &kprC_StaticControls::noStop, P::noStopText());
    visit(P::useLongTermSolutionCmd(), &kprC_StaticControls::useLongTermSolution, P::useLongTermSolutionText());
  }
};

/// What controls the increments of a step with temperatures alone.
struct kprC_ThermalControls {
  double deltmx = cls_unsetReal;
  double mxdem = cls_unsetReal;
  double end = cls_unsetReal;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::deltmxCmd(), &kprC_ThermalControls::deltmx, P::deltmxText());
    visit(P::mxdemCmd(), &kprC_ThermalControls::mxdem, P::mxdemText());
    visit(P::endCmd(), &kprC_ThermalControls::end, P::endText());
  }
};

/// Explicit integration: increments from the stability limit or fixed, viscosities, mass scaling.
struct kprC_ExplicitIntegration {
  using PreviousStepEnm = kprC_MassScalingPreviousStepEnm;

  omu_PrimEnum<kprC_Step::TimeIncrementationMethodEnm> timeIncrementationMethod = kprC_Step::TimeIncrementationMethodEnm::AUTOMATIC;
  double scaleFactor = cls_unsetReal;
  double maxIncrement = cls_unsetReal;
  double userDefinedInc = cls_unsetReal;
  double linearBulkViscosity = cls_unsetReal;
  double quadBulkViscosity = cls_unsetReal;
  cls_xo1DArrayList<kprC_MassScaling> massScaling;

  /// Whether the step says anything of mass scaling or goes on as the step before.
  PreviousStepEnm MassScalingSource() const { return massScaling.IsEmpty() ? PreviousStepEnm::PREVIOUS_STEP : PreviousStepEnm::ARRAY; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::timeIncrementationMethodCmd(), &kprC_ExplicitIntegration::timeIncrementationMethod, P::timeIncrementationMethodText());
    visit(P::scaleFactorCmd(), &kprC_ExplicitIntegration::scaleFactor, P::scaleFactorText());
    visit(P::maxIncrementCmd(), &kprC_ExplicitIntegration::maxIncrement, P::maxIncrementText());
    visit(P::userDefinedIncCmd(), &kprC_ExplicitIntegration::userDefinedInc, P::userDefinedIncText());
    visit(P::linearBulkViscosityCmd(), &kprC_ExplicitIntegration::linearBulkViscosity, P::linearBulkViscosityText());
    visit(P::quadBulkViscosityCmd(), &kprC_ExplicitIntegration::quadBulkViscosity, P::quadBulkViscosityText());
    visit(P::massScalingCmd(), &kprC_ExplicitIntegration::massScaling, P::massScalingText());
  }
};

/// Which eigenvalues are asked for. Bounds that are not given leave the range open.
struct kprC_EigenRange {
  int numEigen = cls_unsetInteger;  ///< all
  double minEigen = cls_unsetReal;
  double maxEigen = cls_unsetReal;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::numEigenCmd(), &kprC_EigenRange::numEigen, P::numEigenText());
    visit(P::minEigenCmd(), &kprC_EigenRange::minEigen, P::minEigenText());
    visit(P::maxEigenCmd(), &kprC_EigenRange::maxEigen, P::maxEigenText());
  }
};

/// How eigenvalues are extracted.
struct kprC_EigenExtraction {
  omu_PrimEnum<kprC_Step::EigensolverEnm> eigensolver = kprC_Step::EigensolverEnm::LANCZOS;
  int vectors = cls_unsetInteger;
  int maxIterations = 30;
  int blockSize = cls_unsetInteger;
  int maxBlocks = cls_unsetInteger;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::eigensolverCmd(), &kprC_EigenExtraction::eigensolver, P::eigensolverText());
    visit(P::vectorsCmd(), &kprC_EigenExtraction::vectors, P::vectorsText());
    visit(P::maxIterationsCmd(), &kprC_EigenExtraction::maxIterations, P::maxIterationsText());
    visit(P::blockSizeCmd(), &kprC_EigenExtraction::blockSize, P::blockSizeText());
    visit(P::maxBlocksCmd(), &kprC_EigenExtraction::maxBlocks, P::maxBlocksText());
  }
};

/// Frequencies about which eigenvalues are looked for, and at which materials are evaluated.
struct kprC_EigenFrequencies {
  double shift = cls_unsetReal;
  double propertyEvaluationFrequency = cls_unsetReal;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::shiftCmd(), &kprC_EigenFrequencies::shift, P::shiftText());
    visit(P::propertyEvaluationFrequencyCmd(), &kprC_EigenFrequencies::propertyEvaluationFrequency, P::propertyEvaluationFrequencyText());
  }
};

/// Damping of a step on modes.
struct kprC_ModalDamping {
  kprC_DirectDamping directDamping;
  kprC_DirectDampingByFrequency directDampingByFrequency;
  kprC_RayleighDamping rayleighDamping;
  kprC_RayleighDampingByFrequency rayleighDampingByFrequency;
  kprC_CompositeDamping compositeDamping;

  /// Refuses what the components refuse, kind by kind; 23 a mode to which two components of composite damping apply; then 160
  /// a kind that is given both by modes and by frequency.
  DDB_API void AssertDamping() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    visit(P::directDampingCmd(), &kprC_ModalDamping::directDamping, P::directDampingText());
    visit(P::directDampingByFrequencyCmd(), &kprC_ModalDamping::directDampingByFrequency, P::directDampingByFrequencyText());
    visit(P::rayleighDampingCmd(), &kprC_ModalDamping::rayleighDamping, P::rayleighDampingText());
    visit(P::rayleighDampingByFrequencyCmd(), &kprC_ModalDamping::rayleighDampingByFrequency, P::rayleighDampingByFrequencyText());
    visit(P::compositeDampingCmd(), &kprC_ModalDamping::compositeDamping, P::compositeDampingText());
  }
};

/// The same of a step in the frequency domain, where structural damping has a meaning.
struct kprC_HarmonicDamping : kprC_ModalDamping {
  kprC_StructuralDamping structuralDamping;
  kprC_StructuralDampingByFrequency structuralDampingByFrequency;

  /// Refuses what the other kinds refuse, then the same of structural damping.
  DDB_API void AssertDamping() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using P = kprC_StepParameters;
    kprC_ModalDamping::VisitMembers(visit);
    visit(P::structuralDampingCmd(), &kprC_HarmonicDamping::structuralDamping, P::structuralDampingText());
    visit(P::structuralDampingByFrequencyCmd(), &kprC_HarmonicDamping::structuralDampingByFrequency, P::structuralDampingByFrequencyText());
  }
};
