#include "module/klo/kloC_Scalar.h"

bool kloC_ScalarState::IsNonZero() const {
  return useComplex == true ? kloC_AnyNonZero(complexMagReal, complexMagImag) : kloC_AnyNonZero(magnitude);
}

bool kloC_DistributedState::IsNonZero() const { return kloC_AnyNonZero(magnitude); }
