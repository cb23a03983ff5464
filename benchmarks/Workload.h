#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include "module/DDB_GeometricAttributes.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/klo/kloC_ConcentratedLoads.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

/// The models that the benchmarks work on, and the limit that they are measured against.
namespace bench {

/// What a model is made of.
enum class Mix {
  Uniform,      ///< conditions over general steps only
  Alternating,  ///< a perturbation step after every general one: no two neighbouring records are alike
  Families,     ///< general steps; every second attribute is a load
};

inline kprC_StepHandle StaticStep() {
  auto step = cow_Handle<kprC_StaticStep>::Make();
  step.Get().initialInc = 0.1;
  step.Get().minInc = 1e-5;
  step.Get().maxInc = 1.0;
  return step;
}

inline void AddSteps(ddr_Model& model, std::size_t count, Mix mix) {
  std::vector<kprC_StepContainer::NamedStep> steps;
  for (std::size_t i = 1; i < count; ++i) {
    kprC_StepHandle step = StaticStep();
    if (mix == Mix::Alternating && i % 2 == 0) { step = cow_Handle<kprC_StaticLinearPerturbationStep>::Make(); }
    steps.push_back({cow_String("Step-" + std::to_string(i)), step});
  }
  model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()).Insert("Initial", steps);
  kprC_UpdateRepositories(model);
}

inline cow_String NameOf(std::size_t attribute) { return cow_String("A-" + std::to_string(attribute)); }
/// A general step near \p index.
inline cow_String StepAt(ddr_Model const& model, std::size_t index) { return kprC_Steps(model).Name(index | 1U); }

/// What the benchmarks need to know of a family.
struct Conditions {
  using Base = kbcC_BC;
  using Type = kbcC_DisplacementBC;
  static auto& In(ddr_Model& model) { return model.Get<kprC_PropagatingContainer<Base>>(ddr_Model::bcCmd()); }
  static auto Values(double value) {
    kbcC_DisplacementBCState state;
    state.u1 = value;
    return state;
  }
};
struct Loads {
  using Base = kloC_Load;
  using Type = kloC_ConcentratedForce;
  static auto& In(ddr_Model& model) { return model.Get<kprC_PropagatingContainer<Base>>(kloC_Load::loadRepositoryCmd()); }
  static auto Values(double value) {
    kloC_ConcentratedForceState state;
    state.c1 = value;
    return state;
  }
};

/// One edit of one attribute with its record.
template <class Family> void Edit(ddr_Model& model, cow_String const& step, cow_String const& name, double value) {
  auto& repository = Family::In(model);
  repository.Get(name).Insert(step, Family::Values(value));
  repository.RecordModify(name);
}

/// An attribute created in step 2, modified in S/4 and S/2, switched off in 3S/4.
template <class Family> void Add(ddr_Model& model, cow_String const& name) {
  std::size_t const steps = kprC_Steps(model).Size();
  typename Family::Type attribute;
  attribute.Insert(StepAt(model, 2), Family::Values(1.0));
  Family::In(model).Insert(name, attribute);
  Edit<Family>(model, StepAt(model, steps / 4), name, 2.0);
  Edit<Family>(model, StepAt(model, steps / 2), name, 3.0);
  Family::In(model).Get(name).Deactivate(StepAt(model, 3 * steps / 4));
  Family::In(model).RecordModify(name);
}
inline bool IsLoad(std::size_t attribute, Mix mix) { return mix == Mix::Families && attribute % 2 == 1; }
inline void AddAttributes(ddr_Model& model, std::size_t attributes, Mix mix) {
  for (std::size_t a = 0; a < attributes; ++a) { IsLoad(a, mix) ? Add<Loads>(model, NameOf(a)) : Add<Conditions>(model, NameOf(a)); }
}

inline ddr_Model ModelOf(std::size_t steps, std::size_t attributes, Mix mix) {
  ddr_Model model;
  AddSteps(model, steps, mix);
  AddAttributes(model, attributes, mix);
  return model;
}

/// Seconds of the fastest of \p rounds runs.
template <class Work> double Fastest(int rounds, Work&& work) {
  double best = 1e300;
  for (int i = 0; i < rounds; ++i) {
    auto const start = std::chrono::steady_clock::now();
    work();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

/// The limit: the same records as 40-byte structs in one array and 64-byte states, moved once, nothing computed. Into
/// memory that has been touched before, which is the strict way to measure it.
inline double SecondsToMove(std::size_t records, std::size_t states) {
  std::vector<char> from(records * 40 + states * 64, 1), to(from.size(), 2);
  return Fastest(9, [&] {
    std::memcpy(to.data(), from.data(), from.size());
    asm volatile("" : : "r"(to.data()) : "memory");
  });
}

/// The states that an attribute of the workload holds: one per own record and one per stretch that carries it.
inline constexpr std::size_t kStatesPerAttribute = 8;

/// Times \p work, after \p before, which does not count; the counter "limit" is its time over that of the limit.
template <class Before, class Work> void Measure(benchmark::State& state, double limit, Before&& before, Work&& work) {
  double spent = 0.0;
  for (auto _ : state) {
    before();
    auto const start = std::chrono::steady_clock::now();
    work();
    double const seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    state.SetIterationTime(seconds);
    spent += seconds;
  }
  state.counters["limit"] = spent / static_cast<double>(state.iterations()) / limit;
}

/// Starts the library for the program's life.
struct Library {
  Library() { DDB_GeometricAttributes_initialize(count); }
  int count = 0;
};

}  // namespace bench
