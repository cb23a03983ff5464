#pragma once

#include <array>

#include "module/klo/kloC_LoadState.h"
#include "platform/BasicUtils/cls_xoList.h"

/// How a point was given.
enum class kloC_PointEnm { COORDINATES, PICKED };
template <> struct omu_EnumTable<kloC_PointEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"COORDINATES", 0}, {"PICKED", 1}, {nullptr, 0}};
};

/// A point as users give it: two or three coordinates, in the unit of length.
using kloC_Point = cow_1DArrayList<double>;
using kloC_Coordinates = std::array<double, 3>;

/// The coordinates of a point, the third one zero where there are two. Refuses 10 any other number of them.
DDB_API kloC_Coordinates kloC_CoordinatesOf(kloC_Point const& point);
/// The same of a member, or \p absent where it has no value.
DDB_API kloC_Coordinates kloC_CoordinatesOf(mdl_PropAttr<kloC_Point> const& point, kloC_Coordinates const& absent);
