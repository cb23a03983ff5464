#pragma once

#include "platform/BasicUtils/cls_Members.h"

/// A persistent object that its owner may have or not, held by value: copies of the owner share it until one changes it.
template <class T> class cls_Optional {
public:
  cls_Optional() noexcept = default;
  cls_Optional(T const& value) : object_(cow_Handle<T>::Make(value)) {}

  explicit operator bool() const noexcept { return static_cast<bool>(object_); }
  T const& operator*() const { return *object_; }
  T const* operator->() const { return object_.ConstGet(); }
  /// The object, to be changed; a default one where there is none.
  T& Get() {
    if (!object_) { object_ = cow_Handle<T>::Make(); }
    return object_.Get();
  }
  void Reset() noexcept { object_.Reset(); }

private:
  cow_Handle<T> object_;
};

/// Stored as the object is, or as null. Scripted as named members, which change what is there or make a default object first;
/// null takes the object away.
template <class T> struct cls_MemberTraits<cls_Optional<T>> {
  using Traits = cls_MemberTraits<T>;
  using Member = cls_Optional<T>;

  static void Describe(cls_MemberInfo& info) { Traits::Describe(info); }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Member const& member) {
    member ? Traits::Write(out, name, *member) : out.WriteNull(name);
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Member& member) {
    if (in.IsNull(name)) { return member.Reset(); }
    T read;
    Traits::Read(in, name, read);
    member = read;
  }
  static void NewUid(Member& member) {
    if (member) { Traits::NewUid(member.Get()); }
  }
  static bool Equal(Member const& a, Member const& b) { return a && b ? Traits::Equal(*a, *b) : !a && !b; }
  static cls_Value ToValue(Member const& member) { return member ? cls_Value(Traits::ToValue(*member)) : cls_Value(); }
  static std::string_view FromValue(Member& member, cls_Value const& from) {
    if (from.IsNull()) { return member.Reset(), ""; }
    T value = member ? *member : T();
    std::string_view const expected = Traits::FromValue(value, from);
    if (expected == "") { member = value; }
    return expected;
  }
  static void References(Member const& member, cls_Reference kind, cls_ReferenceVisitor const& visit) {
    if (member) { Traits::References(*member, kind, visit); }
  }
  static bool Redirect(Member& member, cls_Reference kind, cls_Redirection const& to) {
    if (!member) { return false; }
    T value = *member;
    bool const redirected = Traits::Redirect(value, kind, to);
    if (redirected) { member = value; }
    return redirected;
  }
};
