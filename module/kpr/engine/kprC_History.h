#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "module/kpr/engine/kprC_PassTable.h"
#include "module/kpr/engine/kprC_PropagatingState.h"
#include "module/kpr/engine/kprC_StepTable.h"

/// The records of one attribute, one per step.
///
/// Only the records that say something of their own are kept; what stands between them follows from the step table, which
/// all attributes share, and from what the last own record before gives on. An attribute that is created, changed twice
/// and switched off keeps four records whatever the number of steps, a step inserted before them shifts four numbers, and
/// a change of status from procedure to procedure costs nothing. That is this class's business alone: families, stores
/// and commands ask by position or name, and get a record for every step.
///
/// A value: a copy is a snapshot and shares everything until one of both is changed. Asking is logarithmic in the own
/// records, changing linear in them. Carried records share one state object.
/// \tparam Rules the family's tables: State, kPass, Kind(procedureType), IsFrequency(procedureType).
template <class Rules> class kprC_History {
public:
  using State_ = typename Rules::State;
  using Record = kprC_PropagatingState<State_>;
  using Handle = cow_Handle<State_>;
  using Status_ = mdl_PropagationStatusEnm;
  static constexpr std::size_t npos = kprC_StepTable::npos;

  /// The base state of perturbation steps as the last general step left it.
  enum class Base : std::uint8_t { None, On, Off };

  /// What the records behind an own one carry.
  struct Carry {
    bool created = false;
    Base base = Base::None;
    bool untouchedInitial = false;                 ///< the base state is still what the initial step created
    Status_ inFrequency = Status_::NotYetCreated;  ///< status of an own record in the last frequency step, as far as
    std::uint32_t frequencyEnd = 0;                ///< the records before this one
    Handle source;                                 ///< values of the base state; without one, those of the creation
    Handle on, off;                                ///< the same as later steps carry them; off only where the base is off

    friend bool operator==(Carry const&, Carry const&) = default;
  };
  /// A record that says something of its own. Its state is never null.
  struct Entry {
    std::uint32_t index;
    Status_ status;
    Handle state;
    Carry carry;
  };

  kprC_StepTable const& Steps() const { return steps_; }
  std::size_t Size() const { return steps_.Size(); }
  std::size_t Find(std::string_view step) const { return steps_.Find(step); }
  Status_ Status(std::size_t index) const { return Look(index).first; }
  /// Null before the create step.
  Handle const& State(std::size_t index) const { return *Look(index).second; }
  /// The record as an object of its own. Its identity is that of the step in this list.
  Record At(std::size_t index) const {
    auto const [status, state] = Look(index);
    return Record(steps_[index], status, *state, cls_Uid::OfElement(uid_, steps_[index].Uid()));
  }
  /// Position of the first record that holds a state, or npos.
  std::size_t CreateStep() const { return Own().empty() ? npos : Own().front().index; }
  /// The records that say something of their own, in step order.
  std::vector<Entry> const& Own() const {
    static std::vector<Entry> const none;
    return body_ ? body_->entries : none;
  }

  cls_Uid const& Uid() const { return uid_; }
  void NewUid() { uid_ = cls_Uid::AllocateUid(); }

  // Changes. Each leaves the records behind as they were carried before: Form is due.

  void Set(std::size_t index, Status_ status, Handle state) {
    auto& entries = Entries();
    auto const at = LowerBound(entries, index);
    bool const present = at != entries.end() && at->index == index;
    if (!state) {
      if (present) { entries.erase(at); }
    } else if (present) {
      at->status = status;
      at->state = std::move(state);
    } else {
      Carry const carry = at == entries.begin() ? Carry() : std::prev(at)->carry;
      entries.insert(at, {static_cast<std::uint32_t>(index), status, std::move(state), carry});
    }
    Touch(index);
  }
  void SetState(std::size_t index, Handle state) { Set(index, Status(index), std::move(state)); }
  /// Takes the own records from \p begin to \p end (one past the last) away.
  void ClearStates(std::size_t begin, std::size_t end) {
    auto& entries = Entries();
    entries.erase(LowerBound(entries, begin), LowerBound(entries, std::max(begin, end)));
    Touch(begin);
    Touch(end);
  }
  /// The first record of an attribute that no repository holds.
  void StartWith(cow_String const& step, Handle state) {
    kprC_StepSequence steps;
    steps.Append(kprC_StepNameProcedurePair(step, nullptr));
    steps_ = kprC_StepTable(std::move(steps));
    Entries().push_back({0, Status_::Created, std::move(state), {}});
  }
  /// A new record, without a state, for the step \p index of \p steps, which has one step more.
  void InsertAt(std::size_t index, kprC_StepTable const& steps) { Shift(index, 1, steps); }
  /// Drops the record \p index; \p steps has that step less.
  void EraseAt(std::size_t index, kprC_StepTable const& steps) {
    ClearStates(index, index + 1);
    Shift(index + 1, -1, steps);
    Touch(index);
  }
  /// Takes a sequence of as many steps, record by record.
  void Attach(kprC_StepTable const& steps) {
    if (steps_.Same(steps)) { return; }
    steps_ = steps;
    TouchAll();
  }
  /// Matches the records with \p steps by name: keeps state, status and identity, drops the records of other steps.
  void MatchTo(kprC_StepTable const& steps) {
    if (steps_.Same(steps)) { return; }
    auto& entries = Entries();
    for (Entry& entry : entries) {
      std::size_t const at = steps.Find(steps_.Name(entry.index).View());
      entry.index = at == npos ? kDropped : static_cast<std::uint32_t>(at);
    }
    std::erase_if(entries, [](Entry const& entry) { return entry.index == kDropped; });
    std::ranges::sort(entries, {}, &Entry::index);
    Attach(steps);
  }

  /// Gives every record the status and the state that follow from the own records, from the first change on and as far
  /// as it reaches. A second pass changes nothing.
  /// \p admits bool(unsigned procedureType): whether the type may be carried into a step of that procedure.
  template <class Admits> void Form(Admits&& admits);

private:
  friend struct cls_MemberTraits<kprC_History<Rules>>;
  template <class> friend class kprC_Propagator;

  static constexpr std::uint32_t kDropped = ~0U;
  struct Body : mem_Counted {
    std::vector<Entry> entries;
  };

  std::vector<Entry>& Entries() {
    if (!body_) { body_ = cow_Handle<Body>::Make(); }
    return body_.Get().entries;
  }
  template <class Vector> static auto LowerBound(Vector& entries, std::size_t index) {
    return std::ranges::lower_bound(entries, index, {}, &Entry::index);
  }
  void Shift(std::size_t begin, int by, kprC_StepTable const& steps) {
    auto& entries = Entries();
    for (auto at = LowerBound(entries, begin); at != entries.end(); ++at) { at->index += static_cast<std::uint32_t>(by); }
    steps_ = steps;
    TouchAll();
  }
  void Touch(std::size_t index) {
    firstTouched_ = std::min(firstTouched_, index);
    lastTouched_ = std::max(lastTouched_, index);
  }
  void TouchAll() {
    firstTouched_ = 0;
    lastTouched_ = npos;
  }

  /// Status and state of a record: the own one's, or those that the last own one before gives on.
  std::pair<Status_, Handle const*> Look(std::size_t index) const {
    static Handle const none;
    auto const& entries = Own();
    auto const behind = std::ranges::upper_bound(entries, index, {}, &Entry::index);
    if (behind == entries.begin()) { return {Status_::NotYetCreated, &none}; }
    Entry const& entry = *std::prev(behind);
    if (entry.index == index) { return {entry.status, &entry.state}; }
    return Carried(entry.carry, index, steps_.ProcedureType(index), (admitted_ & kprC_ProcedureBit(steps_.ProcedureType(index))) != 0);
  }

  /// What a record without anything of its own takes over: the first row that applies.
  static std::pair<Status_, Handle const*> Carried(Carry const& carry, std::size_t index, unsigned procedure, bool admitted) {
    constexpr kprC_PassTable const& pass = Rules::kPass;
    kprC_StepKind const kind = Rules::Kind(procedure);
    Status_ const inFrequency = index < carry.frequencyEnd ? carry.inFrequency : Status_::NotYetCreated;
    bool const modal = kind == kprC_StepKind::Modal;
    bool const off = carry.base == Base::Off;
    if (carry.base == Base::None) { return {modal && inFrequency == Status_::Created ? pass.held : pass.notCarried, &carry.on}; }
    if (!admitted && (kind != kprC_StepKind::Perturbation || pass.asksAdmissionInPerturbation)) {
      return {pass.notAdmitted, off ? &carry.off : &carry.on};
    }
    if (modal) { return {off || inFrequency == pass.perturbationOff ? pass.afterOff : pass.held, &carry.on}; }
    if (off) { return {pass.afterOff, &carry.off}; }
    if (kind == kprC_StepKind::Perturbation) { return {pass.perturbation, &carry.on}; }
    return {carry.untouchedInitial ? pass.carriedFromInitial : pass.carried, &carry.on};
  }

  kprC_StepTable steps_;
  cow_Handle<Body> body_;
  cls_Uid uid_ = cls_Uid::AllocateUid();
  std::uint32_t admitted_ = 0;                         // procedure types that the attribute is carried into, a bit each
  std::size_t firstTouched_ = 0, lastTouched_ = npos;  // what Form has to look at
};

#include "module/kpr/engine/kprC_HistoryMember.h"
#include "module/kpr/engine/kprC_Propagator.h"
