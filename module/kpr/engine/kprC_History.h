#pragma once

#include <atomic>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include "module/kpr/engine/kprC_Family.h"
#include "module/kpr/engine/kprC_StepTable.h"

/// A state that is made when it is first asked for: what a record carries on. Threads may ask at once; all get the same
/// object. A copy shares what has been made. Changing one is for whoever may change what holds it.
class DDB_API kprC_LazyState {
public:
  kprC_LazyState() noexcept = default;
  kprC_LazyState(kprC_LazyState const& other) noexcept;
  kprC_LazyState(kprC_LazyState&& other) noexcept : state_(other.Present()) { other.state_.store(nullptr, std::memory_order_relaxed); }
  kprC_LazyState& operator=(kprC_LazyState other) noexcept;
  ~kprC_LazyState() { Reset(); }

  /// The state; \p make gives it as a handle where there is none yet.
  template <class Make> kprC_State const& Get(Make&& make) const {
    kprC_State const* present = state_.load(std::memory_order_acquire);
    return present != nullptr ? *present : Keep(make());
  }
  /// The state, as far as it was made.
  kprC_State const* Present() const { return state_.load(std::memory_order_acquire); }
  void Reset() noexcept;

private:
  kprC_State const& Keep(cow_Handle<kprC_State> const& made) const;

  mutable std::atomic<kprC_State const*> state_{nullptr};  // one share of it is ours
};

/// How an attribute is carried from step to step: the same for all of a type, unless its values count.
struct kprC_Carrying : mem_Counted {
  kprC_PassTable const* pass;  ///< what the records become
  kprC_StepSet admitted;       ///< steps that it is carried into
  kprC_StepSet kept;           ///< steps that do not admit it in which the untouched creation of the initial step stays in force

  bool Equals(kprC_Carrying const& other) const { return pass == other.pass && admitted == other.admitted && kept == other.kept; }
};

/// The records of one attribute, one per step.
///
/// Only the records that say something of their own are kept, by the numbers of their steps; what stands between them
/// follows from the step table, which all attributes share, and from the own record before it. An attribute that is created,
/// changed twice and switched off keeps four records whatever the number of steps; steps that come, go or are renamed
/// elsewhere leave them alone, and a change of status from procedure to procedure costs nothing. That is this class's
/// business alone: families, stores and commands ask by position or name, and get a record for every step.
///
/// A value: a copy is a snapshot and shares everything until one of both is changed. Asking is logarithmic in the own records,
/// changing linear in them. Carried records share one state object, which is made when somebody asks for it; several threads
/// may ask at once.
class DDB_API kprC_History {
public:
  using Status_ = mdl_PropagationStatusEnm;
  using Handle = cow_Handle<kprC_State>;
  using Number = kprC_StepTable::Number;
  using Stored = kprC_Family::Stored;
  static constexpr std::size_t npos = kprC_StepTable::npos;

  /// Steps between two numbers, both included.
  struct Span {
    Number first = ~Number{0}, last = 0;

    static constexpr Span All() { return {0, ~Number{0}}; }
    bool IsEmpty() const { return first > last; }
    bool Holds(Number step) const { return step >= first && step <= last; }
    /// Reaches over \p other too.
    void Add(Span other) {
      first = std::min(first, other.first);
      last = std::max(last, other.last);
    }
  };

  /// The base state of perturbation steps as the last general step left it.
  enum class Base : std::uint8_t { None, On, Off };

  /// A record that says something of its own.
  struct Own {
    Number step = 0;
    Handle state;        ///< in force here; null in a record that was emptied, until the next pass
    Number source = 0;   ///< the own record whose values later records carry
    kprC_LazyState on;   ///< those values as later records carry them; of a source
    kprC_LazyState off;  ///< the same, switched off
    Status_ status = Status_::NotYetCreated;
    bool marked = false;    ///< switched off by itself, whether or not an earlier record covers that
    bool creation = false;  ///< the attribute was created here when the last pass was made
    // what later records find
    Base base = Base::None;
    bool untouched = false;  ///< the base state is still what the initial step created
  };

  explicit kprC_History(kprC_Family const& family);
  kprC_History(kprC_History const& other);
  kprC_History(kprC_History&& other) noexcept;
  kprC_History& operator=(kprC_History other) noexcept;
  ~kprC_History();

  kprC_Family const& Family() const { return *body_->family; }
  kprC_StepTable const& Steps() const { return steps_; }
  std::size_t Size() const { return steps_.Size(); }
  std::size_t Find(std::string_view step) const { return steps_.Find(step); }
  Status_ Status(std::size_t index) const { return Look(index).status; }
  /// Null before the create step.
  kprC_State const* State(std::size_t index) const { return StateOf(Look(index)); }
  /// The state to be shared; makes no copy.
  Handle StateHandle(std::size_t index) const;
  /// The same switched off.
  Handle OffHandle(std::size_t index) const;
  /// A copy of the state, or null; what is carried is not made for it.
  std::unique_ptr<kprC_State> StateCopy(std::size_t index) const;
  bool HoldsState(std::size_t index) const { return Look(index).HoldsState(); }
  /// Whether the state, which there is, is switched off.
  bool IsOff(std::size_t index) const {
    Record const record = Look(index);
    return record.source == nullptr ? record.state->SwitchedOff() : record.off;
  }
  /// Identity of the record: that of the step's name in this list, so that it stays when the sequence is handed over again.
  cls_Uid RecordUid(std::size_t index) const;
  /// Position of the first record that holds a state, or npos.
  std::size_t CreateStep() const;
  bool IsCreateStep(std::size_t index) const { return index == CreateStep(); }

  /// Calls \p fn(begin, end, status, state) for every run of neighbouring records of one status and one state object, which
  /// is null before the creation. Costs what the own records and the changes of procedure cost, not a look-up per record.
  template <class Fn> void ForEachRun(Fn&& fn) const;
  /// Calls \p fn(index, own) for every own record in step order. The first emptied ones hold no state.
  template <class Fn> void ForEachOwn(Fn&& fn) const { ForEachOwn(Span::All(), fn); }
  /// The same for those of \p steps.
  template <class Fn> void ForEachOwn(Span steps, Fn&& fn) const {
    auto const owns = OwnRecords();
    auto own = std::ranges::lower_bound(owns, steps.first, {}, &Own::step);
    for (; own != owns.end() && own->step <= steps.last; ++own) { fn(steps_.Position(own->step), *own); }
  }
  std::size_t OwnCount() const { return OwnRecords().size(); }
  /// Whether the step says something of its own.
  bool HasOwn(std::size_t index) const { return FindOwn(steps_.NumberOf(index)) != nullptr; }

  /// Bytes of the own records and of their states that \p other, which may be null, does not share.
  std::size_t WeightBeside(kprC_History const* other) const;

  cls_Uid Uid() const { return cls_Uid::OfObject(body_->number); }
  void NewUid() { body_.Get().number = cls_Uid::AllocateNumber(); }

  // Changes. Each leaves the records behind as they were carried before: Form is due.

  /// Gives a record a state of its own; \p marked: switched off by itself. Null takes what it says away.
  void Set(std::size_t index, Status_ status, Handle state, bool marked);
  /// Empties a record: until the next pass it shows \p status and no state.
  void Empty(std::size_t index, Status_ status);
  /// Takes the own records from \p begin to \p end (one past the last) away.
  void Clear(std::size_t begin, std::size_t end);
  /// The first record of an attribute that no repository holds.
  void StartWith(cow_String const& step, Handle state);
  /// Takes another version of the sequence. Own records of steps that it has not are dropped; where the versions do not follow
  /// each other, records are matched by the names of their steps.
  void Attach(kprC_StepTable const& steps);
  /// Has \p change edit a copy of every own state; where it answers true the copy takes its place. False when none does.
  bool ChangeStates(std::function<bool(kprC_State& state)> const& change);

  /// How the attribute is carried. Another answer has the whole history formed anew.
  void SetCarrying(cow_Handle<kprC_Carrying> const& carrying);
  /// Gives every record the status and the state that follow from the own records, from the first change on and as far
  /// as it reaches. A second pass changes nothing. Answers which steps hold the own records that were touched or are not what
  /// they were.
  Span Form();
  /// Whether a change waits for Form.
  bool IsFormed() const { return body_->touched.IsEmpty() && !Lent(); }

  /// The record of a step, lent to somebody who may change it: what he changes becomes the step's own, and shows at once;
  /// nothing else follows before the next pass. Good until the history goes, and kept up to date.
  kprC_Record& Lend(std::size_t index);

  void Write(cls_WriteVisitor const& out, std::string_view name) const;
  void Read(cls_ReadVisitor const& in, std::string_view name);
  bool Equals(kprC_History const& other) const;
  void References(cls_ReferenceVisitor const& visit) const;

private:
  friend class kprC_Propagator;
  /// What an attribute says, in one piece: the own records stand behind it, in the order of their steps.
  class Body : public mem_Counted {
  public:
    static cow_Handle<Body> Make(kprC_Family const& family, std::size_t room = 1);
    Body(Body const&) = delete;
    Body& operator=(Body const&) = delete;
    ~Body() { std::destroy(begin(), end()); }
    /// With room for one more record: who copies it is about to change it.
    std::unique_ptr<Body> Copy() const;

    Own* begin() { return std::launder(reinterpret_cast<Own*>(this + 1)); }
    Own* end() { return begin() + count_; }
    Own const* begin() const { return std::launder(reinterpret_cast<Own const*>(this + 1)); }
    Own const* end() const { return begin() + count_; }
    std::size_t Room() const { return room_; }
    /// Puts a record, still empty, at \p place into \p body; into another one where there is no room or others share it.
    static Own& Insert(cow_Handle<Body>& body, std::size_t place);
    /// Takes the records from \p from to \p to away.
    void Erase(Own const* from, Own const* to);

    // its operator new, below, takes the number of records  NOLINTNEXTLINE(misc-new-delete-overloads)
    static void operator delete(void* memory) { ::operator delete(memory); }

    kprC_Family const* family;
    std::uint64_t number = cls_Uid::AllocateNumber();  // of its identity
    cow_Handle<kprC_Carrying> carrying;
    Span touched;  // what Form has to look at

  private:
    struct Records {
      std::uint32_t room;
    };
    Body(kprC_Family const* of, Records records) : family(of), room_(records.room) {}
    Body(Body const& other, Records records)
        : mem_Counted(other),
          family(other.family),
          number(other.number),
          carrying(other.carrying),
          touched(other.touched),
          room_(records.room) {}
    static void* operator new(std::size_t size, Records records) { return ::operator new(size + records.room * sizeof(Own)); }
    static void operator delete(void* memory, Records /*records*/) { ::operator delete(memory); }

    std::uint32_t count_ = 0, room_;
  };
  static_assert(sizeof(Body) % alignof(Own) == 0);
  /// A status, and where the state is: \p state, or what \p source carries.
  struct Record {
    Status_ status;
    kprC_State const* state = nullptr;
    Own const* source = nullptr;
    bool off = false;

    bool HoldsState() const { return state != nullptr || source != nullptr; }
  };
  kprC_State const* StateOf(Record const& record) const {
    return record.source == nullptr ? record.state : &Carry(*record.source, record.off);
  }
  struct Loan;
  struct Loans;

  std::span<Own> Owns() {
    Body& body = body_.Get();
    return {body.begin(), body.end()};
  }
  std::span<Own const> OwnRecords() const { return {body_->begin(), body_->end()}; }
  Own const* FindOwn(Number step) const;
  void Touch(Number first, Number last) { body_.Get().touched.Add({first, last}); }
  void TouchAll() { Touch(0, ~Number{0}); }
  /// The own record of a step, to be filled; where there was none it gives on what the one before does.
  Own& Put(Number step);

  // until the first pass nothing is known of how the attribute is carried
  kprC_PassTable const& Pass() const { return body_->carrying ? *body_->carrying->pass : Family().pass; }
  bool IsCarriedInto(kprC_StepFacts step) const { return body_->carrying && body_->carrying->admitted.Contains(step); }
  /// The status in a step that the attribute is not carried into; \p untouched: in force as the initial step created it.
  Status_ PassedOver(kprC_StepFacts step, bool untouched) const {
    auto const& carrying = body_->carrying;
    bool const kept = untouched && Family().kind(step.procedureType) == kprC_StepKind::General && carrying && carrying->kept.Contains(step);
    return kept ? Pass().keptFromInitial : Pass().notAdmitted;
  }

  /// A record that is told as what it says; \p first: the state of the creation, null where this is it. The status is the one that
  /// a pass begins with.
  Stored ReadChange(cls_ReadVisitor const& in, std::string_view name, Handle const* first) const;

  Record Look(std::size_t index) const;
  /// What a record without anything of its own takes over from \p own, the last own record before it.
  Record Carried(Own const& own, std::size_t index) const;
  /// A copy of what the records behind \p source carry.
  static std::unique_ptr<kprC_State> CarriedCopy(Own const& source, bool off);
  /// What the records behind \p source carry; \p present where that is the same.
  kprC_State const& Carry(Own const& source, bool off, Handle const& present = {}) const;
  bool Lent() const;
  /// Makes what was changed in a lent record the step's own.
  void Take(Loan const& loan);
  void TakeBackLoans();
  void RefreshLoans();

  // a step that comes or goes elsewhere costs an attribute a copy of these words
  kprC_StepTable steps_;
  cow_Handle<Body> body_;
  std::unique_ptr<Loans> loans_;
};

template <class Fn> void kprC_History::ForEachRun(Fn&& fn) const {
  auto const owns = OwnRecords();
  std::size_t at = 0;
  Own const* before = nullptr;
  auto const carry = [&](std::size_t end) {
    if (before == nullptr) {
      if (at < end) { fn(at, end, Status_::NotYetCreated, static_cast<kprC_State const*>(nullptr)); }
      at = end;
      return;
    }
    while (at < end) {
      std::size_t const next = std::min(end, steps_.SegmentEnd(at));
      Record const record = Carried(*before, at);
      fn(at, next, record.status, StateOf(record));
      at = next;
    }
  };
  if (Lent()) {
    for (; at < Size(); ++at) { fn(at, at + 1, Status(at), State(at)); }
    return;
  }
  for (Own const& own : owns) {
    bool const isNext = at < Size() && steps_.NumberOf(at) == own.step;
    carry(isNext ? at : steps_.Position(own.step));
    fn(at, at + 1, own.status, own.state.ConstGet());
    ++at;
    if (own.state) { before = &own; }
  }
  carry(Size());
}

/// A family's history: stored as the list of its records in step order; where the store takes that, as its own records
/// alone, from which the others follow. What is read holds the own records until the attribute forms the history.
template <class Rules> class kprC_HistoryOf : public kprC_History {
public:
  kprC_HistoryOf() : kprC_History(kprC_FamilyOf<Rules>) {}
};

template <class Rules> struct cls_MemberTraits<kprC_HistoryOf<Rules>> {
  using History = kprC_HistoryOf<Rules>;

  static void Describe(cls_MemberInfo& info) {
    info.typeId = kprC_PropagatingState<typename Rules::State>::TypeId();
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, History const& history) { history.Write(out, name); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, History& history) { history.Read(in, name); }
  static void NewUid(History& history) { history.NewUid(); }
  static bool Equal(History const& a, History const& b) { return a.Equals(b); }
  /// What the own records name; the others name nothing else.
  static void References(History const& history, cls_Reference, cls_ReferenceVisitor const& visit) { history.References(visit); }
  static bool Redirect(History& history, cls_Reference, cls_Redirection const& to) {
    return history.ChangeStates([&to](kprC_State& state) { return cls_Redirect(state.MemberRows(), &state, to); });
  }
  static cls_Value ToValue(History const& history) {
    cls_Value::List statuses;
    history.ForEachRun([&statuses](std::size_t begin, std::size_t end, auto status, kprC_State const*) {
      statuses.insert(statuses.end(), end - begin, cls_Value(static_cast<int>(status)));
    });
    return statuses;
  }
  static std::string_view FromValue(History&, cls_Value const&) { return "nothing: a history follows from the edits"; }
};
