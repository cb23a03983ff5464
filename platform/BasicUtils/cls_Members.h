#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/BasicUtils/cls_Object.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/BasicUtils/cls_Visitor.h"
#include "platform/BasicUtils/cow_String.h"

/// What kind of thing of the model a member names.
enum class cls_Reference {
  None,
  Region,
  Amplitude,
  Field,
  Connector,
  CoordinateSystem,
  Axis,
  Property,  ///< of an interaction
  TimePoint,
  Interaction,
  ContactControls,
  Load,
  Filter,
  IntegratedOutputSection,
};

struct cls_MemberOps;

/// What a list says of a member beside its name. Written as {meaning, unit}; the rest, where there is any, by name:
/// \code
///   cls_MemberText{"temperature of the surroundings", "temperature"}.Refused(12)
///   cls_MemberText{"the set or surface that it acts on"}.RefersTo(cls_Reference::Region)
/// \endcode
struct cls_MemberText {
  std::string_view meaning;                    ///< one line for the user
  std::string_view unit = "";                  ///< "" where there is none
  int refusal = -1;                            ///< code of the module's refusal of a value that does not fit; -1: none of its own
  cls_Reference refers = cls_Reference::None;  ///< what the member names
  std::string_view command = "";               ///< what commands call the member; "" where they use its name
  bool settable = true;                        ///< whether commands may set it
  int component = 0;                           ///< number of the component that it prescribes, from 1; 0: none
  bool later = false;                          ///< came to its class later: what was stored before does not have it
  std::string_view unset = "";                 ///< what commands may say instead of a value where there is none: "ALL", "DEFAULT"
  cls_MemberOps const* ops = nullptr;          ///< of a line that shows a part of the member; null: those of the member's type

  template <class Error> constexpr cls_MemberText Refused(Error code) const {
    cls_MemberText text = *this;
    text.refusal = static_cast<int>(code);
    return text;
  }
  constexpr cls_MemberText RefersTo(cls_Reference kind) const {
    cls_MemberText text = *this;
    text.refers = kind;
    return text;
  }
  constexpr cls_MemberText Called(std::string_view name) const {
    cls_MemberText text = *this;
    text.command = name;
    return text;
  }
  constexpr cls_MemberText NotSettable() const {
    cls_MemberText text = *this;
    text.settable = false;
    return text;
  }
  constexpr cls_MemberText Component(int number) const {
    cls_MemberText text = *this;
    text.component = number;
    return text;
  }
  constexpr cls_MemberText Later() const {
    cls_MemberText text = *this;
    text.later = true;
    return text;
  }
  constexpr cls_MemberText Unset(std::string_view word) const {
    cls_MemberText text = *this;
    text.unset = word;
    return text;
  }
  constexpr cls_MemberText Through(cls_MemberOps const& part) const {
    cls_MemberText text = *this;
    text.ops = &part;
    return text;
  }
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
  std::vector<std::string> permissible;  ///< texts of an enumerated member, in row order; of another its word for no value
  std::string meaning, unit;
  std::string command;  ///< what commands call it: its name where they have none of their own
  bool settable = true;
  cls_Reference refers = cls_Reference::None;
  bool again = false;  ///< another name of the member before it
};

/// Takes what a member names; \p whole is null for a member that holds the name alone.
using cls_ReferenceVisitor = std::function<void(cls_Reference kind, std::string_view name, cls_Object const* whole)>;

/// Has references of a kind and name lead elsewhere.
struct cls_Redirection {
  cls_Reference kind;
  std::string_view from, to;
  cls_Object const* whole = nullptr;  ///< what is called \p to, for members that hold it and not its name alone
};

/// Whether a value of the type can say "not specified".
template <class Traits>
concept cls_Unsettable = requires {
  Traits::kUnset;
};

/// How a type of member is described, stored, compared and scripted. Specialised once per type; each offers
/// Describe(info), Write(out, name, value), Read(in, name, value), NewUid(value), Equal(a, b), ToValue(value) and
/// FromValue(value, from), which answers what was expected where \p from does not fit ("" where it does). A type that can
/// name something offers References(value, kind, visit) and Redirect(value, kind, redirection) too, one that is carried from
/// step to step Propagate(value, name), Modify(value, own, name), Zero, IsModified and IsConditionModified; the name is for
/// what they refuse.
template <class M> struct cls_MemberTraits { static_assert(sizeof(M) == 0, "this member type has no cls_MemberTraits"); };

/// Traits of a value that stands for itself: equality by ==, no identity.
struct cls_PlainTraits {
  template <class M> static void NewUid(M&) {}
  template <class M> static bool Equal(M const& a, M const& b) { return a == b; }
};

// Means "not specified" in a member that can be unset: one that has it in a new object of its class. In any other it is a number
// as all others.
inline constexpr int cls_unsetInteger = std::numeric_limits<int>::max();  ///< also ALL
inline constexpr double cls_unsetReal = std::numeric_limits<double>::max();

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
  static constexpr int kUnset = cls_unsetInteger;
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::Integer; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, int value) { out.WriteInteger(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, int& value) {
    if (FromValue(value, in.ReadInteger(name)) != "") { in.Refuse(name, "a 32-bit integer"); }
  }
  static cls_Value ToValue(int value) { return value; }
  static std::string_view FromValue(int& value, cls_Value const& from) {
    if (from.IsNull()) { return value = kUnset, ""; }
    auto const* number = from.As<long long>();
    if (number == nullptr || *number < std::numeric_limits<int>::min() || *number > cls_unsetInteger) { return "an integer"; }
    return value = static_cast<int>(*number), "";
  }
};

template <> struct cls_MemberTraits<double> : cls_PlainTraits {
  static constexpr double kUnset = cls_unsetReal;
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::Real; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, double value) { out.WriteReal(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, double& value) { value = in.ReadReal(name); }
  static cls_Value ToValue(double value) { return value; }
  static std::string_view FromValue(double& value, cls_Value const& from) {
    if (from.IsNull()) { return value = kUnset, ""; }
    if (auto const* number = from.As<long long>()) { return value = static_cast<double>(*number), ""; }
    auto const* real = from.As<double>();
    if (real == nullptr || !(*real - *real == 0.0)) { return "a finite number"; }  // NaN and infinities are no values
    return value = *real, "";
  }
};

template <> struct cls_MemberTraits<cow_String> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.kind = cls_MemberKind::String; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, cow_String const& value) { out.WriteText(name, value.View()); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, cow_String& value) { value = in.ReadShared(name); }
  static cls_Value ToValue(cow_String const& value) { return std::string(value.View()); }
  static std::string_view FromValue(cow_String& value, cls_Value const& from) {
    auto const* text = from.As<std::string>();
    if (text == nullptr) { return "a text"; }
    return value = cow_String(*text), "";
  }
  static void References(cow_String const& value, cls_Reference kind, cls_ReferenceVisitor const& visit) {
    if (kind != cls_Reference::None && !value.IsEmpty()) { visit(kind, value.View(), nullptr); }
  }
  static bool Redirect(cow_String& value, cls_Reference kind, cls_Redirection const& to) {
    if (kind != to.kind || value.View() != to.from) { return false; }
    return value = cow_String(to.to), true;
  }
};

/// The operations of one type of member, for walks that know no more of an object than its rows.
struct cls_MemberOps {
  void (*describe)(cls_MemberInfo&);
  void (*write)(cls_WriteVisitor const&, std::string_view, void const*);
  void (*read)(cls_ReadVisitor const&, std::string_view, void*);
  void (*newUid)(void*);
  bool (*equal)(void const*, void const*);
  cls_Value (*toValue)(void const*);
  std::string_view (*fromValue)(void*, cls_Value const&);
  // null where the type can name nothing
  void (*references)(void const*, cls_Reference, cls_ReferenceVisitor const&) = nullptr;
  bool (*redirect)(void*, cls_Reference, cls_Redirection const&) = nullptr;
  bool (*isUnset)(void const*) = nullptr;  ///< null where the type has no value for "not specified"
  void (*unset)(void*) = nullptr;          ///< gives it that value, or that of a new one
  // null where the type is not carried from step to step
  void (*propagate)(void*, std::string_view name) = nullptr;
  void (*modify)(void* carried, void const* own, std::string_view name) = nullptr;
  /// Whether merging \p own onto what \p source gives on makes what \p own is already.
  bool (*isMerged)(void const* own, void const* source, std::string_view name) = nullptr;
  void (*takeOver)(void*) = nullptr;  ///< what is carried becomes the step's own
  void (*zero)(void*) = nullptr;
  bool (*isModified)(void const*) = nullptr;
  bool (*isConditionModified)(void const*) = nullptr;
  double const* (*realInForce)(void const*) = nullptr;  ///< the value of a carried number; null where none is in force
  std::size_t size = 0;
};

template <class M, class Traits = cls_MemberTraits<M>> constexpr cls_MemberOps cls_MakeOps() {
  cls_MemberOps ops{
      .describe = [](cls_MemberInfo& info) { Traits::Describe(info); },
      .write = [](cls_WriteVisitor const& out, std::string_view name,
                  void const* m) { Traits::Write(out, name, *static_cast<M const*>(m)); },
      .read = [](cls_ReadVisitor const& in, std::string_view name, void* m) { Traits::Read(in, name, *static_cast<M*>(m)); },
      .newUid = [](void* m) { Traits::NewUid(*static_cast<M*>(m)); },
      .equal = [](void const* a, void const* b) { return Traits::Equal(*static_cast<M const*>(a), *static_cast<M const*>(b)); },
      .toValue = [](void const* m) { return cls_Value(Traits::ToValue(*static_cast<M const*>(m))); },
      .fromValue = [](void* m, cls_Value const& from) { return std::string_view(Traits::FromValue(*static_cast<M*>(m), from)); },
      .size = sizeof(M),
  };
  if constexpr (requires(M & m, cls_ReferenceVisitor const& visit) { Traits::References(m, cls_Reference::None, visit); }) {
    ops.references = [](void const* m, cls_Reference kind, cls_ReferenceVisitor const& visit) {
      Traits::References(*static_cast<M const*>(m), kind, visit);
    };
    ops.redirect = [](void* m, cls_Reference kind, cls_Redirection const& to) { return Traits::Redirect(*static_cast<M*>(m), kind, to); };
  }
  if constexpr (cls_Unsettable<Traits>) {
    ops.isUnset = [](void const* m) { return *static_cast<M const*>(m) == Traits::kUnset; };
    ops.unset = [](void* m) { *static_cast<M*>(m) = Traits::kUnset; };
  } else {
    ops.unset = [](void* m) { *static_cast<M*>(m) = M{}; };
  }
  if constexpr (requires(M & m) { Traits::Propagate(m, std::string_view()); }) {
    ops.propagate = [](void* m, std::string_view name) { Traits::Propagate(*static_cast<M*>(m), name); };
    ops.modify = [](void* m, void const* own, std::string_view name) {
      Traits::Modify(*static_cast<M*>(m), *static_cast<M const*>(own), name);
    };
    ops.isMerged = [](void const* own, void const* source, std::string_view name) {
      if constexpr (requires { Traits::IsMerged(*static_cast<M const*>(own), *static_cast<M const*>(source), name); }) {
        return Traits::IsMerged(*static_cast<M const*>(own), *static_cast<M const*>(source), name);
      }
      M made = *static_cast<M const*>(source);
      Traits::Propagate(made, name);
      Traits::Modify(made, *static_cast<M const*>(own), name);
      return Traits::Equal(made, *static_cast<M const*>(own));
    };
    ops.takeOver = [](void* m) { Traits::TakeOver(*static_cast<M*>(m)); };
    ops.zero = [](void* m) { Traits::Zero(*static_cast<M*>(m)); };
    ops.isModified = [](void const* m) { return Traits::IsModified(*static_cast<M const*>(m)); };
    ops.isConditionModified = [](void const* m) { return Traits::IsConditionModified(*static_cast<M const*>(m)); };
  }
  if constexpr (requires(M const& m) {
                  { Traits::RealInForce(m) } -> std::same_as<double const*>;
                }) {
    ops.realInForce = [](void const* m) { return Traits::RealInForce(*static_cast<M const*>(m)); };
  }
  return ops;
}
/// \tparam Traits others than the type's own, for a line that shows a part of the member (cls_MemberText::Through)
template <class M, class Traits = cls_MemberTraits<M>> inline constexpr cls_MemberOps cls_opsOf = cls_MakeOps<M, Traits>();

/// One member of a class: a line of its list. An object's rows tell all of it that is stored.
struct cls_MemberRow {
  std::string_view name;
  cls_MemberText text;
  std::ptrdiff_t offset = 0;  ///< from the beginning of the object
  cls_MemberOps const* ops = nullptr;
  bool optional = false;  ///< whether it can be unset, which is written and scripted as null
  bool again = false;     ///< another name of what the row before it names

  void* In(void* object) const { return static_cast<char*>(object) + offset; }
  void const* In(void const* object) const { return static_cast<char const*>(object) + offset; }
  /// Whether commands or the list call the member so.
  bool IsCalled(std::string_view called) const { return called == name || (called == text.command && !called.empty()); }

  // The member of an object.
  bool IsUnset(void const* object) const { return optional && ops->isUnset(In(object)); }
  void Write(cls_WriteVisitor const& out, void const* object) const {
    IsUnset(object) ? out.WriteNull(name) : ops->write(out, name, In(object));
  }
  void Read(cls_ReadVisitor const& in, void* object) const {
    optional&& in.IsNull(name) ? ops->unset(In(object)) : ops->read(in, name, In(object));
  }
  cls_Value ToValue(void const* object) const {
    if (!IsUnset(object)) { return ops->toValue(In(object)); }
    return text.unset.empty() ? cls_Value() : cls_Value(std::string(text.unset));
  }
  /// Answers what was expected where \p from does not fit.
  std::string_view FromValue(void* object, cls_Value const& from) const {
    auto const* word = text.unset.empty() ? nullptr : from.As<std::string>();
    if (word == nullptr || *word != text.unset) { return ops->fromValue(In(object), from); }
    return ops->unset(In(object)), "";
  }
};
using cls_MemberRows = std::span<cls_MemberRow const>;

/// The rows of a class but for their offsets: its VisitMembers, expanded by the compiler.
template <class T>
inline constexpr auto cls_linesOf = [] {
  constexpr std::size_t count = [] {
    std::size_t counted = 0;
    T::VisitMembers([&counted](auto&&...) { ++counted; });
    return counted;
  }();
  std::array<cls_MemberRow, count> lines{};
  std::size_t at = 0;
  T::VisitMembers([&]<class C, class M>(std::string_view name, M C::*, cls_MemberText const& text) {
    lines[at++] = {name, text, 0, text.ops != nullptr ? text.ops : &cls_opsOf<M>, false};
  });
  return lines;
}();

/// The rows of a class in the order of writing, base members first.
template <class T> cls_MemberRows cls_RowsOf() {
  static auto const rows = [] {
    auto made = cls_linesOf<T>;
    std::size_t at = 0;
    T::VisitMembers([&]<class C, class M>(std::string_view, M C::*field, cls_MemberText const&) {
      M T::*const own = field;  // counts from the beginning of T, also where a base lists it
      // a pointer to a data member is the distance in bytes: so in the C++ ABI of all compilers that we build with
      static_assert(sizeof own == sizeof(std::ptrdiff_t));
      made[at].offset = std::bit_cast<std::ptrdiff_t>(own);
      made[at].again = at > 0 && made[at].offset == made[at - 1].offset;
      ++at;
    });
    if constexpr (std::is_default_constructible_v<T>) {
      T const fresh{};
      for (cls_MemberRow& row : made) {
        row.optional = row.ops->isUnset != nullptr && row.ops->isUnset(row.In(static_cast<void const*>(&fresh)));
      }
    }
    return made;
  }();
  return rows;
}

// The walks over rows; \p object is the beginning of the object that they are of.
DDB_API void cls_ReadRows(cls_MemberRows rows, void* object, cls_ReadVisitor const& in);
DDB_API cls_Value cls_RowsToValue(cls_MemberRows rows, void const* object);
/// Sets members by name, from named values. Answers what was expected; refuses a name that no row has.
DDB_API std::string_view cls_RowsFromValue(cls_MemberRows rows, cls_Object& object, cls_Value const& from);
/// Calls \p visit for everything that the object names, in the order of the rows.
DDB_API void cls_ForEachReference(cls_MemberRows rows, void const* object, cls_ReferenceVisitor const& visit);
/// False when there was nothing to redirect.
DDB_API bool cls_Redirect(cls_MemberRows rows, void* object, cls_Redirection const& to);

/// Any persistent class may be a member by value; scripts give it as named members.
template <class M> struct cls_ObjectTraits {
  static void Describe(cls_MemberInfo& info) { info.typeId = M::TypeId(); }
  static void Write(cls_WriteVisitor const& out, std::string_view name, M const& value) { out.WriteNested(name, value); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, M& value) {
    in.ReadNested(name, [&](cls_ReadVisitor const& nested) { value = M(nested); });
  }
  static void NewUid(M& value) { value.NewUid(); }
  static bool Equal(M const& a, M const& b) { return a.Equals(b); }
  static cls_Value ToValue(M const& value) { return cls_RowsToValue(cls_RowsOf<M>(), &value); }
  static std::string_view FromValue(M& value, cls_Value const& from) { return cls_RowsFromValue(cls_RowsOf<M>(), value, from); }
  static void References(M const& value, cls_Reference, cls_ReferenceVisitor const& visit) {
    cls_ForEachReference(cls_RowsOf<M>(), &value, visit);
  }
  static bool Redirect(M& value, cls_Reference, cls_Redirection const& to) { return cls_Redirect(cls_RowsOf<M>(), &value, to); }
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

template <class T> void cls_ReadMembers(T& self, cls_ReadVisitor const& in) { cls_ReadRows(cls_RowsOf<T>(), &self, in); }
