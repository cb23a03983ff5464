#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "module/kpr/kprC_Procedures.h"

/// What every row of a family's table of types says: a type and the procedures in whose steps it may be created.
struct kprC_AdmissionRow {
  unsigned typeId;
  std::string_view type;  ///< the class's name
  kprC_ProcedureSet procedures;
};

/// The row of the type of that identity; null when the table has none.
template <class Row> constexpr Row const* kprC_FindType(std::span<Row const> rows, unsigned typeId) {
  auto const row = std::ranges::find(rows, typeId, &Row::typeId);
  return row == rows.end() ? nullptr : &*row;
}
