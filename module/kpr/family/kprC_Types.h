#pragma once

#include <algorithm>
#include <concepts>
#include <memory>
#include <span>
#include <string_view>

#include "module/kpr/engine/kprC_StepDependent.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cls_Persistent.h"

/// Whether load cases take attributes of a type.
enum class kprC_LoadCase { Accepted, Refused, NotYet };

/// When the initial step takes a type that its row grants it. It is asked with two flags: whether the check is relaxed there, as
/// for steps that follow whatever they are, and whether the analysis is an explicit one.
enum class kprC_InInitial { Always, WhereExplicit, WhereNotExplicit };

/// A row of a family's table of types (Types.def): all that sets a type apart but its members and what it alone refuses.
struct kprC_TypeRow {
  unsigned typeId;
  std::string_view command;      ///< that constructs it; "" where several do
  std::string_view label;        ///< by which users know it; "" for a type that no list shows
  kprC_ProcedureSet procedures;  ///< in whose steps it may be created
  std::unique_ptr<cls_Object> (*newState)(unsigned procedureType);
  kprC_InInitial inInitial = kprC_InInitial::Always;
  bool propagates = true;  ///< false: in force in its own steps alone
  bool refused = true;     ///< the check of every record refuses it in a step that does not admit it
  kprC_ActsOn actsOn = kprC_ActsOn::Anything;

  constexpr bool Grants(unsigned procedureType, bool initialRelaxed, bool explicitOnly) const {
    if (!procedures.Contains(procedureType)) { return false; }
    bool const asks = procedureType == 0 && !initialRelaxed && inInitial != kprC_InInitial::Always;
    return !asks || explicitOnly == (inInitial == kprC_InInitial::WhereExplicit);
  }
};
/// A row of a family whose types fall into categories and may be used in load cases.
template <class CategoryEnm> struct kprC_LoadCaseTypeRow : kprC_TypeRow {
  CategoryEnm category;
  kprC_LoadCase loadCase;
};

/// The row of the class \p T, whose states are of the class \p State; they are made for a procedure type where the class asks for one.
template <class T, class State>
constexpr kprC_TypeRow kprC_RowOf(std::string_view command, std::string_view label, kprC_ProcedureSet procedures) {
  auto const make = [](unsigned procedureType) -> std::unique_ptr<cls_Object> {
    if constexpr (std::constructible_from<State, unsigned>) {
      return std::make_unique<State>(procedureType);
    } else {
      return static_cast<void>(procedureType), std::make_unique<State>();
    }
  };
  return {T::TypeId(), command, label, procedures, make};
}
template <class T, class State, class CategoryEnm>
constexpr kprC_LoadCaseTypeRow<CategoryEnm> kprC_RowOf(std::string_view command, std::string_view label, kprC_ProcedureSet procedures,
                                                       CategoryEnm category, kprC_LoadCase loadCase,
                                                       kprC_ActsOn actsOn = kprC_ActsOn::Anything) {
  kprC_LoadCaseTypeRow<CategoryEnm> row = {kprC_RowOf<T, State>(command, label, procedures), category, loadCase};
  row.actsOn = actsOn;
  return row;
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
