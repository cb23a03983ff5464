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
    for (auto const& [member, extension] : now_.Extensions()) {
      mdl_Extension const *const was = before_.ConstExtension(member), *const is = extension.ConstGet();
      if (was == is || was == nullptr) { continue; }
      if (auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(is)) {
        CompareAttributes(*mdl_ExtensionAs<kprC_StepAwareRepository>(was), *repository);
      } else if (auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(is)) {
        CompareNamed(member, *mdl_ExtensionAs<mdl_NamedObjects>(was), *named);
      }
    }
    return std::move(changes_);
  }

private:
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

  /// Calls \p compare(name before, was, name, is) for the pairs of objects that are not the very same, and tells of the others.
  template <class Find, class Compare>
  void ForEachPair(std::string_view kind, mdl_Extension const& was, mdl_Extension const& is, Find&& find, Compare&& compare) {
    is.ForEachChange(was, [&](cow_String const& name, cls_Object const* object) {
      if (object == nullptr) {
        if (find(is, NameNow(kind, name.View())) == nullptr) { Add(ChangeKind::Deleted, kind, name); }
        return;
      }
      std::string const before = NameBefore(kind, name.View());
      auto const* const old = find(was, before);
      old == nullptr ? void(Add(ChangeKind::Created, kind, name)) : compare(before, *old, name, *find(is, name.View()));
    });
  }

  void CompareNamed(cow_String const& member, mdl_NamedObjects const& was, mdl_NamedObjects const& is) {
    auto const kind = std::ranges::find(ReferenceKinds(), member.View(), &ReferenceKind::extension);
    if (kind == ReferenceKinds().end()) { return; }
    ForEachPair(
        kind->kind, was, is,
        [](mdl_Extension const& in, std::string_view name) { return static_cast<mdl_NamedObjects const&>(in).ConstObject(name); },
        [&](std::string const& before, cls_Object const& old, cow_String const& name, cls_Object const& object) {
          AddCompared(kind->kind, before, name, old.Equals(object));
        });
  }

  void CompareAttributes(kprC_StepAwareRepository const& was, kprC_StepAwareRepository const& is) {
    std::string_view const kind = is.ItemCmd();
    ForEachPair(
        kind, was, is,
        [](mdl_Extension const& in, std::string_view name) { return static_cast<kprC_StepAwareRepository const&>(in).ConstItem(name); },
        [&](std::string const& before, kprC_StepDependent const& old, cow_String const& name, kprC_StepDependent const& item) {
          std::vector<std::string> steps = Differing(SaidBy(old), SaidBy(item));
          bool const isSame = old.Steps().Same(item.Steps()) ? old.Equals(item) : steps.empty() && OwnEqual(old, item);
          if (ObjectChange* const change = AddCompared(kind, before, name, isSame)) { change->steps = std::move(steps); }
        });
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

std::vector<ObjectChange> ChangesBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames) {
  return Comparison(before, now, renames).Run();
}

}  // namespace gattr
