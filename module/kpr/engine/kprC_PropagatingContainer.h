#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "platform/CaeUtils/omu_ChangeHistory.h"
#include "platform/CoreUtils/omi_TimeCounter.h"

/// The named repository of one family of step-dependent attributes: a map from name to attribute and the step sequence.
/// It hands every attribute the sequence, keeps every history in line with it, and records every change in the change
/// history of the thread: ("Insert", name, -99), ("Remove", name), ("Modify", name + "."), ("RedoSummary").
///
/// A value: a copy is a snapshot that shares everything. Editing one attribute is logarithmic in their number.
/// \tparam T the family's attribute class, which names its Rules.
template <class T> class kprC_PropagatingContainer final : public cls_Persistent<kprC_PropagatingContainer<T>, kprC_StepAwareRepository> {
public:
  using Handle = cow_Handle<T>;

  kprC_PropagatingContainer() = default;
  /// \p attached: whether the step sequence that was read is checked against the histories and shared with them.
  explicit kprC_PropagatingContainer(cls_ReadVisitor const& in, bool attached = true) {
    cls_ReadMembers(*this, in);
    if (attached) { AttachHistories(in); }
  }

  /// Inserts a copy of \p item, with the step sequence and its history, in the place of what stood under \p name.
  /// Raises what the attribute refuses; the map is then unchanged.
  bool Insert(cow_String const& name, T const& item) {
    Handle copy = CopyOf(name, item);
    this->Initialize(Own(copy.Get()), table_);
    if (!this->IsUpToDate(*copy, table_)) { copy->AssertValid(); }
    return Take(name, std::move(copy));
  }
  /// The same without any check of validity.
  bool ForcedInsert(cow_String const& name, T const& item) {
    Handle copy = CopyOf(name, item);
    this->InitializeStateValues(Own(copy.Get()), table_);
    return Take(name, std::move(copy));
  }
  bool Remove(cow_String const& name) override {
    if (!map_.Remove(name)) { return false; }
    names_.Reset();
    Record(omu_ChangeKind::Remove, name);
    return true;
  }

  /// The attribute for change, separated from all who share it; refuses an unknown name.
  T& Get(cow_String const& name) {
    Handle* const found = map_.Get(name);
    if (found == nullptr) { mdl_RefuseMissing(name, "repository"); }
    return found->Get();
  }
  T const& ConstGet(cow_String const& name) const {
    Handle const* const found = map_.ConstFind(name);
    if (found == nullptr) { mdl_RefuseMissing(name, "repository"); }
    return **found;
  }
  bool IsMember(std::string_view name) const { return map_.ConstFind(name) != nullptr; }
  bool IsEmpty() const { return map_.Size() == 0; }
  std::size_t Size() const override { return map_.Size(); }
  cow_List<cow_String> Keys() const override {
    cow_List<cow_String> names;
    for (auto const& [name, item] : map_) { names.Append(name); }
    return names;
  }
  /// Number of attributes that are not suppressed.
  int UnsuppressedSize() const {
    int size = 0;
    for (auto const& [name, item] : map_) { size += item->IsSuppressed() ? 0 : 1; }
    return size;
  }

  /// Takes the time of a change and, unless it is empty, the name of what changed.
  void UpdateTimeStamp(cow_String const& name) {
    timeStamp_ = omi_gettimecounter();
    if (name.IsEmpty()) { return; }
    if (Handle* const item = map_.Get(name)) {
      this->SetChangedAt(Own(item->Get()), timeStamp_);
    } else {
      gone_.Insert(name, true);
    }
  }
  unsigned long long TimeStamp() const { return timeStamp_; }
  /// Linear in the attributes.
  cow_List<cow_String> ChangedNames() const override {
    cow_Map<cow_String, bool> changed = gone_;
    if (allChanged_) {
      allChanged_->ForEach([&changed](cow_String const& name) { changed.Insert(name, true); });
    }
    for (auto const& [name, item] : map_) {
      if (this->ChangedAt(static_cast<kprC_StepDependent const&>(*item)) > clearedAt_) { changed.Insert(name, true); }
    }
    cow_List<cow_String> names;
    for (auto const& [name, is] : changed) { names.Append(name); }
    return names;
  }
  void ClearChangedNames() override {
    gone_ = {};
    allChanged_.Reset();
    clearedAt_ = timeStamp_;
  }

  kprC_StepTable const& Steps() const override { return table_; }
  void ClearSteps() {
    map_ = {};
    names_.Reset();
    table_ = kprC_StepTable();
    UpdateTimeStamp(cow_String());
  }
  /// The regions of \p regions that no attribute refers to, each once.
  cls_xoList<rgnC_Region> DanglingRegions(cls_xoList<rgnC_Region> const& regions) const {
    cow_Map<cow_String, bool> used;
    for (auto const& [name, item] : map_) {
      for (auto const type : {rgnC_Set, rgnC_Surface}) {
        for (rgnC_Region const& region : item->Regions(type)) { used.Insert(region.Name(), true); }
      }
    }
    cls_xoList<rgnC_Region> dangling;
    for (rgnC_Region const& region : regions) {
      if (used.Insert(region.Name(), true)) { dangling.Append(region); }
    }
    return dangling;
  }
  /// Regions that attributes deleted with their step have left without an owner, each once, until somebody refers to them again
  /// or they are released.
  cls_xoList<rgnC_Region> Dangling() const override { return DanglingRegions(danglingRegions_); }
  void ReleaseDanglingRegions() override { danglingRegions_ = {}; }

  using kprC_StepAwareRepository::UpdateSteps;
  void UpdateSteps(kprC_StepTable const& steps, kprC_StepAwareRepository::Following const& following) override {
    bool const grows = table_.Size() != 0 && steps.Size() != table_.Size();
    if (steps.Size() != table_.Size()) {
      Record(omu_ChangeKind::RedoSummary, cow_String());
      while (steps.Size() > table_.Size()) { InsertStep(steps, following); }
      while (steps.Size() < table_.Size()) { RemoveStep(steps, following); }
    }
    RenameSteps(steps);
    ReplaceSteps(steps, following);
    if (grows && table_.Same(steps)) { return RecordAllModified(); }  // all have followed on the way here
    kprC_StepTable const before = table_;
    table_ = steps;
    Follow(before, table_, following);
  }

  kprC_StepDependent const* ConstItem(std::string_view name) const override {
    Handle const* found = map_.ConstFind(name);
    return found == nullptr ? nullptr : found->ConstGet();
  }
  kprC_StepDependent* Item(std::string_view name) override {
    Handle* found = map_.Get(name);
    return found == nullptr ? nullptr : &found->Get();
  }
  bool InsertItem(cow_String const& name, kprC_StepDependent const& item) override { return Insert(name, dynamic_cast<T const&>(item)); }
  void RenameItem(cow_String const& name, cow_String const& newName) override {
    Handle const* const present = map_.ConstFind(name);
    if (present == nullptr) { mdl_RefuseMissing(name.View(), "repository"); }
    Handle item = *present;
    Remove(name);
    item.Get().SetName(newName);
    Take(newName, std::move(item));
  }
  void ForEach(std::function<void(cow_String const&, kprC_StepDependent const&)> const& visit) const override {
    for (auto const& [name, item] : map_) { visit(name, *item); }
  }
  void RecordModify(cow_String const& name) override { Record(omu_ChangeKind::Modify, name); }
  void RecordModify(kprC_StepDependent& item) override {
    thr_ThreadSingleton<omu_ChangeHistory>::Instance().Append(omu_ChangeKind::Modify, item.Name());
    UpdateTimeStamp(cow_String());
    this->SetChangedAt(item, timeStamp_);
  }
  bool ForEachChange(mdl_Extension const& before, mdl_Extension::ChangeVisitor const& visit) const override {
    cls_MemberTraits<decltype(map_)>::ForEachChange(static_cast<kprC_PropagatingContainer const&>(before).map_, map_, visit);
    return true;
  }
  std::string_view ItemCmd() const override { return T::itemCmd(); }
  std::string_view CopyCmd() const override {
    if constexpr (requires { T::copyConstructorCmd(); }) {
      return T::copyConstructorCmd();
    } else {
      return {};
    }
  }
  cls_Reference Reference() const override {
    if constexpr (requires { T::kReference; }) {
      return T::kReference;
    } else {
      return cls_Reference::None;
    }
  }
  std::string Module() const override { return T::kModule; }
  kprC_EditRefusalCodes const& EditRefusals() const override {
    static constexpr kprC_EditRefusalCodes codes = T::EditRefusals();
    return codes;
  }
  [[noreturn]] void Refuse(int code) const override { T::Refuse(code); }
  std::span<kprC_Operation const> Operations() const override { return T::Operations(); }
  std::span<kprC_TypeEdit const> TypeEdits() const override { return T::TypeEdits(); }
  kprC_StatusTable const& Statuses() const override { return T::kStatuses; }
  std::vector<kprC_StepAwareRepository::Construction> Constructions() const override {
    std::vector<kprC_StepAwareRepository::Construction> list;
    for (auto const& constructor : T::Constructors()) { list.push_back({constructor.command, constructor.label}); }
    return list;
  }
  std::unique_ptr<kprC_StepDependent> Construct(std::string_view command) const override {
    for (auto const& constructor : T::Constructors()) {
      if (constructor.command == command) { return constructor.make(); }
    }
    return nullptr;
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    mdl_Repository::VisitMembers(visit);
    visit("map", &kprC_PropagatingContainer::map_, cls_MemberText{"the attributes by name"});
    visit("procedures", &kprC_PropagatingContainer::table_, cls_MemberText{"the step sequence"});
    visit("danglingRegions", &kprC_PropagatingContainer::danglingRegions_,
          cls_MemberText{"regions left without an owner by attributes that went with their step"});
  }

private:
  using Following = kprC_StepAwareRepository::Following;

  /// The face with the calls that are the repository's alone.
  static kprC_StepDependent& Own(T& item) { return item; }

  Handle CopyOf(cow_String const& name, T const& item) const {
    Handle copy(std::unique_ptr<T>(static_cast<T*>(item.Copy().release())));
    copy.Get().NewUid();  // two names are two objects, also to a writer
    copy.Get().SetName(name);
    return copy;
  }
  bool Take(cow_String const& name, Handle item) {
    bool const present = !map_.Insert(name, std::move(item));
    if (!present) { names_.Reset(); }
    if (!danglingRegions_.IsEmpty()) { danglingRegions_ = DanglingRegions(danglingRegions_); }
    if (present) { Record(omu_ChangeKind::Remove, name); }
    Record(omu_ChangeKind::Insert, name);
    return true;
  }
  /// Names in key order, which the change history holds on to for as long as it tells of all of them.
  struct Names final : omu_ChangedNames {
    std::vector<cow_String> names;
    std::size_t Size() const override { return names.size(); }
    void ForEach(Visitor const& visit) const override {
      for (cow_String const& name : names) { visit(name); }
    }
  };
  void RecordAllModified() {
    if (!names_) {
      names_ = cow_Handle<Names>::Make();
      auto& names = names_.Get().names;
      names.reserve(map_.Size());
      for (auto const& [name, item] : map_) { names.push_back(name); }
    }
    thr_ThreadSingleton<omu_ChangeHistory>::Instance().AppendModifiedAll(names_);
    allChanged_ = names_;
    UpdateTimeStamp(cow_String());
  }
  void Record(omu_ChangeKind kind, cow_String const& name) {
    thr_ThreadSingleton<omu_ChangeHistory>::Instance().Append(kind, name);
    UpdateTimeStamp(name);
  }
  /// Hands \p steps to every attribute in key order, and records each as modified. One that stands on \p before has nothing to do
  /// where the edit left what it says alone; the others are initialized. \p removed: a step, and what was created in it goes with
  /// it. A refusal passes: the attributes before it have followed, those behind it have not.
  void Follow(kprC_StepTable const& before, kprC_StepTable const& steps, Following const& following, cow_String const* removed = nullptr) {
    if (map_.Size() == 0 || steps.Size() == 0) { return; }
    bool const follows = steps.Continues(before);
    std::exception_ptr refusal;
    cow_String refused;
    std::vector<cow_String> gone;
    auto followed = map_.Mapped([&](cow_String const& name, Handle item) {
      if (refusal) { return item; }
      if (removed != nullptr && item->CreateStepName() == *removed) {
        gone.push_back(name);
        return item;
      }
      try {
        bool const onTable = follows && (item->Steps().Same(before) || item->Steps().Same(steps));
        if (!onTable) {
          this->Initialize(Own(item.Get()), steps);
        } else if (!this->IsUpToDate(*item, steps)) {
          this->FollowSteps(Own(item.Get()), steps);
        }
      } catch (...) {
        refusal = std::current_exception();
        refused = name;
      }
      return item;
    });
    if (gone.empty() && !refusal) {
      map_ = std::move(followed);
      return RecordAllModified();
    }
    auto const previous = std::exchange(map_, std::move(followed));
    for (auto const& [name, item] : previous) {
      if (refusal && name == refused) { break; }
      bool const goes = std::ranges::binary_search(gone, name);
      if (goes) { map_.Remove(name); }
      Record(goes ? omu_ChangeKind::Remove : omu_ChangeKind::Modify, name);
    }
    std::vector<rgnC_Region> regions(danglingRegions_.begin(), danglingRegions_.end());
    for (cow_String const& name : gone) {
      for (auto const type : {rgnC_Set, rgnC_Surface}) {
        for (rgnC_Region const& region : (*previous.ConstFind(name))->Regions(type)) { regions.push_back(region); }
      }
    }
    names_.Reset();
    danglingRegions_ = DanglingRegions(cls_xoList<rgnC_Region>(std::move(regions)));
    if (refusal && following.refused) { following.refused(*this, refused); }
    if (refusal) { std::rethrow_exception(refusal); }
  }

  /// Inserts the first step at which the sequences differ.
  void InsertStep(kprC_StepTable const& steps, Following const& following) {
    // nobody to tell step by step, or attributes that have had no sequence yet and are initialized with the first one
    if (map_.Size() == 0 || table_.Size() == 0) { return static_cast<void>(table_ = steps); }
    kprC_StepTable longer = steps;
    if (!steps.Continues(table_)) {
      std::size_t index = 0;
      while (index < table_.Size() && table_.Name(index) == steps.Name(index)) { ++index; }
      longer = table_.WithInserted(index, steps[index]);
    }
    Follow(table_, longer, following);
    table_ = longer;
  }
  /// Removes the first step that \p steps lacks; what was created in it goes with it.
  void RemoveStep(kprC_StepTable const& steps, Following const& following) {
    std::size_t index = steps.Continues(table_) ? table_.Position(steps.Disturbed()) : 0;
    if (!steps.Continues(table_)) {
      while (index + 1 < table_.Size() && steps.Find(table_.Name(index).View()) != kprC_StepTable::npos) { ++index; }
    }
    cow_String const removed = table_.Name(index);
    kprC_StepTable const shorter = steps.Continues(table_) ? steps : table_.WithRemoved(index);
    Follow(table_, shorter, following, &removed);
    table_ = shorter;
  }
  /// All new names at once, so that two steps may exchange theirs. The records of the old names take the new ones; nothing is formed.
  void RenameSteps(kprC_StepTable const& steps) {
    if (steps.Continues(table_) || table_.SameNames(steps)) { return; }
    kprC_StepTable const renamed = table_.WithNames(steps);
    map_ = map_.Mapped([&](cow_String const&, Handle item) {
      if (item->Steps().Same(table_)) { this->TakeSteps(Own(item.Get()), renamed); }
      return item;
    });
    table_ = renamed;
  }
  /// Empties what the attributes say in steps that get another kind of procedure, unless they keep it; refused where one was created
  /// there.
  void ReplaceSteps(kprC_StepTable const& steps, Following const& following) {
    if (steps.Same(table_) || (steps.Continues(table_) && steps.Disturbed() == 0)) { return; }
    for (std::size_t i = 0; i < steps.Size(); ++i) {
      auto const& now = table_[i].procedure;
      auto const& then = steps[i].procedure;
      if (now == then || !now || !then || now->DynTypeId() == then->DynTypeId()) { continue; }
      kprC_StepTable const bare = table_.WithReplaced(i, kprC_StepNameProcedurePair(table_.Name(i), nullptr));
      std::vector<cow_String> passed;  // that say nothing in the step
      for (cow_String const& name : Keys()) {
        if (following.keeps && following.keeps(ConstGet(name))) { continue; }
        if (ConstGet(name).Steps().Same(table_) && !this->SaysSomething(ConstGet(name), i)) {
          passed.push_back(name);
          continue;
        }
        try {
          this->EmptyStep(Own(Get(name)), i, bare);
        } catch (...) {
          for (cow_String const& before : passed) { this->EmptyStep(Own(Get(before)), i, bare); }
          if (following.refused) { following.refused(*this, name); }
          throw;
        }
      }
    }
  }

  void AttachHistories(cls_ReadVisitor const& in) {
    map_.ForEachToChange([&](cow_String const& name, Handle& item) {
      T& own = item.Get();
      own.SetName(name);
      this->RestoreHistory(Own(own), in, table_);
    });
  }

  cow_Map<cow_String, Handle> map_;
  cls_xoList<rgnC_Region> danglingRegions_;
  kprC_StepTable table_;
  unsigned long long timeStamp_ = 0;
  unsigned long long clearedAt_ = 0;  // changed names are those of later changes
  cow_Map<cow_String, bool> gone_;    // names that changed and are no longer here
  cow_Handle<Names> allChanged_;
  cow_Handle<Names> names_;  // of all attributes, as far as somebody has asked since one came or went
};
