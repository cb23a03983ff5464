#pragma once

#include "platform/BasicUtils/cow_String.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreGeometry/Types.h"

/// How a region was picked.
enum rgnC_RegionType { rgnC_Set = 0, rgnC_Surface = 1 };
/// What the part instances that a region lies on are made of.
enum rgnC_InstanceKind { rgnC_Unknown = 0, rgnC_Solid = 1, rgnC_Shell = 2, rgnC_Wire = 3, rgnC_Mixed = 4, rgnC_OrphanMesh = 5 };

template <> struct omu_EnumTable<rgnC_RegionType> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"SET", rgnC_Set}, {"SURFACE", rgnC_Surface}, {nullptr, 0}};
};
template <> struct omu_EnumTable<rgnC_InstanceKind> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"UNKNOWN", rgnC_Unknown},        {"SOLID", rgnC_Solid}, {"SHELL", rgnC_Shell}, {"WIRE", rgnC_Wire}, {"MIXED", rgnC_Mixed},
      {"ORPHAN_MESH", rgnC_OrphanMesh}, {nullptr, 0}};
};

/// A reference to a region of the model: a set or a surface. Regions are the same when their names are.
class DDB_API rgnC_Region final : public cls_Persistent<rgnC_Region, cls_Object> {
public:
  rgnC_Region();
  explicit rgnC_Region(cow_String name, rgnC_RegionType type = rgnC_Set);
  explicit rgnC_Region(cls_ReadVisitor const& in);

  cow_String const& Name() const { return name_; }
  rgnC_RegionType Type() const { return kind_; }
  /// Highest dimension of its entities, 0 to 3; unset where nobody has said.
  int Dimension() const { return dimension_; }
  /// Whether its entities differ in dimension.
  bool IsMixed() const { return mixed_; }
  bool IsEmpty() const { return empty_; }
  rgnC_InstanceKind InstanceKind() const { return instanceKind_; }
  /// Whether it refers to anything at all.
  explicit operator bool() const { return !name_.IsEmpty(); }

  friend bool operator==(rgnC_Region const& a, rgnC_Region const& b) { return a.name_ == b.name_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("name", &rgnC_Region::name_, cls_MemberText{"name of the set or surface"}.NotSettable());
    visit("kind", &rgnC_Region::kind_, cls_MemberText{"set or surface"}.NotSettable());
    visit("dimension", &rgnC_Region::dimension_, cls_MemberText{"highest dimension of its entities, 0 to 3"});
    visit("mixed", &rgnC_Region::mixed_, cls_MemberText{"whether its entities differ in dimension"});
    visit("empty", &rgnC_Region::empty_, cls_MemberText{"whether it holds no entity"});
    visit("instanceKind", &rgnC_Region::instanceKind_, cls_MemberText{"what the part instances below it are made of"});
  }

private:
  cow_String name_;
  omu_PrimEnum<rgnC_RegionType, 1> kind_{rgnC_Set};
  int dimension_ = cls_unsetInteger;
  bool mixed_ = false;
  bool empty_ = false;
  omu_PrimEnum<rgnC_InstanceKind, 1> instanceKind_{rgnC_Unknown};
};

/// A region is stored whole and scripted by its name; who holds the model's regions looks up the rest and gives it as named
/// members.
template <> struct cls_MemberTraits<rgnC_Region> : cls_ObjectTraits<rgnC_Region> {
  static void Write(cls_WriteVisitor const& out, std::string_view name, rgnC_Region const& region) {
    out.WriteDeclared(name, region.Name().View(), region);
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, rgnC_Region& region) {
    in.ReadDeclared(name, rgnC_Region::TypeId(), [&](cls_ReadVisitor const& whole) { region = rgnC_Region(whole); });
  }
  static cls_Value ToValue(rgnC_Region const& region) { return std::string(region.Name().View()); }
  static std::string_view FromValue(rgnC_Region& region, cls_Value const& from) {
    if (from.As<cls_Value::Fields>() != nullptr) {
      region = rgnC_Region();
      return cls_ObjectTraits<rgnC_Region>::FromValue(region, from);
    }
    auto const* name = from.As<std::string>();
    if (name == nullptr) { return "the name of a region"; }
    return region = rgnC_Region(cow_String(*name)), "";
  }
  static void References(rgnC_Region const& region, cls_Reference, cls_ReferenceVisitor const& visit) {
    if (region) { visit(cls_Reference::Region, region.Name().View(), &region); }
  }
  static bool Redirect(rgnC_Region& region, cls_Reference, cls_Redirection const& to) {
    if (to.kind != cls_Reference::Region || region.Name().View() != to.from) { return false; }
    auto const* whole = dynamic_cast<rgnC_Region const*>(to.whole);
    return region = whole != nullptr ? *whole : rgnC_Region(cow_String(to.to), region.Type()), true;
  }
};
