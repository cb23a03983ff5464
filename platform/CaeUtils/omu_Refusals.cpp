#include "platform/CaeUtils/omu_Refusals.h"

#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "platform/CoreUtils/atr_String.h"

void omu_Refuse(omu_RefusalTable const& table, int code) {
  nex_ErrorRow const* const row = nex_FindRow(table.rows, code);
  atr_String const text = row != nullptr ? atr_translate(row->text) : atr_String();
  nex_Origin const origin{table.module, code};
  if (row != nullptr ? row->valueError : table.otherIsValueError) {
    nex_Exception::Throw(omu_ValueErrorException(text, origin), table.sourceName, table.valueErrorLine);
  }
  nex_Exception::Throw(nex_TextException(text, origin), table.sourceName, table.textLine);
}

void omu_AssertContent(omu_RefusalTable const& table, bool condition, std::size_t row, std::initializer_list<std::string_view> texts) {
  if (condition) { return; }
  atr_String const message = atr_SubstituteFormat(atr_translate(table.contents[row].text), texts);
  nex_Exception::Throw(nex_TextException(message, {table.module, -1}), table.sourceName, table.textLine);
}
