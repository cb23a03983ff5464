#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of kbcC_BC.
struct kbcC_BCNames {
  static constexpr omn_FixedString amplitudeStateCmd() { return "amplitudeState"; }
  static constexpr omn_FixedString bcRepositoryCmd() { return "boundaryConditions"; }
  static constexpr omn_FixedString categoryCmd() { return "category"; }
  static constexpr omn_FixedString createStepNameCmd() { return "createStepName"; }
  static constexpr omn_FixedString fromStepNameCmd() { return "fromStepName"; }
  static constexpr omn_FixedString globalCsysName() { return "(Global)"; }
  static constexpr omn_FixedString modifyParametersCmd() { return "setValuesInStep"; }
  static constexpr omn_FixedString moveCmd() { return "move"; }
  static constexpr omn_FixedString resetCmd() { return "reset"; }
  static constexpr omn_FixedString resumeCmd() { return "resume"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString statusCmd() { return "status"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString suppressedCmd() { return "suppressed"; }
  static constexpr omn_FixedString toStepNameCmd() { return "toStepName"; }
  static constexpr omn_FixedString upgradeBCMDBCmd() { return "_upgradeBcMdb"; }
};

/// Names of kbcC_BCState.
struct kbcC_BCStateNames {
  static constexpr omn_FixedString bcStateCmd() { return "boundaryConditionStates"; }
  static constexpr omn_FixedString pythonTypeName() { return "BoundaryConditionState"; }
};
