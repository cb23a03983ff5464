#pragma once

#include <functional>
#include <memory>
#include <vector>
#include "framework/mdl_Extension.h"

#include "module/kpr/engine/kprC_Family.h"
#include "module/kpr/engine/kprC_StepDependent.h"

/// A repository of step-dependent attributes of one family, as the steps, the stores and the commands see it.
class DDB_API kprC_StepAwareRepository : public mdl_Repository {
public:
  static constexpr auto kInterface = mdl_InterfaceEnm::StepAwareRepository;
  mdl_InterfaceEnm Interface() const final { return kInterface; }

  /// Takes the step sequence: inserts, removes, renames and replaces the steps of every attribute and forms every
  /// history anew. Refusals of an attribute pass; attributes updated by then stay updated.
  void UpdateSteps(kprC_StepTable const& steps) { UpdateSteps(steps, {}); }
  /// What is asked and told while attributes follow an edit of the sequence; each may be empty.
  struct Following {
    /// Whether an attribute keeps what it says in a step whose procedure is another one now; else it is emptied there.
    std::function<bool(kprC_StepDependent const& item)> keeps;
    /// Told whose refusal is going to pass.
    std::function<void(kprC_StepAwareRepository const& repository, cow_String const& name)> refused;
  };
  virtual void UpdateSteps(kprC_StepTable const& steps, Following const& following) = 0;
  virtual kprC_StepTable const& Steps() const = 0;
  /// Regions left without an owner by attributes that went with their step, each once, until one refers to them again or
  /// they are released.
  virtual cls_xoList<rgnC_Region> Dangling() const = 0;
  virtual void ReleaseDanglingRegions() = 0;

  virtual std::size_t Size() const = 0;
  virtual cow_List<cow_String> Keys() const = 0;
  /// The attribute for reading, or null.
  virtual kprC_StepDependent const* ConstItem(std::string_view name) const = 0;
  /// The attribute for change, separated from all who share it, or null. Who changes it calls RecordModify with it.
  virtual kprC_StepDependent* Item(std::string_view name) = 0;
  /// Inserts a copy of \p item, which must be of the family.
  virtual bool InsertItem(cow_String const& name, kprC_StepDependent const& item) = 0;
  virtual bool Remove(cow_String const& name) = 0;
  /// Gives an attribute another name, which must be free; recorded as removed and inserted.
  virtual void RenameItem(cow_String const& name, cow_String const& newName) = 0;
  /// Calls \p visit with every attribute in key order.
  virtual void ForEach(std::function<void(cow_String const&, kprC_StepDependent const&)> const& visit) const = 0;
  /// Records ("Modify", name + ".") and the change's time.
  virtual void RecordModify(cow_String const& name) = 0;
  /// The same of an attribute that was taken for change: it is not looked up again.
  virtual void RecordModify(kprC_StepDependent& item) = 0;
  /// Names changed since the list was last cleared, each once.
  virtual cow_List<cow_String> ChangedNames() const = 0;
  virtual void ClearChangedNames() = 0;

  /// What one attribute is called in commands: "boundaryCondition".
  virtual std::string_view ItemCmd() const = 0;
  /// The command that copies one, "BoundaryCondition"; empty in a family without.
  virtual std::string_view CopyCmd() const { return {}; }
  /// As what members of others name its attributes; None where none does.
  virtual cls_Reference Reference() const { return cls_Reference::None; }
  /// The module's prefix: "kbc".
  virtual std::string Module() const = 0;
  /// What the editing layers refuse, by the family's numbers.
  virtual kprC_EditRefusalCodes const& EditRefusals() const = 0;
  /// Raises the family's refusal of that number.
  [[noreturn]] virtual void Refuse(int code) const = 0;

  /// What may be done to an attribute in a step.
  virtual std::span<kprC_Operation const> Operations() const = 0;
  /// What attributes of some types know beside that.
  virtual std::span<kprC_TypeEdit const> TypeEdits() const = 0;
  /// How the family classifies each status: kprC_StatusTrait.
  virtual kprC_StatusTable const& Statuses() const = 0;

  /// A construction command of the family and the label of what it makes.
  struct Construction {
    std::string_view command, label;
  };
  virtual std::vector<Construction> Constructions() const = 0;
  /// A new attribute; null when the command is none of the family's.
  virtual std::unique_ptr<kprC_StepDependent> Construct(std::string_view command) const = 0;

  /// Whether the step at \p index has a record of the attribute that is not merely carried.
  static bool SaysSomething(kprC_StepDependent const& item, std::size_t index) { return item.SaysSomethingIn(index); }

protected:
  // the calls of an attribute that are its repository's alone
  static void SetChangedAt(kprC_StepDependent& item, unsigned long long time) {
    item.changedAt_ = time & ((std::uint64_t{1} << kprC_StepDependent::kTimeBits) - 1);
  }
  static unsigned long long ChangedAt(kprC_StepDependent const& item) { return item.changedAt_; }
  static void Initialize(kprC_StepDependent& item, kprC_StepTable const& steps) { item.Initialize(steps); }
  static void InitializeStateValues(kprC_StepDependent& item, kprC_StepTable const& steps) { item.InitializeStateValues(steps); }
  static bool IsUpToDate(kprC_StepDependent const& item, kprC_StepTable const& steps) { return item.IsUpToDate(steps); }
  static void TakeSteps(kprC_StepDependent& item, kprC_StepTable const& steps) { item.TakeSteps(steps); }
  static void FollowSteps(kprC_StepDependent& item, kprC_StepTable const& steps) { item.FollowSteps(steps); }
  static void EmptyStep(kprC_StepDependent& item, std::size_t index, kprC_StepTable const& bare) { item.EmptyStep(index, bare); }
  static void RestoreHistory(kprC_StepDependent& item, cls_ReadVisitor const& in, kprC_StepTable const& steps) {
    item.RestoreHistory(in, steps);
  }
};
