#pragma once

#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cow_1DArrayList.h"
#include "platform/BasicUtils/cow_List.h"

/// A copy-on-write list that is persistent: its elements are written in turn as a many-valued member.
template <class T> class cls_xoList : public cow_List<T> {
public:
  using cow_List<T>::cow_List;
};

/// The same with the name that lists of step records and step sequences carry.
template <class T> class cls_xo1DArrayList : public cow_1DArrayList<T> {
public:
  using cow_1DArrayList<T>::cow_1DArrayList;
};

/// Traits of a list: element by element.
template <class List, class T> struct cls_ListTraits {
  static void Describe(cls_MemberInfo& info) {
    cls_MemberTraits<T>::Describe(info);
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, List const& list) {
    out.StartList(name, list.Size());
    for (T const& element : list) { cls_MemberTraits<T>::Write(out, "", element); }
    out.EndList();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, List& list) {
    List read;
    for (std::size_t left = in.StartList(name); left > 0; --left) {
      T element{};
      cls_MemberTraits<T>::Read(in, "", element);
      read.Append(std::move(element));
    }
    in.EndList();
    list = std::move(read);
  }
  static void NewUid(List&) {}
  static bool Equal(List const& a, List const& b) {
    if (a.Size() != b.Size()) { return false; }
    auto other = b.begin();
    for (T const& element : a) {
      if (!cls_MemberTraits<T>::Equal(element, *other++)) { return false; }
    }
    return true;
  }
  static cls_Value ToValue(List const& list) {
    cls_Value::List values;
    for (T const& element : list) { values.push_back(cls_MemberTraits<T>::ToValue(element)); }
    return values;
  }
  static std::string_view FromValue(List& list, cls_Value const& from) {
    auto const* values = from.As<cls_Value::List>();
    if (values == nullptr) { return "a list"; }
    List made;
    for (cls_Value const& value : *values) {
      T element{};
      if (cls_Unsettable<cls_MemberTraits<T>> && value.IsNull()) { return "a number in every place"; }
      if (auto const expected = cls_MemberTraits<T>::FromValue(element, value); expected != "") { return expected; }
      made.Append(std::move(element));
    }
    return list = std::move(made), "";
  }
  static void References(List const& list, cls_Reference kind, cls_ReferenceVisitor const& visit) requires requires(T const& element) {
    cls_MemberTraits<T>::References(element, kind, visit);
  }
  {
    for (T const& element : list) { cls_MemberTraits<T>::References(element, kind, visit); }
  }
  static bool Redirect(List& list, cls_Reference kind, cls_Redirection const& to) {
    bool redirected = false;
    for (std::size_t i = 0; i < list.Size(); ++i) {
      T element = list[i];
      if (!cls_MemberTraits<T>::Redirect(element, kind, to)) { continue; }
      list.Get(i) = std::move(element);
      redirected = true;
    }
    return redirected;
  }
};

template <class T> struct cls_MemberTraits<cow_List<T>> : cls_ListTraits<cow_List<T>, T> {};
template <class T> struct cls_MemberTraits<cls_xoList<T>> : cls_ListTraits<cls_xoList<T>, T> {};
template <class T> struct cls_MemberTraits<cow_1DArrayList<T>> : cls_ListTraits<cow_1DArrayList<T>, T> {};
template <class T> struct cls_MemberTraits<cls_xo1DArrayList<T>> : cls_ListTraits<cls_xo1DArrayList<T>, T> {};
