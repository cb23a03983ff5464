#include "module/klo/kloC_DistributedLoads.h"

#include <algorithm>

void kloC_Pressure::AssertState(kloC_LoadState const& state, std::size_t index) const {
  kloC_Load::AssertState(state, index);
  auto const& pressure = dynamic_cast<kloC_PressureState const&>(state);
  kloC_Assert(!pressure.IsHydrostatic() || !ReachesExplicitStep(index), kloC_ErrorEnm::HydrostaticInExplicit);
  bool const distinct = pressure.hZero.ConstGet() != pressure.hReference.ConstGet();
  kloC_Assert(!pressure.IsHydrostaticInUse() || distinct, kloC_ErrorEnm::ElevationsEqual);
}

bool kloC_Pressure::ReachesExplicitStep(std::size_t index) const {
  bool reaches = false, isNext = false;
  std::size_t end = Steps().Size();
  States().ForEachOwn([&](std::size_t own, auto const&) {
    if (own > index && !isNext) {
      end = own;
      isNext = true;
    }
  });
  for (; index < end && !reaches; index = Steps().SegmentEnd(index)) {
    reaches = kprC_IsExplicit(Steps().ProcedureType(index)) && IsActive(StatusAt(index));
  }
  return reaches;
}

bool kloC_Pressure::LooksAtSteps() const {
  bool hydrostatic = false;
  ForEachEditable([&hydrostatic](kloC_LoadState const& state) {
    hydrostatic = hydrostatic || dynamic_cast<kloC_PressureState const&>(state).IsHydrostatic();
  });
  return hydrostatic;
}

void kloC_PipePressureState::AssertValid() const {
  kloC_Assert(diameter.HasValue() && diameter.ConstGet() > 0.0, kloC_ErrorEnm::PipeDiameter);
}

bool kloC_LineLoadState::IsNonZero() const {
  bool const without1 = useC1 == false, without3 = useC3 == false;
  return (!without1 && HasComponent(0)) || HasComponent(1) || (!without3 && HasComponent(2));
}

void kloC_GravityState::AssertInSpace(SpaceEnm space) const {
  bool const along = !HasComponent(0) && !HasComponent(2);
  kloC_Assert(space != SpaceEnm::AXISYMMETRIC || along, kloC_ErrorEnm::GravityInAxisymmetric);
  kloC_VectorState::AssertInSpace(space);
}
