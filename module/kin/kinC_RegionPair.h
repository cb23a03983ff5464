#pragma once

#include "module/kin/Types.h"
#include "platform/BasicUtils/cls_Shared.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/CoreGeometry/rgnC_Region.h"

/// What the surfaces of a pair are made of.
enum class kinC_SurfaceTypeEnm { GEOMETRY = 0, MESH = 1 };
template <> struct omu_EnumTable<kinC_SurfaceTypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"GEOMETRY", 0}, {"MESH", 1}, {nullptr, 0}};
};

/// Two surfaces of general contact. Of an assignment to single surfaces the second is empty; both are for the whole domain.
class DDB_API kinC_RegionPair final : public cls_Persistent<kinC_RegionPair, cls_Object> {
public:
  kinC_RegionPair() = default;
  explicit kinC_RegionPair(rgnC_Region const& first, rgnC_Region const& second = rgnC_Region(),
                           kinC_SurfaceTypeEnm type = kinC_SurfaceTypeEnm::GEOMETRY)
      : region1(first), region2(second), surfaceType(type) {}
  explicit kinC_RegionPair(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  cls_Shared<rgnC_Region> region1, region2;
  omu_PrimEnum<kinC_SurfaceTypeEnm, 1> surfaceType;

  /// Whether it stands for the whole domain.
  bool IsGlobal() const { return !*region1 && !*region2; }
  /// The names in an order that a pair and its mirror, which are the same, have in common.
  std::pair<std::string_view, std::string_view> Key() const {
    std::string_view const one = region1->Name(), two = region2->Name();
    return one < two ? std::pair(one, two) : std::pair(two, one);
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("region1", &kinC_RegionPair::region1, cls_MemberText{"a surface"}.RefersTo(cls_Reference::Region));
    visit("region2", &kinC_RegionPair::region2,
          cls_MemberText{"the surface that it may touch; empty where the pair is one surface"}.RefersTo(cls_Reference::Region));
    visit("surfaceType", &kinC_RegionPair::surfaceType, cls_MemberText{"what the surfaces are made of"});
  }
};

using kinC_RegionPairs = cls_xo1DArrayList<kinC_RegionPair>;
