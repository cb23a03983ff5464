#pragma once

#include "platform/CaeUtils/omu_PrimEnum.h"
#include "platform/CoreUtils/ddb_Export.h"

/// What an attribute does in a step. The numbers are stored and shown; each family classifies them by a table of its
/// own, so the names say what most families mean, and the plain ones are given a meaning by some families only.
enum class DDB_API mdl_PropagationStatusEnm : int {
  NotYetCreated = 0,              ///< the step stands before the attribute's first one, or nothing was computed yet
  Created = 1,                    ///< the attribute begins here
  Propagated = 2,                 ///< the state of an earlier step holds on unchanged
  Modified = 3,                   ///< the state is changed in this step
  Deactivated = 4,                ///< switched off in this step
  InactiveAfterDeactivation = 5,  ///< still off
  Inactive6 = 6,
  Inactive7 = 7,
  Status8 = 8,
  PropagatedFromBaseState = 9,  ///< the initial step's state holds on unchanged
  ModifiedFromBaseState = 10,   ///< a state created in the initial step is changed here
  Inactive11 = 11,
  BuiltIn = 12,  ///< part of the step's procedure; not editable
  Reserved13 = 13,
  Status14 = 14,
  Status15 = 15,
};

template <> struct omu_EnumTable<mdl_PropagationStatusEnm> {
  static constexpr bool kStoredByNumber = true;
  static constexpr std::size_t kChoices = 16;
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"NOT_YET_CREATED", 0},
      {"CREATED", 1},
      {"PROPAGATED", 2},
      {"MODIFIED", 3},
      {"DEACTIVATED", 4},
      {"OFF", 5},
      {"PASSED_OVER", 6},
      {"NOT_CARRIED", 7},
      {"IN_BASE_STATE", 8},
      {"BASE_STATE", 9},
      {"BASE_MODIFIED", 10},
      {"OFF_HERE", 11},
      {"BUILT_IN", 12},
      {"INITIAL_VALUE", 13},
      {"INITIAL", 14},
      {"RESET", 15},
      // what the first version of the text form called them
      {"INACTIVE_AFTER_DEACTIVATION", 5},
      {"STATUS_6", 6},
      {"STATUS_7", 7},
      {"STATUS_8", 8},
      {"PROPAGATED_FROM_BASE_STATE", 9},
      {"MODIFIED_FROM_BASE_STATE", 10},
      {"STATUS_11", 11},
      {"STATUS_13", 13},
      {"STATUS_14", 14},
      {"STATUS_15", 15},
      {nullptr, 0},
  };
};

extern template class DDB_API omu_PrimEnum<mdl_PropagationStatusEnm, 1>;
