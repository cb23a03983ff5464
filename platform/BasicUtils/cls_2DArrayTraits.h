#pragma once

#include "platform/BasicUtils/cls_xoList.h"
#include "platform/BasicUtils/cow_2DArray.h"

/// A table is stored and scripted as the list of its rows, which are lists of one length.
template <class T> struct cls_MemberTraits<cow_2DArray<T>> : cls_PlainTraits {
  using Table = cow_2DArray<T>;
  using Row = cls_xoList<T>;
  using Rows = cls_xoList<Row>;

  static constexpr std::string_view kExpected = "a list of rows of one length";

  static void Describe(cls_MemberInfo& info) {
    cls_MemberTraits<T>::Describe(info);
    info.many = info.table = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Table const& table) {
    cls_MemberTraits<Rows>::Write(out, name, RowsOf(table));
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Table& table) {
    Rows rows;
    cls_MemberTraits<Rows>::Read(in, name, rows);
    if (!Assign(table, rows)) { in.Refuse(name, kExpected); }
  }
  static cls_Value ToValue(Table const& table) { return cls_MemberTraits<Rows>::ToValue(RowsOf(table)); }
  static std::string_view FromValue(Table& table, cls_Value const& from) {
    Rows rows;
    if (auto const expected = cls_MemberTraits<Rows>::FromValue(rows, from); expected != "") {
      return expected == "a list" ? kExpected : expected;  // what does not fit is a row, or a value in one
    }
    return Assign(table, rows) ? "" : kExpected;
  }

private:
  static Rows RowsOf(Table const& table) {
    Rows rows;
    for (std::size_t row = 0; row < table.Rows(); ++row) {
      Row values;
      for (std::size_t column = 0; column < table.Columns(); ++column) { values.Append(table.ConstGet(row, column)); }
      rows.Append(std::move(values));
    }
    return rows;
  }
  static bool Assign(Table& table, Rows const& rows) {
    Table made;
    for (Row const& row : rows) {
      if (row.Size() != rows[0].Size()) { return false; }
      made.AppendRow(row);
    }
    return table = std::move(made), true;
  }
};
