#pragma once

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "module/DDB_GeometricAttributes.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kin/kinC_ContactPairs.h"
#include "module/klo/kloC_ConcentratedLoads.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"

/// The models that the benchmarks work on, the limit that they are measured against, and how both are timed.
namespace bench {

// ---- the models

/// What a model is made of.
enum class Mix {
  Uniform,      ///< conditions over general steps only
  Alternating,  ///< a perturbation step after every general one: no two neighbouring records are alike
  Families,     ///< general steps; a third each conditions, loads and interactions
  Dense,        ///< conditions that say something of their own in every general step
};

inline kprC_StepHandle StaticStep() {
  auto step = cow_Handle<kprC_StaticStep>::Make();
  step.Get().initialInc = 0.1;
  step.Get().minInc = 1e-5;
  step.Get().maxInc = 1.0;
  return step;
}

/// A sequence of \p count steps, the initial one included.
inline kprC_StepContainer Steps(std::size_t count, Mix mix) {
  std::vector<kprC_StepContainer::NamedStep> steps;
  for (std::size_t i = 1; i < count; ++i) {
    kprC_StepHandle step = StaticStep();
    if (mix == Mix::Alternating && i % 2 == 0) { step = cow_Handle<kprC_StaticLinearPerturbationStep>::Make(); }
    steps.push_back({cow_String("Step-" + std::to_string(i)), step});
  }
  kprC_StepContainer made;
  made.Insert("Initial", steps);
  return made;
}

/// Names made beforehand: no benchmark is about making texts.
inline std::vector<cow_String> Names(std::size_t attributes) {
  std::vector<cow_String> names;
  names.reserve(attributes);
  for (std::size_t a = 0; a < attributes; ++a) { names.emplace_back("A-" + std::to_string(a)); }
  return names;
}
inline cow_String const& Amplitude() {
  static cow_String const name("Amplitude");
  return name;
}

/// Where an attribute says something: it is created in step 2, changed in S/4 and S/2 and switched off in 3S/4; a dense one is
/// created in step 1 and changed in every other.
struct Plan {
  Plan(kprC_StepContainer const& steps, Mix mix) {
    std::size_t const size = steps.Size();
    // every second step of alternating ones is a general one
    auto const name = [&](std::size_t index) { return steps.Name(mix == Mix::Alternating ? index | 1U : index); };
    edit = name(size / 3);
    middle = name(size / 2);
    last = steps.Name(size - 1);
    if (mix == Mix::Dense) {
      create = name(1);
      for (std::size_t i = 2; i < size; ++i) { changes.push_back(name(i)); }
    } else {
      create = name(2);
      changes = {name(std::max<std::size_t>(size / 4, 3)), name(size / 2)};
      off = name(3 * size / 4);
    }
  }

  cow_String create;
  std::vector<cow_String> changes;
  cow_String off;   // empty: it stays on
  cow_String edit;  // where the benchmarks edit
  cow_String middle, last;
};

/// What the benchmarks need to know of a family.
struct Conditions {
  using Base = kbcC_BC;
  using Type = kbcC_DisplacementBC;
  using State = kbcC_DisplacementBCState;
  static auto& In(ddr_Model& model) { return model.Get<kprC_PropagatingContainer<Base>>(ddr_Model::bcCmd()); }
  static State Values(double value) {
    State state;
    state.u1 = state.u2 = state.u3 = value;
    state.ur1 = state.ur2 = state.ur3 = value;
    state.amplitude = Amplitude();
    return state;
  }
  static double Value(State const& state) { return state.u1.ConstGet(); }
};
struct Loads {
  using Base = kloC_Load;
  using Type = kloC_ConcentratedForce;
  using State = kloC_ConcentratedForceState;
  static auto& In(ddr_Model& model) { return model.Get<kprC_PropagatingContainer<Base>>(kloC_Load::loadRepositoryCmd()); }
  static State Values(double value) {
    State state;
    state.c1 = state.c2 = state.c3 = value;
    state.amplitude = Amplitude();
    return state;
  }
  static double Value(State const& state) { return state.c1.ConstGet(); }
};
struct Interactions {
  using Base = kinC_Interaction;
  using Type = kinC_SurfaceToSurfaceContactStd;
  using State = kinC_SurfaceToSurfaceContactStdState;
  static auto& In(ddr_Model& model) { return model.Get<kprC_PropagatingContainer<Base>>(kinC_Interaction::interactionRepositoryCmd()); }
  /// The property of that number.
  static State Values(double value) {
    static std::vector<cow_String> const properties = [] {
      std::vector<cow_String> made;
      for (int i = 0; i < 32; ++i) { made.emplace_back("Property-" + std::to_string(i)); }
      return made;
    }();
    State state;
    state.interactionProperty = properties[static_cast<std::size_t>(value) % properties.size()];
    return state;
  }
  static double Value(State const& state) { return static_cast<double>(state.interactionProperty.ConstGet().Size()); }
};
template <class Family> using Repository = kprC_PropagatingContainer<typename Family::Base>;

/// Calls \p fn with the family of an attribute.
template <class Fn> void InFamily(std::size_t attribute, Mix mix, Fn&& fn) {
  switch (mix == Mix::Families ? attribute % 3 : 0) {
    case 1: return fn(Loads());
    case 2: return fn(Interactions());
    default: return fn(Conditions());
  }
}

/// One edit of one attribute with its record.
template <class Family> void Edit(Repository<Family>& repository, cow_String const& step, cow_String const& name, double value) {
  auto& attribute = repository.Get(name);
  attribute.Insert(step, Family::Values(value));
  repository.RecordModify(attribute);
}
template <class Family> void Add(Repository<Family>& repository, Plan const& plan, cow_String const& name) {
  typename Family::Type attribute;
  double value = 1.0;
  attribute.Insert(plan.create, Family::Values(value));
  repository.Insert(name, attribute);
  for (cow_String const& step : plan.changes) { Edit<Family>(repository, step, name, value += 1.0); }
  if (plan.off.IsEmpty()) { return; }
  auto& added = repository.Get(name);
  added.Deactivate(plan.off);
  repository.RecordModify(added);
}
/// \p of is asked for the repository of each family.
template <class Of> void AddAll(Of&& of, Plan const& plan, std::vector<cow_String> const& names, Mix mix) {
  for (std::size_t a = 0; a < names.size(); ++a) {
    InFamily(a, mix, [&]<class Family>(Family family) { Add<Family>(of(family), plan, names[a]); });
  }
}

/// The repositories of a model, by themselves.
struct Repositories {
  void UpdateSteps(kprC_StepTable const& steps) {
    conditions.UpdateSteps(steps);
    if (mix != Mix::Families) { return; }
    loads.UpdateSteps(steps);
    interactions.UpdateSteps(steps);
  }
  auto& Of(Conditions) { return conditions; }
  auto& Of(Loads) { return loads; }
  auto& Of(Interactions) { return interactions; }

  Mix mix;
  Repository<Conditions> conditions = {};
  Repository<Loads> loads = {};
  Repository<Interactions> interactions = {};
};
inline void AddAll(Repositories& repositories, Plan const& plan, std::vector<cow_String> const& names) {
  AddAll(
      [&](auto family) -> auto& { return repositories.Of(family); }, plan, names, repositories.mix);
}
inline Repositories EmptyOver(kprC_StepContainer const& steps, Mix mix) {
  Repositories made{.mix = mix};
  made.UpdateSteps(steps.Table());
  return made;
}

inline ddr_Model ModelOf(std::size_t steps, std::size_t attributes, Mix mix) {
  ddr_Model model;
  kprC_StepContainer& held = model.Get<kprC_StepContainer>(ddr_Model::stepsCmd());
  held = Steps(steps, mix);
  Plan const plan(held, mix);
  kprC_UpdateRepositories(model);
  AddAll(
      [&](auto family) -> auto& { return family.In(model); }, plan, Names(attributes), mix);
  return model;
}

/// The states that an attribute holds as told record by record: an object each.
inline std::size_t StatesOf(kprC_StepDependent const& attribute) {
  std::set<cls_Object const*> states;
  for (std::size_t i = 0; i < attribute.Steps().Size(); ++i) { states.insert(attribute.StateAt(i)); }
  states.erase(nullptr);
  return states.size();
}

// ---- the clock

inline constexpr int kRounds = 12;

template <class Work> double Seconds(Work&& work) {
  auto const start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
/// Seconds of the fastest of the rounds; \p before each, which does not count.
template <class Before, class Work> double Fastest(Before&& before, Work&& work) {
  double best = 1e300;
  for (int i = 0; i < kRounds; ++i) {
    before();
    best = std::min(best, Seconds(work));
  }
  return best;
}

/// All attributes in an order that is random and always the same.
inline std::vector<std::size_t> Shuffled(std::size_t attributes) {
  std::vector<std::size_t> order(attributes);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), std::mt19937(1));
  return order;
}

/// What work on one attribute takes, and what undoing it right after: medians of the fastest pass over all.
struct OneByOne {
  double work = 1e300, undo = 1e300;
};
/// \p before each pass, which does not count.
template <class Before, class Work, class Undo> OneByOne FastestPasses(std::size_t attributes, Before&& before, Work&& work, Undo&& undo) {
  std::vector<std::size_t> const order = Shuffled(attributes);
  double clock = 1e300;
  for (int i = 0; i < 1000; ++i) {
    clock = std::min(clock, Seconds([] {}));
  }
  std::vector<double> works(attributes), undos(attributes);
  auto const median = [clock](std::vector<double>& of) {
    auto const middle = of.begin() + static_cast<std::ptrdiff_t>(of.size() / 2);
    std::nth_element(of.begin(), middle, of.end());
    return std::max(*middle - clock, 1e-10);
  };
  OneByOne best, bestSums;
  for (int round = 0; round < kRounds; ++round) {
    before();
    for (std::size_t i = 0; i < attributes; ++i) {
      works[i] = Seconds([&] { work(order[i]); });
      undos[i] = Seconds([&] { undo(order[i]); });
    }
    double const sumOfWorks = std::accumulate(works.begin(), works.end(), 0.0);
    double const sumOfUndos = std::accumulate(undos.begin(), undos.end(), 0.0);
    if (sumOfWorks < bestSums.work) { bestSums.work = sumOfWorks, best.work = median(works); }
    if (sumOfUndos < bestSums.undo) { bestSums.undo = sumOfUndos, best.undo = median(undos); }
  }
  return best;
}

/// Hands the benchmark what it took; the counter "limit" is its time over that of the limit.
inline void Report(benchmark::State& state, double seconds, double limit) {
  for (auto _ : state) { state.SetIterationTime(seconds); }
  state.counters["limit"] = seconds / limit;
}

/// Bytes in use on the heap.
inline double HeapBytes() {
  auto const info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Bytes of memory that the system has given the program.
inline double ResidentBytes() {
  std::ifstream in("/proc/self/statm");
  std::size_t pages = 0, resident = 0;
  in >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// ---- the limit

struct PlainState {
  double components[6];
  std::uint64_t amplitude, flags;
};
struct PlainRecord {
  std::uint64_t step, procedure;
  PlainState const* state;
  std::uint64_t uid;
  std::uint32_t status, flags;
};
struct PlainChange {
  std::uint64_t name, kind;
};
static_assert(sizeof(PlainState) == 64 && sizeof(PlainRecord) == 40 && sizeof(PlainChange) == 16);

/// What the work costs where nothing is computed: the same records as plain structs in one array, the states beside them.
/// All memory has been touched before, which is the strict way to measure it.
class Limit {
public:
  Limit(std::size_t steps, std::size_t attributes, std::size_t states)
      : steps_(steps), attributes_(attributes), each_(states), records_(steps * attributes), states_(states * attributes) {
    WriteAll();
  }

  /// Every record and every state is written, member by member.
  double Build() {
    return Fastest([] {}, [this] { WriteAll(); });
  }
  /// Every record is moved into an array that has room for the step, with a record of the change for each attribute.
  double Insert() { return MoveAll(records_, longer_, steps_, steps_ + 1); }
  double UndoInsert() { return MoveAll(longer_, records_, steps_ + 1, steps_); }
  /// The records and the states of one attribute are copied, and back.
  OneByOne Edit() {
    std::vector<PlainRecord> records(steps_);
    std::vector<PlainState> states(each_);
    auto const copy = [this](auto* to, auto const* from, std::size_t count) {
      std::memcpy(to, from, count * sizeof(*from));
      Touched(to);
    };
    return FastestPasses(
        attributes_, [] {},
        [&](std::size_t a) {
          copy(records.data(), &records_[a * steps_], steps_);
          copy(states.data(), &states_[a * each_], each_);
        },
        [&](std::size_t a) {
          copy(&records_[a * steps_], records.data(), steps_);
          copy(&states_[a * each_], states.data(), each_);
        });
  }
  /// Every record is read: its status, and a value of its state.
  double Read() {
    return Fastest([] {},
                   [this] {
                     std::uint64_t statuses = 0;
                     double values = 0.0;
                     for (PlainRecord const& record : records_) {
                       statuses += record.status;
                       if (record.state != nullptr) { values += record.state->components[0]; }
                     }
                     benchmark::DoNotOptimize(statuses);
                     benchmark::DoNotOptimize(values);
                   });
  }

private:
  static void Touched(void const* memory) { asm volatile("" : : "r"(memory) : "memory"); }

  void WriteAll() {
    PlainRecord* record = records_.data();
    PlainState* state = states_.data();
    for (std::size_t a = 0; a < attributes_; ++a) {
      // the first stretch of records comes before the creation
      for (std::size_t stretch = 0; stretch <= each_; ++stretch) {
        PlainState const* shared = nullptr;
        if (stretch > 0) {
          for (double& component : state->components) { component = static_cast<double>(stretch); }
          state->amplitude = a;
          state->flags = stretch;
          shared = state++;
        }
        std::size_t const begin = steps_ * stretch / (each_ + 1), end = steps_ * (stretch + 1) / (each_ + 1);
        for (std::size_t i = begin; i < end; ++i) {
          *record++ = {.step = i, .procedure = i, .state = shared, .uid = a, .status = static_cast<std::uint32_t>(stretch), .flags = 0};
        }
      }
    }
    Touched(records_.data());
    Touched(states_.data());
  }

  double MoveAll(std::vector<PlainRecord> const& from, std::vector<PlainRecord>& to, std::size_t size, std::size_t newSize) {
    longer_.resize((steps_ + 1) * attributes_);
    std::vector<PlainChange> changes(attributes_);
    std::size_t const middle = steps_ / 2, rest = std::min(size, newSize) - middle;
    return Fastest([] {},
                   [&] {
                     for (std::size_t a = 0; a < attributes_; ++a) {
                       PlainRecord const* const old = &from[a * size];
                       PlainRecord* const now = &to[a * newSize];
                       std::copy_n(old, middle, now);
                       if (newSize > size) { now[middle] = old[middle - 1]; }
                       std::copy_n(old + size - rest, rest, now + newSize - rest);
                       if (newSize > size) { changes[a] = {a, 1}; }
                     }
                     Touched(to.data());
                     Touched(changes.data());
                   });
  }

  std::size_t steps_, attributes_, each_;
  std::vector<PlainRecord> records_, longer_;
  std::vector<PlainState> states_;
};

/// Starts the library for the program's life.
struct Library {
  Library() { DDB_GeometricAttributes_initialize(count); }
  int count = 0;
};

}  // namespace bench
