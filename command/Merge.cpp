#include "command/Merge.h"

#include <algorithm>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "command/Command.h"
#include "command/Difference.h"
#include "command/Lookup.h"
#include "command/Words.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

using Fields = cls_Value::Fields;
using Object = std::pair<std::string, std::string>;      // kind and name
using Differences = std::map<Object, ObjectDifference>;  // what a side has made of the base
constexpr std::string_view kType = "type", kPrevious = "previous";

cls_Value SaysValue(Says says) { return says == Says::Nothing ? cls_Value() : cls_Value(SaysText(says)); }
bool IsGone(ObjectDifference const& one) { return one.change == ChangeKind::Deleted; }
bool IsNew(ObjectDifference const& one) { return one.change == ChangeKind::Created; }

struct MemberEdit {
  cls_Value was, is;
};
/// The edits of an object by step and member; of what it says in a step as a whole under no member.
using Edits = std::map<std::pair<std::string, std::string>, MemberEdit>;

Edits EditsOf(ObjectDifference const& one) {
  Edits edits;
  if (one.type != one.typeBefore) {
    auto const value = [](std::string const& type) { return type.empty() ? cls_Value() : cls_Value(type); };
    edits[{"", std::string(kType)}] = {value(one.typeBefore), value(one.type)};
  }
  for (MemberDifference const& member : one.members) { edits[{"", member.member}] = {member.was, member.is}; }
  for (RecordDifference const& record : one.records) {
    if (record.was != record.is) { edits[{record.step, ""}] = {SaysValue(record.was), SaysValue(record.is)}; }
    for (MemberDifference const& member : record.members) { edits[{record.step, member.member}] = {member.was, member.is}; }
  }
  return edits;
}

/// The edits of both.
Edits Together(Edits edits, Edits const& others) {
  edits.insert(others.begin(), others.end());
  return edits;
}
ObjectDifference const* Find(Object const& object, Differences const& in) {
  auto const found = in.find(object);
  return found == in.end() ? nullptr : &found->second;
}
Edits EditsIn(Differences const& in, Object const& object) {
  ObjectDifference const* const found = Find(object, in);
  return found == nullptr ? Edits() : EditsOf(*found);
}
bool EditsSteps(Differences const& differences) {
  return std::ranges::any_of(differences, [](auto const& one) { return one.first.first == kprC_Step::stepCmd().View(); });
}
/// The first edit that only one of both has, or has otherwise; null where there is none.
std::pair<std::string, std::string> const* Other(Edits const& a, Edits const& b) {
  auto const differs = [](Edits const& these, Edits const& those) -> std::pair<std::string, std::string> const* {
    for (auto const& [place, edit] : these) {
      auto const same = those.find(place);
      if (same == those.end() || same->second.is != edit.is) { return &place; }
    }
    return nullptr;
  };
  auto const* const first = differs(a, b);
  return first != nullptr ? first : differs(b, a);
}

bool IsSuppression(std::string_view member) { return member.starts_with("suppress"); }

class Merging {
public:
  Merging(ddr_Model const& base, ddr_Model const& ours, ddr_Model const& theirs) : base_(base), ours_(ours), theirs_(theirs) {}

  Merged Run() {
    if (theirs_.Equals(base_) || ours_.Equals(theirs_)) { return {ours_, {}, {}}; }
    if (ours_.Equals(base_)) { return {theirs_, {}, {}}; }
    ddr_Model const ours = ours_;
    FollowRenames();
    if (conflicts_.empty()) {
      ofOurs_ = DifferencesFrom(ours_);
      ofTheirs_ = DifferencesFrom(theirs_);
      FindConflicts();
    }
    if (conflicts_.empty()) { Make(); }
    if (conflicts_.empty()) { AssertMade(); }
    std::vector<Finding> findings;
    if (conflicts_.empty()) { findings = Check(); }
    return {conflicts_.empty() ? made_ : ours, std::move(conflicts_), std::move(findings)};
  }

private:
  MergeConflict& Add(Object const& object, std::string const& step, std::string const& member) {
    return conflicts_.emplace_back(MergeConflict{object.first, object.second, step, member, {}, {}, {}});
  }
  /// Runs \p edit; what it refuses is a conflict of the object. Whether it went well.
  template <class Edit> bool Attempt(Object const& object, Edit&& edit) {
    std::optional<Refusal> const refusal = RefusalBy(edit);
    if (refusal) { Add(object, "", "").refusal = *refusal; }
    return !refusal;
  }

  // ---- names

  void FollowRenames() {
    std::vector<Rename> const ofOurs = RenamesBetween(base_, ours_), ofTheirs = RenamesBetween(base_, theirs_);
    auto const find = [](std::vector<Rename> const& in, Rename const& one) {
      return std::ranges::find_if(in, [&](Rename const& other) { return other.kind == one.kind && other.from == one.from; });
    };
    std::vector<Rename> onlyOurs, onlyTheirs;
    for (Rename const& one : ofOurs) {
      auto const other = find(ofTheirs, one);
      if (other == ofTheirs.end()) {
        onlyOurs.push_back(one);
      } else if (other->to != one.to) {
        MergeConflict& conflict = Add({one.kind, one.from}, "", std::string(kName));
        conflict.base = one.from;
        conflict.ours = one.to;
        conflict.theirs = other->to;
      }
    }
    for (Rename const& one : ofTheirs) {
      if (find(ofOurs, one) == ofOurs.end()) { onlyTheirs.push_back(one); }
    }
    std::vector<Rename> all = ofOurs;
    all.insert(all.end(), onlyTheirs.begin(), onlyTheirs.end());
    if (!conflicts_.empty()) { return; }
    auto const tell = [this](bool isOurs) {
      return [this, isOurs](Rename const& one, Outcome const& outcome, ddr_Model const& model) {
        MergeConflict& conflict = Add({one.kind, one.from}, "", std::string(kName));
        conflict.base = one.from;
        (isOurs ? conflict.ours : conflict.theirs) = one.to;
        conflict.refusal = outcome.refused;
        std::vector<KindInfo> const kinds = Session::Kinds();
        auto const kind = std::ranges::find(kinds, one.kind, &KindInfo::kind);
        if (kind == kinds.end() || FindObject(model, kind->member, one.from) == nullptr) { return; }
        (isOurs ? conflict.theirs : conflict.ours) = one.from;
        if (FindObject(model, kind->member, one.to) != nullptr) { conflict.detail = "The other side has another one of that name."; }
      };
    };
    Follow(theirs_, onlyOurs, tell(true));
    Follow(ours_, onlyTheirs, tell(false));
    Follow(base_, all);
  }

  Differences DifferencesFrom(ddr_Model const& side) const {
    Differences differences;
    for (ObjectDifference& one : Compare(base_, side, {}, Depth::Values)) {
      if (one.kind == "model") {
        one.name.clear();  // which may differ
        std::erase_if(one.members, [](MemberDifference const& member) { return member.member.find('.') != std::string::npos; });
      }
      Object const object{one.kind, one.name};
      differences.emplace(object, std::move(one));
    }
    return differences;
  }

  // ---- what both cannot have

  void FindConflicts() {
    for (auto const& [object, ours] : ofOurs_) {
      if (auto const theirs = ofTheirs_.find(object); theirs != ofTheirs_.end()) { FindConflicts(object, ours, theirs->second); }
    }
    FindConflictsOfPlaces();
  }

  void FindConflicts(Object const& object, ObjectDifference const& ours, ObjectDifference const& theirs) {
    if (IsGone(ours) && IsGone(theirs)) { return; }
    if (IsGone(ours) || IsGone(theirs)) {
      MergeConflict& conflict = Add(object, "", "");
      conflict.base = ours.typeBefore;
      (IsGone(ours) ? conflict.theirs : conflict.ours) = IsGone(ours) ? theirs.type : ours.type;
      conflict.detail = IsGone(ours) ? "deleted in ours, edited in theirs" : "edited in ours, deleted in theirs";
      return;
    }
    Edits const ofOurs = EditsOf(ours), ofTheirs = EditsOf(theirs);
    std::set<std::string> told;  // steps
    auto const add = [&](std::string const& step, std::string const& member, MemberEdit const* our, MemberEdit const* their) {
      MergeConflict& conflict = Add(object, step, member);
      conflict.base = our != nullptr ? our->was : their->was;
      conflict.ours = our != nullptr ? our->is : conflict.base;
      conflict.theirs = their != nullptr ? their->is : conflict.base;
      told.insert(step);
      return &conflict;
    };
    for (auto const& [place, edit] : ofOurs) {
      auto const other = ofTheirs.find(place);
      if (other != ofTheirs.end() && other->second.is != edit.is) { add(place.first, place.second, &edit, &other->second); }
      if (other == ofTheirs.end() && IsNew(ours)) { add(place.first, place.second, &edit, nullptr)->theirs = {}; }
    }
    for (auto const& [place, edit] : ofTheirs) {
      if (!ofOurs.contains(place) && IsNew(theirs)) { add(place.first, place.second, nullptr, &edit)->ours = {}; }
    }
    // what one takes away as a whole the other must not edit
    auto const isWhole = [](auto const& entry) {
      auto const& [place, edit] = entry;
      return (place.first.empty() && place.second == kType) ||
             (!place.first.empty() && place.second.empty() && (edit.is.IsNull() || edit.is == SaysValue(Says::Off)));
    };
    auto const findIn = [&](Edits const& these, Edits const& others, bool isOurs) {
      for (auto const& entry : these) {
        auto const& [place, edit] = entry;
        if (!isWhole(entry) || others.contains(place)) { continue; }
        for (auto const& [where, other] : others) {
          bool const same = these.contains(where) && these.at(where).is == other.is;
          if (where.first != place.first || same || told.contains(place.first)) { continue; }
          add(where.first, where.second, isOurs ? nullptr : &other, isOurs ? &other : nullptr);
          (isOurs ? conflicts_.back().ours : conflicts_.back().theirs) = edit.is;
          conflicts_.back().detail =
              isOurs ? "ours takes away or replaces the whole, theirs edits it" : "theirs takes away or replaces the whole, ours edits it";
        }
      }
    };
    findIn(ofOurs, ofTheirs, true);
    findIn(ofTheirs, ofOurs, false);
  }

  /// Steps that both sides put behind the same one.
  void FindConflictsOfPlaces() {
    std::string const kind(kprC_Step::stepCmd().View());
    if (!EditsSteps(ofOurs_) || !EditsSteps(ofTheirs_)) { return; }
    auto const &base = kprC_Steps(base_), &ours = kprC_Steps(ours_), &theirs = kprC_Steps(theirs_);
    auto const collect = [&](kprC_StepContainer const& steps, kprC_StepContainer const& others, Differences const& differences) {
      std::map<std::string, std::string> come;  // by the step before that all have
      std::string behind;
      for (std::size_t i = 0; i < steps.Size(); ++i) {
        std::string const name(steps.Name(i).View());
        if (base.IsMember(name) && others.IsMember(name)) { behind = name; }
        if (!base.IsMember(name) && !others.IsMember(name)) { come.emplace(behind, name); }
        auto const moved = differences.find({kind, name});
        bool const isMoved = moved != differences.end() && !IsNew(moved->second) && !moved->second.previous.empty();
        auto const other = theirs.Index(name);
        bool const sameThere = isMoved && other != kprC_StepContainer::npos && other > 0 && ours.Index(name) != kprC_StepContainer::npos &&
                               ours.Name(ours.Index(name) - 1) == theirs.Name(other - 1);
        if (isMoved && !sameThere) {
          MergeConflict& conflict = Add({kind, name}, "", std::string(kPrevious));
          auto const previous = [&](kprC_StepContainer const& in) {
            std::size_t const at = in.Index(name);
            return at == kprC_StepContainer::npos ? cls_Value() : cls_Value(in.Name(at - 1).View());
          };
          conflict.base = previous(base);
          conflict.ours = previous(ours);
          conflict.theirs = previous(theirs);
          conflict.detail = "one side puts it elsewhere, and both edit the sequence of steps";
        }
      }
      return come;
    };
    auto const ofOurs = collect(ours, theirs, ofOurs_), ofTheirs = collect(theirs, ours, ofTheirs_);
    for (auto const& [behind, name] : ofOurs) {
      auto const other = ofTheirs.find(behind);
      if (other == ofTheirs.end()) { continue; }
      MergeConflict& conflict = Add({kind, behind}, "", "");
      conflict.ours = name;
      conflict.theirs = other->second;
      conflict.detail = "both insert a step behind it: which one comes first?";
    }
    // steps that both bring must stand behind the same one of those that both have
    auto const placed = [&](kprC_StepContainer const& steps, kprC_StepContainer const& others) {
      std::map<std::string, std::string> places;
      std::string last;
      for (std::size_t i = 0; i < steps.Size(); ++i) {
        std::string const name(steps.Name(i).View());
        if (!others.IsMember(name)) { continue; }
        if (!base.IsMember(name)) { places.emplace(name, last); }
        last = name;
      }
      return places;
    };
    auto const byOurs = placed(ours, theirs), byTheirs = placed(theirs, ours);
    for (auto const& [name, place] : byOurs) {
      std::string const& other = byTheirs.at(name);
      if (place == other) { continue; }
      MergeConflict& conflict = Add({kind, name}, "", std::string(kPrevious));
      conflict.ours = place;
      conflict.theirs = other;
      conflict.detail = "both insert it, in different places";
    }
  }

  // ---- making it

  void Make() {
    // it begins with the side that has edited the sequence
    bool const fromTheirs = EditsSteps(ofTheirs_) && !EditsSteps(ofOurs_);
    mine_ = fromTheirs ? &theirs_ : &ours_;
    yours_ = fromTheirs ? &ours_ : &theirs_;
    ofMine_ = fromTheirs ? &ofTheirs_ : &ofOurs_;
    ofYours_ = fromTheirs ? &ofOurs_ : &ofTheirs_;
    made_ = *mine_;
    Unrecorded const trials;
    MakeModel();
    MakeReferences(false);
    if (EditsSteps(*ofYours_)) { MakeSteps(); }
    MakeAttributes();
    MakeReferences(true);
    RefreshRegions();
  }

  void MakeModel() {
    auto const found = ofYours_->find({"model", ""});
    if (found == ofYours_->end()) { return; }
    for (MemberDifference const& one : found->second.members) { made_.SetMember(one.member, one.is); }
  }

  /// Gives a copy of \p object what the other side has given it.
  static std::unique_ptr<cls_Object> WithMembers(cls_Object const& object, ObjectDifference const& edits) {
    std::unique_ptr<cls_Object> copy = object.Copy();
    copy->NewUid();
    for (MemberDifference const& one : edits.members) { copy->SetMember(one.member, one.is); }
    return copy;
  }

  /// Those that have come or changed; at the end those that have gone, which nobody names any more.
  void MakeReferences(bool gone) {
    for (auto const& entry : *ofYours_) {
      Object const& object = entry.first;
      ObjectDifference const& yours = entry.second;
      auto const kind = std::ranges::find(ReferenceKinds(), object.first, &ReferenceKind::kind);
      if (kind == ReferenceKinds().end() || IsGone(yours) != gone) { continue; }
      cow_String const name(object.second);
      if (gone) {
        kind->In(made_).Remove(name);
        continue;
      }
      ObjectDifference const* const mine = Find(object, *ofMine_);
      Attempt(object, [&] {
        cls_Object const& theirs = *kind->In(*yours_).ConstObject(name);
        bool const isBoth = mine != nullptr && !IsNew(yours) && yours.type == mine->type;
        kind->In(made_).Put(name, isBoth ? *WithMembers(*kind->In(std::as_const(made_)).ConstObject(name), yours) : theirs);
      });
    }
  }

  // ---- steps

  /// Edits the sequence of \p model, step by step; who stands on it follows, and may refuse.
  void EditSteps(ddr_Model& model) const {
    std::string const kind(kprC_Step::stepCmd().View());
    kprC_StepAwareRepository::Following const following{[](kprC_StepDependent const&) { return true; }, {}};
    auto const edit = [&](auto&& change) {
      change(model.Get<kprC_StepContainer>(ddr_Model::stepsCmd()));
      kprC_UpdateRepositories(model, following);
    };
    kprC_StepContainer const& yours = kprC_Steps(*yours_);
    for (auto const& [object, one] : *ofYours_) {
      if (object.first != kind || !IsGone(one) || !kprC_Steps(model).IsMember(object.second)) { continue; }
      edit([&name = object.second](kprC_StepContainer& steps) { steps.Remove(name); });
    }
    for (auto const& [object, one] : *ofYours_) {
      std::size_t const at = yours.Index(object.second);
      if (object.first != kind || IsGone(one) || IsNew(one)) { continue; }
      auto const mine = ofMine_->find(object);
      kprC_StepHandle step = yours.Handle(at);
      if (mine != ofMine_->end()) {
        step = kprC_Steps(*mine_).Handle(kprC_Steps(*mine_).Index(object.second));
        if (mine->second.type == one.type || one.type == one.typeBefore) {
          kprC_Step& own = step.Get();
          own.NewUid();
          for (MemberDifference const& member : one.members) { own.SetMember(member.member, member.is); }
        }
      }
      edit([&name = object.second, &step](kprC_StepContainer& steps) { steps.Replace(name, step); });
    }
    for (std::size_t i = 1; i < yours.Size(); ++i) {
      cow_String const name = yours.Name(i);
      if (kprC_Steps(base_).IsMember(name) || kprC_Steps(model).IsMember(name)) { continue; }
      std::size_t before = i - 1;
      while (!kprC_Steps(model).IsMember(yours.Name(before))) { --before; }
      edit([&](kprC_StepContainer& steps) { steps.Insert(yours.Name(before), name, yours.Handle(i)); });
    }
  }

  void MakeSteps() {
    ddr_Model model = made_;
    if (!RefusalBy([&] { EditSteps(model); })) {
      made_ = std::move(model);
      return;
    }
    // an attribute does not follow as it is on this side: all are put back when the steps are there
    auto const extensions = made_.Extensions();
    for (auto const& [member, extension] : extensions) {
      auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
      if (repository == nullptr) { continue; }
      auto& own = made_.Get<kprC_StepAwareRepository>(member);
      for (cow_String const& name : repository->Keys()) { own.Remove(name); }
    }
    if (!Attempt({std::string(kprC_Step::stepCmd().View()), ""}, [&] { EditSteps(made_); })) { return; }
    ForEachRepository(*mine_, [&](cow_String const& extension, kprC_StepAwareRepository const& mine) {
      mine.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        if (Find({std::string(mine.ItemCmd()), std::string(name.View())}, *ofYours_) == nullptr) { Put(extension, mine, name, item); }
      });
    });
  }

  // ---- attributes

  void Put(cow_String const& extension, kprC_StepAwareRepository const& family, cow_String const& name, kprC_StepDependent const& item) {
    Attempt({std::string(family.ItemCmd()), std::string(name.View())},
            [&] { made_.Get<kprC_StepAwareRepository>(extension).InsertItem(name, item); });
  }

  void MakeAttributes() {
    ForEachRepository(*yours_, [&](cow_String const& extension, kprC_StepAwareRepository const& family) {
      std::string const kind(family.ItemCmd());
      auto const& mine = mine_->ConstGet<kprC_StepAwareRepository>(extension);
      for (auto at = ofYours_->lower_bound({kind, ""}); at != ofYours_->end() && at->first.first == kind; ++at) {
        auto const& [object, yours] = *at;
        cow_String const name(object.second);
        if (IsGone(yours)) {
          made_.Get<kprC_StepAwareRepository>(extension).Remove(name);
          continue;
        }
        ObjectDifference const* const ofMine = Find(object, *ofMine_);
        kprC_StepDependent const& item = *family.ConstItem(object.second);
        if (ofMine == nullptr) {
          Put(extension, family, name, item);
          continue;
        }
        bool const isSame = Other(EditsOf(yours), EditsOf(*ofMine)) == nullptr;
        kprC_StepDependent const& other = *mine.ConstItem(object.second);
        isSame ? Put(extension, family, name, other) : MakeOfBoth(extension, family, object, other, *ofMine, item, yours);
      }
    });
  }

  /// One that both have edited: what one says is added to the other by commands, or the reverse.
  void MakeOfBoth(cow_String const& extension, kprC_StepAwareRepository const& family, Object const& object, kprC_StepDependent const& mine,
                  ObjectDifference const& ofMine, kprC_StepDependent const& yours, ObjectDifference const& ofYours) {
    cow_String const name(object.second);
    kprC_StepDependent const& base = *base_.ConstGet<kprC_StepAwareRepository>(extension).ConstItem(object.second);
    Edits const expected = Together(EditsOf(ofMine), EditsOf(ofYours));
    std::optional<Outcome> refused;
    std::pair<std::string, std::string> place;
    auto const make = [&](kprC_StepDependent const& begin, kprC_StepDependent const& end, ObjectDifference const& edits) {
      ddr_Model model = made_;
      if (auto const refusal = RefusalBy([&] { model.Get<kprC_StepAwareRepository>(extension).InsertItem(name, begin); })) {
        if (!refused) { refused.emplace().refused = *refusal; }
        return false;
      }
      Session session(std::move(model));
      session.ForgetPast();
      if (Outcome outcome = Run(session, extension, family, name, edits, end); !outcome.ok) {
        if (!refused) { refused = std::move(outcome); }
        return false;
      }
      auto const& made = *session.Model().ConstGet<kprC_StepAwareRepository>(extension).ConstItem(object.second);
      Edits const got = EditsOf(DifferenceOf(family, &base, &made));
      if (auto const* const other = Other(got, expected)) {
        place = *other;
        return false;
      }
      made_ = session.Model();
      return true;
    };
    if (make(mine, yours, ofYours) || make(yours, mine, ofMine)) { return; }
    MergeConflict& conflict = Add(object, refused ? refused->step : place.first, refused ? refused->member : place.second);
    if (refused) {
      conflict.refusal = refused->refused;
      conflict.detail = refused->hint;
    } else {
      conflict.detail = "what both sides say of it does not come out together";
    }
  }

  /// Runs the commands that give an attribute \p edits; \p end is one that has them.
  static Outcome Run(Session& session, cow_String const& extension, kprC_StepAwareRepository const& family, cow_String const& name,
                     ObjectDifference edits, kprC_StepDependent const& end) {
    std::string const kind(family.ItemCmd()), own(name.View());
    Outcome outcome;
    outcome.ok = true;
    auto const run = [&](std::string_view command, Fields more) {
      if (!outcome.ok) { return; }
      Fields fields{{"command", std::string(command)}, {kind, own}};
      fields.insert(fields.end(), more.begin(), more.end());
      outcome = session.Execute(fields);
    };
    auto const operation = [&](kprC_Effect effect) -> std::string_view {
      kprC_Operation const* const found = FindOperation(family, effect);
      return found == nullptr ? std::string_view() : found->command;
    };
    auto const item = [&] { return session.Model().ConstGet<kprC_StepAwareRepository>(extension).ConstItem(own); };
    auto const step = [](std::string const& at) { return Fields{{std::string(kStepName), at}}; };
    FindMoved(edits.records);
    bool suppressed = item()->IsSuppressed();
    if (suppressed) { run("resume", {}); }
    Fields members;
    for (MemberDifference const& one : edits.members) {
      if (IsSuppression(one.member)) {
        suppressed = end.IsSuppressed();
      } else {
        members.emplace_back(one.member, one.is);
      }
    }
    if (!members.empty()) { run("setValues", members); }
    auto const isOff = [](Says says) { return says == Says::Off || says == Says::CreationOff; };
    for (RecordDifference const& one : edits.records) {
      if (isOff(one.was) && !isOff(one.is) && one.movedFrom.empty()) { run(operation(kprC_Effect::TakeBack), step(one.step)); }
    }
    for (RecordDifference const& one : edits.records) {
      if (!one.movedFrom.empty()) {
        run(operation(kprC_Effect::Move), {{std::string(kFromStep), one.movedFrom}, {std::string(kToStep), one.step}});
      }
    }
    for (RecordDifference const& one : edits.records) {
      bool const isTaken = one.is == Says::Nothing && !isOff(one.was);
      if (isTaken) { run("remove", step(one.step)); }
    }
    for (RecordDifference const& one : edits.records) {
      if (one.members.empty() || one.is == Says::Nothing || one.is == Says::Off) { continue; }
      Fields values = step(one.step);
      bool const fewer =
          one.is == Says::Values && std::ranges::any_of(one.members, [](MemberDifference const& member) { return member.is.IsNull(); });
      if (fewer) {  // the record is taken away and said again without them
        for (RecordDifference const& said : DifferenceOf(family, nullptr, item()).records) {
          if (said.step != one.step) { continue; }
          for (MemberDifference const& member : said.members) {
            bool const isEdited = std::ranges::find(one.members, member.member, &MemberDifference::member) != one.members.end();
            if (!isEdited) { values.emplace_back(member.member, member.is); }
          }
        }
        run("remove", step(one.step));
      }
      for (MemberDifference const& member : one.members) {
        if (!member.is.IsNull()) {
          values.emplace_back(member.member, member.is);
        } else if (one.is != Says::Values) {
          values.emplace_back(member.member, "UNSET");
        }
      }
      if (values.size() > 1) { run("setValuesInStep", values); }
    }
    for (std::size_t i = edits.records.size(); i-- > 0;) {
      RecordDifference const& one = edits.records[i];
      if (isOff(one.is) && !isOff(one.was)) { run(operation(kprC_Effect::SwitchOff), step(one.step)); }
    }
    if (suppressed) { run("suppress", {}); }
    return outcome;
  }

  /// Attributes hold regions whole: those that were edited are given to all who name them.
  void RefreshRegions() {
    ReferenceKind const& kind = *FindReferenceKind(cls_Reference::Region);
    mdl_NamedObjects const& regions = kind.In(std::as_const(made_));
    if (&regions == &kind.In(base_)) { return; }
    ddr_Model const before = made_;
    ForEachRepository(before, [&](cow_String const& extension, kprC_StepAwareRepository const& family) {
      family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        std::set<std::string> others;
        ForEachNamed(item, [&](cls_MemberRow const&, cls_Reference reference, std::string_view region, cls_Object const* whole) {
          cls_Object const* const declared = reference == cls_Reference::Region ? regions.ConstObject(region) : nullptr;
          if (declared != nullptr && whole != nullptr && !whole->Equals(*declared)) { others.emplace(region); }
        });
        for (std::string const& region : others) {
          Attempt({std::string(family.ItemCmd()), std::string(name.View())}, [&] {
            made_.Get<kprC_StepAwareRepository>(extension).Item(name)->Redirect(
                {cls_Reference::Region, region, region, regions.ConstObject(region)});
          });
        }
      });
    });
  }

  // ---- what has become of it

  /// Tells of what has not come out as both sides say.
  void AssertMade() {
    Differences const made = DifferencesFrom(made_);
    std::set<Object> objects;
    for (Differences const* const differences : std::initializer_list<Differences const*>{&ofOurs_, &ofTheirs_, &made}) {
      for (auto const& [object, one] : *differences) { objects.insert(object); }
    }
    for (Object const& object : objects) {
      Edits const expected = Together(EditsIn(ofOurs_, object), EditsIn(ofTheirs_, object)), got = EditsIn(made, object);
      auto const* const place = Other(got, expected);
      if (place == nullptr) { continue; }
      auto const value = [&](Edits const& edits) {
        auto const found = edits.find(*place);
        return found == edits.end() ? cls_Value() : found->second.is;
      };
      MergeConflict& conflict = Add(object, place->first, place->second);
      Edits const ours = EditsIn(ofOurs_, object), theirs = EditsIn(ofTheirs_, object);
      auto const was = expected.find(*place);
      conflict.base = was == expected.end() ? got.at(*place).was : was->second.was;
      conflict.ours = ours.contains(*place) ? value(ours) : conflict.base;
      conflict.theirs = theirs.contains(*place) ? value(theirs) : conflict.base;
      conflict.detail = "the edits of both sides together make something else of it";
    }
  }

  /// What is wrong with it and was not on either side: errors are conflicts.
  std::vector<Finding> Check() {
    using Key = std::tuple<FindingKind, std::string, std::string, std::string, std::string, int, std::string>;
    auto const key = [](Finding const& one) {
      return Key{one.found, one.kind, one.name, one.step, one.member, one.refusal.code, one.detail};
    };
    std::set<Key> known;
    for (ddr_Model const* const side : {&ours_, &theirs_}) {
      for (Finding const& one : gattr::Check(*side)) { known.insert(key(one)); }
    }
    std::vector<Finding> found;
    for (Finding& one : gattr::Check(made_)) {
      if (one.Row().severity == Severity::Note || known.contains(key(one))) { continue; }
      if (one.Row().severity == Severity::Warning) {
        found.push_back(std::move(one));
        continue;
      }
      MergeConflict& conflict = Add({one.kind, one.name}, one.step, one.member);
      conflict.refusal = std::move(one.refusal);
      conflict.detail = one.detail.empty() || one.hint.empty() ? one.detail + one.hint : one.detail + " " + one.hint;
    }
    return found;
  }

  ddr_Model base_, ours_, theirs_, made_;  // under the names that either side gives
  Differences ofOurs_, ofTheirs_;
  ddr_Model const *mine_ = nullptr, *yours_ = nullptr;  // with which it begins, and whose edits are added
  Differences const *ofMine_ = nullptr, *ofYours_ = nullptr;
  std::vector<MergeConflict> conflicts_;
};

}  // namespace

std::string MergeConflict::Text() const {
  std::string text = kind == "model" ? kind : ObjectText(kind, name);
  if (!step.empty()) { text += " in step " + Quoted(step); }
  if (!member.empty()) { text += ", " + Quoted(member); }
  bool const hasValues = !(base.IsNull() && ours.IsNull() && theirs.IsNull());
  auto const value = [](cls_Value const& one) { return one.IsNull() ? std::string("nothing") : JsonText(one); };
  if (hasValues) { text += ": " + value(base) + " in base, " + value(ours) + " in ours, " + value(theirs) + " in theirs"; }
  if (!refusal.message.empty()) { text += ": " + RefusalText(refusal); }
  return detail.empty() ? text : text + (refusal.message.empty() ? ": " : " ") + OneLine(detail);
}

Merged Merge(ddr_Model const& base, ddr_Model const& ours, ddr_Model const& theirs) { return Merging(base, ours, theirs).Run(); }

}  // namespace gattr
