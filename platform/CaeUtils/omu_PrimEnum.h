#pragma once

#include <string>
#include <string_view>

#include "platform/BasicUtils/cow_Map.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CaeUtils/omu_Primitive.h"
#include "platform/CoreUtils/atr_String.h"
#include "platform/CoreUtils/ddb_Export.h"

class cls_ReadVisitor;

/// An enumerated value and its text, whatever the enumeration. The value is a row of the enumeration's table, so it
/// costs two pointers, and value and text cannot disagree.
class DDB_API omu_PrimEnumBase : public omu_Primitive {
public:
  /// A row of an enumeration's table. The last row has no text.
  struct PrimEnumTableEl {
    char const* text;
    unsigned value;
  };

  atr_String Text() const { return row_->text; }
  /// The text without a copy; it lives as long as the program.
  std::string_view View() const noexcept { return row_->text; }

  using omu_Primitive::SetValue;
  /// Takes the first row of that text, compared exactly. A null text stands for no value.
  bool SetValue(char const* text) override;
  /// Every text of the table with its value; of equal texts the first one's.
  cow_Map<cow_String, unsigned int> PermissibleValues() const override;
  /// The texts in the order of the table, "UNIFORM, USER_DEFINED, FIELD".
  atr_String PermissibleValuesAsString() const;

protected:
  /// What a constructor was given, which decides how it refuses.
  enum class Source { Number, Base, String, Stored };

  /// Throws an omu_ValueErrorException when no row of \p table has that value or text.
  omu_PrimEnumBase(PrimEnumTableEl const* table, unsigned value);
  omu_PrimEnumBase(PrimEnumTableEl const* table, std::string_view text, Source source);
  omu_PrimEnumBase(PrimEnumTableEl const* table, cls_ReadVisitor const& in, std::string_view member, std::string_view suffix);
  omu_PrimEnumBase(omu_PrimEnumBase const&) = default;
  omu_PrimEnumBase& operator=(omu_PrimEnumBase const&) = default;

  bool SetRowOf(unsigned value);
  unsigned RowValue() const noexcept { return row_->value; }

private:
  /// The enumeration's table.
  virtual PrimEnumTableEl const* Table() const = 0;
  /// Enumerated values are equal when their texts are.
  bool IsEqual(omu_Primitive const& other) const override;

  PrimEnumTableEl const* row_;
};

/// The table of an enumeration, given by specialising this beside the enumeration:
///   static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNIFORM", 0}, {"FIELD", 2}, {nullptr, 0}};
template <class E> struct omu_EnumTable;

/// A value of the enumeration \p E. Every constructor refuses what the table does not hold with an
/// omu_ValueErrorException from "generated/include/omu_PrimEnum" whose message names the value; SetValue answers false.
template <class E, int Dimension = 1> class omu_PrimEnum;

template <class E> class DDB_API omu_PrimEnum<E, 1> final : public omu_PrimEnumBase {
public:
  /// The first row of the table.
  omu_PrimEnum() : omu_PrimEnum(Value(0)) {}
  omu_PrimEnum(E value) : omu_PrimEnumBase(table, static_cast<unsigned>(value)) {}
  /// Takes the other's text, so that values of different enumerations convert where their texts agree.
  explicit omu_PrimEnum(omu_PrimEnumBase const& other) : omu_PrimEnumBase(table, other.View(), Source::Base) {}
  explicit omu_PrimEnum(cow_String const& text) : omu_PrimEnumBase(table, text, Source::String) {}
  /// What is stored, as its text or its number, under the name that \p member and \p suffix make.
  explicit omu_PrimEnum(cls_ReadVisitor const& in, std::string_view member, std::string_view suffix = {})
      : omu_PrimEnumBase(table, in, member, suffix) {}

  using omu_PrimEnumBase::SetValue;
  /// Takes the first row of that value; false, and nothing has changed, when there is none.
  bool SetValue(E value) { return SetRowOf(static_cast<unsigned>(value)); }
  operator E() const noexcept { return static_cast<E>(RowValue()); }
  /// The value of the table's row \p i, which must exist.
  static constexpr E Value(int i) { return static_cast<E>(table[i].value); }

  [[nodiscard]] omu_PrimEnum* Copy() const override { return new omu_PrimEnum(*this); }

private:
  static constexpr PrimEnumTableEl const* table = omu_EnumTable<E>::rows;
  PrimEnumTableEl const* Table() const override { return table; }
};

/// The text of the first row of \p value; its number where the table does not hold it.
DDB_API atr_String omu_EnumText(omu_PrimEnumBase::PrimEnumTableEl const* table, unsigned value);

/// The text of an enumeration's first row, for one that is a word or two.
template <class E> inline constexpr std::string_view omu_wordOf = omu_EnumTable<E>::rows[0].text;

/// The text of an enumerator.
template <class E> atr_String atr(E value) { return omu_EnumText(omu_EnumTable<E>::rows, static_cast<unsigned>(value)); }

/// The message \p format in the user's language with \p value, as its text, in the place of the first conversion and
/// \p text in that of the second.
template <class E, class Text> atr_String atr(char const* format, E value, Text text) {
  return atr_SubstituteFormat(atr_translate(format), {atr(value).View(), std::string_view(text)});
}
