#include "module/kin/kinC_ContactExp.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

using StateEnm = mdl_PropAttributeStateEnm;

// ---- the state

void kinC_ContactExpState::AssertValid() const {
  contactPropertyValues.ForEach([](std::size_t, mdl_PropAttr<cow_String> const& property) {
    kinC_Assert(!property.HasValue() || !property.ConstGet().IsEmpty(), kinC_ErrorEnm::PropertyMissing);
  });
}

void kinC_ContactExp::AssertState(kinC_InteractionState const& state, std::size_t index) const {
  kinC_Interaction::AssertState(state, index);
  bool global = false, individual = false;
  static_cast<State_ const&>(state).contactPropertyValues.ForEach([&](std::size_t i, mdl_PropAttr<cow_String> const& property) {
    if (i >= contactPropertyPairs_.Size() || !property.HasValue()) { return; }
    (contactPropertyPairs_[i].IsGlobal() ? global : individual) = true;
  });
  kinC_Assert(global || !individual, kinC_ErrorEnm::GlobalPropertyMissing);
}

kinC_ContactExp::State_ const* kinC_ContactExp::InForce(cow_String const& step) const {
  Status(step);
  return static_cast<State_ const*>(StateAt(Steps().Find(step.View())));
}

kinC_ContactExpState const& kinC_ContactExp::ConstGetState(cow_String const& step) const {
  State_ const* const state = InForce(step);
  kinC_Assert(state != nullptr, kinC_ErrorEnm::NotActiveInStep);
  return *state;
}

kinC_ContactExpState& kinC_ContactExp::GetState(cow_String const& step) {
  ConstGetState(step);
  return static_cast<State_&>(GetStateQuad(step).state.Get());
}

// ---- editing

template <class Fn> void kinC_ContactExp::EditIn(cow_String const& step, Pairs_& list, Fn&& edit) {
  Pairs_ const before = list;
  auto const state = States().StateCopy(Steps().Find(step.View()));
  try {
    edit(static_cast<State_&>(*state));
    PutState(step, *state);
  } catch (...) {
    list = before;
    throw;
  }
}

template <class Fn> void kinC_ContactExp::EditAll(Pairs_& list, Pairs_ changed, Fn&& edit) {
  Pairs_ const before = std::exchange(list, std::move(changed));
  try {
    EditStates([&](kprC_State& state) { return edit(static_cast<State_&>(state)); });
  } catch (...) {
    list = before;
    throw;
  }
}

namespace {
/// \p pairs without those at \p places, which rise.
kinC_RegionPairs Without(kinC_RegionPairs const& pairs, std::vector<std::size_t> const& places) {
  kinC_RegionPairs left;
  for (std::size_t i = 0; i < pairs.Size(); ++i) {
    if (!std::ranges::binary_search(places, i)) { left.Append(pairs[i]); }
  }
  return left;
}
/// Takes those places out of a list; false where nothing was said of them.
template <class T> bool TakeOut(mdl_PropList<T>& list, std::vector<std::size_t> const& places) {
  if (places.front() >= list.Size()) { return false; }
  list.Remove(places);
  return true;
}
}  // namespace

// ---- domains

/// Where a pair stands in its domain, if it does, and where it takes part.
struct kinC_ContactExp::Place {
  kinC_RegionPair const* pair;
  std::size_t first = kprC_StepTable::npos;
  std::vector<std::size_t> active = {};
};

/// Pairs that somebody asks for, and where they stand.
class kinC_ContactExp::Places {
public:
  /// False where it is asked for already.
  bool Ask(kinC_RegionPair const& pair) {
    places_.push_back({&pair});
    return byKey_.try_emplace(pair.Key(), places_.size() - 1).second;
  }
  /// Calls \p fn(place, index, whether it takes part) for each of \p pairs that is asked for.
  template <class Fn> void Look(Pairs_ const& pairs, mdl_PropList<bool> const& active, Fn&& fn) {
    for (std::size_t i = 0; i < pairs.Size(); ++i) {
      if (auto const found = byKey_.find(pairs[i].Key()); found != byKey_.end()) { fn(places_[found->second], i, active.Look(i) == true); }
    }
  }
  std::vector<Place>& All() { return places_; }

private:
  std::vector<Place> places_;  // in the order asked
  std::map<std::pair<std::string_view, std::string_view>, std::size_t> byKey_;
};

bool kinC_ContactExp::Find(Pairs_ const& pairs, cow_String const& step, bool excluded, Places& places) const {
  if (pairs.IsEmpty() || !IsEditable(step)) { return false; }
  for (kinC_RegionPair const& pair : pairs) {
    if (!places.Ask(pair)) { return false; }
  }
  places.Look(Domain(excluded), InForce(step)->Active(excluded), [](Place& place, std::size_t i, bool active) {
    place.first = std::min(place.first, i);
    if (active) { place.active.push_back(i); }
  });
  return true;
}

bool kinC_ContactExp::AddPairs(Pairs_ const& pairs, cow_String const& step, bool excluded) {
  Places places;
  if (!Find(pairs, step, excluded, places)) { return false; }
  bool takesPart = std::ranges::any_of(places.All(), [](Place const& place) { return !place.active.empty(); });
  places.Look(Domain(!excluded), InForce(step)->Active(!excluded),
              [&](Place const&, std::size_t, bool active) { takesPart = takesPart || active; });
  if (takesPart) { return false; }
  Pairs_& domain = Domain(excluded);
  EditIn(step, domain, [&](State_& state) {
    for (Place const& place : places.All()) {
      bool const isNew = place.first == kprC_StepTable::npos;
      state.Active(excluded).Get(isNew ? domain.Size() : place.first) = true;
      if (isNew) { domain.Append(*place.pair); }
    }
  });
  return true;
}

bool kinC_ContactExp::RemovePairs(Pairs_ const& pairs, cow_String const& step, bool excluded) {
  Places places;
  if (!Find(pairs, step, excluded, places)) { return false; }
  if (std::ranges::any_of(places.All(), [](Place const& place) { return place.active.empty(); })) { return false; }
  EditIn(step, Domain(excluded), [&](State_& state) {
    for (Place const& place : places.All()) {
      for (std::size_t const i : place.active) { state.Active(excluded).Get(i) = false; }
    }
  });
  return true;
}

void kinC_ContactExp::CompressRegionPairs(bool excluded) {
  Pairs_ const& domain = Domain(excluded);
  std::map<std::pair<std::string_view, std::string_view>, std::vector<std::size_t>> same;
  for (std::size_t i = 0; i < domain.Size(); ++i) { same[domain[i].Key()].push_back(i); }
  std::vector<std::size_t> merged;
  std::erase_if(same, [](auto const& entry) { return entry.second.size() == 1; });
  for (auto const& [key, places] : same) {
    for (std::size_t const i : places) {
      kinC_Assert(domain[i].surfaceType == domain[places[0]].surfaceType, kinC_ErrorEnm::MergeGeometryWithMesh);
    }
    merged.insert(merged.end(), places.begin() + 1, places.end());
  }
  if (merged.empty()) { return; }
  std::ranges::sort(merged);
  EditAll(Domain(excluded), Without(domain, merged), [&](State_& state) {
    mdl_PropList<bool>& active = state.Active(excluded);
    for (auto const& entry : same) {
      std::vector<std::size_t> const& places = entry.second;
      auto const any = [&](auto&& is) { return std::ranges::any_of(places, [&](std::size_t i) { return is(active.Look(i)); }); };
      bool const takesPart = any([](mdl_PropAttr<bool> const& one) { return one.HasValue() && one.ConstGet(); });
      if (any([](mdl_PropAttr<bool> const& one) { return one.IsModified(); })) { active.Get(places[0]) = takesPart; }
    }
    return TakeOut(active, merged) || !active.IsEmpty();
  });
}

// ---- assignments

template <class V>
bool kinC_ContactExp::Append(AssignmentsOf<V> const& kind, cow_String const& step, Pairs_ const& pairs, Values<V> const& values) {
  if (pairs.IsEmpty() || pairs.Size() != values.Size() || !IsEditable(step)) { return false; }
  Pairs_& list = this->*kind.pairs;
  EditIn(step, list, [&](State_& state) {
    for (std::size_t i = 0; i < pairs.Size(); ++i) {
      auto& value = (state.*kind.values).Get(list.Size());
      value = values[i];
      value.TakeOver();
      list.Append(pairs[i]);
    }
  });
  return true;
}

template <class V> bool kinC_ContactExp::Change(AssignmentsOf<V> const& kind, cow_String const& step, int index, V const& value) {
  Pairs_& list = this->*kind.pairs;
  auto const at = static_cast<std::size_t>(index);
  if (index < 0 || at >= list.Size() || !IsEditable(step) || !(InForce(step)->*kind.values).Look(at).HasValue()) { return false; }
  EditIn(step, list, [&](State_& state) { (state.*kind.values).Get(at) = value; });
  return true;
}

template <class V> bool kinC_ContactExp::Delete(AssignmentsOf<V> const& kind, cow_1DArrayList<int> const& indices) {
  Pairs_& list = this->*kind.pairs;
  std::set<std::size_t> const asked(indices.begin(), indices.end());  // a negative one is beyond the last
  if (asked.empty() || *asked.rbegin() >= list.Size()) { return false; }
  std::vector<std::size_t> const places(asked.begin(), asked.end());
  EditAll(list, Without(list, places), [&](State_& state) { return TakeOut(state.*kind.values, places); });
  return true;
}

// ---- telling

namespace {

/// The value as its parts are shown: a name, or member by member.
std::vector<std::string> Texts(cow_String const& name) { return {std::string(name.View())}; }
std::vector<std::string> Texts(cls_Object const& value) {
  std::vector<std::string> texts;
  for (cls_MemberRow const& row : value.MemberRows()) {
    cls_Value const member = row.ToValue(&value);
    if (auto const* text = member.As<std::string>()) {
      texts.push_back(*text);
    } else {
      char digits[32];
      texts.emplace_back(digits, std::to_chars(digits, digits + sizeof digits, *member.As<double>()).ptr);
    }
  }
  return texts;
}

std::string Joined(std::vector<std::string> const& texts) {
  std::string joined;
  for (std::string const& text : texts) { joined.append(joined.empty() ? "" : " , ").append(text); }
  return texts.size() == 1 ? joined : "(" + joined + ")";
}

std::string_view Shown(rgnC_Region const& region) { return region ? region.Name().View() : "None"; }

/// An item of the report, which ends its line.
std::string Item(char const* format, std::initializer_list<std::string_view> texts) {
  std::string item(atr_SubstituteFormat(atr_translate(format), texts).View());
  if (item.empty() || item.back() != '\n') { item += '\n'; }
  return item;
}

/// Adds the surfaces that \p regions has not.
class Gathering {
public:
  explicit Gathering(cls_xoList<rgnC_Region>& regions) : regions_(regions) {
    for (rgnC_Region const& region : regions) { seen_.insert(region.Name()); }
  }
  void Add(kinC_RegionPair const& pair) {
    for (rgnC_Region const* region : {&*pair.region1, &*pair.region2}) {
      if (*region && seen_.insert(region->Name()).second) { regions_.Append(*region); }
    }
  }
  /// Those of the pairs whose element in \p values is such that \p is.
  template <class T, class Is> void AddWhere(kinC_RegionPairs const& pairs, mdl_PropList<T> const& values, Is&& is) {
    for (std::size_t i = 0; i < pairs.Size(); ++i) {
      if (is(values.Look(i))) { Add(pairs[i]); }
    }
  }

private:
  cls_xoList<rgnC_Region>& regions_;
  std::set<cow_String> seen_;
};
constexpr auto kTakesPart = [](mdl_PropAttr<bool> const& active) { return active == true; };
constexpr auto kHasValue = [](auto const& value) { return value.HasValue(); };

}  // namespace

cow_2DArray<cow_String> kinC_ContactExp::Pairs(cow_String const& step, bool excluded) const {
  cow_2DArray<cow_String> rows;
  State_ const* const state = InForce(step);
  Pairs_ const& domain = Domain(excluded);
  for (std::size_t i = 0; state != nullptr && i < domain.Size(); ++i) {
    if (kTakesPart(state->Active(excluded).Look(i))) {
      rows.AppendRow(cow_List<cow_String>{domain[i].region1->Name(), domain[i].region2->Name()});
    }
  }
  return rows;
}

void kinC_ContactExp::PairsInStep(cow_String const& step, cls_xoList<rgnC_Region>& regions, bool excluded) const {
  if (State_ const* const state = InForce(step)) { Gathering(regions).AddWhere(Domain(excluded), state->Active(excluded), kTakesPart); }
}

void kinC_ContactExp::MasterSlaveInStep(cow_String const& step, cls_xoList<rgnC_Region>& regions) const {
  if (State_ const* const state = InForce(step)) { Gathering(regions).AddWhere(masterSlaveRegions_, state->masterSlaveValues, kHasValue); }
}

cls_xoList<rgnC_Region> kinC_ContactExp::RegionsInStep(cow_String const& step) const {
  cls_xoList<rgnC_Region> regions;
  State_ const* const state = InForce(step);
  if (state == nullptr) { return regions; }
  Gathering gathering(regions);
  for (bool const excluded : {false, true}) { gathering.AddWhere(Domain(excluded), state->Active(excluded), kTakesPart); }
#define DDB_ASSIGNMENT(Kind, Value, regions, values, ...) gathering.AddWhere(regions##_, state->values, kHasValue);
#include "module/kin/kinC_Assignments.def"
  return regions;
}

bool kinC_ContactExp::WholeModelContact(cow_String const& step) const {
  State_ const* const state = InForce(step);
  return state != nullptr && state->useAllstar == true;
}

template <class V> cow_2DArray<cow_String> kinC_ContactExp::Listed(AssignmentsOf<V> const& kind, cow_String const& step) const {
  cow_2DArray<cow_String> rows;
  State_ const* const state = InForce(step);
  if (state == nullptr) { return rows; }
  Pairs_ const& pairs = this->*kind.pairs;
  (state->*kind.values).ForEach([&](std::size_t i, mdl_PropAttr<V> const& value) {
    if (i >= pairs.Size() || !value.HasValue()) { return; }
    cow_List<cow_String> row{pairs[i].region1->Name()};
    if (kind.shown == 2) { row.Append(pairs[i].region2->Name()); }
    for (std::string const& text : Texts(value.ConstGet())) { row.Append(cow_String(text)); }
    rows.AppendRow(row);
  });
  return rows;
}

cow_2DArray<cow_String> kinC_ContactExp::ContactProperty(cow_String const& step, cow_String& global, bool withGlobal) const {
  global = cow_String();
  cow_2DArray<cow_String> rows;
  cow_2DArray<cow_String> const all = ContactProperty(step);
  for (std::size_t i = 0; i < all.Rows(); ++i) {
    cow_List<cow_String> const row{all.ConstGet(i, 0), all.ConstGet(i, 1), all.ConstGet(i, 2)};
    bool const isGlobal = row[0].IsEmpty() && row[1].IsEmpty();
    if (isGlobal) { global = row[2]; }
    if (withGlobal || !isGlobal) { rows.AppendRow(row); }
  }
  return rows;
}

cow_String kinC_ContactExp::InteractionProperty(cow_String const& step) const {
  cow_String global;
  ContactProperty(step, global, false);
  return global;
}

template <class Fn> std::string kinC_ContactExp::ReportedByStep(std::string_view heading, Fn&& fn) const {
  std::string report = std::string(heading) + '\n';
  if (IsSuppressed()) { return report; }
  ForEachRecord([&](std::size_t index, mdl_PropagationStatusEnm status, cls_Object const* state) {
    if (!IsActive(status)) { return; }
    report += Item("\tSTEP: %s\n", {Steps().Name(index).View()});
    report += fn(static_cast<State_ const&>(*state));
  });
  return report;
}

std::string kinC_ContactExp::Reported(bool excluded, std::string_view heading) const {
  return ReportedByStep(heading, [&](State_ const& state) {
    bool const all = state.useAllstar == true;
    std::string items = excluded ? "" : Item("\t\t%s", {all ? "ALLSTAR=ON, PAIRS=OFF" : "ALLSTAR=OFF, PAIRS=ON"});
    Pairs_ const& pairs = Domain(excluded);
    for (std::size_t i = 0; i < pairs.Size(); ++i) {
      items += Item("\t\t[%s : %s]\t%s", {Shown(*pairs[i].region1), Shown(*pairs[i].region2),
                                          kTakesPart(state.Active(excluded).Look(i)) ? "ACTIVE" : "INACTIVE"});
    }
    return items;
  });
}

template <class V> std::string kinC_ContactExp::Reported(AssignmentsOf<V> const& kind, std::string_view heading) const {
  return ReportedByStep(heading, [&](State_ const& state) {
    std::string items;
    Pairs_ const& pairs = this->*kind.pairs;
    (state.*kind.values).ForEach([&](std::size_t i, mdl_PropAttr<V> const& value) {
      if (i >= pairs.Size() || !value.HasValue()) { return; }
      std::string const shown = Joined(Texts(value.ConstGet()));
      omu_PrimEnum<StateEnm, 1> const said(value.State());
      std::string_view const first = Shown(*pairs[i].region1), second = Shown(*pairs[i].region2);
      items += kind.shown == 2 ? Item("\t\t[%s : %s : %s]\t%s", {first, second, shown, said.View()})
                               : Item("\t\t[%s : %s]\t%s", {first, shown, said.View()});
    });
    return items;
  });
}

atr_String kinC_ContactExp::Report() const {
  std::string report = "------------\n";
  report += Reported(false, " INCLUDED DOMAIN:") + Reported(true, " EXCLUDED DOMAIN:");
#define DDB_ASSIGNMENT(Kind, Value, regions, values, command, heading, ...) report += Reported(k##Kind, heading);
#include "module/kin/kinC_Assignments.def"
  return report;
}

#define DDB_ASSIGNMENT(Kind, Value, ...)                                                                                      \
  template bool kinC_ContactExp::Append(AssignmentsOf<Value> const&, cow_String const&, Pairs_ const&, Values<Value> const&); \
  template bool kinC_ContactExp::Change(AssignmentsOf<Value> const&, cow_String const&, int, Value const&);                   \
  template bool kinC_ContactExp::Delete(AssignmentsOf<Value> const&, cow_1DArrayList<int> const&);                            \
  template cow_2DArray<cow_String> kinC_ContactExp::Listed(AssignmentsOf<Value> const&, cow_String const&) const;
#include "module/kin/kinC_Assignments.def"
