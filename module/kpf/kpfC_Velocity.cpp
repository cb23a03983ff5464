#include "module/kpf/kpfC_Velocity.h"

namespace {
bool IsNonZero(mdl_PropAttr<double> const& value) { return value.HasValue() && value.ConstGet() != 0.0; }
std::size_t Coordinates(mdl_PropAttr<kpfC_VelocityState::Point> const& point) { return point.HasValue() ? point.ConstGet().Size() : 0; }
}  // namespace

void kpfC_VelocityState::AssertValid() const {
  auto const isPoint = [](auto const& point) { return !point.HasValue() || (Coordinates(point) >= 1 && Coordinates(point) <= 3); };
  kpfC_Assert(isPoint(axisBegin) && isPoint(axisEnd), kpfC_ErrorEnm::Dimensionality);
  bool const rotates = IsNonZero(omega);
  kpfC_Assert(rotates || IsNonZero(velocity1) || IsNonZero(velocity2) || IsNonZero(velocity3), kpfC_ErrorEnm::VelocityZero);
  kpfC_Assert(!rotates || axisBegin.HasValue(), kpfC_ErrorEnm::AxisMissing);
}

void kpfC_VelocityState::AssertInSpace(SpaceEnm space) const {
  if (!axisBegin.HasValue() && !axisEnd.HasValue()) { return; }
  kpfC_Assert(space != SpaceEnm::AXISYMMETRIC || Coordinates(axisBegin) == 1, kpfC_ErrorEnm::AxisCoordinate);
  kpfC_Assert(space != SpaceEnm::TWO_D_PLANAR || Coordinates(axisBegin) == 2, kpfC_ErrorEnm::AxisCoordinates2D);
  bool const bothWhole = Coordinates(axisBegin) == 3 && Coordinates(axisEnd) == 3;
  kpfC_Assert(space != SpaceEnm::THREE_D || bothWhole, kpfC_ErrorEnm::AxisCoordinates3D);
}
