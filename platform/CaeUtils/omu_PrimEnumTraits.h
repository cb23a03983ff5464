#pragma once

#include <algorithm>
#include <span>

#include "platform/BasicUtils/cls_Members.h"
#include "platform/CaeUtils/omu_PrimEnum.h"

/// How many of a table's rows a member may be given; the others are what classes answer that have no such member.
template <class E> constexpr std::size_t omu_ChoiceCount() {
  if constexpr (requires { omu_EnumTable<E>::kChoices; }) {
    return omu_EnumTable<E>::kChoices;
  } else {
    return std::size(omu_EnumTable<E>::rows) - 1;  // the last one has no text
  }
}

/// Whether help offers the row: a table may name a value, kNoChoice, that can be said and is always refused.
template <class E> constexpr bool omu_IsOffered(omu_PrimEnumBase::PrimEnumTableEl const& row) {
  if constexpr (requires { omu_EnumTable<E>::kNoChoice; }) {
    return static_cast<E>(row.value) != omu_EnumTable<E>::kNoChoice;
  } else {
    return row.text != nullptr;
  }
}

/// An enumerated member is scripted as its text, and stored as its text or, where the table says so, its number.
template <class E> struct cls_MemberTraits<omu_PrimEnum<E, 1>> : cls_PlainTraits {
  using Member = omu_PrimEnum<E, 1>;

  static void Describe(cls_MemberInfo& info) {
    info.kind = cls_MemberKind::Enumerated;
    for (auto const& row : Choices()) {
      if (omu_IsOffered<E>(row)) { info.permissible.emplace_back(row.text); }
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
    auto const isSaid = [text](auto const& row) { return *text == row.text; };
    bool const fits = text != nullptr && std::ranges::any_of(Choices(), isSaid) && value.SetValue(text->c_str());
    return fits ? "" : "one of its permissible texts";
  }

private:
  static constexpr auto Choices() { return std::span(omu_EnumTable<E>::rows).first(omu_ChoiceCount<E>()); }
};
