#pragma once

#include "tests/support/PlainHistory.h"

namespace test {

/// What the plain walk has to know of boundary conditions and adaptive mesh constraints.
inline plain::Rules const kConstraintRules = [] {
  using enum kprC_ProcedureType::Enm;
  return plain::Rules{
      .perturbation = Buckle | Frequency | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace,
      .modal = ModalDynamics | RandomResponse | ResponseSpectrum | SteadyStateModal | SubspaceDynamics | ComplexFrequency,
      .carriedFromInitial = 9,
      .changedFromInitial = 10,
      .perturbationCarried = 9,
      .perturbationChanged = 10,
      .perturbationOff = 11,
      .asksInPerturbation = true,
      .staysWhenRefused = false,
  };
}();

}  // namespace test
