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
    table_ = kprC_StepTable(procedures_);
    if (attached) { AttachHistories(in); }
  }

  /// Inserts a copy of \p item, with the step sequence and its history, in the place of what stood under \p name.
  /// Raises what the attribute refuses; the map is then unchanged.
  bool Insert(cow_String const& name, T const& item) {
    Handle copy = CopyOf(name, item);
    Own(copy.Get()).Initialize(table_);
    copy->AssertValid();
    return Take(name, std::move(copy));
  }
  /// The same without any check of validity.
  bool ForcedInsert(cow_String const& name, T const& item) {
    Handle copy = CopyOf(name, item);
    Own(copy.Get()).InitializeStateValues(table_);
    return Take(name, std::move(copy));
  }
  bool Remove(cow_String const& name) override {
    if (!map_.Remove(name)) { return false; }
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
    if (!name.IsEmpty()) { changedNames_.Insert(name, true); }
  }
  unsigned long long TimeStamp() const { return timeStamp_; }
  cow_List<cow_String> ChangedNames() const override {
    cow_List<cow_String> names;
    for (auto const& [name, changed] : changedNames_) { names.Append(name); }
    return names;
  }
  void ClearChangedNames() override { changedNames_ = {}; }

  kprC_StepTable const& Steps() const override { return table_; }
  void ClearSteps() {
    map_ = {};
    SetSteps(kprC_StepTable());
    UpdateTimeStamp(cow_String());
  }
  /// The regions of \p regions that no attribute refers to.
  cls_xoList<rgnC_Region> DanglingRegions(cls_xoList<rgnC_Region> const& regions) const {
    cow_Map<cow_String, bool> used;
    for (auto const& [name, item] : map_) {
      for (auto const type : {rgnC_Set, rgnC_Surface}) {
        for (rgnC_Region const& region : item->Regions(type)) { used.Insert(region.Name(), true); }
      }
    }
    cls_xoList<rgnC_Region> dangling;
    for (rgnC_Region const& region : regions) {
      if (used.ConstFind(region.Name()) == nullptr) { dangling.Append(region); }
    }
    return dangling;
  }
  /// Regions that attributes deleted with their step have left without an owner.
  cls_xoList<rgnC_Region> const& Dangling() const { return danglingRegions_; }

  void UpdateSteps(kprC_StepTable const& steps) override {
    bool const first = table_.Size() == 0;
    if (steps.Size() != table_.Size()) {
      Record(omu_ChangeKind::RedoSummary, cow_String());
      while (steps.Size() > table_.Size()) { InsertStep(steps); }
      while (steps.Size() < table_.Size()) { RemoveStep(steps); }
    }
    RenameSteps(steps);
    ReplaceSteps(steps);
    bool const sameNames = !first && table_.SameNames(steps);  // asked once, not by every attribute
    SetSteps(steps);
    for (cow_String const& name : Keys()) {
      if (sameNames) { Own(Get(name)).AttachSteps(table_); }
      Own(Get(name)).Initialize(table_);
      RecordModify(name);
    }
  }

  kprC_StepDependent const* ConstItem(std::string_view name) const override {
    Handle const* found = map_.ConstFind(name);
    return found == nullptr ? nullptr : found->ConstGet();
  }
  kprC_StepDependent* Item(std::string_view name) override {
    Handle* found = map_.Get(cow_String(name));
    return found == nullptr ? nullptr : &found->Get();
  }
  bool InsertItem(cow_String const& name, kprC_StepDependent const& item) override { return Insert(name, dynamic_cast<T const&>(item)); }
  void RenameItem(cow_String const& name, cow_String const& newName) override {
    Handle item = *map_.ConstFind(name);
    Remove(name);
    item.Get().SetName(newName);
    Take(newName, std::move(item));
  }
  void ForEach(std::function<void(cow_String const&, kprC_StepDependent const&)> const& visit) const override {
    for (auto const& [name, item] : map_) { visit(name, *item); }
  }
  void RecordModify(cow_String const& name) override { Record(omu_ChangeKind::Modify, name); }
  bool ForEachChange(mdl_Extension const& before, mdl_Extension::ChangeVisitor const& visit) const override {
    cls_MemberTraits<decltype(map_)>::ForEachChange(dynamic_cast<kprC_PropagatingContainer const&>(before).map_, map_, visit);
    return true;
  }
  std::string ItemCmd() const override { return std::string(T::itemCmd().View()); }
  std::string Module() const override { return T::kModule; }
  kprC_EditRefusalCodes const& EditRefusals() const override {
    static constexpr kprC_EditRefusalCodes codes = T::EditRefusals();
    return codes;
  }
  [[noreturn]] void Refuse(int code) const override { T::Refuse(code); }
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
    visit("procedures", &kprC_PropagatingContainer::procedures_, cls_MemberText{"the step sequence"});
    visit("danglingRegions", &kprC_PropagatingContainer::danglingRegions_,
          cls_MemberText{"regions left without an owner by attributes that went with their step"});
  }

private:
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
    if (present) { Record(omu_ChangeKind::Remove, name); }
    Record(omu_ChangeKind::Insert, name);
    return true;
  }
  void Record(omu_ChangeKind kind, cow_String const& name) {
    thr_ThreadSingleton<omu_ChangeHistory>::Instance().Append(kind, name);
    UpdateTimeStamp(name);
  }
  void SetSteps(kprC_StepTable const& steps) {
    table_ = steps;
    procedures_ = steps.Steps();
  }

  /// Inserts the first step at which the sequences differ.
  void InsertStep(kprC_StepTable const& steps) {
    // nobody to tell step by step, or attributes that have had no sequence yet and are initialized with the first one
    if (map_.Size() == 0 || table_.Size() == 0) { return SetSteps(steps); }
    std::size_t index = 0;
    while (index < table_.Size() && table_.Name(index) == steps.Name(index)) { ++index; }
    kprC_StepTable const longer = OrWanted(table_.WithInserted(index, steps[index]), steps);
    for (cow_String const& name : Keys()) {
      Own(Get(name)).InsertStep(index, longer);
      RecordModify(name);
    }
    SetSteps(longer);
  }
  /// \p wanted itself where \p made tells the same, so that the histories share the table they will be left with.
  static kprC_StepTable OrWanted(kprC_StepTable const& made, kprC_StepTable const& wanted) { return made.Tells(wanted) ? wanted : made; }
  /// Removes the first step that \p steps lacks; what was created in it goes with it.
  void RemoveStep(kprC_StepTable const& steps) {
    std::size_t index = 0;
    while (index + 1 < table_.Size() && steps.Find(table_.Name(index).View()) != kprC_StepTable::npos) { ++index; }
    cow_String const removed = table_.Name(index);
    kprC_StepTable const shorter = OrWanted(table_.WithRemoved(index), steps);
    cls_xoList<rgnC_Region> regions;
    for (cow_String const& name : Keys()) {
      T const& item = ConstGet(name);
      if (item.CreateStepName() == removed) {
        for (auto const type : {rgnC_Set, rgnC_Surface}) {
          for (rgnC_Region const& region : item.Regions(type)) { regions.Append(region); }
        }
        Remove(name);
      } else {
        Own(Get(name)).RemoveStep(index, shorter);
        RecordModify(name);
      }
    }
    for (rgnC_Region const& region : DanglingRegions(regions)) { danglingRegions_.Append(region); }
    SetSteps(shorter);
  }
  /// All new names at once, so that two steps may exchange theirs.
  void RenameSteps(kprC_StepTable const& steps) {
    bool renamed = false;
    kprC_StepSequence sequence = table_.Steps();
    for (std::size_t i = 0; i < steps.Size(); ++i) {
      if (table_.Name(i) == steps.Name(i)) { continue; }
      sequence.Get(i).stepName = steps.Name(i);
      renamed = true;
    }
    if (!renamed) { return; }
    SetSteps(OrWanted(kprC_StepTable(std::move(sequence)), steps));
    for (cow_String const& name : Keys()) { Own(Get(name)).RenameStep(table_); }
  }
  void ReplaceSteps(kprC_StepTable const& steps) {
    for (std::size_t i = 0; i < steps.Size(); ++i) {
      auto const& now = table_[i].procedure;
      auto const& then = steps[i].procedure;
      if (!now || !then || now->DynTypeId() == then->DynTypeId()) { continue; }
      kprC_StepTable const bare = table_.WithReplaced(i, kprC_StepNameProcedurePair(table_.Name(i), nullptr));
      for (cow_String const& name : Keys()) { Own(Get(name)).ReplaceStep(i, bare); }
      SetSteps(bare);
    }
  }

  void AttachHistories(cls_ReadVisitor const& in) {
    for (cow_String const& name : Keys()) {
      T& item = Get(name);
      item.SetName(name);
      Own(item).RestoreHistory(in, table_);
    }
  }

  cow_Map<cow_String, Handle> map_;
  kprC_StepSequence procedures_;  // what table_ was made from
  cls_xoList<rgnC_Region> danglingRegions_;
  kprC_StepTable table_;
  unsigned long long timeStamp_ = 0;
  cow_Map<cow_String, bool> changedNames_;
};
