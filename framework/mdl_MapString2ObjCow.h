#pragma once

#include "framework/mdl_Extension.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/BasicUtils/cow_Map.h"
#include "platform/BasicUtils/cow_String.h"

/// A map from name to a shared object: written as named members.
template <class T> struct cls_MemberTraits<cow_Map<cow_String, cow_Handle<T>>> {
  using Map = cow_Map<cow_String, cow_Handle<T>>;

  static void Describe(cls_MemberInfo& info) {
    if constexpr (requires { T::TypeId(); }) { info.typeId = T::TypeId(); }  // an interface has none
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Map const& map) {
    if (!out.StartMap(name, map.Size())) { return; }
    for (auto const& [key, object] : map) { out.WriteObject(key.View(), *object); }
    out.EndMap();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Map& map) {
    Map read;
    for (std::string const& key : in.StartMap(name)) {
      cow_Handle<T> object = in.ReadObject(key).template As<T>();
      if (!object) { in.Refuse(key, "an object of another class"); }
      read.Insert(cow_String(key), std::move(object));
    }
    in.EndMap();
    map = std::move(read);
  }
  static void NewUid(Map&) {}
  static bool Equal(Map const& a, Map const& b) {
    if (a.Size() != b.Size()) { return false; }
    auto other = b.begin();
    for (auto const& [key, object] : a) {
      auto const& [otherKey, otherObject] = *other;
      if (key != otherKey || !cls_MemberTraits<cow_Handle<T>>::Equal(object, otherObject)) { return false; }
      ++other;
    }
    return true;
  }
  static void ForEachChange(Map const& before, Map const& now, mdl_Extension::ChangeVisitor const& visit) {
    Map::ForEachDifference(before, now, [&](cow_String const& key, auto const* /*was*/, cow_Handle<T> const* is) {
      visit(key, is == nullptr ? nullptr : is->ConstGet());
    });
  }
  static cls_Value ToValue(Map const& map) {
    cls_Value::List names;
    for (auto const& [key, object] : map) { names.emplace_back(std::string(key.View())); }
    return names;
  }
  static std::string_view FromValue(Map&, cls_Value const&) { return "nothing: this member cannot be set"; }
};

/// What attributes and steps refer to by name, as those see it who know no more of it: regions, amplitudes, fields.
class DDB_API mdl_NamedObjects : public mdl_Repository {
public:
  static constexpr auto kInterface = mdl_InterfaceEnm::NamedObjects;
  mdl_InterfaceEnm Interface() const final { return kInterface; }

  virtual cow_List<cow_String> Keys() const = 0;
  /// The object of that name, or null.
  virtual cls_Object const* ConstObject(std::string_view name) const = 0;
  /// Puts a copy of \p object, with an identity of its own, under \p name, which it takes where it has a member for it.
  /// Refuses what its class does (AssertValid).
  virtual void Put(cow_String const& name, cls_Object const& object) = 0;
  virtual bool Remove(cow_String const& name) = 0;
};

/// A plain map from name to object as an extension of the model; its objects may be of classes that extend \p T.
template <class T> class mdl_MapString2ObjCow final : public cls_Persistent<mdl_MapString2ObjCow<T>, mdl_NamedObjects> {
public:
  using Handle = cow_Handle<T>;

  mdl_MapString2ObjCow() = default;
  explicit mdl_MapString2ObjCow(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  /// Puts \p object under \p name, in the place of what stood there. True when the name is new.
  bool Insert(cow_String const& name, Handle object) { return map_.Insert(name, std::move(object)); }
  bool Remove(cow_String const& name) override { return map_.Remove(name); }
  cls_Object const* ConstObject(std::string_view name) const override { return ConstGet(name); }
  void Put(cow_String const& name, cls_Object const& object) override {
    Handle copy(std::unique_ptr<T>(static_cast<T*>(dynamic_cast<T const&>(object).Copy().release())));
    T& own = copy.Get();
    own.SetMember("name", std::string(name.View()));
    if constexpr (requires { own.AssertValid(); }) { own.AssertValid(); }
    own.NewUid();
    Insert(name, std::move(copy));
  }
  /// The object of that name, or null.
  T const* ConstGet(std::string_view name) const {
    Handle const* found = map_.ConstFind(name);
    return found == nullptr ? nullptr : found->ConstGet();
  }
  /// The same for change, separated from all who share it; or null.
  T* Get(std::string_view name) {
    Handle* found = map_.Get(name);
    return found == nullptr ? nullptr : &found->Get();
  }
  bool IsMember(std::string_view name) const { return map_.ConstFind(name) != nullptr; }
  std::size_t Size() const { return map_.Size(); }
  cow_List<cow_String> Keys() const override {
    cow_List<cow_String> names;
    for (auto const& [name, object] : map_) { names.Append(name); }
    return names;
  }
  cow_Map<cow_String, Handle> const& Map() const { return map_; }
  bool ForEachChange(mdl_Extension const& before, mdl_Extension::ChangeVisitor const& visit) const override {
    cls_MemberTraits<cow_Map<cow_String, Handle>>::ForEachChange(static_cast<mdl_MapString2ObjCow const&>(before).map_, map_, visit);
    return true;
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    mdl_Repository::VisitMembers(visit);
    visit("map", &mdl_MapString2ObjCow::map_, cls_MemberText{"the objects by name"});
  }

private:
  cow_Map<cow_String, Handle> map_;
};
