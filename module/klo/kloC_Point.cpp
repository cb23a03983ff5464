#include "module/klo/kloC_Point.h"

kloC_Coordinates kloC_CoordinatesOf(kloC_Point const& point) {
  kloC_Assert(point.Size() == 2 || point.Size() == 3, kloC_ErrorEnm::Dimensionality);
  return {point[0], point[1], point.Size() == 3 ? point[2] : 0.0};
}

kloC_Coordinates kloC_CoordinatesOf(mdl_PropAttr<kloC_Point> const& point, kloC_Coordinates const& absent) {
  return point.HasValue() ? kloC_CoordinatesOf(point.ConstGet()) : absent;
}
