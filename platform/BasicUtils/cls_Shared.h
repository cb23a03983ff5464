#pragma once

#include <utility>

#include "platform/BasicUtils/cls_Members.h"

/// A persistent object that is a member by value in one word: copies of its owner share it until one changes it, and an
/// owner that has the default one holds none.
template <class T> class cls_Shared {
public:
  cls_Shared() noexcept = default;
  cls_Shared(T const& value) { *this = value; }
  cls_Shared& operator=(T const& value) {
    object_ = cls_MemberTraits<T>::Equal(value, Default()) ? cow_Handle<T>() : cow_Handle<T>::Make(value);
    return *this;
  }

  T const& operator*() const { return object_ ? *object_ : Default(); }
  T const* operator->() const { return &**this; }

  void NewUid() {
    if (object_) { object_.Get().NewUid(); }
  }
  bool IsDefault() const { return !object_; }
  bool Same(cls_Shared const& other) const { return object_ == other.object_; }

private:
  static T const& Default() {
    static T const value;
    return value;
  }

  cow_Handle<T> object_;
};

/// Stored and scripted as the object is.
template <class T> struct cls_MemberTraits<cls_Shared<T>> {
  using Traits = cls_MemberTraits<T>;
  using Member = cls_Shared<T>;

  static void Describe(cls_MemberInfo& info) { Traits::Describe(info); }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Member const& member) {
    // not the one default object, of which a writer would write the first only
    member.IsDefault() ? Traits::Write(out, name, T()) : Traits::Write(out, name, *member);
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Member& member) {
    T read;
    Traits::Read(in, name, read);
    member = read;
  }
  static void NewUid(Member& member) { member.NewUid(); }
  static bool Equal(Member const& a, Member const& b) { return a.Same(b) || Traits::Equal(*a, *b); }
  static cls_Value ToValue(Member const& member) { return Traits::ToValue(*member); }
  static std::string_view FromValue(Member& member, cls_Value const& from) {
    T value = *member;
    std::string_view const expected = Traits::FromValue(value, from);
    if (expected == "") { member = value; }
    return expected;
  }
  static void References(Member const& member, cls_Reference kind, cls_ReferenceVisitor const& visit) {
    Traits::References(*member, kind, visit);
  }
  static bool Redirect(Member& member, cls_Reference kind, cls_Redirection const& to) {
    T value = *member;
    bool const redirected = Traits::Redirect(value, kind, to);
    if (redirected) { member = value; }
    return redirected;
  }
};
