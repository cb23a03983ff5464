#pragma once

#include <memory>

#include "module/kpr/engine/kprC_History.h"

/// Forms the history of one attribute: walks its own records in step order and settles for each what it is, what state it
/// holds and what it gives on. Starts at the first record that was touched and stops behind the last one as soon as what
/// is given on is what was given on before. A state that comes out as it was keeps its object.
template <class Rules> class kprC_Propagator {
public:
  using History = kprC_History<Rules>;
  using State = typename Rules::State;
  using Handle = cow_Handle<State>;
  using Status = mdl_PropagationStatusEnm;
  using Base = typename History::Base;
  using Carry = typename History::Carry;
  using Entry = typename History::Entry;

  explicit kprC_Propagator(History& history) : history_(history) {}

  void Run() {
    auto& entries = history_.Entries();
    auto const first = static_cast<std::size_t>(History::LowerBound(entries, history_.firstTouched_) - entries.begin());
    if (first > 0) { carry_ = entries[first - 1].carry; }
    std::size_t kept = first;
    for (std::size_t at = first; at < entries.size(); ++at) {
      Entry entry = std::move(entries[at]);
      if (!Take(entry)) { continue; }
      bool const settled = kept == at && entry.index > history_.lastTouched_ && entry.carry == carry_;
      entry.carry = carry_;
      entries[kept++] = std::move(entry);
      if (settled) { return; }
    }
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(kept), entries.end());
  }

private:
  enum class Own { Carried, Creation, Off, Change };
  static constexpr kprC_PassTable const& kPass = Rules::kPass;

  static bool IsModified(Handle const& state) { return state->IsModified() || state->IsConditionModified(); }
  static Own Classify(Entry const& entry) {
    if (entry.status == Status::Created) { return Own::Creation; }
    bool const mayBeOff = ((kprC_neverOff >> static_cast<unsigned>(entry.status)) & 1U) == 0;
    if (mayBeOff && entry.state->SwitchedOff()) { return Own::Off; }
    return IsModified(entry.state) ? Own::Change : Own::Carried;
  }

  /// Settles an own record; false when nothing of its own is left.
  bool Take(Entry& entry) {
    unsigned const procedure = history_.steps_.ProcedureType(entry.index);
    kprC_StepKind const kind = Rules::Kind(procedure);
    Own own = Classify(entry);
    if (!carry_.created) {
      if (own == Own::Carried) { return false; }
      Create(entry, kind, procedure == 0);
    } else {
      if (own == Own::Creation) { own = IsModified(entry.state) ? Own::Change : Own::Carried; }
      if (own == Own::Carried || !Change(entry, kind, procedure, own)) { return false; }
    }
    if (Rules::IsFrequency(procedure)) {
      carry_.inFrequency = entry.status;
      carry_.frequencyEnd = NextFrequency(entry.index);
    }
    return true;
  }

  void Create(Entry& entry, kprC_StepKind kind, bool initial) {
    bool const off = entry.state->SwitchedOff();
    entry.status = off ? kPass.createdOff : Status::Created;
    carry_.created = true;
    carry_.base = kind != kprC_StepKind::General ? Base::None : off ? Base::Off : Base::On;
    carry_.untouchedInitial = initial;
    GiveOn(entry.state, entry.carry);
    if (off) { GiveOnOff(entry); }
  }

  /// An own record behind the creation: what it says is kept, dropped, or left for when the attribute is on again.
  bool Change(Entry& entry, kprC_StepKind kind, unsigned procedure, Own own) {
    bool const change = own == Own::Change;
    bool const general = kind == kprC_StepKind::General;
    if (carry_.base == Base::None || kind == kprC_StepKind::Modal) { return false; }
    if (!change && (general || kPass.asksAdmissionInPerturbation) && (history_.admitted_ & kprC_ProcedureBit(procedure)) == 0) {
      return false;
    }
    if (carry_.base == Base::Off) {
      if (!change) { return false; }
      entry.status = kPass.afterOff;
      entry.state = Merged(entry.state, true);
      return true;
    }
    if (!general) {
      if (change && !kPass.keepsPerturbationChange) { return false; }
      entry.status = change ? kPass.perturbationChanged : kPass.perturbationOff;
      entry.state = change ? Merged(entry.state, false) : SwitchedOff(entry.state);
      return true;
    }
    if (!change) {
      entry.status = kPass.off;
      entry.state = SwitchedOff(entry.state);
      carry_.base = Base::Off;
      GiveOnOff(entry);
      return true;
    }
    entry.status = carry_.untouchedInitial ? kPass.changedFromInitial : kPass.changed;
    entry.state = Merged(entry.state, false);
    carry_.untouchedInitial = false;
    GiveOn(entry.state, entry.carry);
    return true;
  }

  /// From here on \p source is carried; \p before is what the record gave on last time.
  void GiveOn(Handle const& source, Carry const& before) {
    auto made = Duplicate(*source);
    made->Propagate();
    made->SetSwitchedOff(false);
    carry_.source = source;
    carry_.on = Settle(std::move(made), before.on, source);
    carry_.off.Reset();
  }
  /// The attribute is off from here on.
  void GiveOnOff(Entry const& entry) { carry_.off = SwitchedOff(entry.carry.off ? entry.carry.off : entry.state); }

  /// What is carried, switched off; \p present where it is the same.
  Handle SwitchedOff(Handle const& present) const {
    auto made = Duplicate(*carry_.on);
    made->SetSwitchedOff(true);
    return Settle(std::move(made), present, nullptr);
  }
  /// What is carried with the record's own members on it.
  Handle Merged(Handle const& own, bool off) const {
    auto clear = Duplicate(*own);
    clear->SetSwitchedOff(false);
    auto made = Duplicate(*carry_.on);
    made->Modify(*clear);
    made->SetSwitchedOff(off);
    return Settle(std::move(made), own, nullptr);
  }

  static std::unique_ptr<State> Duplicate(State const& state) {
    return std::unique_ptr<State>(static_cast<State*>(state.Copy().release()));
  }
  /// The present object or the other one where it is equal, else a new one with an identity of its own.
  static Handle Settle(std::unique_ptr<State> made, Handle const& present, Handle const& other) {
    if (present && present->Equals(*made)) { return present; }
    if (other && other->Equals(*made)) { return other; }
    made->NewUid();
    return Handle(std::move(made));
  }

  /// The next frequency step behind \p index, or the number of steps.
  std::uint32_t NextFrequency(std::size_t index) const {
    kprC_StepTable const& steps = history_.steps_;
    for (++index; index < steps.Size(); index = steps.SegmentEnd(index)) {
      if (Rules::IsFrequency(steps.ProcedureType(index))) { break; }
    }
    return static_cast<std::uint32_t>(index);
  }

  History& history_;
  Carry carry_;  // what the record before gives on
};

template <class Rules> template <class Admits> void kprC_History<Rules>::Form(Admits&& admits) {
  std::uint32_t admitted = 0;
  for (unsigned const type : steps_.DistinctTypes()) { admitted |= admits(type) ? kprC_ProcedureBit(type) : 0U; }
  if (admitted != admitted_) { TouchAll(); }
  admitted_ = admitted;
  if (firstTouched_ == npos) { return; }
  kprC_Propagator<Rules>(*this).Run();
  firstTouched_ = npos;
  lastTouched_ = 0;
}
