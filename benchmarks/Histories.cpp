// Building, editing and undoing histories, over series of steps and of attributes. Counter "limit": how many times as
// long as moving the records that the work concerns once (benchmarks/Workload.h); "heap": bytes on the heap per record.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <new>

#include "benchmarks/Workload.h"

namespace {
std::size_t heapBytes = 0;
}
void* operator new(std::size_t size) {
  void* const memory = std::malloc(size);
  if (memory == nullptr) { throw std::bad_alloc(); }
  heapBytes += malloc_usable_size(memory);
  return memory;
}
void operator delete(void* memory) noexcept {
  if (memory != nullptr) { heapBytes -= malloc_usable_size(memory); }
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept { operator delete(memory); }

namespace {

bench::Library const library;
omu_ChangeHistory& Changes() { return thr_ThreadSingleton<omu_ChangeHistory>::Instance(); }

struct Size {
  explicit Size(benchmark::State const& state)
      : steps(static_cast<std::size_t>(state.range(0))),
        attributes(static_cast<std::size_t>(state.range(1))),
        mix(static_cast<bench::Mix>(state.range(2))) {}
  std::size_t steps, attributes;
  bench::Mix mix;
};

/// Measures \p work against moving the records of \p attributes.
template <class Before, class Work>
void Measure(benchmark::State& state, Size const& size, std::size_t attributes, Before&& before, Work&& work) {
  bench::Measure(state, bench::SecondsToMove(size.steps * attributes, attributes * bench::kStatesPerAttribute), before, work);
}

void Build(benchmark::State& state) {
  Size const size(state);
  ddr_Model steps;
  bench::AddSteps(steps, size.steps, size.mix);
  ddr_Model model;
  std::size_t heap = 0;
  Measure(
      state, size, size.attributes,
      [&] {
        model = steps;
        Changes().TruncateTo(0);
        heap = heapBytes;
      },
      [&] { bench::AddAttributes(model, size.attributes, size.mix); });
  state.counters["heap"] = static_cast<double>(heapBytes - heap) / static_cast<double>(size.steps * size.attributes);
}

void InsertStep(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = bench::ModelOf(size.steps, size.attributes, size.mix);
  cow_String const middle = bench::StepAt(model, size.steps / 2);
  ddr_Model edited;
  Measure(
      state, size, size.attributes, [&] { edited = model; }, [&] { kprC_InsertStep(edited, middle, "Inserted", bench::StaticStep()); });
}

void UndoInsertStep(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = bench::ModelOf(size.steps, size.attributes, size.mix);
  cow_String const middle = bench::StepAt(model, size.steps / 2);
  ddr_Model edited;
  Measure(
      state, size, size.attributes,
      [&] {
        edited = model;
        kprC_InsertStep(edited, middle, "Inserted", bench::StaticStep());
      },
      [&] { edited = model; });
}

/// One edit of the attribute in the middle, of a load where there are loads.
void EditMiddle(ddr_Model& model, Size const& size, cow_String const& step, double value) {
  std::size_t const middle = size.attributes / 2 | 1U;
  bench::IsLoad(middle, size.mix) ? bench::Edit<bench::Loads>(model, step, bench::NameOf(middle), value)
                                  : bench::Edit<bench::Conditions>(model, step, bench::NameOf(middle), value);
}

void EditOne(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = bench::ModelOf(size.steps, size.attributes, size.mix);
  cow_String const step = bench::StepAt(model, size.steps / 3);
  ddr_Model edited;
  double value = 0.0;
  Measure(
      state, size, 1, [&] { edited = model; }, [&] { EditMiddle(edited, size, step, value += 1.0); });
}

void UndoEdit(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = bench::ModelOf(size.steps, size.attributes, size.mix);
  cow_String const step = bench::StepAt(model, size.steps / 3);
  ddr_Model edited;
  Measure(
      state, size, 1,
      [&] {
        edited = model;
        EditMiddle(edited, size, step, 1.0);
      },
      [&] { edited = model; });
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"steps", "attributes", "mix"})->Unit(benchmark::kMicrosecond)->UseManualTime();
  for (long const steps : {10, 100, 1000, 10000}) { b->Args({steps, 100, 0}); }
  for (long const attributes : {1000, 10000}) { b->Args({100, attributes, 0}); }
  b->Args({10000, 1000, 0});
  for (long const mix : {1, 2}) {
    for (long const steps : {1000, 10000}) { b->Args({steps, 100, mix}); }
  }
}
BENCHMARK(Build)->Apply(Sizes);
BENCHMARK(InsertStep)->Apply(Sizes);
BENCHMARK(UndoInsertStep)->Apply(Sizes);
BENCHMARK(EditOne)->Apply(Sizes);
BENCHMARK(UndoEdit)->Apply(Sizes);

}  // namespace
