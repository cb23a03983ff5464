#pragma once

#include "platform/BasicUtils/cls_Members.h"
#include "platform/CaeUtils/omu_PrimEnum.h"

/// An enumerated member is scripted as its text, and stored as its text or, where the table says so, its number.
template <class E> struct cls_MemberTraits<omu_PrimEnum<E, 1>> : cls_PlainTraits {
  using Member = omu_PrimEnum<E, 1>;

  static void Describe(cls_MemberInfo& info) {
    info.kind = cls_MemberKind::Enumerated;
    for (auto const& row : omu_EnumTable<E>::rows) {
      if (row.text != nullptr) { info.permissible.emplace_back(row.text); }
    }
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Member const& value) {
    if constexpr (requires { omu_EnumTable<E>::kStoredByNumber; }) {
      out.WriteEnumerated(name, "", value.View(), static_cast<unsigned>(static_cast<E>(value)));
    } else {
      out.WriteText(name, value.View());
    }
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Member& value) { value = Member(in, name); }
  static bool Equal(Member const& a, Member const& b) { return static_cast<E>(a) == static_cast<E>(b); }
  static cls_Value ToValue(Member const& value) { return std::string(value.View()); }
  static std::string_view FromValue(Member& value, cls_Value const& from) {
    auto const* text = from.As<std::string>();
    return text != nullptr && value.SetValue(text->c_str()) ? "" : "one of its permissible texts";
  }
};
