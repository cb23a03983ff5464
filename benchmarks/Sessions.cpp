// The same edits as commands of a session, with journal and undo, and the model file. Counter "limit": how many times as
// long as moving the records that the work concerns once, for the file as writing or reading their bytes once.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "benchmarks/Workload.h"
#include "command/Session.h"
#include "store/ModelFile.h"

namespace {

bench::Library const library;

struct Size {
  explicit Size(benchmark::State const& state)
      : steps(static_cast<std::size_t>(state.range(0))), attributes(static_cast<std::size_t>(state.range(1))) {}
  ddr_Model Model() const { return bench::ModelOf(steps, attributes, bench::Mix::Uniform); }
  std::size_t Bytes() const { return attributes * (steps * 40 + bench::kStatesPerAttribute * 64); }
  std::size_t steps, attributes;
};

std::filesystem::path Scratch(char const* name) { return std::filesystem::temp_directory_path() / name; }

double SecondsToWrite(std::size_t bytes) {
  std::vector<char> const content(bytes, 'x');
  std::filesystem::path const path = Scratch("gattr-limit.bin");
  double const seconds = bench::Fastest(5, [&] { std::ofstream(path, std::ios::binary).write(content.data(), static_cast<long>(bytes)); });
  std::filesystem::remove(path);
  return seconds;
}
double SecondsToRead(std::size_t bytes) {
  std::vector<char> content(bytes, 'x');
  std::filesystem::path const path = Scratch("gattr-limit.bin");
  std::ofstream(path, std::ios::binary).write(content.data(), static_cast<long>(bytes));
  double const seconds = bench::Fastest(5, [&] { std::ifstream(path, std::ios::binary).read(content.data(), static_cast<long>(bytes)); });
  std::filesystem::remove(path);
  return seconds;
}

void Run(benchmark::State& state, gattr::Session& session, gattr::Json const& command) {
  gattr::Outcome const outcome = session.Execute(command);
  if (!outcome.ok) { state.SkipWithError(outcome.message.c_str()); }
}
gattr::Json EditCommand(ddr_Model const& model, Size const& size, double value) {
  return {{"command", "setValuesInStep"},
          {"boundaryCondition", bench::NameOf(size.attributes / 2).c_str()},
          {"stepName", bench::StepAt(model, size.steps / 3).c_str()},
          {"u1", value}};
}
gattr::Json InsertCommand(ddr_Model const& model, Size const& size) {
  return {{"command", "StaticStep"}, {"name", "Inserted"}, {"previous", bench::StepAt(model, size.steps / 2).c_str()},
          {"initialInc", 0.1},       {"minInc", 1e-5},     {"maxInc", 1.0}};
}

void EditCommandOnce(benchmark::State& state) {
  Size const size(state);
  gattr::Session session(size.Model());
  double value = 0.0;
  gattr::Json command;
  bench::Measure(
      state, bench::SecondsToMove(size.steps, bench::kStatesPerAttribute),
      [&] { command = EditCommand(session.Model(), size, value += 1.0); }, [&] { Run(state, session, command); });
}
void UndoEditCommand(benchmark::State& state) {
  Size const size(state);
  gattr::Session session(size.Model());
  bench::Measure(
      state, bench::SecondsToMove(size.steps, bench::kStatesPerAttribute),
      [&] { Run(state, session, EditCommand(session.Model(), size, 5.0)); }, [&] { session.Undo(); });
}
void InsertStepCommand(benchmark::State& state) {
  Size const size(state);
  gattr::Session session(size.Model());
  gattr::Json const command = InsertCommand(session.Model(), size);
  bench::Measure(
      state, bench::SecondsToMove(size.steps * size.attributes, size.attributes * bench::kStatesPerAttribute), [&] { session.Undo(); },
      [&] { Run(state, session, command); });
}
void UndoInsertStepCommand(benchmark::State& state) {
  Size const size(state);
  gattr::Session session(size.Model());
  gattr::Json const command = InsertCommand(session.Model(), size);
  bench::Measure(
      state, bench::SecondsToMove(size.steps * size.attributes, size.attributes * bench::kStatesPerAttribute),
      [&] { Run(state, session, command); }, [&] { session.Undo(); });
}

void FirstSave(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = size.Model();
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  bench::Measure(
      state, SecondsToWrite(size.Bytes()), [&] { std::filesystem::remove(path); }, [&] { gattr::ModelFile(path).Save(model); });
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
  std::filesystem::remove(path);
}
void Open(benchmark::State& state) {
  Size const size(state);
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  std::filesystem::remove(path);
  gattr::ModelFile(path).Save(size.Model());
  bench::Measure(
      state, SecondsToRead(size.Bytes()), [] {}, [&] { benchmark::DoNotOptimize(gattr::ModelFile(path).Open()); });
  std::filesystem::remove(path);
}
void SaveAfterOneEdit(benchmark::State& state) {
  Size const size(state);
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  std::filesystem::remove(path);
  gattr::Session session(size.Model());
  gattr::ModelFile file(path);
  file.Save(session.Model());
  double value = 0.0;
  bench::Measure(
      state, SecondsToWrite(size.steps * 40 + bench::kStatesPerAttribute * 64),
      [&] { Run(state, session, EditCommand(session.Model(), size, value += 1.0)); }, [&] { file.Save(session.Model()); });
  std::filesystem::remove(path);
}

void Sizes(benchmark::internal::Benchmark* b) {
  b->ArgNames({"steps", "attributes"})->Unit(benchmark::kMicrosecond)->UseManualTime();
  for (long const steps : {10, 100, 1000, 10000}) { b->Args({steps, 100}); }
  for (long const attributes : {1000, 10000}) { b->Args({100, attributes}); }
}
BENCHMARK(EditCommandOnce)->Apply(Sizes);
BENCHMARK(UndoEditCommand)->Apply(Sizes);
BENCHMARK(InsertStepCommand)->Apply(Sizes);
BENCHMARK(UndoInsertStepCommand)->Apply(Sizes);
BENCHMARK(FirstSave)->Apply(Sizes);
BENCHMARK(Open)->Apply(Sizes);
BENCHMARK(SaveAfterOneEdit)->Apply(Sizes);

}  // namespace
