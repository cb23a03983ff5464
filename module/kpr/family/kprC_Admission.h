#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "module/kpr/procedures/kprC_Procedures.h"

/// What every row of a family's table of types says: a type and the procedures in whose steps it may be created.
struct kprC_AdmissionRow {
  unsigned typeId;
  std::string_view type;  ///< the class's name
  kprC_ProcedureSet procedures;
};

/// Whether load cases take attributes of a type.
enum class kprC_LoadCase { Accepted, Refused, NotYet };

/// A row of the table of types of a family that has categories and takes part in load cases.
template <class CategoryEnm> struct kprC_TypeRow : kprC_AdmissionRow {
  CategoryEnm category;
  kprC_LoadCase loadCase;
};

/// The row of the type of that identity; null when the table has none.
template <class Row> constexpr Row const* kprC_FindType(std::span<Row const> rows, unsigned typeId) {
  auto const row = std::ranges::find(rows, typeId, &Row::typeId);
  return row == rows.end() ? nullptr : &*row;
}
