#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/BasicUtils/nex_ErrorTable.h"

/// A module's refusals and where its exceptions say that they come from.
struct omu_RefusalTable {
  char const* module;  ///< its prefix, "kbc"
  char const* sourceName;
  int valueErrorLine, textLine;
  std::span<nex_ErrorRow const> rows;
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
