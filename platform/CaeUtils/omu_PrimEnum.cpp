#include "platform/CaeUtils/omu_PrimEnum.h"

#include <initializer_list>

#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace {

using Row = omu_PrimEnumBase::PrimEnumTableEl;

Row const* FindRow(Row const* table, unsigned value) {
  for (Row const* row = table; row->text != nullptr; ++row) {
    if (row->value == value) { return row; }
  }
  return nullptr;
}

Row const* FindRow(Row const* table, std::string_view text) {
  for (Row const* row = table; row->text != nullptr; ++row) {
    if (row->text == text) { return row; }
  }
  return nullptr;
}

std::string JoinTexts(Row const* table) {
  std::string texts;
  for (Row const* row = table; row->text != nullptr; ++row) {
    if (row != table) { texts += ", "; }
    texts += row->text;
  }
  return texts;
}

/// How a constructor refuses. The line belongs to the interface, as the message does.
struct Refusal {
  char const* format;
  int line;
};

[[noreturn]] void Refuse(Refusal const& refusal, std::string_view given, Row const* table) {
  atr_String const message = atr_SubstituteFormat(atr_translate(refusal.format), {given, JoinTexts(table)});
  nex_Exception::Throw(omu_ValueErrorException(message), "generated/include/omu_PrimEnum", refusal.line);
}

/// Enumerators are 32-bit integers: a message shows the number that was given, with its sign.
std::string NumberText(unsigned value) { return std::to_string(static_cast<int>(value)); }

// In the order of omu_PrimEnumBase::Source.
constexpr Refusal kRefusals[] = {
    {"omu_PrimEnum(Enum) - Enum value not allowed: %d  Permissible: %s", 54},
    {"omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: %s", 67},
    {"omu_PrimEnum(const cow_String&) - str not allowed: %s  Permissible: %s", 81},
    {"omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: %s  Permissible: %s", 95},
};

}  // namespace

omu_PrimEnumBase::omu_PrimEnumBase(PrimEnumTableEl const* table, unsigned value) : row_(FindRow(table, value)) {
  if (row_ == nullptr) { Refuse(kRefusals[static_cast<int>(Source::Number)], NumberText(value), table); }
}

omu_PrimEnumBase::omu_PrimEnumBase(PrimEnumTableEl const* table, std::string_view text, Source source) : row_(FindRow(table, text)) {
  if (row_ == nullptr) { Refuse(kRefusals[static_cast<int>(source)], text, table); }
}

omu_PrimEnumBase::omu_PrimEnumBase(PrimEnumTableEl const* table, cls_ReadVisitor const& in, std::string_view member,
                                   std::string_view suffix) {
  Refusal const& refusal = kRefusals[static_cast<int>(Source::Stored)];
  if (std::optional<unsigned> const number = in.ReadEnumerated(member, suffix)) {
    row_ = FindRow(table, *number);
    if (row_ == nullptr) { Refuse(refusal, NumberText(*number), table); }
  } else {
    cow_String const text = in.ReadShared(suffix.empty() ? member : std::string(member).append(suffix));
    row_ = FindRow(table, text);
    if (row_ == nullptr) { Refuse(refusal, text, table); }
  }
}

bool omu_PrimEnumBase::SetValue(char const* text) {
  PrimEnumTableEl const* const row = text != nullptr ? FindRow(Table(), text) : nullptr;
  if (row != nullptr) { row_ = row; }
  return row != nullptr;
}

bool omu_PrimEnumBase::SetRowOf(unsigned value) {
  PrimEnumTableEl const* const row = FindRow(Table(), value);
  if (row != nullptr) { row_ = row; }
  return row != nullptr;
}

cow_Map<cow_String, unsigned int> omu_PrimEnumBase::PermissibleValues() const {
  cow_Map<cow_String, unsigned int> values;
  for (PrimEnumTableEl const* row = Table(); row->text != nullptr; ++row) {
    if (!values.Contains(row->text)) { values.Insert(row->text, row->value); }
  }
  return values;
}

atr_String omu_PrimEnumBase::PermissibleValuesAsString() const { return JoinTexts(Table()); }

bool omu_PrimEnumBase::IsEqual(omu_Primitive const& other) const {
  bool const isSame = typeid(other) == typeid(*this);  // as good as always, and quickly asked
  auto const* const value = isSame ? static_cast<omu_PrimEnumBase const*>(&other) : dynamic_cast<omu_PrimEnumBase const*>(&other);
  return value != nullptr && View() == value->View();
}

atr_String omu_EnumText(omu_PrimEnumBase::PrimEnumTableEl const* table, unsigned value) {
  Row const* const row = FindRow(table, value);
  return row != nullptr ? atr_String(row->text) : atr_String(NumberText(value));
}
