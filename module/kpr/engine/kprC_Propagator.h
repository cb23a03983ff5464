#pragma once

#include "module/kpr/engine/kprC_History.h"

/// Forms the history of one attribute: walks its own records in step order and settles for each what it is, what state it
/// holds and what it gives on. Starts at the first record that was touched and stops behind the last one as soon as what
/// is given on is what was given on before. A state that comes out as it was keeps its object.
class DDB_API kprC_Propagator {
public:
  explicit kprC_Propagator(kprC_History& history) : history_(history) {}
  /// Answers which steps hold the own records that were touched or are not what they were.
  kprC_History::Span Run();

private:
  using Own = kprC_History::Own;
  using Base = kprC_History::Base;
  using Handle = kprC_History::Handle;
  enum class Kind { Carried, Creation, Off, Change };

  static Kind Classify(Own const& own);
  /// Settles a record; false when nothing of its own is left.
  bool Take(Own& own);
  void Create(Own& own, kprC_StepKind kind, bool initial);
  /// An own record behind the creation: what it says is kept, dropped, or left for when the attribute is on again.
  bool Change(Own& own, kprC_StepKind kind, kprC_StepFacts step, bool change);
  /// What is carried, on or switched off.
  Handle Plain(bool off, Handle const& present) const;
  /// What is carried with the record's own members on it.
  Handle Merged(Handle const& own, bool off) const;

  kprC_History& history_;
  // what the record before gives on
  Own const* source_ = nullptr;
  Base base_ = Base::None;
  bool untouched_ = false;
  bool sourceChanged_ = false;  // the source carries something else than it did before this pass
};

/// A copy of a state, of its own class and with its identity.
std::unique_ptr<kprC_State> kprC_Duplicate(kprC_State const& state);

/// Whether a record that was read is switched off by itself. Where only records that say something of their own are stored, one
/// that is off since an earlier step and neither sets nor frees anything is there for that.
bool kprC_IsOffByItself(mdl_PropagationStatusEnm status, kprC_State const& state, bool ownRecordsOnly);
