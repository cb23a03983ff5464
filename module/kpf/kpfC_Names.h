#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of kpfC_Field.
struct kpfC_FieldNames {
  static constexpr omn_FixedString amplitudeStateCmd() { return "amplitudeState"; }
  static constexpr omn_FixedString createStepNameCmd() { return "createStepName"; }
  static constexpr omn_FixedString fieldCmd() { return "field"; }
  static constexpr omn_FixedString fieldCopyCmd() { return "Field"; }
  static constexpr omn_FixedString fieldsCmd() { return "fields"; }
  static constexpr omn_FixedString fieldStatesCmd() { return "fieldStates"; }
  static constexpr omn_FixedString fromStepNameCmd() { return "fromStepName"; }
  static constexpr omn_FixedString initialConditionCmd() { return "initialCondition"; }
  static constexpr omn_FixedString initialConditionCopyCmd() { return "InitialCondition"; }
  static constexpr omn_FixedString magnitudeStateCmd() { return "magnitudeState"; }
  static constexpr omn_FixedString modifyParametersCmd() { return "setValuesInStep"; }
  static constexpr omn_FixedString moveCmd() { return "move"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString resumeCmd() { return "resume"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString statusCmd() { return "status"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString toStepNameCmd() { return "toStepName"; }
  static constexpr omn_FixedString typeCmd() { return "type"; }
  static constexpr omn_FixedString upgradeFieldMDBCmd() { return "_upgradeFieldMdb"; }
  // what types are called as initial conditions
  static constexpr omn_FixedString initialTemperatureCmd() { return "InitialTemperature"; }
  static constexpr omn_FixedString initialVelocityCmd() { return "InitialVelocity"; }
};

/// Names of kpfC_FieldState.
struct kpfC_FieldStateNames {
  static constexpr omn_FixedString fieldStateCmd() { return "predefinedFieldState"; }
  static constexpr omn_FixedString fieldStateRepositoryCmd() { return "predefinedFieldStates"; }
  static constexpr omn_FixedString pythonTypeName() { return "PredefinedFieldState"; }
};
