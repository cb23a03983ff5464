#pragma once

#include <algorithm>
#include <vector>

#include "framework/mdl_PropAttr.h"
#include "platform/BasicUtils/cow_List.h"

/// A list of propagating values, carried from step to step element by element. An element keeps its place: one that a later step
/// adds stands behind those of the earlier steps, and is unset there, whether or not their lists are as long.
template <class T> class mdl_PropList {
public:
  using Element = mdl_PropAttr<T>;

  std::size_t Size() const { return elements_.size(); }
  bool IsEmpty() const { return elements_.empty(); }
  Element const& operator[](std::size_t index) const {
    if (index >= Size()) { cow_RefuseIndex(index, Size()); }
    return elements_[index];
  }
  /// For change; the list grows by unset elements where it is too short.
  Element& Get(std::size_t index) {
    if (index >= Size()) { elements_.resize(index + 1); }
    return elements_[index];
  }
  void Append(T value) { elements_.emplace_back(std::move(value)); }
  /// Takes the element out; those behind it move up.
  void Remove(std::size_t index) {
    if (index >= Size()) { cow_RefuseIndex(index, Size()); }
    elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(index));
  }
  void Reserve(std::size_t size) { elements_.reserve(size); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }
  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }

  friend bool operator==(mdl_PropList const& a, mdl_PropList const& b) = default;

private:
  std::vector<Element> elements_;
};

/// Stored as the list of values and the companion list "<name>State"; scripted as a list whose elements are values, "UNSET" or
/// "FREED", or as one of these words for all of them.
template <class T> struct cls_MemberTraits<mdl_PropList<T>> {
  using List = mdl_PropList<T>;
  using Single = cls_MemberTraits<mdl_PropAttr<T>>;
  using Value = typename Single::Value;
  using State = typename Single::State;

  static void Describe(cls_MemberInfo& info) {
    Single::Describe(info);
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, List const& list) {
    out.StartList(name, list.Size());
    for (auto const& element : list) { Value::Write(out, "", element.ConstGet()); }
    out.EndList();
    out.StartList(Single::Companion(name), list.Size());
    for (auto const& element : list) { out.WriteEnumerated("", "", State(element.State()).View(), static_cast<unsigned>(element.State())); }
    out.EndList();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, List& list) {
    List read;
    std::size_t const size = in.StartList(name);
    for (std::size_t i = 0; i < size; ++i) { Value::Read(in, "", read.Get(i).Get()); }
    in.EndList();
    std::string const companion = Single::Companion(name);
    if (in.StartList(companion) != size) { in.Refuse(companion, "a state for every element"); }
    for (auto& element : read) { element.ForceState(State(in, "")); }
    in.EndList();
    list = std::move(read);
  }
  static void NewUid(List& list) {
    for (auto& element : list) { element.NewUid(); }
  }
  static bool Equal(List const& a, List const& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](auto const& one, auto const& two) { return Single::Equal(one, two); });
  }
  static cls_Value ToValue(List const& list) {
    cls_Value::List values;
    for (auto const& element : list) { values.push_back(Single::ToValue(element)); }
    return values;
  }
  static std::string_view FromValue(List& list, cls_Value const& from) {
    List made = list;
    if (auto const* text = from.As<std::string>(); text != nullptr && (*text == "UNSET" || *text == "FREED")) {
      for (auto& element : made) { Single::FromValue(element, from); }
    } else {
      auto const* values = from.template As<cls_Value::List>();
      if (values == nullptr) { return "a list"; }
      for (std::size_t i = 0; i < values->size(); ++i) {
        if (auto const expected = Single::FromValue(made.Get(i), (*values)[i]); expected != "") { return expected; }
      }
    }
    return list = std::move(made), "";
  }
  static void References(List const& list, cls_Reference kind, cls_ReferenceVisitor const& visit) requires requires(T const& value) {
    Value::References(value, kind, visit);
  }
  {
    for (auto const& element : list) { Single::References(element, kind, visit); }
  }
  static bool Redirect(List& list, cls_Reference kind, cls_Redirection const& to) {
    bool redirected = false;
    for (auto& element : list) { redirected = Single::Redirect(element, kind, to) || redirected; }
    return redirected;
  }
  static void Propagate(List& list, std::string_view name) {
    for (auto& element : list) { element.Propagate(name); }
  }
  static void Modify(List& list, List const& own, std::string_view name) {
    for (std::size_t i = 0; i < own.Size(); ++i) { list.Get(i).Modify(own[i], name); }
  }
  static void TakeOver(List& list) {
    for (auto& element : list) { element.TakeOver(); }
  }
  static void Zero(List& list) {
    for (auto& element : list) { element.Zero(); }
  }
  static bool IsModified(List const& list) {
    return std::any_of(list.begin(), list.end(), [](auto const& element) { return element.IsModified(); });
  }
  static bool IsConditionModified(List const& list) {
    return std::any_of(list.begin(), list.end(), [](auto const& element) { return element.IsConditionModified(); });
  }
};
