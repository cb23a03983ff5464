#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of korC_Output and its states.
struct korC_OutputNames {
  static constexpr omn_FixedString createStepNameCmd() { return "createStepName"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString fromStepNameCmd() { return "fromStepName"; }
  static constexpr omn_FixedString toStepNameCmd() { return "toStepName"; }
  static constexpr omn_FixedString statusCmd() { return "status"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }
  static constexpr omn_FixedString moveCmd() { return "move"; }
  static constexpr omn_FixedString resetCmd() { return "reset"; }
  static constexpr omn_FixedString resumeCmd() { return "resume"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString modifyParametersCmd() { return "setValuesInStep"; }
  static constexpr omn_FixedString variablesStateCmd() { return "variablesState"; }
  static constexpr omn_FixedString typeStateCmd() { return "typeState"; }
  static constexpr omn_FixedString frequencyStateCmd() { return "frequencyState"; }
  static constexpr omn_FixedString numIntervalsStateCmd() { return "numIntervalsState"; }
  static constexpr omn_FixedString timeIntervalStateCmd() { return "timeIntervalState"; }
  static constexpr omn_FixedString modesStateCmd() { return "modesState"; }
  static constexpr omn_FixedString timePointStateCmd() { return "timePointState"; }
  static constexpr omn_FixedString timeMarksStateCmd() { return "timeMarksState"; }
  static constexpr omn_FixedString upgradeOutputMDBCmd() { return "_upgradeOutputMdb"; }
};
/// Names of korC_FieldOutput.
struct korC_FieldOutputNames {
  static constexpr omn_FixedString operationCmd() { return "operation"; }
  static constexpr omn_FixedString fieldOutputRepositoryCmd() { return "fieldOutputRequests"; }
  static constexpr omn_FixedString fieldOutputStateCmd() { return "fieldOutputRequestStates"; }
};
/// Names of korC_HistoryOutput.
struct korC_HistoryOutputNames {
  static constexpr omn_FixedString historyOutputRepositoryCmd() { return "historyOutputRequests"; }
  static constexpr omn_FixedString historyOutputStateCmd() { return "historyOutputRequestStates"; }
};
