#pragma once

#include "tests/support/PlainHistory.h"

namespace test {

/// What the plain walk has to know of interactions.
inline plain::Rules const kInteractionRules = [] {
  using enum kprC_ProcedureType::Enm;
  return plain::Rules{
      .perturbation = Buckle | Frequency | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace | ModalDynamics |
                      RandomResponse | ResponseSpectrum | SteadyStateModal | ComplexFrequency,
      .modal = {},
      .carriedFromInitial = 2,
      .changedFromInitial = 3,
      .perturbationCarried = 8,
      .perturbationChanged = 0,
      .perturbationOff = 8,
      .asksInPerturbation = true,
      .staysWhenRefused = true,
      .moveEmptiesBetween = false,
      .staysPut = 8,
  };
}();

}  // namespace test
