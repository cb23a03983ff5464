#pragma once

#include "platform/BasicUtils/nex_ErrorTable.h"

/// A module's refusals and where its exceptions say that they come from.
struct omu_RefusalTable {
  char const* module;  ///< its prefix, "kbc"
  char const* sourceName;
  int valueErrorLine, textLine;
  std::span<nex_ErrorRow const> rows;
};

/// Throws the exception of \p code with its text: an omu_ValueErrorException where the row says so, else a
/// nex_TextException. A number that the table does not hold throws a nex_TextException with an empty text.
[[noreturn]] DDB_API void omu_Refuse(omu_RefusalTable const& table, int code);
