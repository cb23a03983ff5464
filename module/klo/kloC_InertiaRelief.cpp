#include "module/klo/kloC_InertiaRelief.h"

namespace {
constexpr unsigned kAlong1 = 1U << 0, kAlong2 = 1U << 1, kAlong3 = 1U << 2, kAbout1 = 1U << 3, kAbout2 = 1U << 4, kAbout3 = 1U << 5;
constexpr unsigned kInPlane = kAlong1 | kAlong2 | kAbout3;
constexpr unsigned kAxisymmetric = kAlong2;
constexpr unsigned kAll = kInPlane | kAlong3 | kAbout1 | kAbout2;
}  // namespace

unsigned kloC_InertiaReliefState::FreeDirections() const {
  unsigned free = 0, bit = 1;
  for (auto const* direction : {&u1, &u2, &u3, &ur1, &ur2, &ur3}) {
    free |= *direction == true ? bit : 0U;
    bit <<= 1U;
  }
  return free;
}

void kloC_InertiaReliefState::AssertValid() const { kloC_CoordinatesOf(referencePoint, {}); }

void kloC_InertiaReliefState::AssertInSpace(SpaceEnm space) const {
  unsigned const free = FreeDirections();
  bool const planar = space == SpaceEnm::TWO_D_PLANAR, axisymmetric = space == SpaceEnm::AXISYMMETRIC;
  kloC_Assert(!planar || (free & ~kInPlane) == 0, kloC_ErrorEnm::FreeDirectionsIn2D);
  kloC_Assert(!axisymmetric || (free & ~kAxisymmetric) == 0, kloC_ErrorEnm::FreeDirectionsInAxisymmetric);
  unsigned const ofSpace = planar ? kInPlane : axisymmetric ? kAxisymmetric : kAll;
  bool const oriented = localCsys.HasValue() && !localCsys.ConstGet().IsGlobal();
  kloC_Assert(!oriented || (free != 0 && free != ofSpace), kloC_ErrorEnm::OrientationInAllDirections);
}

void kloC_InertiaRelief::AssertState(kloC_LoadState const& state, std::size_t index) const {
  kloC_Load::AssertState(state, index);
  bool const fixed = dynamic_cast<kloC_InertiaReliefState const&>(state).fixed == true;
  kloC_Assert(!States().IsCreateStep(index) || !fixed, kloC_ErrorEnm::FixedInCreateStep);
}
