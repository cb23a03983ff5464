#include "module/klo/kloC_Traction.h"

kloC_Coordinates kloC_TractionState::Direction() const {
  if (!directionVector.HasValue()) { return {1.0, 0.0, 0.0}; }
  auto const& points = directionVector.ConstGet();
  kloC_Assert(points.Rows() == 2 && (points.Columns() == 2 || points.Columns() == 3), kloC_ErrorEnm::Dimensionality);
  kloC_Coordinates direction{};
  for (std::size_t i = 0; i < points.Columns(); ++i) { direction[i] = points.ConstGet(1, i) - points.ConstGet(0, i); }
  return direction;
}

void kloC_TractionState::AssertValid() const {
  kloC_Assert(Direction() != kloC_Coordinates{}, kloC_ErrorEnm::ZeroDirection);
  bool const fixed = follower == false;
  kloC_Assert(!fixed || IsGeneral(), kloC_ErrorEnm::FollowerNotGeneral);
  bool const picked = csys.HasValue() && !csys.ConstGet().IsGlobal();
  bool const userDefined = userCsys.HasValue() && !userCsys.ConstGet().IsEmpty();
  kloC_Assert(!picked || !userDefined, kloC_ErrorEnm::CsysTwice);
}

void kloC_TractionState::AssertInSpace(SpaceEnm space) const {
  kloC_Assert(space == SpaceEnm::THREE_D || Direction()[2] == 0.0, kloC_ErrorEnm::ComponentNotIn2D);
}
