#include "command/InForce.h"

#include <algorithm>
#include <set>

#include "command/Command.h"
#include "module/kpr/model/kprC_ModelSteps.h"

namespace gattr {

std::string_view InForceText(InForceChange what) {
  constexpr std::string_view kTexts[] = {"new", "changed", "gone", "still"};
  return kTexts[static_cast<std::size_t>(what)];
}

struct InForce::Walk {
  /// An attribute as it was in the step that was looked at last.
  struct Followed {
    FoundAttribute attribute;
    OriginTracker tracker;
    bool inForce = false;
  };
  using Place = std::uint32_t;  // of an attribute

  Walk(ddr_Model of, Options asked) : model(std::move(of)), options(asked), changes(kprC_Steps(model).Size()) {
    options.last = std::min(options.last, changes.size() - 1);
    ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
      family.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
        if (item.IsSuppressed()) { return; }
        auto const place = static_cast<Place>(followed.size());
        followed.push_back({{&family, &item}, OriginTracker(family, item)});
        cls_Object const* before = nullptr;
        bool was = false;
        item.ForEachRun([&](std::size_t begin, std::size_t, mdl_PropagationStatusEnm status, cls_Object const* state) {
          bool const is = IsInForce(family, status);
          if (begin < changes.size() && (state != before || is != was)) { changes[begin].push_back(place); }
          before = state;
          was = is;
        });
      });
    });
  }

  /// Takes what the attribute is in the step; whether that differs from before, and is to be told.
  bool Take(Place place) {
    Followed& one = followed[place];
    kprC_StepDependent const& item = *one.attribute.item;
    std::vector<Origin> const before(one.tracker.Members().begin(), one.tracker.Members().end());
    bool const was = std::exchange(one.inForce, IsInForce(*one.attribute.family, item.StatusAt(step)));
    one.tracker.Take(step, item.StatusAt(step), item.StateAt(step));
    if (one.inForce) {
      still.insert(place);
    } else {
      still.erase(place);
    }
    if (!one.inForce && !was) { return false; }
    Tell(one, was ? !one.inForce ? InForceChange::Gone : InForceChange::Still : InForceChange::New);
    for (std::size_t i = 0; i < one.tracker.Members().size(); ++i) {
      Origin const& now = one.tracker.Members()[i];
      bool const had = was && i < before.size() && before[i].HasValue(), has = one.inForce && now.HasValue();
      if (!has && !had && !(one.inForce && now.own)) { continue; }
      InForceMember member{has ? InForceChange::New : InForceChange::Gone, now, {}};
      if (had) {
        member.was = before[i].Value();
        if (has) { member.what = member.was == now.Value() ? InForceChange::Still : InForceChange::Changed; }
        if (member.what == InForceChange::Still) { member.was = {}; }
      }
      if (told.what == InForceChange::Still && member.what != InForceChange::Still) { told.what = InForceChange::Changed; }
      told.members.push_back(std::move(member));
    }
    return told.what != InForceChange::Still;
  }
  void Tell(Followed const& one, InForceChange what) { told = {step, what, one.attribute, one.attribute.item->StatusAt(step), {}}; }
  void TellStill(Place place) {
    Followed const& one = followed[place];
    Tell(one, InForceChange::Still);
    for (Origin const& origin : one.tracker.Members()) {
      if (origin.HasValue()) { told.members.push_back({InForceChange::Still, origin, {}}); }
    }
  }

  InForceAttribute const* Next() {
    for (; step <= options.last; ++step, at = 0, from = 0, changed.clear()) {
      bool const isAsked = step >= options.first;
      while (at < changes[step].size()) {
        Place const place = changes[step][at++];
        if (!Take(place)) { continue; }
        changed.insert(place);
        if (isAsked) { return &told; }
      }
      if (!isAsked || !options.still) { continue; }
      for (auto place = still.lower_bound(from); place != still.end(); ++place) {
        from = *place + 1;
        if (changed.contains(*place)) { continue; }
        TellStill(*place);
        return &told;
      }
    }
    return nullptr;
  }

  ddr_Model model;
  Options options;
  std::vector<Followed> followed;
  std::vector<std::vector<Place>> changes;  // by steps: those that may differ from the step before
  std::set<Place> still, changed;           // in force; what was told of the step
  std::size_t step = 0, at = 0;
  Place from = 0;  // of those that are as before, the first that may be told next
  InForceAttribute told{};
};

InForce::InForce(ddr_Model model, Options options) : walk_(std::make_unique<Walk>(std::move(model), options)) {}
InForce::InForce(InForce&&) noexcept = default;
InForce::~InForce() = default;
InForceAttribute const* InForce::Next() { return walk_->Next(); }
ddr_Model const& InForce::Model() const { return walk_->model; }

std::vector<Origin> InForceAttribute::Origins() const {
  std::vector<Origin> origins;
  for (InForceMember const& member : members) {
    if (member.what != InForceChange::Gone) { origins.push_back(member.origin); }
  }
  return origins;
}

cls_Value ValueOf(InForceAttribute const& told, AtTime const* at) {
  kprC_StepDependent const& item = *told.attribute.item;
  kprC_StepTable const& steps = item.Steps();
  cls_Value::Fields members, object;
  std::vector<Origin> const origins = at == nullptr ? std::vector<Origin>() : told.Origins();
  for (InForceMember const& member : told.members) {
    cls_Value::Fields fields = {{"what", InForceText(member.what)},
                                {"value", member.what == InForceChange::Gone ? cls_Value() : member.origin.Value()}};
    if (!member.was.IsNull()) { fields.emplace_back("was", member.was); }
    fields.emplace_back("own", member.origin.own);
    fields.emplace_back("step", member.origin.step == kNoStep ? cls_Value() : cls_Value(steps.Name(member.origin.step).View()));
    if (at != nullptr && member.what != InForceChange::Gone && at->Factor(member.origin, origins, told.step)) {
      fields.emplace_back("at", at->Of(member.origin, origins, told.step));
    }
    members.emplace_back(member.origin.Member(), std::move(fields));
  }
  for (Origin const& origin : OwnMembers(item)) {
    if (origin.HasValue()) { object.emplace_back(origin.Member(), origin.Value()); }
  }
  return cls_Value::Fields{
      {"step", steps.Name(told.step).View()}, {"what", InForceText(told.what)},  {"kind", told.attribute.family->ItemCmd()},
      {"name", item.Name().View()},           {"type", item.ConstructionName()}, {"status", static_cast<int>(told.status)},
      {"members", std::move(members)},        {"object", std::move(object)}};
}

}  // namespace gattr
