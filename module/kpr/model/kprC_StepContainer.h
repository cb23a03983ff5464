#pragma once

#include <span>
#include <string_view>

#include "framework/mdl_Extension.h"
#include "module/kpr/engine/kprC_StepTable.h"
#include "module/kpr/steps/kprC_Step.h"

/// The steps of a model by name, in order. The first is always the initial step, called "Initial".
///
/// A value that shares everything with its copies. The sequence is also held as the table that the histories of all
/// attributes share; a step in the table is the very object that the container holds. Every edit is linear in the
/// steps, also one that changes several at once, and makes a new table; a lookup by name or position costs the same
/// whatever the number of steps. Whether procedures may follow each other is asked of kprC_StepSequencer beforehand.
///
/// An edit that is refused changes nothing. Refusals: 81 for a name that no step has; 46 for a new name that is empty,
/// taken or given twice and for removing or renaming the initial step; 47 for no step; 82 for a second initial step; 143
/// for replacing the initial step.
class DDB_API kprC_StepContainer final : public cls_Persistent<kprC_StepContainer, mdl_Extension> {
public:
  static constexpr std::size_t npos = kprC_StepTable::npos;
  struct NamedStep {
    cow_String name;
    kprC_StepHandle step;
  };

  /// Holds the initial step.
  kprC_StepContainer();
  /// Refuses content that does not begin with the initial step, has a second one, lacks a procedure or repeats a name.
  explicit kprC_StepContainer(cls_ReadVisitor const& in);

  /// The number of steps, the initial one included.
  std::size_t Size() const { return table_.Size(); }
  cow_String const& Name(std::size_t index) const { return table_.Name(index); }
  kprC_Step const& Step(std::size_t index) const { return static_cast<kprC_Step const&>(*table_[index].procedure); }
  kprC_StepHandle Handle(std::size_t index) const { return table_[index].procedure.As<kprC_Step>(); }
  /// Position of a step, or npos.
  std::size_t Index(std::string_view name) const { return table_.Find(name); }
  bool IsMember(std::string_view name) const { return Index(name) != npos; }
  /// The step called \p name, or null.
  kprC_Step const* Find(std::string_view name) const;
  cow_List<cow_String> Names() const;

  kprC_StepTable const& Table() const { return table_; }

  /// Puts \p step behind the step called \p after.
  void Insert(std::string_view after, cow_String const& name, kprC_StepHandle const& step);
  /// The same with several steps, which keep their order.
  void Insert(std::string_view after, std::span<NamedStep const> added);
  void Remove(std::string_view name);
  void Remove(std::span<cow_String const> names);
  void Rename(std::string_view name, cow_String const& newName);
  /// Puts \p step, of the same procedure or another, in the place of the step called \p name.
  void Replace(std::string_view name, kprC_StepHandle const& step);

  /// What a check of the whole sequence has found: the steps that turn nlgeom on first and off last, by their numbers; 0 for none.
  struct Nlgeom {
    kprC_StepTable::Number firstOn = 0, lastOff = 0;
    friend bool operator==(Nlgeom const&, Nlgeom const&) = default;
  };
  /// Keeps what is known of the present sequence once it is found to be legal; every edit forgets it.
  void KeepChecked(Nlgeom const& nlgeom) {
    checked_ = table_;
    nlgeom_ = nlgeom;
  }
  /// Null while the present sequence has not been found to be legal.
  Nlgeom const* Checked() const { return checked_.Same(table_) ? &nlgeom_ : nullptr; }

  /// Raises the first refusal of a step's own check, in step order.
  void AssertValid() const;

  /// The container has no members that are set by name.
  bool SetMember(std::string_view, cls_Value const&) override { return false; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(kprC_Step::stepRepositoryCmd(), &kprC_StepContainer::table_, cls_MemberText{"the steps in order"});
  }

private:
  DDB_LOCAL std::size_t Known(std::string_view name) const;

  kprC_StepTable table_;
  kprC_StepTable checked_;  // the sequence that was found to be legal
  Nlgeom nlgeom_;           // of it
};
