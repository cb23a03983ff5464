#pragma once

#include "platform/CoreUtils/omn_FixedString.h"

// Documented names that nothing here uses: editing layers and scripts outside find them under their classes.

/// Names of kinC_Interaction.
struct kinC_InteractionNames {
  static constexpr omn_FixedString categoryCmd() { return "category"; }
  static constexpr omn_FixedString copyConstructorCmd() { return "Interaction"; }
  static constexpr omn_FixedString createStepNameCmd() { return "createStepName"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }
  static constexpr omn_FixedString fromStepNameCmd() { return "fromStepName"; }
  static constexpr omn_FixedString historyCmd() { return "history"; }
  static constexpr omn_FixedString modifyParametersCmd() { return "setValuesInStep"; }
  static constexpr omn_FixedString moveCmd() { return "move"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString resetCmd() { return "reset"; }
  static constexpr omn_FixedString resumeCmd() { return "resume"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString statusCmd() { return "status"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString suppressedCmd() { return "suppressed"; }
  static constexpr omn_FixedString toStepNameCmd() { return "toStepName"; }
  static constexpr omn_FixedString upgradeInteractionMDBCmd() { return "_upgradeInteractionMdb"; }
  /// A text of types that stands beside those of the table.
  static constexpr omn_FixedString filmConditionText() { return "Film condition"; }
};
