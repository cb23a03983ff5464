// Building, editing, undoing and reading histories through the library, over series of attributes and of steps. Each benchmark
// gives the fastest of twelve rounds, for edits the median over all attributes in random order. Counter "limit": how many times
// as long as the same work on plain structs (benchmarks/Workload.h); "heap": bytes on the heap per record.
#include <benchmark/benchmark.h>

#include "benchmarks/Workload.h"

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

/// A model of that size, and the limit for it.
struct Work {
  explicit Work(benchmark::State const& state)
      : size(state),
        steps(bench::Steps(size.steps, size.mix)),
        plan(steps, size.mix),
        names(bench::Names(size.attributes)),
        model(bench::EmptyOver(steps, size.mix)) {
    Build(model);
    Changes().TruncateTo(0);
  }

  void Build(bench::Repositories& repositories) const { bench::AddAll(repositories, plan, names); }
  bench::Limit Limit() const { return {size.steps, size.attributes, bench::StatesOf(model.conditions.ConstGet(names[0]))}; }
  kprC_StepTable WithStep() const {
    kprC_StepContainer longer = steps;
    longer.Insert(plan.middle.View(), cow_String("Inserted"), bench::StaticStep());
    return longer.Table();
  }

  Size size;
  kprC_StepContainer steps;
  bench::Plan plan;
  std::vector<cow_String> names;
  bench::Repositories model;
};

struct Sum {
  std::uint64_t statuses = 0;
  double values = 0.0;
};
template <class Family> double ValueOf(cls_Object const* state) {
  return state == nullptr ? 0.0 : Family::Value(static_cast<typename Family::State const&>(*state));
}
template <class Family> void ReadByRuns(bench::Repository<Family> const& repository, Sum& sum) {
  kprC_StepDependent::RunVisitor const visit = [&sum](std::size_t begin, std::size_t end, auto status, cls_Object const* state) {
    sum.statuses += static_cast<std::uint64_t>(status) * (end - begin);
    sum.values += ValueOf<Family>(state) * static_cast<double>(end - begin);
  };
  repository.ForEach([&](cow_String const&, kprC_StepDependent const& attribute) { attribute.ForEachRun(visit); });
}
template <class Family> void ReadRecordByRecord(bench::Repository<Family> const& repository, Sum& sum) {
  repository.ForEach([&](cow_String const&, kprC_StepDependent const& attribute) {
    attribute.ForEachRecord([&sum](std::size_t, auto status, cls_Object const* state) {
      sum.statuses += static_cast<std::uint64_t>(status);
      sum.values += ValueOf<Family>(state);
    });
  });
}
template <class Family> void ReadByRecords(bench::Repository<Family> const& repository, Sum& sum) {
  repository.ForEach([&](cow_String const&, kprC_StepDependent const& attribute) {
    std::size_t const steps = attribute.Steps().Size();
    for (std::size_t i = 0; i < steps; ++i) {
      sum.statuses += static_cast<std::uint64_t>(attribute.StatusAt(i));
      sum.values += ValueOf<Family>(attribute.StateAt(i));
    }
  });
}
template <class Read> void ReadAll(bench::Repositories const& repositories, Read&& read) {
  Sum sum;
  read(bench::Conditions(), repositories.conditions, sum);
  read(bench::Loads(), repositories.loads, sum);
  read(bench::Interactions(), repositories.interactions, sum);
  benchmark::DoNotOptimize(sum);
}
void ReadAllByRuns(bench::Repositories const& repositories) {
  ReadAll(repositories, []<class Family>(Family, auto const& of, Sum& sum) { ReadByRuns<Family>(of, sum); });
}
void ReadAllRecordByRecord(bench::Repositories const& repositories) {
  ReadAll(repositories, []<class Family>(Family, auto const& of, Sum& sum) { ReadRecordByRecord<Family>(of, sum); });
}
void ReadAllByRecords(bench::Repositories const& repositories) {
  ReadAll(repositories, []<class Family>(Family, auto const& of, Sum& sum) { ReadByRecords<Family>(of, sum); });
}
void Build(benchmark::State& state) {
  Work const work(state);
  bench::Repositories const empty = bench::EmptyOver(work.steps, work.size.mix);
  bench::Repositories built = empty;
  double const seconds = bench::Fastest(
      [&] {
        built = empty;
        Changes().TruncateTo(0);
      },
      [&] { work.Build(built); });
  bench::Report(state, seconds, work.Limit().Build());
}

/// What a model of that size holds, the names and the records of the changes included: as built, and once everything has been read.
void Heap(benchmark::State& state) {
  Size const size(state);
  kprC_StepContainer const steps = bench::Steps(size.steps, size.mix);
  bench::Repositories built = bench::EmptyOver(steps, size.mix);
  omu_ChangeHistory().Swap(Changes());
  double const before = bench::HeapBytes();
  double const seconds = bench::Seconds([&] { bench::AddAll(built, bench::Plan(steps, size.mix), bench::Names(size.attributes)); });
  auto const perRecord = [&] { return (bench::HeapBytes() - before) / static_cast<double>(size.steps * size.attributes); };
  double const asBuilt = perRecord();
  ReadAllByRuns(built);
  double const asRead = perRecord();
  std::size_t const states = bench::StatesOf(*built.conditions.ConstItem("A-0"));
  bench::Report(state, seconds, bench::Limit(size.steps, size.attributes, states).Build());
  state.counters["heap"] = asBuilt;
  state.counters["heapRead"] = asRead;
}

void EditOne(benchmark::State& state, double bench::OneByOne::*part) {
  Work const work(state);
  bench::Repositories edited = work.model;
  bench::Repositories snapshot = work.model;
  double value = 10.0;
  bool const undone = part == &bench::OneByOne::undo;
  bench::OneByOne const seconds = bench::FastestPasses(
      work.size.attributes,
      [&] {
        edited = work.model;
        snapshot = work.model;
        Changes().TruncateTo(0);
        value += 1.0;
      },
      [&](std::size_t a) {
        bench::InFamily(a, work.size.mix, [&]<class Family>(Family family) {
          snapshot.Of(family) = edited.Of(family);
          bench::Edit<Family>(edited.Of(family), work.plan.edit, work.names[a], value);
        });
      },
      [&](std::size_t a) {
        if (!undone) { return; }
        bench::InFamily(a, work.size.mix, [&](auto family) { edited.Of(family) = std::move(snapshot.Of(family)); });
      });
  bench::Report(state, seconds.*part, work.Limit().Edit().*part);
}

void InsertStep(benchmark::State& state) {
  Work const work(state);
  kprC_StepTable const table = work.WithStep();
  bench::Repositories edited = work.model;
  bench::Repositories snapshot = work.model;
  double const seconds = bench::Fastest(
      [&] {
        edited = work.model;
        snapshot = work.model;
        Changes().TruncateTo(0);
      },
      [&] {
        snapshot = edited;
        edited.UpdateSteps(table);
      });
  bench::Report(state, seconds, work.Limit().Insert());
}
void UndoInsert(benchmark::State& state) {
  Work const work(state);
  kprC_StepTable const table = work.WithStep();
  bench::Repositories edited = work.model;
  bench::Repositories snapshot = work.model;
  double const seconds = bench::Fastest(
      [&] {
        Changes().TruncateTo(0);
        snapshot = edited;
        edited.UpdateSteps(table);
      },
      [&] { edited = std::move(snapshot); });
  bench::Report(state, seconds, work.Limit().UndoInsert());
}

void Read(benchmark::State& state, void (*read)(bench::Repositories const&)) {
  Work const work(state);
  bench::Report(state, bench::Fastest([] {}, [&] { read(work.model); }), work.Limit().Read());
}
/// Reading everything right after the insertion of a step, which is the first time that somebody reads it.
void ReadAfterInsert(benchmark::State& state) {
  Work const work(state);
  kprC_StepTable const table = work.WithStep();
  bench::Repositories edited = work.model;
  double const seconds = bench::Fastest(
      [&] {
        Changes().TruncateTo(0);
        edited = bench::EmptyOver(work.steps, work.size.mix);
        work.Build(edited);
        edited.UpdateSteps(table);
      },
      [&] { ReadAllByRuns(edited); });
  bench::Report(state, seconds, work.Limit().Read());
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"steps", "attributes", "mix"})->Unit(benchmark::kMicrosecond)->UseManualTime()->Iterations(1);
  for (long const attributes : {10000, 1000, 100}) { b->Args({100, attributes, 0}); }
  for (long const steps : {10, 1000, 10000}) { b->Args({steps, 100, 0}); }
  for (long const mix : {1, 2}) { b->Args({100, 10000, mix}); }
  b->Args({100, 1000, 3});
}
BENCHMARK(Build)->Apply(Sizes);
BENCHMARK(Heap)->Apply(Sizes);
BENCHMARK_CAPTURE(EditOne, edit, &bench::OneByOne::work)->Apply(Sizes);
BENCHMARK_CAPTURE(EditOne, undo, &bench::OneByOne::undo)->Apply(Sizes);
BENCHMARK(InsertStep)->Apply(Sizes);
BENCHMARK(ReadAfterInsert)->Apply(Sizes);
BENCHMARK(UndoInsert)->Apply(Sizes);
BENCHMARK_CAPTURE(Read, runs, &ReadAllByRuns)->Apply(Sizes);
BENCHMARK_CAPTURE(Read, iterations, &ReadAllRecordByRecord)->Apply(Sizes);
BENCHMARK_CAPTURE(Read, calls, &ReadAllByRecords)->Apply(Sizes);

}  // namespace
