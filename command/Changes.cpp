#include "command/Changes.h"

#include <algorithm>
#include <utility>

#include "command/Command.h"
#include "module/kpr/model/kprC_ModelSteps.h"

namespace gattr {

namespace {

/// Finds what has changed, kind by kind.
class Comparison {
public:
  Comparison(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames)
      : before_(before), now_(now), renames_(renames) {}

  std::vector<ObjectChange> Run() {
    if (before_.Name() != now_.Name() || before_.Space() != now_.Space()) { Add(ChangeKind::Changed, "model", now_.Name()); }
    CompareSteps();
    ForEachExtension([&](cow_String const& member, mdl_Extension const& was, mdl_Extension const& is) {
      if (auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(&is)) {
        CompareAttributes(*mdl_ExtensionAs<kprC_StepAwareRepository>(&was), *repository);
      } else if (auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(&is)) {
        CompareNamed(member, *mdl_ExtensionAs<mdl_NamedObjects>(&was), *named);
      }
    });
    return std::move(changes_);
  }

  std::vector<StatusChange> Statuses() const {
    std::vector<StatusChange> changes;
    std::vector<StepPair> const steps = AlignedSteps();
    ForEachExtension([&](cow_String const&, mdl_Extension const& was, mdl_Extension const& is) {
      auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(&is);
      if (repository == nullptr) { return; }
      ForEachPair(repository->ItemCmd(), was, is, FindItem,
                  [&](std::string const&, kprC_StepDependent const* old, cow_String const& name, kprC_StepDependent const* item) {
                    AppendStatuses(changes, StatusChange{std::string(repository->ItemCmd()), std::string(name.View()), {}, {}, {}, {}}, old,
                                   item, steps);
                  });
    });
    return changes;
  }

private:
  /// Calls \p visit(member, was, is) for the extensions that are not the very same.
  template <class Visit> void ForEachExtension(Visit&& visit) const {
    for (auto const& [member, extension] : now_.Extensions()) {
      mdl_Extension const *const was = before_.ConstExtension(member), *const is = extension.ConstGet();
      if (was != is && was != nullptr) { visit(member, *was, *is); }
    }
  }
  ObjectChange& Add(ChangeKind change, std::string_view kind, cow_String const& name) {
    return changes_.emplace_back(ObjectChange{change, std::string(kind), std::string(name.View())});
  }
  /// What an object of today was called before.
  std::string NameBefore(std::string_view kind, std::string_view name) const {
    std::string before(name);
    for (std::size_t i = renames_.size(); i-- > 0;) {
      Rename const& rename = renames_[i];
      if (rename.kind == kind && rename.to == before) { before = rename.from; }
    }
    return before;
  }
  std::string NameNow(std::string_view kind, std::string_view name) const {
    std::string now(name);
    for (Rename const& rename : renames_) {
      if (rename.kind == kind && rename.from == now) { now = rename.to; }
    }
    return now;
  }

  void CompareSteps() {
    std::string_view const kind = kprC_Step::stepCmd();
    kprC_StepContainer const &was = kprC_Steps(before_), &is = kprC_Steps(now_);
    if (was.Table().Same(is.Table())) { return; }
    for (std::size_t i = 0; i < is.Size(); ++i) {
      std::string const before = NameBefore(kind, is.Name(i).View());
      kprC_Step const* const step = was.Find(before);
      if (step == nullptr) {
        Add(ChangeKind::Created, kind, is.Name(i));
      } else {
        AddCompared(kind, before, is.Name(i), step == &is.Step(i) || step->Equals(is.Step(i)));
      }
    }
    for (std::size_t i = 0; i < was.Size(); ++i) {
      if (!is.IsMember(NameNow(kind, was.Name(i).View()))) { Add(ChangeKind::Deleted, kind, was.Name(i)); }
    }
  }

  /// Of an object that was there and is. Null where there is nothing to tell.
  ObjectChange* AddCompared(std::string_view kind, std::string const& before, cow_String const& name, bool isSame) {
    if (before != name.View()) {
      ObjectChange& change = Add(ChangeKind::Renamed, kind, name);
      change.before = before;
      return &change;
    }
    return isSame ? nullptr : &Add(ChangeKind::Changed, kind, name);
  }

  /// Calls \p visit(name before, was, name, is) for the pairs of objects that are not the very same; null is what is not there.
  template <class Find, class Visit>
  void ForEachPair(std::string_view kind, mdl_Extension const& was, mdl_Extension const& is, Find&& find, Visit&& visit) const {
    is.ForEachChange(was, [&](cow_String const& name, cls_Object const* object) {
      if (object != nullptr) {
        std::string const before = NameBefore(kind, name.View());
        return visit(before, find(was, before), name, find(is, name.View()));
      }
      if (auto const* const now = find(is, NameNow(kind, name.View())); now == nullptr) {
        visit(std::string(name.View()), find(was, name.View()), name, now);
      }
    });
  }
  /// Tells of an object that came or went; false where it did neither.
  bool AddOneSided(std::string_view kind, cow_String const& name, void const* was, void const* is) {
    if (was != nullptr && is != nullptr) { return false; }
    Add(is == nullptr ? ChangeKind::Deleted : ChangeKind::Created, kind, name);
    return true;
  }

  void CompareNamed(cow_String const& member, mdl_NamedObjects const& was, mdl_NamedObjects const& is) {
    auto const kind = std::ranges::find(ReferenceKinds(), member.View(), &ReferenceKind::extension);
    if (kind == ReferenceKinds().end()) { return; }
    ForEachPair(
        kind->kind, was, is,
        [](mdl_Extension const& in, std::string_view name) { return static_cast<mdl_NamedObjects const&>(in).ConstObject(name); },
        [&](std::string const& before, cls_Object const* old, cow_String const& name, cls_Object const* object) {
          if (!AddOneSided(kind->kind, name, old, object)) { AddCompared(kind->kind, before, name, old->Equals(*object)); }
        });
  }

  static kprC_StepDependent const* FindItem(mdl_Extension const& in, std::string_view name) {
    return static_cast<kprC_StepAwareRepository const&>(in).ConstItem(name);
  }
  void CompareAttributes(kprC_StepAwareRepository const& was, kprC_StepAwareRepository const& is) {
    std::string_view const kind = is.ItemCmd();
    ForEachPair(kind, was, is, FindItem,
                [&](std::string const& before, kprC_StepDependent const* old, cow_String const& name, kprC_StepDependent const* item) {
                  if (AddOneSided(kind, name, old, item)) { return; }
                  std::vector<std::string> steps = Differing(SaidBy(*old), SaidBy(*item));
                  bool const isSame = old->Steps().Same(item->Steps()) ? old->Equals(*item) : steps.empty() && OwnEqual(*old, *item);
                  if (ObjectChange* const change = AddCompared(kind, before, name, isSame)) { change->steps = std::move(steps); }
                });
  }

  /// The positions of a step before and now; nothing where it is not there.
  struct StepPair {
    std::optional<std::size_t> before, now;
    cow_String name;
  };
  /// All steps in their order, those that went where they stood.
  std::vector<StepPair> AlignedSteps() const {
    std::string_view const kind = kprC_Step::stepCmd();
    kprC_StepContainer const &was = kprC_Steps(before_), &is = kprC_Steps(now_);
    std::vector<StepPair> pairs;
    std::size_t next = 0;
    auto const addGone = [&](std::size_t end) {
      for (; next < end; ++next) {
        if (!is.IsMember(NameNow(kind, was.Name(next).View()))) { pairs.push_back({next, std::nullopt, was.Name(next)}); }
      }
    };
    for (std::size_t i = 0; i < is.Size(); ++i) {
      std::size_t const before = was.Table().Find(NameBefore(kind, is.Name(i).View()));
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

  /// Whether what is not of a step is the same.
  static bool OwnEqual(kprC_StepDependent const& a, kprC_StepDependent const& b) {
    if (a.IsSuppressed() != b.IsSuppressed() || a.DynTypeId() != b.DynTypeId()) { return false; }
    return std::ranges::all_of(a.MemberRows(),
                               [&](cls_MemberRow const& row) { return !row.text.settable || row.ops->equal(row.In(&a), row.In(&b)); });
  }

  /// What an attribute says of its own in a step.
  struct Said {
    cow_String step;
    mdl_PropagationStatusEnm status;
    cls_Object const* state;
  };
  static std::vector<Said> SaidBy(kprC_StepDependent const& item) {
    std::vector<Said> said;
    item.ForEachRun([&](std::size_t begin, std::size_t /*end*/, mdl_PropagationStatusEnm status, cls_Object const* state) {
      if (kprC_StepAwareRepository::SaysSomething(item, begin)) { said.push_back({item.Steps().Name(begin), status, state}); }
    });
    return said;
  }
  std::vector<std::string> Differing(std::vector<Said> const& was, std::vector<Said> const& is) const {
    std::string_view const kind = kprC_Step::stepCmd();
    std::vector<std::string> steps;
    auto const find = [](std::vector<Said> const& in, std::string_view step) {
      return std::ranges::find(in, step, [](Said const& said) { return said.step.View(); });
    };
    for (Said const& said : is) {
      auto const old = find(was, NameBefore(kind, said.step.View()));
      bool const same = old != was.end() && old->status == said.status &&
                        (old->state == said.state || (old->state != nullptr && said.state != nullptr && old->state->Equals(*said.state)));
      if (!same) { steps.emplace_back(said.step.View()); }
    }
    for (Said const& said : was) {
      std::string now = NameNow(kind, said.step.View());
      if (find(is, now) == is.end()) { steps.push_back(std::move(now)); }
    }
    return steps;
  }

  ddr_Model const &before_, &now_;
  std::span<Rename const> renames_;
  std::vector<ObjectChange> changes_;
};

}  // namespace

std::string_view ChangeText(ChangeKind change) {
  constexpr std::string_view kTexts[] = {"created", "changed", "renamed", "deleted"};
  return kTexts[static_cast<std::size_t>(change)];
}

std::vector<ObjectChange> ChangesBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) {
  return Comparison(before, now, renames).Run();
}

Effects EffectsBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) {
  Comparison comparison(before, now, renames);
  return {comparison.Run(), comparison.Statuses()};
}

}  // namespace gattr
