#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

#include "framework/mdl_PropAttr.h"
#include "platform/BasicUtils/cow_List.h"

/// A list of propagating values, carried from step to step element by element. An element keeps its place: one that a later step
/// adds stands behind those of the earlier steps, and is unset there, whether or not their lists are as long.
///
/// Elements stand in blocks, which copies share until one of both changes something in them; a block tells whether a step may say
/// something there, and one where nothing was ever said takes nothing. So carrying a list on, merging, comparing and copying one cost what
/// the steps say, beside some words for each block.
template <class T> class mdl_PropList {
public:
  using Element = mdl_PropAttr<T>;
  static constexpr std::size_t kBlock = 32;  ///< elements

  std::size_t Size() const { return body_ ? body_->size : 0; }
  bool IsEmpty() const { return Size() == 0; }
  Element const& operator[](std::size_t index) const {
    if (index >= Size()) { cow_RefuseIndex(index, Size()); }
    return Look(index);
  }
  /// The element of that place; an unset one where the list is too short for it.
  Element const& Look(std::size_t index) const { return ElementOf(FindBlock(index / kBlock), index % kBlock); }
  /// For change; the list grows by unset elements where it is too short.
  Element& Get(std::size_t index) {
    GrowTo(index + 1);
    auto& slots = body_.Get().slots;
    std::size_t const number = index / kBlock;
    auto slot = std::ranges::lower_bound(slots, number, {}, &Slot::number);
    if (slot == slots.end() || slot->number != number) { slot = slots.insert(slot, {number, cow_Handle<Block>::Make()}); }
    Block& block = slot->block.Get();
    block.told = true;
    if (block.elements.size() <= index % kBlock) { block.elements.resize(index % kBlock + 1); }
    return block.elements[index % kBlock];
  }
  void Append(T value) { Get(Size()) = std::move(value); }
  /// Takes the elements of those places out, which rise; those behind move up. Places beyond the last element hold none.
  void Remove(std::vector<std::size_t> const& places) {
    mdl_PropList left;
    left.GrowTo(Size() - static_cast<std::size_t>(std::ranges::lower_bound(places, Size()) - places.begin()));
    ForEach([&](std::size_t index, Element const& element) {
      auto const at = std::ranges::lower_bound(places, index);
      if (at == places.end() || *at != index) { left.Get(index - static_cast<std::size_t>(at - places.begin())) = element; }
    });
    *this = std::move(left);
  }

  /// Calls \p fn(index, element) for every element of which something was said in some step, in the order of their places.
  template <class Fn> void ForEach(Fn&& fn) const { Walk(false, fn); }
  /// The same for those that this step sets or frees, and those whose member state is none.
  template <class Fn> void ForEachTold(Fn&& fn) const {
    Walk(true, [&fn](std::size_t index, Element const& element) {
      bool const carried = element == mdl_PropAttributeStateEnm::Unset || element == mdl_PropAttributeStateEnm::PropagatedValue;
      if (!carried) { fn(index, element); }
    });
  }
  bool IsModified() const { return AnyTold(&Element::IsModified); }
  bool IsConditionModified() const { return AnyTold(&Element::IsConditionModified); }
  void Propagate(std::string_view name) {
    for (std::size_t i = 0; body_ && i < body_->slots.size(); ++i) {
      if (!body_->slots[i].block->told) { continue; }
      Block& block = body_.Get().slots[i].block.Get();
      for (Element& element : block.elements) { element.Propagate(name); }
      block.told = false;
    }
  }
  void Modify(mdl_PropList const& own, std::string_view name) {
    GrowTo(own.Size());
    own.ForEachTold([&](std::size_t index, Element const& element) { Get(index).Modify(element, name); });
  }
  void TakeOver() { Change(&Element::TakeOver); }
  void Zero() { Change(&Element::Zero); }

  /// Element by element, by \p equal; one that is missing is as good as unset.
  template <class Equal> static bool Same(mdl_PropList const& a, mdl_PropList const& b, Equal&& equal) {
    if (a.body_ == b.body_) { return true; }
    auto const holds = [&](mdl_PropList const& one, mdl_PropList const& other, bool missingOnly) {
      return !one.body_ || std::ranges::all_of(one.body_->slots, [&](Slot const& slot) {
        Block const *const mine = slot.block.ConstGet(), *const theirs = other.FindBlock(slot.number);
        if (mine == theirs || (missingOnly && theirs != nullptr)) { return true; }
        std::size_t const told = std::max(mine->elements.size(), theirs == nullptr ? 0 : theirs->elements.size());
        for (std::size_t i = 0; i < told; ++i) {
          if (!equal(ElementOf(mine, i), ElementOf(theirs, i))) { return false; }
        }
        return true;
      });
    };
    return holds(a, b, false) && holds(b, a, true);
  }
  friend bool operator==(mdl_PropList const& a, mdl_PropList const& b) {
    return Same(a, b, [](Element const& one, Element const& two) { return one == two; });
  }

private:
  struct Block : mem_Counted {
    std::vector<Element> elements;  // as far as something was said
    bool told = false;              // whether one may be set or freed
  };
  struct Slot {
    std::size_t number;
    cow_Handle<Block> block;
  };
  struct Body : mem_Counted {
    std::vector<Slot> slots;  // by number
    std::size_t size = 0;
  };

  static Element const& ElementOf(Block const* block, std::size_t place) {
    static Element const none;
    return block == nullptr || place >= block->elements.size() ? none : block->elements[place];
  }
  Block const* FindBlock(std::size_t number) const {
    if (!body_) { return nullptr; }
    auto const slot = std::ranges::lower_bound(body_->slots, number, {}, &Slot::number);
    return slot == body_->slots.end() || slot->number != number ? nullptr : slot->block.ConstGet();
  }
  template <class Fn> void Walk(bool told, Fn&& fn) const {
    if (!body_) { return; }
    for (auto const& [number, block] : body_->slots) {
      for (std::size_t i = 0; (block->told || !told) && i < block->elements.size(); ++i) { fn(number * kBlock + i, block->elements[i]); }
    }
  }
  bool AnyTold(bool (Element::*is)() const) const {
    bool any = false;
    ForEachTold([&](std::size_t, Element const& element) { any = any || (element.*is)(); });
    return any;
  }
  void Change(void (Element::*change)()) {
    mdl_PropList const before = *this;
    before.ForEach([&](std::size_t index, Element const&) { (Get(index).*change)(); });
  }
  void GrowTo(std::size_t size) {
    if (size <= Size()) { return; }
    if (!body_) { body_ = cow_Handle<Body>::Make(); }
    body_.Get().size = size;
  }

  cow_Handle<Body> body_;
};

/// Stored as the list of values and the companion list "<name>State"; scripted as a list whose elements are values, "UNSET" or
/// "FREED", or as one of these words for all of them. A brief visitor is told nothing that is carried: the values that the step says, of
/// which the companion "<name>At" has the places unless they are the first ones, and "<name>State" the states unless all are set.
template <class T> struct cls_MemberTraits<mdl_PropList<T>> {
  using List = mdl_PropList<T>;
  using Element = typename List::Element;
  using Single = cls_MemberTraits<mdl_PropAttr<T>>;
  using Value = typename Single::Value;
  using State = typename Single::State;
  using StateEnm = mdl_PropAttributeStateEnm;

  static constexpr std::string_view kPlaces = "At";

  static void Describe(cls_MemberInfo& info) {
    Single::Describe(info);
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, List const& list) {
    std::vector<std::size_t> places;
    if (out.IsBrief()) {
      list.ForEach([&](std::size_t place, Element const& element) {
        if (element != StateEnm::PropagatedValue && !Single::Equal(element, Element())) { places.push_back(place); }
      });
    } else {
      places.resize(list.Size());
      std::iota(places.begin(), places.end(), std::size_t{0});
    }
    auto const each = [&](std::string_view member, auto&& write) {
      out.StartList(member, places.size());
      for (std::size_t const place : places) { write(place); }
      out.EndList();
    };
    each(name, [&](std::size_t place) { Value::Write(out, "", list[place].ConstGet()); });
    if (!out.IsBrief() || !std::ranges::all_of(places, [&](std::size_t place) { return list[place] == StateEnm::Set; })) {
      each(Single::Companion(name), [&](std::size_t place) {
        StateEnm const state = list[place].State();
        out.WriteEnumerated("", "", State(state).View(), static_cast<unsigned>(state));
      });
    }
    bool const areFirst = places.empty() || places.back() + 1 == places.size();
    if (!areFirst) {
      each(Places(name), [&](std::size_t place) { out.WriteInteger("", static_cast<long long>(place)); });
    }
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, List& list) {
    std::vector<Element> elements(in.StartList(name));
    for (Element& element : elements) {
      Value::Read(in, "", element.Get());
      element.ForceState(StateEnm::Set);
    }
    in.EndList();
    if (std::string const companion = Single::Companion(name); !in.IsBrief() || in.Has(companion)) {
      if (in.StartList(companion) != elements.size()) { in.Refuse(companion, "a state for every element"); }
      for (Element& element : elements) { element.ForceState(State(in, "")); }
      in.EndList();
    }
    List read;
    std::string const at = Places(name);
    bool const tellsPlaces = in.IsBrief() && in.Has(at);
    if (tellsPlaces && in.StartList(at) != elements.size()) { in.Refuse(at, "a place for every element"); }
    for (Element& element : elements) {
      auto const next = static_cast<long long>(read.Size());
      long long const place = tellsPlaces ? in.ReadInteger("") : next;
      if (place < next || place > kLastPlace) { in.Refuse(at, "places from 0 on, each behind the one before"); }
      read.Get(static_cast<std::size_t>(place)) = std::move(element);
    }
    if (tellsPlaces) { in.EndList(); }
    list = std::move(read);
  }
  /// The elements, which states share, keep theirs.
  static void NewUid(List&) {}
  static bool Equal(List const& a, List const& b) {
    return List::Same(a, b, [](Element const& one, Element const& two) { return Single::Equal(one, two); });
  }
  static cls_Value ToValue(List const& list) {
    cls_Value::List values;
    for (std::size_t i = 0; i < list.Size(); ++i) { values.push_back(Single::ToValue(list[i])); }
    return values;
  }
  static std::string_view FromValue(List& list, cls_Value const& from) {
    List made = list;
    if (auto const* text = from.As<std::string>(); text != nullptr && (*text == "UNSET" || *text == "FREED")) {
      for (std::size_t i = 0; i < made.Size(); ++i) { Single::FromValue(made.Get(i), from); }
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
    list.ForEach([&](std::size_t, Element const& element) { Single::References(element, kind, visit); });
  }
  static bool Redirect(List& list, cls_Reference kind, cls_Redirection const& to) {
    List changed = list;
    bool redirected = false;
    list.ForEach([&](std::size_t index, Element element) {
      if (!Single::Redirect(element, kind, to)) { return; }
      changed.Get(index) = std::move(element);
      redirected = true;
    });
    return list = std::move(changed), redirected;
  }
  static void Propagate(List& list, std::string_view name) { list.Propagate(name); }
  static void Modify(List& list, List const& own, std::string_view name) { list.Modify(own, name); }
  static void TakeOver(List& list) { list.TakeOver(); }
  static void Zero(List& list) { list.Zero(); }
  static bool IsModified(List const& list) { return list.IsModified(); }
  static bool IsConditionModified(List const& list) { return list.IsConditionModified(); }

private:
  static constexpr long long kLastPlace = (1LL << 20) - 1;  // more than any list has
  static std::string Places(std::string_view name) { return std::string(name).append(kPlaces); }
};
