// General contact with many pairs over many steps: what switching one pair in one step costs, in a contact that says nothing else
// and in one that switches a pair in every step. Counter "pairs" and "steps": the same over one pair and over the steps that say
// something, so that neither grows where a switch costs what it touches.
#include <benchmark/benchmark.h>

#include "benchmarks/Workload.h"
#include "module/kin/kinC_ContactExp.h"

namespace {

bench::Library const library;

kinC_RegionPair PairOf(std::size_t number) {
  return kinC_RegionPair(rgnC_Region(cow_String("Surface-" + std::to_string(number)), rgnC_Surface),
                         rgnC_Region(cow_String("Opposite-" + std::to_string(number)), rgnC_Surface));
}

/// A contact of \p pairs pairs, created in the first of \p steps explicit steps; a dense one switches a pair in every other.
struct Contact {
  Contact(std::size_t pairCount, std::size_t steps, bool dense) : pairs(pairCount) {
    std::vector<kprC_StepContainer::NamedStep> sequence;
    for (std::size_t i = 1; i <= steps; ++i) {
      sequence.push_back({cow_String("Step-" + std::to_string(i)), cow_Handle<kprC_ExplicitDynamicsStep>::Make()});
    }
    kprC_StepContainer made;
    made.Insert("Initial", sequence);
    table = made.Table();
    repository.UpdateSteps(table);
    kinC_ContactExp contact;
    contact.Insert(Step(0), kinC_ContactExpState());
    repository.Insert("GC", contact);
    kinC_RegionPairs all;
    for (std::size_t i = 0; i < pairs; ++i) { all.Append(PairOf(i)); }
    Item().AddPairs(all, Step(0), false);
    for (std::size_t i = 1; dense && i < steps; ++i) { Switch(i % (pairs / 2), i); }
  }

  cow_String const& Step(std::size_t index) const { return table.Name(index + 1); }
  kinC_ContactExp& Item() { return static_cast<kinC_ContactExp&>(repository.Get("GC")); }
  /// Takes a pair out in a step, or puts it back.
  bool Switch(std::size_t pair, std::size_t step) {
    kinC_RegionPairs const one{PairOf(pair)};
    return Item().RemovePairs(one, Step(step), false) || Item().AddPairs(one, Step(step), false);
  }

  std::size_t pairs;
  kprC_StepTable table;
  kprC_PropagatingContainer<kinC_Interaction> repository;
};

void SwitchOnePair(benchmark::State& state, bool dense) {
  Contact contact(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1)), dense);
  std::size_t const step = static_cast<std::size_t>(state.range(1)) / 2, pair = contact.pairs - 1;
  for (auto _ : state) {
    if (!contact.Switch(pair, step)) { state.SkipWithError("not switched"); }
  }
}
void Build(benchmark::State& state) {
  for (auto _ : state) { Contact(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1)), true); }
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"pairs", "steps"})->Unit(benchmark::kMicrosecond);
  for (long const pairs : {10, 100, 1000}) { b->Args({pairs, 1000}); }
  for (long const steps : {10, 100}) { b->Args({1000, steps}); }
}
BENCHMARK_CAPTURE(SwitchOnePair, alone, false)->Apply(Sizes);
BENCHMARK_CAPTURE(SwitchOnePair, inEveryStep, true)->Apply(Sizes);
BENCHMARK(Build)->Apply(Sizes);

}  // namespace
