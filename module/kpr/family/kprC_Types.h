#pragma once

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

#include "module/kpr/engine/kprC_StepDependent.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cls_Persistent.h"

/// Whether load cases take attributes of a type.
enum class kprC_LoadCase { Accepted, Refused, NotYet };

/// A row of a family's table of types (Types.def): all that sets a type apart but its members and what it alone refuses.
template <class CategoryEnm> struct kprC_TypeRow {
  unsigned typeId;
  std::string_view command;      ///< that constructs it; "" where several do
  std::string_view label;        ///< by which users know it; "" for a type that no list shows
  kprC_ProcedureSet procedures;  ///< in whose steps it may be created
  CategoryEnm category;
  kprC_LoadCase loadCase;
  std::unique_ptr<cls_Object> (*newState)();
};

/// The row of the class \p T, whose states are of the class \p State.
template <class T, class State, class CategoryEnm>
constexpr kprC_TypeRow<CategoryEnm> kprC_RowOf(std::string_view command, std::string_view label, kprC_ProcedureSet procedures,
                                               CategoryEnm category, kprC_LoadCase loadCase) {
  return {T::TypeId(), command, label, procedures, category, loadCase, &cls_Make<State>};
}

/// The row of the type of that identity; null when the table has none.
template <class Row> constexpr Row const* kprC_FindType(std::span<Row const> rows, unsigned typeId) {
  auto const row = std::ranges::find(rows, typeId, &Row::typeId);
  return row == rows.end() ? nullptr : &*row;
}

/// A construction command of a family and what it makes.
template <class Attribute> struct kprC_Constructor {
  std::string_view command;  ///< "DisplacementBC"
  std::string_view label;    ///< the type's
  std::unique_ptr<cls_Object> (*construct)();

  std::unique_ptr<Attribute> make() const { return std::unique_ptr<Attribute>(static_cast<Attribute*>(construct().release())); }
};
