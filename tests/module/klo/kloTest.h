#pragma once

#include "module/klo/kloC_module.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace test {

/// One load in a repository over a sequence of steps.
class OneLoad : public WithLibrary {
protected:
  static std::unique_ptr<kloC_Load> Made(std::string_view command) {
    for (kloC_Constructor const& constructor : kloC_Constructors()) {
      if (constructor.command == command) { return constructor.make(); }
    }
    throw std::invalid_argument("no load is made by " + std::string(command));
  }
  /// Creates \p load in \p step of \p steps; the code of the refusal, -1 where there is none.
  int Create(std::string_view steps, char const* step, kprC_Arguments const& members, kloC_Load& load) {
    loads = {};
    loads.UpdateSteps(kprC_StepTable(StepsOf(steps)));
    return CodeOf([&] {
      std::string unknown;
      if (!load.SetInStep(step, members, &unknown)) { throw std::invalid_argument("no member is called " + unknown); }
      loads.Insert("L", load);
    });
  }
  int Create(std::string_view steps, char const* step, kprC_Arguments const& members = {{"cf1", 1.0}},
             std::string_view command = "ConcentratedForce") {
    return Create(steps, step, members, *Made(command));
  }
  int Edit(char const* step, kprC_Arguments const& members) {
    std::string unknown;
    return CodeOf([&] { Load().SetInStep(step, members, &unknown); });
  }
  int Deactivate(char const* step) {
    return CodeOf([&] { Load().Deactivate(step); });
  }
  int Move(char const* from, char const* to) {
    return CodeOf([&] { Load().Move(from, to); });
  }
  int Reset(char const* step) {
    return CodeOf([&] { Load().Reset(step); });
  }
  kloC_Load& Load() { return loads.Get("L"); }
  std::string History() {
    std::string numbers;
    for (auto const status : Load().History()) { numbers += (numbers.empty() ? "" : " ") + std::to_string(static_cast<int>(status)); }
    return numbers;
  }

  kprC_PropagatingContainer<kloC_Load> loads;
};

}  // namespace test
