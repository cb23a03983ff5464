#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of kprC_Step.
struct kprC_StepNames {
  static constexpr omn_FixedString allowAdaptiveMeshDomainsCmd() { return "allowAdaptiveMeshDomains"; }
  static constexpr omn_FixedString copyCmd() { return "Step"; }
  static constexpr omn_FixedString generalReplacementStepsCmd() { return "_generalReplacementSteps"; }
  static constexpr omn_FixedString generalStepsCmd() { return "_generalSteps"; }
  static constexpr omn_FixedString perturbationReplacementStepsCmd() { return "_perturbationReplacementSteps"; }
  static constexpr omn_FixedString perturbationStepsCmd() { return "_perturbationSteps"; }
  static constexpr omn_FixedString procedureTypeCmd() { return "procedureType"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString solverInputCmd() { return "_solverInput"; }
};

/// Names of kprC_AnalysisStep.
struct kprC_AnalysisStepNames {
  static constexpr omn_FixedString explicitCmd() { return "explicit"; }
  static constexpr omn_FixedString fieldCmd() { return "field"; }
  static constexpr omn_FixedString historyCmd() { return "history"; }
  static constexpr omn_FixedString nonmechanicalCmd() { return "nonmechanical"; }
  static constexpr omn_FixedString perturbationCmd() { return "perturbation"; }
};

/// Names of kprC_TimePoint.
struct kprC_TimePointNames {
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
};
