#include "command/Difference.h"

#include <algorithm>
#include <map>
#include <utility>

#include "command/Command.h"
#include "command/ModelPair.h"
#include "module/kpr/engine/kprC_State.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "store/ObservingVisitor.h"
#include "text/JsonText.h"

namespace gattr {

namespace {

/// What an attribute says of its own in a step.
struct Said {
  std::string step;
  std::size_t index;
  cls_Object const* values;  // null where it is switched off
  Says says;
};

/// Takes what an attribute says of its own from its writing.
class SaidVisitor : public ObservingVisitor {
public:
  explicit SaidVisitor(kprC_StepDependent const& item) : item_(item) { item.DBWrite(*this); }
  std::vector<Said> Take() { return std::move(said_); }

  bool WritesOwnRecordsOnly() const override { return true; }
  bool IsBrief() const override { return true; }
  void WriteChange(std::string_view step, cls_Object const* values, bool isFirst) const override {
    if (!isFirst && said_.size() == 1 && said_.front().step == step) {  // its creation is switched off
      said_.front().says = Says::CreationOff;
      return;
    }
    std::size_t const index = item_.Steps().Find(step);
    Said& said = said_.emplace_back(Said{std::string(step), index, values == nullptr ? nullptr : item_.StateAt(index), Says::Off});
    if (values == nullptr) { return; }
    auto const* const state = dynamic_cast<kprC_State const*>(said.values);
    said.says = !isFirst ? Says::Values : state != nullptr && state->SwitchedOff() ? Says::CreationOff : Says::Creation;
  }

private:
  kprC_StepDependent const& item_;
  mutable std::vector<Said> said_;  // writing goes through a const interface
};

void const* In(cls_MemberRow const& row, cls_Object const& object) { return row.In(static_cast<void const*>(&object)); }

bool IsSaid(cls_MemberRow const& row, Said const* said) {
  if (said == nullptr || said->values == nullptr) { return false; }
  return row.ops->isModified == nullptr ? said->says != Says::Values : row.ops->isModified(In(row, *said->values));
}

/// In what objects of two classes differ: what one of them does not have is taken as in a new object.
std::vector<MemberDifference> DifferingClasses(cls_Object const& was, cls_Object const& is) {
  std::unique_ptr<cls_Object> const freshWas = ClassOf(was).make(), freshIs = ClassOf(is).make();
  std::vector<MemberDifference> members;
  auto const find = [](cls_Object const& object, std::string_view name) {
    return std::ranges::find(object.MemberRows(), name, &cls_MemberRow::name) != object.MemberRows().end();
  };
  auto const add = [&](cls_MemberRow const& row, cls_Object const& of) {
    if (row.again || !row.text.settable || row.name == kName) { return; }
    bool const inBoth = find(was, row.name) && find(is, row.name);
    cls_Value before = inBoth ? was.Member(row.name) : cls_Value(), now = inBoth ? is.Member(row.name) : cls_Value();
    if (!inBoth) {
      cls_Object const& fresh = &of == &was ? *freshWas : *freshIs;
      if (row.ops->equal(In(row, of), In(row, fresh))) { return; }
      (&of == &was ? before : now) = row.ToValue(&of);
    }
    if (before != now) { members.push_back({std::string(ArgumentName(row)), std::move(before), std::move(now)}); }
  };
  for (cls_MemberRow const& row : is.MemberRows()) { add(row, is); }
  for (cls_MemberRow const& row : was.MemberRows()) {
    if (!find(is, row.name)) { add(row, was); }
  }
  return members;
}

/// In what two objects differ. What both give as the same value is held whole by both and differs where it is declared.
std::vector<MemberDifference> Differing(cls_Object const& was, cls_Object const& is, std::string_view const besides = {}) {
  if (was.DynTypeId() != is.DynTypeId()) { return DifferingClasses(was, is); }
  std::vector<MemberDifference> members;
  for (cls_MemberRow const& row : is.MemberRows()) {
    if (row.again || row.name == kName || row.name == besides || row.ops->equal(In(row, was), In(row, is))) { continue; }
    cls_Value before = row.ToValue(&was), now = row.ToValue(&is);
    if (before != now || before.IsNull()) { members.push_back({std::string(ArgumentName(row)), std::move(before), std::move(now)}); }
  }
  return members;
}

/// Of an object that one side has, what is not as in a new one; either is null.
std::vector<MemberDifference> NotAsNew(cls_Object const* was, cls_Object const* is, std::string_view const besides = {}) {
  cls_Object const& there = was != nullptr ? *was : *is;
  cls_ClassMetadata const& type = ClassOf(there);
  if (type.make == nullptr) { return {}; }
  std::unique_ptr<cls_Object> const fresh = type.make();
  std::vector<MemberDifference> members = was != nullptr ? Differing(there, *fresh, besides) : Differing(*fresh, there, besides);
  for (MemberDifference& one : members) { (was != nullptr ? one.is : one.was) = {}; }
  return members;
}

constexpr std::string_view kStates = "states";  // what the classes of attributes call their histories

/// Finds what differs, kind by kind.
class Comparison {
public:
  Comparison(ModelPair const& pair, Depth depth) : pair_(pair), depth_(depth) {}

  std::vector<ObjectDifference> Run() {
    CompareModels();
    CompareSteps();
    pair_.ForEachExtension([&](cow_String const& member, mdl_Extension const& was, mdl_Extension const& is) {
      if (auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(&is)) {
        CompareAttributes(*mdl_ExtensionAs<kprC_StepAwareRepository>(&was), *repository);
      } else if (auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(&is)) {
        CompareNamed(member, *mdl_ExtensionAs<mdl_NamedObjects>(&was), *named);
      }
    });
    if (found_.empty() && depth_ == Depth::Values) { CompareDangling(); }
    return std::move(found_);
  }

  /// Of two versions of an attribute, one of which may be null.
  ObjectDifference Between(kprC_StepAwareRepository const& family, kprC_StepDependent const* was, kprC_StepDependent const* is) const {
    kprC_StepDependent const& there = is != nullptr ? *is : *was;
    ObjectDifference one{was == nullptr  ? ChangeKind::Created
                         : is == nullptr ? ChangeKind::Deleted
                                         : ChangeKind::Changed,
                         std::string(family.ItemCmd()), std::string(there.Name().View())};
    bool const isWhole = was != nullptr && is != nullptr;
    if (!isWhole && depth_ == Depth::Steps) { return one; }
    if (was != nullptr) { one.typeBefore = was->ConstructionName(); }
    if (is != nullptr) { one.type = is->ConstructionName(); }
    one.members = isWhole ? Differing(*was, *is, kStates) : NotAsNew(was, is, kStates);
    CompareRecords(was == nullptr ? std::vector<Said>() : SaidVisitor(*was).Take(),
                   is == nullptr ? std::vector<Said>() : SaidVisitor(*is).Take(), one.records);
    if (depth_ == Depth::Values) {
      kprC_Operation const* const off = FindOperation(family, kprC_Effect::SwitchOff);
      if (off != nullptr) { one.switchOff = off->command; }
    }
    return one;
  }

private:
  ObjectDifference& Add(ChangeKind change, std::string_view kind, std::string_view name) {
    return found_.emplace_back(ObjectDifference{change, std::string(kind), std::string(name)});
  }
  void CompareModels() {
    ddr_Model const &before = pair_.Before(), &now = pair_.Now();
    std::vector<MemberDifference> members;
    if (before.Name() != now.Name()) { members.push_back({std::string(kName), before.Member(kName), now.Member(kName)}); }
    if (before.Space() != now.Space()) {
      std::string_view const space = ddr_Model::spaceCmd();
      members.push_back({std::string(space), before.Member(space), now.Member(space)});
    }
    if (!members.empty()) { Add(ChangeKind::Changed, "model", now.Name().View()).members = std::move(members); }
  }
  /// The regions that nobody owns any more follow from what went with a step; where nothing else differs they are what does.
  void CompareDangling() {
    std::vector<MemberDifference> members;
    pair_.ForEachExtension([&](cow_String const& member, mdl_Extension const& was, mdl_Extension const& is) {
      if (mdl_ExtensionAs<kprC_StepAwareRepository>(&is) == nullptr) { return; }
      for (cls_MemberRow const& row : is.MemberRows()) {
        if (row.name != "danglingRegions" || row.ops->equal(In(row, was), In(row, is))) { continue; }
        members.push_back({std::string(member.View()) + "." + std::string(row.name), row.ToValue(&was), row.ToValue(&is)});
      }
    });
    if (!members.empty()) { Add(ChangeKind::Changed, "model", pair_.Now().Name().View()).members = std::move(members); }
  }

  // ---- steps

  static std::string TypeOf(kprC_Step const& step) { return std::string(kprC_FindProcedure(step.DynTypeId())->command.View()); }

  void CompareSteps() {
    std::string_view const kind = kprC_Step::stepCmd();
    kprC_StepContainer const &was = kprC_Steps(pair_.Before()), &is = kprC_Steps(pair_.Now());
    if (was.Table().Same(is.Table())) { return; }
    std::vector<bool> const moved = Moved(was, is);
    for (std::size_t i = 0; i < is.Size(); ++i) {
      std::string const key = pair_.KeyBefore(kind, is.Name(i).View());
      kprC_Step const *const old = was.Find(key), *const step = &is.Step(i);
      if (old == nullptr) {
        ObjectDifference& one = Add(ChangeKind::Created, kind, is.Name(i).View());
        one.previous = is.Name(i - 1).View();
        if (depth_ == Depth::Values) {
          one.type = TypeOf(*step);
          one.members = NotAsNew(nullptr, step);
        }
        continue;
      }
      bool const isSame = step == old || step->Equals(*old);
      ObjectDifference* const one = AddCompared(kind, is.Name(i).View(), isSame && !moved[i]);
      if (one == nullptr || depth_ == Depth::Steps) { continue; }
      one->typeBefore = TypeOf(*old);
      one->type = TypeOf(*step);
      one->members = Differing(*old, *step);
      if (moved[i]) { one->previous = is.Name(i - 1).View(); }
    }
    for (std::size_t i = 0; i < was.Size(); ++i) {
      if (is.IsMember(pair_.KeyNow(kind, was.Name(i).View()))) { continue; }
      ObjectDifference& one = Add(ChangeKind::Deleted, kind, was.Name(i).View());
      if (depth_ == Depth::Steps) { continue; }
      one.typeBefore = TypeOf(was.Step(i));
      one.members = NotAsNew(&was.Step(i), nullptr);
    }
  }

  /// Which of the present steps stand elsewhere among those of both sides: as few as can be.
  std::vector<bool> Moved(kprC_StepContainer const& was, kprC_StepContainer const& is) const {
    std::vector<bool> moved(is.Size());
    std::vector<std::pair<std::size_t, std::size_t>> common;  // where it was, where it is
    for (std::size_t i = 0; i < is.Size(); ++i) {
      std::size_t const at = was.Index(pair_.KeyBefore(kprC_Step::stepCmd().View(), is.Name(i).View()));
      if (at != kprC_StepContainer::npos) { common.emplace_back(at, i); }
    }
    if (std::ranges::is_sorted(common)) { return moved; }
    // the longest part that is in order stays: by the last of the best ones of each length
    std::vector<std::size_t> last, before(common.size(), kprC_StepContainer::npos);
    for (std::size_t i = 0; i < common.size(); ++i) {
      auto const place = std::ranges::lower_bound(last, common[i].first, {}, [&](std::size_t one) { return common[one].first; });
      if (place != last.begin()) { before[i] = *(place - 1); }
      place == last.end() ? last.push_back(i) : void(*place = i);
    }
    for (auto const& [from, to] : common) { moved[to] = true; }
    for (std::size_t i = last.back(); i != kprC_StepContainer::npos; i = before[i]) { moved[common[i].second] = false; }
    return moved;
  }

  /// Of an object that was there and is. Null where there is nothing to tell.
  ObjectDifference* AddCompared(std::string_view kind, std::string_view name, bool isSame) {
    std::string before = pair_.NameBefore(kind, name);
    if (before != name) {
      ObjectDifference& one = Add(ChangeKind::Renamed, kind, name);
      one.before = std::move(before);
      return &one;
    }
    return isSame ? nullptr : &Add(ChangeKind::Changed, kind, name);
  }

  // ---- what stands under names

  static std::string TypeOf(ReferenceKind const& kind, cls_Object const* object) {
    return object == nullptr ? std::string() : std::string(FindDeclaration(kind, *object).first);
  }
  void CompareNamed(cow_String const& member, mdl_NamedObjects const& was, mdl_NamedObjects const& is) {
    auto const kind = std::ranges::find(ReferenceKinds(), member.View(), &ReferenceKind::extension);
    if (kind == ReferenceKinds().end()) { return; }
    auto const find = [](mdl_Extension const& in, std::string_view name) {
      return static_cast<mdl_NamedObjects const&>(in).ConstObject(name);
    };
    pair_.ForEachPair(kind->kind, was, is, find, [&](cls_Object const* old, cow_String const& name, cls_Object const* object) {
      ObjectDifference* one = nullptr;
      if (old != nullptr && object != nullptr) {
        one = AddCompared(kind->kind, name.View(), old->Equals(*object));
        if (one == nullptr || depth_ == Depth::Steps) { return; }
        one->members = Differing(*old, *object);
      } else {
        one = &Add(old == nullptr ? ChangeKind::Created : ChangeKind::Deleted, kind->kind, name.View());
        if (depth_ == Depth::Steps) { return; }
        one->members = NotAsNew(old, object);
      }
      one->typeBefore = TypeOf(*kind, old);
      one->type = TypeOf(*kind, object);
    });
  }

  void CompareAttributes(kprC_StepAwareRepository const& was, kprC_StepAwareRepository const& is) {
    std::string_view const kind = is.ItemCmd();
    auto const find = [](mdl_Extension const& in, std::string_view name) {
      return static_cast<kprC_StepAwareRepository const&>(in).ConstItem(name);
    };
    pair_.ForEachPair(kind, was, is, find, [&](kprC_StepDependent const* old, cow_String const& name, kprC_StepDependent const* item) {
      ObjectDifference one = Between(is, old, item);
      if (one.change == ChangeKind::Changed) {
        ObjectDifference* const told =
            AddCompared(kind, name.View(), one.members.empty() && one.records.empty() && one.type == one.typeBefore);
        if (told == nullptr) { return; }
        one.change = told->change;
        one.before = std::move(told->before);
        *told = std::move(one);
      } else {
        found_.push_back(std::move(one));
      }
    });
  }

  // ---- what attributes say in steps

  void CompareRecords(std::vector<Said> was, std::vector<Said> const& is, std::vector<RecordDifference>& records) const {
    std::string_view const kind = kprC_Step::stepCmd();
    std::map<std::string_view, std::size_t> places;
    for (Said& said : was) { said.step = pair_.KeyNow(kind, said.step); }
    for (std::size_t i = 0; i < was.size(); ++i) { places.emplace(was[i].step, i); }
    std::vector<bool> met(was.size());
    for (Said const& said : is) {
      auto const old = places.find(said.step);
      if (old != places.end()) { met[old->second] = true; }
      CompareRecord(old == places.end() ? nullptr : &was[old->second], &said, records);
    }
    for (std::size_t i = 0; i < was.size(); ++i) {
      if (!met[i]) { CompareRecord(&was[i], nullptr, records); }
    }
  }

  void CompareRecord(Said const* was, Said const* is, std::vector<RecordDifference>& records) const {
    RecordDifference record{is != nullptr ? is->step : was->step, was == nullptr ? Says::Nothing : was->says,
                            is == nullptr ? Says::Nothing : is->says};
    cls_Object const *const old = was == nullptr ? nullptr : was->values, *const now = is == nullptr ? nullptr : is->values;
    bool const isSame = record.was == record.is && old == now;
    bool const isShort = depth_ == Depth::Steps && record.was != record.is;
    if (!isSame && !isShort) { record.members = SaidDiffering(was, is); }
    if (record.was != record.is || !record.members.empty()) { records.push_back(std::move(record)); }
  }

  static std::vector<MemberDifference> SaidDiffering(Said const* was, Said const* is) {
    std::vector<MemberDifference> members;
    cls_Object const *const old = was == nullptr ? nullptr : was->values, *const now = is == nullptr ? nullptr : is->values;
    cls_Object const* const there = now != nullptr ? now : old;
    if (there == nullptr) { return members; }
    bool const sameClass = old == nullptr || now == nullptr || old->DynTypeId() == now->DynTypeId();
    std::unique_ptr<cls_Object> const fresh = ClassOf(*there).make == nullptr ? nullptr : ClassOf(*there).make();
    auto const add = [&](cls_MemberRow const& row, Said const* before, Said const* after) {
      if (row.again || (!row.text.settable && row.ops->isModified == nullptr)) { return; }  // the flag that it is switched off
      bool const saidBefore = IsSaid(row, before), saidAfter = IsSaid(row, after);
      if (!saidBefore && !saidAfter) { return; }
      bool const both = saidBefore && saidAfter;
      if (both && row.ops->equal(In(row, *before->values), In(row, *after->values))) { return; }
      cls_Object const& one = saidAfter ? *after->values : *before->values;
      bool const isAsNew = row.ops->isModified == nullptr && fresh != nullptr && one.DynTypeId() == fresh->DynTypeId() &&
                           row.ops->equal(In(row, one), In(row, *fresh));
      if (!both && isAsNew) { return; }
      cls_Value valueBefore = saidBefore ? row.ToValue(before->values) : cls_Value();
      cls_Value valueAfter = saidAfter ? row.ToValue(after->values) : cls_Value();
      if (both && valueBefore == valueAfter && !valueAfter.IsNull()) { return; }
      members.push_back({std::string(ArgumentName(row)), std::move(valueBefore), std::move(valueAfter)});
    };
    for (cls_MemberRow const& row : there->MemberRows()) { add(row, sameClass ? was : nullptr, is); }
    if (!sameClass) {
      for (cls_MemberRow const& row : old->MemberRows()) { add(row, was, nullptr); }
    }
    return members;
  }

  ModelPair pair_;
  Depth depth_;
  std::vector<ObjectDifference> found_;
};

// ---- names

/// Whether what attributes say in the step \p from of \p before they say in \p to of \p now, as far as that can be told.
bool IsSaidThere(ddr_Model const& before, std::size_t from, ddr_Model const& now, std::size_t to) {
  bool any = false, same = false;
  ForEachRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& was) {
    auto const& is = now.ConstGet<kprC_StepAwareRepository>(extension);
    was.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      if (!kprC_StepAwareRepository::SaysSomething(item, from)) { return; }
      any = true;
      kprC_StepDependent const* const other = is.ConstItem(name.View());
      same = same || (other != nullptr && kprC_StepAwareRepository::SaysSomething(*other, to));
    });
  });
  return same || !any;
}

void FindRenamedSteps(ddr_Model const& before, ddr_Model const& now, std::vector<Rename>& renames) {
  kprC_StepContainer const &was = kprC_Steps(before), &is = kprC_Steps(now);
  if (was.Table().Same(is.Table())) { return; }
  // what stands between the same steps of both sides
  std::map<std::string, std::pair<std::vector<std::size_t>, std::vector<std::size_t>>> between;
  auto const collect = [&](kprC_StepContainer const& steps, kprC_StepContainer const& others, auto member) {
    std::string behind;
    for (std::size_t i = 0; i < steps.Size(); ++i) {
      std::string const name(steps.Name(i).View());
      others.IsMember(name) ? void(behind = name) : (between[behind].*member).push_back(i);
    }
  };
  using Both = std::pair<std::vector<std::size_t>, std::vector<std::size_t>>;
  collect(was, is, &Both::first);
  collect(is, was, &Both::second);
  for (auto const& [behind, both] : between) {
    if (both.first.size() != 1 || both.second.size() != 1) { continue; }
    std::size_t const from = both.first[0], to = both.second[0];
    if (!was.Step(from).Equals(is.Step(to)) || !IsSaidThere(before, from, now, to)) { continue; }
    renames.push_back({std::string(kprC_Step::stepCmd().View()), std::string(was.Name(from).View()), std::string(is.Name(to).View())});
  }
}

void FindRenamedAttributes(ddr_Model const& before, ddr_Model const& now, std::vector<Rename>& renames) {
  Comparison const comparison(ModelPair(before, now, renames), Depth::Values);
  auto const stepNow = [&](std::string const& step) {
    auto const rename = std::ranges::find(renames, step, &Rename::from);
    return rename == renames.end() || rename->kind != kprC_Step::stepCmd() ? step : rename->to;
  };
  /// All that it says, under the present names of the steps.
  auto const textOf = [&](kprC_StepAwareRepository const& family, kprC_StepDependent const& item, bool old) {
    ObjectDifference const all = comparison.Between(family, nullptr, &item);
    std::string text = all.type;
    auto const add = [&text](std::vector<MemberDifference> const& members) {
      for (MemberDifference const& one : members) { text += "\n" + one.member + " " + JsonText(one.is); }
    };
    add(all.members);
    for (RecordDifference const& record : all.records) {
      text += "\n\n" + std::to_string(static_cast<int>(record.is)) + (old ? stepNow(record.step) : record.step);
      add(record.members);
    }
    return text;
  };
  std::vector<Rename> found;
  ForEachRepository(now, [&](cow_String const& extension, kprC_StepAwareRepository const& is) {
    auto const& was = before.ConstGet<kprC_StepAwareRepository>(extension);
    if (&was == &is) { return; }
    std::map<std::string, std::vector<cow_String>> gone, come;
    std::vector<cow_String> goneNames, comeNames;
    is.ForEachChange(was, [&](cow_String const& name, cls_Object const* object) {
      if (object == nullptr) { goneNames.push_back(name); }
      if (object != nullptr && was.ConstItem(name.View()) == nullptr) { comeNames.push_back(name); }
    });
    if (goneNames.empty() || comeNames.empty()) { return; }
    for (cow_String const& name : goneNames) { gone[textOf(was, *was.ConstItem(name.View()), true)].push_back(name); }
    for (cow_String const& name : comeNames) { come[textOf(is, *is.ConstItem(name.View()), false)].push_back(name); }
    for (auto const& [text, names] : gone) {
      auto const other = come.find(text);
      if (names.size() != 1 || other == come.end() || other->second.size() != 1) { continue; }
      found.push_back({std::string(is.ItemCmd()), std::string(names[0].View()), std::string(other->second[0].View())});
    }
  });
  renames.insert(renames.end(), found.begin(), found.end());
}

}  // namespace

void FindMoved(std::vector<RecordDifference>& records) {
  if (std::ranges::none_of(records, [](RecordDifference const& one) { return one.is == Says::Nothing; })) { return; }
  auto const isMirrored = [](RecordDifference const& gone, RecordDifference const& come) {
    return std::ranges::equal(gone.members, come.members,
                              [](MemberDifference const& a, MemberDifference const& b) { return a.member == b.member && a.was == b.is; });
  };
  std::vector<std::string> moved;
  for (RecordDifference& come : records) {
    if (come.was != Says::Nothing) { continue; }
    RecordDifference const* from = nullptr;
    int matches = 0;
    for (RecordDifference const& gone : records) {
      if (gone.is != Says::Nothing || gone.was != come.is || !isMirrored(gone, come)) { continue; }
      from = &gone;
      ++matches;
    }
    auto const isOther = [&](RecordDifference const& other) {
      return &other != &come && other.was == Says::Nothing && from != nullptr && other.is == come.is && isMirrored(*from, other);
    };
    if (matches != 1 || std::ranges::any_of(records, isOther)) { continue; }
    come.movedFrom = from->step;
    moved.push_back(from->step);
  }
  for (RecordDifference& come : records) {
    if (come.movedFrom.empty()) { continue; }
    come.was = come.is;
    come.members.clear();
  }
  std::erase_if(records, [&](RecordDifference const& gone) {
    return gone.is == Says::Nothing && std::ranges::find(moved, gone.step) != moved.end();
  });
}

std::string_view SaysText(Says says) {
  constexpr std::string_view kTexts[] = {"nothing", "values", "creation", "creation off", "off"};
  return kTexts[static_cast<std::size_t>(says)];
}

std::vector<ObjectDifference> Compare(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames, Depth depth) {
  return Comparison(ModelPair(before, now, renames), depth).Run();
}

ObjectDifference DifferenceOf(kprC_StepAwareRepository const& family, kprC_StepDependent const* was, kprC_StepDependent const* is) {
  ddr_Model const none;
  return Comparison(ModelPair(none, none, {}), Depth::Values).Between(family, was, is);
}

std::vector<Rename> RenamesBetween(ddr_Model const& before, ddr_Model const& now) {
  std::vector<Rename> renames;
  FindRenamedSteps(before, now, renames);
  FindRenamedAttributes(before, now, renames);
  return renames;
}

void Follow(ddr_Model& model, std::vector<Rename>& renames,
            std::function<void(Rename const&, Outcome const&, ddr_Model const&)> const& refused) {
  if (renames.empty()) { return; }
  Session session(std::move(model));
  session.ForgetPast();
  std::erase_if(renames, [&](Rename const& one) {
    Outcome const outcome =
        session.Execute(cls_Value::Fields{{"command", "rename"}, {one.kind, one.from}, {std::string(kNewName), one.to}});
    if (!outcome.ok && refused) { refused(one, outcome, session.Model()); }
    return !outcome.ok;
  });
  model = session.Model();
}

std::vector<ObjectDifference> DifferencesBetween(ddr_Model const& before, ddr_Model const& now) {
  std::vector<Rename> renames = RenamesBetween(before, now);
  ddr_Model renamed = before;
  Follow(renamed, renames);
  std::vector<ObjectDifference> differences = Comparison(ModelPair(renamed, now, renames, true), Depth::Values).Run();
  for (ObjectDifference& one : differences) { FindMoved(one.records); }
  return differences;
}

}  // namespace gattr
