#include "command/Changes.h"

#include <utility>

#include "command/Command.h"
#include "command/Difference.h"
#include "command/ModelPair.h"
#include "module/kpr/model/kprC_ModelSteps.h"

namespace gattr {

namespace {

/// Finds which attributes do something else than before, and in which steps.
class StatusComparison {
public:
  StatusComparison(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) : pair_(before, now, renames) {}

  std::vector<StatusChange> Run() const {
    std::vector<StatusChange> changes;
    std::vector<StepPair> const steps = AlignedSteps();
    auto const find = [](mdl_Extension const& in, std::string_view name) {
      return static_cast<kprC_StepAwareRepository const&>(in).ConstItem(name);
    };
    pair_.ForEachExtension([&](cow_String const&, mdl_Extension const& was, mdl_Extension const& is) {
      auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(&is);
      if (repository == nullptr) { return; }
      std::string const kind(repository->ItemCmd());
      pair_.ForEachPair(kind, was, is, find, [&](kprC_StepDependent const* old, cow_String const& name, kprC_StepDependent const* item) {
        AppendStatuses(changes, StatusChange{kind, std::string(name.View()), {}, {}, {}, {}}, old, item, steps);
      });
    });
    return changes;
  }

private:
  /// The positions of a step before and now; nothing where it is not there.
  struct StepPair {
    std::optional<std::size_t> before, now;
    cow_String name;
  };
  /// All steps in their order, those that went where they stood.
  std::vector<StepPair> AlignedSteps() const {
    std::string_view const kind = kprC_Step::stepCmd();
    kprC_StepContainer const &was = kprC_Steps(pair_.Before()), &is = kprC_Steps(pair_.Now());
    std::vector<StepPair> pairs;
    std::size_t next = 0;
    auto const addGone = [&](std::size_t end) {
      for (; next < end; ++next) {
        if (!is.IsMember(pair_.KeyNow(kind, was.Name(next).View()))) { pairs.push_back({next, std::nullopt, was.Name(next)}); }
      }
    };
    for (std::size_t i = 0; i < is.Size(); ++i) {
      std::size_t const before = was.Table().Find(pair_.KeyBefore(kind, is.Name(i).View()));
      bool const isNew = before >= was.Size();
      if (!isNew) { addGone(before); }
      pairs.push_back({isNew ? std::nullopt : std::optional(before), i, is.Name(i)});
    }
    addGone(was.Size());
    return pairs;
  }
  static void AppendStatuses(std::vector<StatusChange>& changes, StatusChange const& of, kprC_StepDependent const* was,
                             kprC_StepDependent const* is, std::vector<StepPair> const& steps) {
    constexpr auto kNotYet = mdl_PropagationStatusEnm::NotYetCreated;
    auto const before = was == nullptr ? cow_List<mdl_PropagationStatusEnm>() : was->History();
    auto const after = is == nullptr ? cow_List<mdl_PropagationStatusEnm>() : is->History();
    auto const at = [&](auto const& statuses, std::optional<std::size_t> index) {
      return !index ? std::nullopt : std::optional(statuses.IsEmpty() ? kNotYet : statuses[*index]);
    };
    bool goesOn = false;
    for (StepPair const& step : steps) {
      auto const old = at(before, step.before), now = at(after, step.now);
      if (old.value_or(kNotYet) == now.value_or(kNotYet)) {  // a step alone that comes before the creation is no change
        goesOn = false;
        continue;
      }
      if (!goesOn || changes.back().before != old || changes.back().after != now) {
        StatusChange& change = changes.emplace_back(of);
        change.firstStep = step.name.View();
        change.before = old;
        change.after = now;
      }
      changes.back().lastStep = step.name.View();
      goesOn = true;
    }
  }

  ModelPair pair_;
};

}  // namespace

std::string_view ChangeText(ChangeKind change) {
  constexpr std::string_view kTexts[] = {"created", "changed", "renamed", "deleted"};
  return kTexts[static_cast<std::size_t>(change)];
}

std::vector<ObjectChange> ChangesBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) {
  std::vector<ObjectChange> changes;
  for (ObjectDifference& one : Compare(before, now, renames, Depth::Steps)) {
    ObjectChange change{one.change, std::move(one.kind), std::move(one.name), std::move(one.before)};
    if (one.change != ChangeKind::Created && one.change != ChangeKind::Deleted) {
      for (RecordDifference& record : one.records) { change.steps.push_back(std::move(record.step)); }
    }
    changes.push_back(std::move(change));
  }
  return changes;
}

Effects EffectsBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) {
  return {ChangesBetween(before, now, renames), StatusComparison(before, now, renames).Run()};
}

}  // namespace gattr
