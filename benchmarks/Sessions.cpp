// The same edits as commands of a session, with journal and undo, replay, the model file, and the text form. Each benchmark gives the
// fastest of several rounds, for edits the median over all attributes in random order; the commands are made beforehand. Counter "limit":
// how many times as long as the same work on plain structs (benchmarks/Workload.h), for the file as writing or reading their bytes once;
// "heap": bytes on the heap that one command adds, and a snapshot keeps.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "benchmarks/Workload.h"
#include "command/Journal.h"
#include "command/Session.h"
#include "store/ModelFile.h"
#include "store/TextStore.h"
#include "text/JsonText.h"

namespace {

bench::Library const library;

struct Size {
  explicit Size(benchmark::State const& state)
      : steps(static_cast<std::size_t>(state.range(0))), attributes(static_cast<std::size_t>(state.range(1))) {}
  ddr_Model Model() const { return bench::ModelOf(steps, attributes, bench::Mix::Uniform); }
  bench::Limit Limit() const { return {steps, attributes, kStates}; }
  std::size_t Bytes() const { return attributes * BytesOfOne(); }
  std::size_t BytesOfOne() const { return steps * sizeof(bench::PlainRecord) + kStates * sizeof(bench::PlainState); }

  static constexpr std::size_t kStates = 8;  // of an attribute of the workload: one per own record and one per stretch that carries it
  std::size_t steps, attributes;
};

using Command = cls_Value::Fields;

/// The commands of a workload.
struct Commands {
  explicit Commands(Size const& of) : size(of), plan(bench::Steps(size.steps, bench::Mix::Uniform), bench::Mix::Uniform) {}

  static Command Valued(Command command, double value) {
    for (char const* component : {"u1", "u2", "u3", "ur1", "ur2", "ur3"}) { command.emplace_back(component, value); }
    command.emplace_back("amplitude", bench::Amplitude().c_str());
    return command;
  }
  static std::string Name(std::size_t attribute) { return "A-" + std::to_string(attribute); }
  static Command Edit(std::size_t attribute, cow_String const& step, double value) {
    return Valued(Command{{"command", "setValuesInStep"}, {"boundaryCondition", Name(attribute)}, {"stepName", step.c_str()}}, value);
  }
  /// What every session begins with beside the steps.
  static std::vector<Command> References() {
    return {Command{{"command", "Amplitude"}, {"name", bench::Amplitude().c_str()}}, Command{{"command", "Set"}, {"name", "Region"}}};
  }
  static Command Insert(std::string const& previous, std::string const& name) {
    return Command{{"command", "StaticStep"}, {"name", name},   {"previous", previous},
                   {"initialInc", 0.1},       {"minInc", 1e-5}, {"maxInc", 1.0}};
  }

  std::vector<Command> Build() const {
    std::vector<Command> commands;
    for (std::size_t a = 0; a < size.attributes; ++a) {
      double value = 1.0;
      commands.push_back(Valued(
          Command{{"command", "DisplacementBC"}, {"name", Name(a)}, {"createStepName", plan.create.c_str()}, {"region", "Region"}}, value));
      for (cow_String const& step : plan.changes) { commands.push_back(Edit(a, step, value += 1.0)); }
      commands.push_back(Command{{"command", "deactivate"}, {"boundaryCondition", Name(a)}, {"stepName", plan.off.c_str()}});
    }
    return commands;
  }
  /// An edit of each attribute.
  std::vector<Command> Edits() const {
    std::vector<Command> commands;
    for (std::size_t a = 0; a < size.attributes; ++a) { commands.push_back(Edit(a, plan.edit, 10.0)); }
    return commands;
  }
  Command Insert() const { return Insert(plan.middle.c_str(), "Inserted"); }

  Size size;
  bench::Plan plan;
};

void Run(benchmark::State& state, gattr::Session& session, cls_Value const& command) {
  gattr::Outcome const outcome = session.Execute(command);
  if (!outcome.ok) { state.SkipWithError(outcome.message.c_str()); }
}
void RunAll(benchmark::State& state, gattr::Session& session, std::vector<Command> const& commands) {
  for (Command const& command : commands) { Run(state, session, command); }
}
/// A session that knows what the commands refer to.
gattr::Session SessionOf(benchmark::State& state, ddr_Model const& model) {
  gattr::Session session(model);
  RunAll(state, session, Commands::References());
  return session;
}

void BuildByCommands(benchmark::State& state) {
  Size const size(state);
  std::vector<Command> const commands = Commands(size).Build();
  ddr_Model const empty = bench::ModelOf(size.steps, 0, bench::Mix::Uniform);
  std::optional<gattr::Session> session;
  double const seconds = bench::Fastest([&] { session.emplace(SessionOf(state, empty)); }, [&] { RunAll(state, *session, commands); });
  bench::Report(state, seconds, size.Limit().Build());
}

void EditByCommand(benchmark::State& state, double bench::OneByOne::*part) {
  Size const size(state);
  ddr_Model const model = size.Model();
  std::vector<Command> const commands = Commands(size).Edits();
  std::optional<gattr::Session> session;
  bool const undone = part == &bench::OneByOne::undo;
  bench::OneByOne const seconds = bench::FastestPasses(
      size.attributes, [&] { session.emplace(SessionOf(state, model)); }, [&](std::size_t a) { Run(state, *session, commands[a]); },
      [&](std::size_t) {
        if (undone) { session->Undo(); }
      });
  bench::Report(state, seconds.*part, size.Limit().Edit().*part);
}

void InsertStepByCommand(benchmark::State& state) {
  Size const size(state);
  gattr::Session session = SessionOf(state, size.Model());
  Command const command = Commands(size).Insert();
  double const before = bench::HeapBytes();
  Run(state, session, command);
  double const heap = bench::HeapBytes() - before;
  double const seconds = bench::Fastest([&] { session.Undo(); }, [&] { Run(state, session, command); });
  bench::Report(state, seconds, size.Limit().Insert());
  state.counters["heap"] = heap;
}
void UndoInsertByCommand(benchmark::State& state) {
  Size const size(state);
  gattr::Session session = SessionOf(state, size.Model());
  Command const command = Commands(size).Insert();
  double const seconds = bench::Fastest([&] { Run(state, session, command); }, [&] { session.Undo(); });
  bench::Report(state, seconds, size.Limit().UndoInsert());
}

/// Steps appended one by one, as many as some seconds allow: per step. The limit is to write a record of each attribute.
void AppendSteps(benchmark::State& state) {
  constexpr std::size_t kSteps = 10000, kBatch = 100;
  constexpr double kEnough = 8.0;
  Size const size(state);
  gattr::Session session = SessionOf(state, size.Model());
  std::vector<Command> commands;
  std::string last = Commands(size).plan.last.c_str();
  for (std::size_t i = 0; i < kSteps; ++i) {
    std::string const name = "Appended-" + std::to_string(i);
    commands.push_back(Commands::Insert(last, name));
    last = name;
  }
  double const heap = bench::HeapBytes();
  double seconds = 0.0;
  std::size_t steps = 0;
  while (steps < kSteps && seconds < kEnough) {
    seconds += bench::Seconds([&] {
      for (std::size_t const end = steps + kBatch; steps < end; ++steps) { Run(state, session, commands[steps]); }
    });
  }
  auto const perStep = [steps](double of) { return of / static_cast<double>(steps); };
  double const used = perStep(bench::HeapBytes() - heap);
  bench::Report(state, perStep(seconds), perStep(bench::Limit(steps, size.attributes, 1).Build()));
  if (size.attributes == 0) { state.counters.erase("limit"); }
  state.counters["appended"] = static_cast<double>(steps);
  state.counters["heap"] = used;
}

/// A journal read and run as `gattr replay` does: nothing is kept of the past.
void Replay(benchmark::State& state) {
  Size const size(state);
  std::string journal;
  std::size_t count = 0;
  for (Command const& command : Commands(size).Build()) {
    journal += gattr::JsonText(command) + '\n';
    ++count;
  }
  ddr_Model const empty = bench::ModelOf(size.steps, 0, bench::Mix::Uniform);
  std::optional<gattr::Session> session;
  auto const begin = [&] {
    session.emplace(SessionOf(state, empty));
    session->ForgetPast();
  };
  double const seconds = bench::Fastest(begin, [&] {
    std::istringstream in(journal);
    gattr::JournalReader reader(in);
    while (auto const command = reader.Next()) { Run(state, *session, *command); }
  });
  bench::Report(state, seconds, size.Limit().Build());
  state.counters["commands"] = static_cast<double>(count);
}

// ---- the undo stack

enum class Kept { Values, Steps, Lists };
/// Edits until the oldest are forgotten, and some more: what the session takes of the system's memory ("taken") where so much is asked for
/// ("asked"), both in MiB, and how many edits can be undone then. The journal, of which nothing is forgotten, is in it.
void UndoMemory(benchmark::State& state, Kept kept) {
  constexpr std::size_t kMost = 1000000, kBatch = 64;
  std::size_t const asked = std::size_t{kept == Kept::Lists ? 64U : 512U} << 20;  // to write lists out as commands takes long
  Size const size(state);
  gattr::Session session = SessionOf(state, size.Model());
  session.SetUndoMemory(asked);
  Commands const commands(size);
  Run(state, session, Command{{"command", "FilmConditionProp"}, {"name", "Film"}, {"temperatureDependency", true}});
  auto const edit = [&](std::size_t i) -> Command {
    if (kept == Kept::Values) { return Commands::Edit(i % size.attributes, commands.plan.edit, 10.0 + static_cast<double>(i)); }
    if (kept == Kept::Steps) { return Commands::Insert(commands.plan.middle.c_str(), "Inserted-" + std::to_string(i)); }
    cls_Value::List rows;
    for (int row = 0; row < 1000; ++row) { rows.push_back(cls_Value::List{1.0 + static_cast<double>(i), static_cast<double>(row)}); }
    return Command{{"command", "setValues"}, {"interactionProperty", "Film"}, {"table", rows}};
  };
  malloc_trim(0);
  double const before = bench::ResidentBytes();
  std::vector<double> taken;  // after each batch
  // it is full when the last quarter of the edits has added little
  auto const isFull = [&] {
    constexpr std::size_t kLeast = 16;
    return taken.size() > kLeast && taken.back() - taken[taken.size() * 3 / 4] < 0.12 * taken.back() &&
           taken.back() > static_cast<double>(asked) / 8.0;
  };
  std::size_t edits = 0;
  double const seconds = bench::Seconds([&] {
    while (edits < kMost && !isFull()) {
      for (std::size_t const end = edits + kBatch; edits < end; ++edits) { Run(state, session, edit(edits)); }
      taken.push_back(bench::ResidentBytes() - before);
    }
  });
  bench::Report(state, seconds / static_cast<double>(edits), 1.0);
  state.counters.erase("limit");
  state.counters["asked"] = static_cast<double>(asked >> 20);
  state.counters["taken"] = taken.back() / (1 << 20);
  std::size_t undone = 0;
  while (session.Undo()) { ++undone; }
  state.counters["edits"] = static_cast<double>(undone);
}

// ---- the model file

std::filesystem::path Scratch(char const* name) { return std::filesystem::temp_directory_path() / name; }

constexpr int kFileRounds = 5;
template <class Before, class Work> double FastestOnFile(Before&& before, Work&& work) {
  double best = 1e300;
  for (int i = 0; i < kFileRounds; ++i) {
    before();
    best = std::min(best, bench::Seconds(work));
  }
  return best;
}
double SecondsToWrite(std::size_t bytes) {
  std::vector<char> const content(bytes, 'x');
  std::filesystem::path const path = Scratch("gattr-limit.bin");
  auto const write = [&] { std::ofstream(path, std::ios::binary).write(content.data(), static_cast<long>(bytes)); };
  double const seconds = FastestOnFile([] {}, write);
  std::filesystem::remove(path);
  return seconds;
}
double SecondsToRead(std::size_t bytes) {
  std::vector<char> content(bytes, 'x');
  std::filesystem::path const path = Scratch("gattr-limit.bin");
  std::ofstream(path, std::ios::binary).write(content.data(), static_cast<long>(bytes));
  auto const read = [&] { std::ifstream(path, std::ios::binary).read(content.data(), static_cast<long>(bytes)); };
  double const seconds = FastestOnFile([] {}, read);
  std::filesystem::remove(path);
  return seconds;
}

void FirstSave(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = size.Model();
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  double const seconds = FastestOnFile([&] { std::filesystem::remove(path); }, [&] { gattr::ModelFile(path).Save(model); });
  bench::Report(state, seconds, SecondsToWrite(size.Bytes()));
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
  std::filesystem::remove(path);
}
void Open(benchmark::State& state) {
  Size const size(state);
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  std::filesystem::remove(path);
  gattr::ModelFile(path).Save(size.Model());
  double const seconds = FastestOnFile([] {}, [&] { benchmark::DoNotOptimize(gattr::ModelFile(path).Open()); });
  bench::Report(state, seconds, SecondsToRead(size.Bytes()));
  std::filesystem::remove(path);
}
void SaveAfterOneEdit(benchmark::State& state) {
  Size const size(state);
  std::filesystem::path const path = Scratch("gattr-bench.gadb");
  std::filesystem::remove(path);
  gattr::Session session = SessionOf(state, size.Model());
  gattr::ModelFile file(path);
  file.Save(session.Model());
  Commands const commands(size);
  double value = 10.0;
  double const seconds = FastestOnFile([&] { Run(state, session, Commands::Edit(size.attributes / 2, commands.plan.edit, value += 1.0)); },
                                       [&] { file.Save(session.Model()); });
  bench::Report(state, seconds, SecondsToWrite(size.BytesOfOne()));
  std::filesystem::remove(path);
}

// ---- the text form

void DumpText(benchmark::State& state) {
  Size const size(state);
  ddr_Model const model = size.Model();
  std::filesystem::path const path = Scratch("gattr-bench.gattr.json");
  double const seconds = FastestOnFile([] {}, [&] { gattr::WriteTextFile(model, path); });
  bench::Report(state, seconds, SecondsToWrite(size.Bytes()));
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
  std::filesystem::remove(path);
}
void LoadText(benchmark::State& state) {
  Size const size(state);
  std::filesystem::path const path = Scratch("gattr-bench.gattr.json");
  gattr::WriteTextFile(size.Model(), path);
  double const seconds = FastestOnFile([] {}, [&] { benchmark::DoNotOptimize(gattr::ReadTextFile(path)); });
  bench::Report(state, seconds, SecondsToRead(size.Bytes()));
  std::filesystem::remove(path);
}

void Series(benchmark::internal::Benchmark* b) {
  b->ArgNames({"steps", "attributes"})->Unit(benchmark::kMicrosecond)->UseManualTime()->Iterations(1);
}
void Sizes(benchmark::internal::Benchmark* b) {
  Series(b);
  for (long const attributes : {10000, 1000, 100}) { b->Args({100, attributes}); }
  for (long const steps : {10, 1000, 10000}) { b->Args({steps, 100}); }
}
BENCHMARK(BuildByCommands)->Apply(Sizes);
BENCHMARK_CAPTURE(EditByCommand, edit, &bench::OneByOne::work)->Apply(Sizes);
BENCHMARK_CAPTURE(EditByCommand, undo, &bench::OneByOne::undo)->Apply(Sizes);
BENCHMARK(InsertStepByCommand)->Apply(Sizes);
BENCHMARK(UndoInsertByCommand)->Apply(Sizes);
BENCHMARK(AppendSteps)->Apply(Series)->Args({10, 0})->Args({10, 1000});
BENCHMARK(Replay)->Apply(Series)->Args({100, 25000});
BENCHMARK_CAPTURE(UndoMemory, values, Kept::Values)->Apply(Series)->Args({100, 10000});
BENCHMARK_CAPTURE(UndoMemory, steps, Kept::Steps)->Apply(Series)->Args({100, 10000})->Args({100, 100});
BENCHMARK_CAPTURE(UndoMemory, lists, Kept::Lists)->Apply(Series)->Args({100, 100});
BENCHMARK(FirstSave)->Apply(Sizes);
BENCHMARK(Open)->Apply(Sizes);
BENCHMARK(SaveAfterOneEdit)->Apply(Sizes);
BENCHMARK(DumpText)->Apply(Sizes);
BENCHMARK(LoadText)->Apply(Sizes);

}  // namespace
