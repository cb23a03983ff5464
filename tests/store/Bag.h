#pragma once

#include <functional>
#include <memory>

#include "framework/ddb_Module.h"
#include "tests/store/Models.h"

/// Objects of whatever class by name.
struct AnyObjects {
  cow_Map<cow_String, cow_Handle<cls_Object>> map;
};
template <> struct cls_MemberTraits<AnyObjects> : cls_PlainTraits {
  static void Describe(cls_MemberInfo& info) { info.many = true; }
  static void Write(cls_WriteVisitor const& out, std::string_view name, AnyObjects const& objects) {
    if (!out.StartMap(name, objects.map.Size())) { return; }
    for (auto const& [key, object] : objects.map) { out.WriteObject(key, *object); }
    out.EndMap();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, AnyObjects& objects) {
    for (std::string const& key : in.StartMap(name)) { objects.map.Insert(key, in.ReadObject(key)); }
    in.EndMap();
  }
  static bool Equal(AnyObjects const& a, AnyObjects const& b) {
    return a.map.Size() == b.map.Size() && std::equal(a.map.begin(), a.map.end(), b.map.begin(), [](auto const& one, auto const& two) {
             return one.first == two.first && one.second->Equals(*two.second);
           });
  }
  static cls_Value ToValue(AnyObjects const&) { return {}; }
  static std::string_view FromValue(AnyObjects&, cls_Value const&) { return "nothing"; }
};

class Bag;
template <> struct cls_TypeIdOf<Bag> {
  static constexpr unsigned value = 0x7FFF0001;
  static constexpr char const* kName = "Bag";
};
/// An extension that takes any object. It keeps no track of changes.
class Bag final : public cls_Persistent<Bag, mdl_Extension> {
public:
  Bag() = default;
  explicit Bag(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  AnyObjects objects;

  template <class V> static constexpr void VisitMembers(V&& visit) { visit("map", &Bag::objects, cls_MemberText{"the objects"}); }
};

inline constexpr std::string_view kBag = "bag";

/// A model with one object, called "Thing", in a bag.
inline ddr_Model ModelWith(cow_Handle<cls_Object> object) {
  static bool const described = [] {
    cls_MetadataRegistrar::initClassMetadata(&Bag::InitializeMetadata, ddb_metadataFlag);
    return true;
  }();
  static_cast<void>(described);
  auto bag = cow_Handle<Bag>::Make();
  bag.Get().objects.map.Insert("Thing", std::move(object));
  ddr_Model model;
  model.SetExtension(kBag, bag);
  return model;
}

/// Pretends to be of another class, and writes what it is told.
class Liar final : public cls_Object {
public:
  using Content = std::function<void(cls_WriteVisitor const&)>;
  Liar(unsigned typeId, Content content) : typeId_(typeId), content_(std::move(content)) {}

  unsigned DynTypeId() const override { return typeId_; }
  void DBWrite(cls_WriteVisitor const& out) const override {
    if (out.StartWrite(typeId_, Uid())) { content_(out); }
  }
  std::unique_ptr<cls_Object> Copy() const override { return std::make_unique<Liar>(*this); }
  cls_MemberRows MemberRows() const override { return {}; }

private:
  unsigned typeId_;
  Content content_;
};
