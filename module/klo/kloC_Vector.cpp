#include "module/klo/kloC_Vector.h"

bool kloC_VectorState::HasComponent(std::size_t index) const {
  bool const complex = useComplex == true;
  switch (index) {
    case 0: return complex ? kloC_AnyNonZero(complexC1Real, complexC1Imag) : kloC_AnyNonZero(c1);
    case 1: return complex ? kloC_AnyNonZero(complexC2Real, complexC2Imag) : kloC_AnyNonZero(c2);
    default: return complex ? kloC_AnyNonZero(complexC3Real, complexC3Imag) : kloC_AnyNonZero(c3);
  }
}

void kloC_VectorState::AssertInSpace(SpaceEnm space) const {
  for (std::size_t i = 0; i < 3; ++i) {
    kloC_Assert(space == SpaceEnm::THREE_D || IsInPlane(i) || !HasComponent(i), kloC_ErrorEnm::ComponentNotIn2D);
  }
}
