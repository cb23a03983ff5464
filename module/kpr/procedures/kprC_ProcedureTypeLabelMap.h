#pragma once

#include <span>
#include <string_view>

#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/CoreUtils/ddb_Export.h"

/// The labels of the procedure types, in the order in which they are offered. The process has one table:
/// thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Instance().
class DDB_API kprC_ProcedureTypeLabelMap {
public:
  struct Entry {
    omn_FixedString label;
    unsigned type;
  };
  /// The number of the label "NONE", which names no procedure.
  static constexpr unsigned kNone = 1;

  /// "NONE", then the 25 procedures that have a label.
  std::span<Entry const> Entries() const;
  /// The label of a procedure type; empty where it has none.
  std::string_view Label(unsigned procedureType) const;
  /// The procedure type of a label; kNone for "NONE" and for a text that is no label.
  unsigned Type(std::string_view label) const;
};

/// Gives each procedure type one bit, for tables that hold sets of procedures. One per thread:
/// thr_ThreadSingleton<kprC_LabelsBitMap>::Instance().
class DDB_API kprC_LabelsBitMap {
public:
  /// 0 for what is no procedure type.
  unsigned Value(unsigned procedureType) const {
    return kprC_FindProcedure(procedureType) != nullptr ? kprC_ProcedureSet::BitOf(procedureType) : 0;
  }
  /// 0 for a text that is no procedure's label.
  unsigned Value(std::string_view label) const;
};
