#pragma once

#include <cstddef>
#include <mutex>
#include <span>
#include <string_view>
#include <vector>

#include "platform/CoreUtils/ddb_Export.h"

/// One refusal of a module. Codes and texts are interface and never change, typing mistakes included.
struct nex_ErrorRow {
  int code;
  bool valueError;            ///< thrown as omu_ValueErrorException: the value given is refused; otherwise as nex_TextException
  char const* text;           ///< may hold "%1$s", "%s" for atr_SubstituteFormat; "" for a reserved code, which nothing raises
  char const* name;           ///< the enumerator's name
  char const* raisedBy = "";  ///< the files and rows of rules that raise it, with commas between them; "" where nothing here does

  constexpr bool IsReserved() const { return *text == '\0'; }
};

/// Whether the rows stand in the order of their codes with none missing, each with a name, and with a text where something raises
/// it; for a static_assert.
constexpr bool nex_CodesAreDense(std::span<nex_ErrorRow const> rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].code != rows.front().code + static_cast<int>(i)) { return false; }
    if (std::string_view(rows[i].name).empty() || (rows[i].IsReserved() && *rows[i].raisedBy != '\0')) { return false; }
  }
  return true;
}

/// The row of \p code in a dense table, null when it has none. O(1).
constexpr nex_ErrorRow const* nex_FindRow(std::span<nex_ErrorRow const> rows, int code) {
  if (rows.empty() || code < rows.front().code || code > rows.back().code) { return nullptr; }
  return &rows[static_cast<std::size_t>(code - rows.front().code)];
}

/// The refusals of one module.
struct nex_Catalogue {
  char const* module;  ///< its prefix, "kbc"
  std::span<nex_ErrorRow const> rows;
  std::span<nex_ErrorRow const> contents = {};  ///< without codes: texts that name what is refused
};

/// The catalogues of the modules that have been started, in the order of their start. The process has one list:
/// thr_GlobalSingleton<nex_Catalogues>::Instance(). Threads may use it at the same time.
class DDB_API nex_Catalogues {
public:
  /// Called by a module's start; a second catalogue of the same module takes the place of the first.
  void Register(nex_Catalogue catalogue);
  /// Called when a module is finalized. Unknown modules are passed over.
  void Withdraw(std::string_view module);
  std::vector<nex_Catalogue> All() const;

private:
  mutable std::mutex mutex_;
  std::vector<nex_Catalogue> catalogues_;
};
