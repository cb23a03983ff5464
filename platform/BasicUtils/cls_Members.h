#pragma once

#include <concepts>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/BasicUtils/cls_Object.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/BasicUtils/cow_String.h"

/// What a list says of a member beside its name: one line for the user, the unit ("" where there is none), and the code
/// of the module's refusal of a value that does not fit (-1: none of its own).
struct cls_MemberText {
  std::string_view meaning;
  std::string_view unit = "";
  int refusal = -1;
};

/// Kinds of members, as the class registrar numbers them.
enum class cls_MemberKind { Integer = 9, Real = 10, String = 11, Boolean = 13, Enumerated = 14, Object = 15 };

/// Description of one member of a class.
struct cls_MemberInfo {
  std::string name;
  cls_MemberKind kind = cls_MemberKind::Object;
  unsigned typeId = 0;                   ///< of an object member; 0 for a plain value
  bool many = false;                     ///< a list of values
  bool table = false;                    ///< a list of rows, which are lists of values of one length
  bool propagating = false;              ///< has a companion "<name>State"
  std::vector<std::string> permissible;  ///< texts of an enumerated member, in row order
  std::string meaning, unit;
};

/// How a type of member is described, stored, compared and scripted. Specialised once per type; each offers
/// Describe(info), Write(out, name, value), Read(in, name, value), NewUid(value), Equal(a, b), ToValue(value) and
/// FromValue(value, from), which answers what was expected where \p from does not fit ("" where it does).
template <class M> struct cls_MemberTraits { static_assert(sizeof(M) == 0, "this member type has no cls_MemberTraits"); };

/// Traits of a value that stands for itself: equality by ==, no identity.
struct cls_PlainTraits {
  template <class M> static void NewUid(M&) {}
  template <class M> static bool Equal(M const& a, M const& b) { return a == b; }
};

inline constexpr int cls_unsetInteger = std::numeric_limits<int>::max();     ///< "not specified", also ALL
inline constexpr double cls_unsetReal = std::numeric_limits<double>::max();  ///< "not specified"

template <> struct cls_MemberTraits<bool> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::Boolean; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, bool value) { out.WriteBool(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, bool& value) { value = in.ReadBool(name); }
  static cls_Value ToValue(bool value) { return value; }
  static std::string_view FromValue(bool& value, cls_Value const& from) {
    if (auto const* flag = from.As<bool>()) { return value = *flag, ""; }
    return "true or false";
  }
};

template <> struct cls_MemberTraits<int> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::Integer; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, int value) { out.WriteInteger(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, int& value) {
    if (FromValue(value, in.ReadInteger(name)) != "") { in.Refuse(name, "a 32-bit integer"); }
  }
  static cls_Value ToValue(int value) { return value == cls_unsetInteger ? cls_Value() : cls_Value(value); }
  static std::string_view FromValue(int& value, cls_Value const& from) {
    if (from.IsNull()) { return value = cls_unsetInteger, ""; }
    auto const* number = from.As<long long>();
    if (number == nullptr || *number < std::numeric_limits<int>::min() || *number > cls_unsetInteger) { return "an integer"; }
    return value = static_cast<int>(*number), "";
  }
};

template <> struct cls_MemberTraits<double> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::Real; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, double value) { out.WriteReal(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, double& value) { value = in.ReadReal(name); }
  static cls_Value ToValue(double value) { return value == cls_unsetReal ? cls_Value() : cls_Value(value); }
  static std::string_view FromValue(double& value, cls_Value const& from) {
    if (from.IsNull()) { return value = cls_unsetReal, ""; }
    if (auto const* number = from.As<long long>()) { return value = static_cast<double>(*number), ""; }
    auto const* real = from.As<double>();
    if (real == nullptr || !(*real - *real == 0.0)) { return "a finite number"; }  // NaN and infinities are no values
    return value = *real, "";
  }
};

template <> struct cls_MemberTraits<cow_String> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::String; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, cow_String const& value) { out.WriteText(name, value.View()); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, cow_String& value) { value = cow_String(in.ReadText(name)); }
  static cls_Value ToValue(cow_String const& value) { return std::string(value.View()); }
  static std::string_view FromValue(cow_String& value, cls_Value const& from) {
    auto const* text = from.As<std::string>();
    if (text == nullptr) { return "a text"; }
    return value = cow_String(*text), "";
  }
};

/// Any persistent class may be a member by value; scripts give it as named members.
template <class M> struct cls_ObjectTraits {
  static void Describe(cls_MemberInfo& info) { info.typeId = M::TypeId(); }
  static void Write(cls_WriteVisitor const& out, std::string_view name, M const& value) { out.WriteNested(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, M& value) {
    in.ReadNested(name, [&](cls_ReadVisitor const& nested) { value = M(nested); });
  }
  static void NewUid(M& value) { value.NewUid(); }
  static bool Equal(M const& a, M const& b) { return a.Equals(b); }
  static cls_Value ToValue(M const& value);
  static std::string_view FromValue(M& value, cls_Value const& from);
};
template <class M>
  requires std::derived_from<M, cls_Object>
struct cls_MemberTraits<M> : cls_ObjectTraits<M> {
};

/// A shared object, or none. The objects that it shares keep their identity when the owner gets a new one.
template <class T>
  requires std::derived_from<T, cls_Object>
struct cls_MemberTraits<cow_Handle<T>> {
  static void Describe(cls_MemberInfo& info) {
    if constexpr (requires { T::TypeId(); }) { info.typeId = T::TypeId(); }  // an interface has none
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, cow_Handle<T> const& value) {
    value ? out.WriteObject(name, *value) : out.WriteNull(name);
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, cow_Handle<T>& value) {
    if (in.IsNull(name)) {
      value.Reset();
    } else {
      value = in.ReadObject(name).template As<T>();
      if (!value) { in.Refuse(name, "an object of another class"); }
    }
  }
  static void NewUid(cow_Handle<T>&) {}
  static bool Equal(cow_Handle<T> const& a, cow_Handle<T> const& b) { return a.ConstGet() == b.ConstGet() || (a && b && a->Equals(*b)); }
  static cls_Value ToValue(cow_Handle<T> const&) { return {}; }
  static std::string_view FromValue(cow_Handle<T>&, cls_Value const&) { return "nothing: this member cannot be set"; }
};

/// Takes a list's lines and does nothing.
struct cls_NullVisitor {
  template <class... A> constexpr void operator()(A&&...) const {}
};
template <class T> inline constexpr auto cls_ListOf = &T::template VisitMembers<cls_NullVisitor const&>;  // tells lists apart

/// Calls \p fn with the name, the text and the value of every listed member of \p self, base members first.
template <class T, class Fn> constexpr void cls_ForEachMember(T& self, Fn&& fn) {
  std::remove_const_t<T>::VisitMembers(
      [&]<class C, class M>(std::string_view name, M C::*field, cls_MemberText const& text) { fn(name, text, self.*field); });
}

template <class T> void cls_ReadMembers(T& self, cls_ReadVisitor const& in) {
  cls_ForEachMember(self,
                    [&]<class M>(std::string_view name, cls_MemberText const&, M& value) { cls_MemberTraits<M>::Read(in, name, value); });
}

template <class M> cls_Value cls_ObjectTraits<M>::ToValue(M const& value) {
  cls_Value::Fields fields;
  cls_ForEachMember(value, [&]<class N>(std::string_view name, cls_MemberText const&, N const& member) {
    fields.emplace_back(std::string(name), cls_MemberTraits<std::remove_const_t<N>>::ToValue(member));
  });
  return fields;
}

/// Refuses a member that an object given as named members does not have; \p known are the names of those that it has.
[[noreturn]] DDB_API void cls_RefuseUnknownMember(std::string_view name, std::string_view known);

template <class M> std::string_view cls_ObjectTraits<M>::FromValue(M& value, cls_Value const& from) {
  auto const* fields = from.As<cls_Value::Fields>();
  if (fields == nullptr) { return "an object with named members"; }
  for (auto const& [name, field] : *fields) {
    if (value.SetMember(name, field)) { continue; }
    std::string known;
    cls_ForEachMember(
        value, [&](std::string_view own, cls_MemberText const&, auto const&) { known.append(known.empty() ? "" : ", ").append(own); });
    cls_RefuseUnknownMember(name, known);
  }
  return "";
}
