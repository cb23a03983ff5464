#pragma once

#include "platform/BasicUtils/cls_Members.h"
#include "platform/CaeUtils/omu_PrimEnum.h"

/// The text by which all eigenvalues are asked for.
enum class kprC_AllEigenEnm { ALL };
template <> struct omu_EnumTable<kprC_AllEigenEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ALL", 0}, {nullptr, 0}};
};

/// A number of eigenvalues, or all that there are, which is the largest integer.
struct kprC_NumEigen {
  int value = cls_unsetInteger;

  constexpr kprC_NumEigen() = default;
  constexpr kprC_NumEigen(int number) : value(number) {}
  constexpr bool IsAll() const { return value == cls_unsetInteger; }
  constexpr operator int() const { return value; }
};

/// Stored as an integer, scripted as one or as "ALL".
template <> struct cls_MemberTraits<kprC_NumEigen> : cls_PlainTraits {
  using Number = cls_MemberTraits<int>;

  static constexpr char const* AllText() { return omu_EnumTable<kprC_AllEigenEnm>::rows[0].text; }
  static void Describe(cls_MemberInfo& info) {
    Number::Describe(info);
    info.permissible = {AllText()};
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, kprC_NumEigen number) {
    number.IsAll() ? out.WriteNull(name) : Number::Write(out, name, number.value);
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, kprC_NumEigen& number) {
    number = {};
    if (!in.IsNull(name)) { Number::Read(in, name, number.value); }
  }
  static cls_Value ToValue(kprC_NumEigen number) { return number.IsAll() ? cls_Value(AllText()) : Number::ToValue(number.value); }
  static std::string_view FromValue(kprC_NumEigen& number, cls_Value const& from) {
    if (auto const* text = from.As<std::string>(); text != nullptr && *text == AllText()) { return number = {}, ""; }
    return Number::FromValue(number.value, from) == "" ? "" : "an integer or \"ALL\"";
  }
};
