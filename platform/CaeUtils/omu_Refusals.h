#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/BasicUtils/nex_ErrorTable.h"

/// A module's refusals and where its exceptions say that they come from.
struct omu_RefusalTable {
  char const* module;  ///< its prefix, "kbc"
  char const* sourceName;
  std::span<nex_ErrorRow const> rows;
  int valueErrorLine, textLine;
  std::span<nex_ErrorRow const> contents = {};  ///< without codes: texts that name what is refused
  bool otherIsValueError = false;               ///< whether a number outside the rows throws as their value errors do
};

/// Throws the exception of \p code with its text: an omu_ValueErrorException where the row says so, else a
/// nex_TextException. A number that the table does not hold throws the one that the module takes for every other, with an
/// empty text.
[[noreturn]] DDB_API void omu_Refuse(omu_RefusalTable const& table, int code);

/// The one assert behind every module's exported function.
inline void omu_Assert(omu_RefusalTable const& table, bool condition, int code) {
  if (!condition) { omu_Refuse(table, code); }
}
/// The same of a refusal whose message has \p texts in their places; a nex_TextException without a code.
DDB_API void omu_AssertContent(omu_RefusalTable const& table, bool condition, std::size_t row,
                               std::initializer_list<std::string_view> texts);

constexpr nex_Catalogue omu_CatalogueOf(omu_RefusalTable const& table) { return {table.module, table.rows, table.contents}; }

/// Defines what a module exports of its refusals, the assert function and the catalogue: over kRows, the \p count rows of its Errors.def,
/// and what else its table says, in designators. The table is kTable.
#define OMU_REFUSALS(prefix, count, ...)                                                                                         \
  static_assert(nex_CodesAreDense(kRows) && std::size(kRows) == (count), "Errors.def: in code order, none missing");             \
  static constexpr omu_RefusalTable kTable = {                                                                                   \
      .module = #prefix, .sourceName = "generated/module/" #prefix "/com/impl/" #prefix "C_assert", .rows = kRows, __VA_ARGS__}; \
  void prefix##C_Assert(bool condition, prefix##C_ErrorEnm code) { omu_Assert(kTable, condition, static_cast<int>(code)); }      \
  nex_Catalogue prefix##C_Errors() { return omu_CatalogueOf(kTable); }
/// What a row of an Errors.def is in kRows: a DDB_ERROR.
#define OMU_REFUSAL_ROW(code, name, exception, text, raisedBy) {code, exception, text, #name, raisedBy},
