#pragma once

#include "module/kpr/engine/kprC_History.h"

/// The per-step operations of every family, by its page of tables. Compiled once; kprC_StepAttribute gives them the family's
/// types.
///
/// Operations ask before they change, in the order of the family's tests; each ends with the whole history formed anew, and with
/// the check of every record. What such a late refusal leaves behind is the family's: those that work on a copy are as
/// they were.
class DDB_API kprC_Attribute : public kprC_StepDependent {
public:
  bool IsSuppressed() const override { return suppress_; }
  void Suppress() override { suppress_ = true; }
  void Resume() override;

  cls_xoList<rgnC_Region> Regions(rgnC_RegionType type) const override;
  cow_1DArrayList<cow_String> Amplitudes() const override;
  bool Redirect(cls_Redirection const& to) override;
  bool SetMember(std::string_view name, cls_Value const& value) override;

  kprC_StepTable const& Steps() const override { return States().Steps(); }
  /// Raises the unknown-step refusal.
  mdl_PropagationStatusEnm Status(cow_String const& step) const override { return States().Status(Known(step)); }
  mdl_PropagationStatusEnm StatusAt(std::size_t index) const override { return States().Status(index); }
  cls_Object const* StateAt(std::size_t index) const override { return States().State(index); }
  void ForEachRun(RunVisitor const& visit) const override;
  cow_List<mdl_PropagationStatusEnm> History() const override;
  cow_String CreateStepName() const override;
  bool IsMember(cow_String const& step) const override { return States().Find(step.View()) != kprC_StepTable::npos; }
  bool IsActiveIn(cow_String const& step) const override { return Is(Status(step), kprC_Active); }
  bool IsEditable(cow_String const& step) const override { return Is(Status(step), kprC_Editable); }
  cow_String GetEditableStepName(cow_String const& step) const override { return IsEditable(step) ? step : CreateStepName(); }

  void Begin(cow_String const& step, unsigned procedureType) override;
  /// Whether what the initial step creates stays in force, until something touches it, in such a step that does not admit
  /// the type.
  virtual bool StaysFromInitial(kprC_StepFacts /*step*/) const { return false; }

  bool SetInStep(cow_String const& step, kprC_Arguments const& members, std::string* unknown) override;
  /// Takes what \p step says away. False for an unknown step.
  bool Remove(cow_String const& step) override;
  /// Asks the operation's tests and does what it says. A move empties the records between where a test of the family says so; from
  /// that test on they are empty.
  void Perform(kprC_Operation const& operation, cow_String const& step, cow_String const& toStep) override;
  /// Switches the attribute off from \p step on.
  virtual void Deactivate(cow_String const& step);
  /// Takes back what \p step says.
  virtual void Reset(cow_String const& step);
  /// Moves what \p fromStep says to \p toStep.
  virtual void Move(cow_String const& fromStep, cow_String const& toStep);
  bool IsPartOfBaseState() const override { return !Pass().asksAdmissionInPerturbation && Pass().perturbation != Pass().notCarried; }
  void UpdateStates() override;
  std::size_t WeightBeside(kprC_StepDependent const* now) const override;

  /// Nothing while suppressed. Refuses an attribute that is active in an anneal step, then by the lowest number what the type refuses
  /// by numbers of its own (RefusedIn), then one whose type a step does not admit in which it is; then what the type refuses of itself and
  /// of its states. The family says for which statuses a step is asked; what is carried rests where its type is not admitted and holds
  /// nothing that its source does not, so that the own records are the ones to ask.
  void AssertValid() const final;

  /// Empties the record of a step whose procedure is being replaced: no state, no procedure, status 0. Refused for the
  /// create step. The history is formed when the new sequence is handed over.
  void ReplaceStep(cow_String const& step);

  void Restored(cls_ReadVisitor const& in) override;

protected:
  virtual kprC_History& States() = 0;
  virtual kprC_History const& States() const = 0;
  kprC_Family const& Family() const { return States().Family(); }

  /// A default state of the type, of the family's class, for a step of \p procedureType.
  virtual std::unique_ptr<kprC_State> MakeState(unsigned procedureType) const = 0;
  /// Inserts by the type's own rules.
  virtual bool InsertState(cow_String const& step, kprC_State const& state) = 0;
  /// The insertion itself: puts a copy of \p state into the record of \p step and forms the history. Without records one is
  /// begun; false when there are records but none of that step.
  bool PutState(cow_String const& step, kprC_State const& state);

  /// Has \p change edit what every step says, and forms the history anew: for a member that is one thing over all steps, as the place of
  /// an element is. It answers whether it changed a state.
  void EditStates(std::function<bool(kprC_State& state)> const& change);

  /// Forms the history: statuses and carried states of all records, and then the check of every record.
  virtual void Sync();

  using Span = kprC_History::Span;
  /// Calls \p fn(index, state) with every own record of \p steps whose status is an editable one.
  template <class Fn> void ForEachOwnEditable(Fn&& fn, Span steps = Span::All()) const {
    States().ForEachOwn(steps, [&](std::size_t index, kprC_History::Own const& own) {
      if (own.state && Is(own.status, kprC_Editable)) { fn(index, *own.state); }
    });
  }

  /// The part of AssertValid that asks the steps alone.
  void AssertSteps(Span steps = Span::All()) const;
  /// What the family refuses of the attribute's own members, before anything else.
  virtual void AssertMembers() const {}
  /// What the type refuses of itself as a whole, and of a state in force; \p index is that of its step. What it refuses of a
  /// state depends on that, its status and its step, and on nothing that another record says unless LooksAtSteps says so.
  virtual void AssertWhole() const {}
  virtual void AssertOwnState(kprC_State const& /*state*/, std::size_t /*index*/) const {}
  /// What the type refuses of an operation before anything changes; \p to is \p index unless it is a move. Asked where the family's
  /// tests say so.
  virtual void AssertOperation(kprC_Effect /*effect*/, std::size_t /*index*/, std::size_t /*to*/) const {}
  /// Refuses a word ("UNSET", "FREED", "PROPAGATED") where a member may not take that state in that step.
  /// \p index is npos while the attribute is being created.
  virtual void AssertMemberState(std::size_t /*index*/, std::string_view /*member*/, std::string_view /*word*/) const {}
  /// Whether the type refuses by more of the steps than its own records' procedures: it is then asked again with every
  /// edit of the sequence.
  virtual bool LooksAtSteps() const { return false; }

  /// What the attribute's records become: the family's table, or another for a type that is carried otherwise.
  virtual kprC_PassTable const& Pass() const { return Family().pass; }
  /// Whether the check of every record refuses what is set in a step that does not admit the type.
  virtual bool RefusedWhereNotAdmitted() const { return true; }
  /// Whether the values of the creation count for what Admits says.
  virtual bool CarriedByValues() const { return false; }
  /// How the attribute is carried, by Pass, Admits and StaysFromInitial. Asked with every pass.
  virtual cow_Handle<kprC_Carrying> Carrying() const;

  bool Is(mdl_PropagationStatusEnm status, unsigned trait) const { return Family().Is(status, trait); }
  /// Answers which steps hold the own records that are not what they were.
  Span FormHistory();

  bool suppress_ = false;
  bool passed_ = false;  // while EditRecords runs: AssertValid had passed before it

private:
  struct Asked;
  /// Asks \p tests of \p asked in turn. False where the operation ends without a refusal.
  bool Ask(std::span<kprC_Test const> tests, Asked& asked);
  bool Holds(kprC_Ask ask, Asked& asked);
  void AssertTarget(std::size_t to) const;
  void SwitchOff(std::size_t index);
  void MoveRecord(kprC_Operation const& operation, Asked& asked);
  bool SaysSomething(std::size_t begin, std::size_t end) const;
  std::size_t Known(cow_String const& step) const;
  /// Runs what changes the attribute and may be refused late.
  template <class Fn> void Edit(Fn&& edit);
  /// The same for what changes records alone: others that have passed the check before are not asked again.
  template <class Fn> void EditRecords(Fn&& edit);
  /// AssertValid, of records as far as they stand in \p steps.
  void AssertRecords(Span steps) const;

  void Initialize(kprC_StepTable const& steps) override;
  void InitializeStateValues(kprC_StepTable const& steps) override;
  void MatchTo(kprC_StepTable const& steps);
  void TakeSteps(kprC_StepTable const& steps) override { States().Attach(steps); }
  void FollowSteps(kprC_StepTable const& steps) override;
  bool IsUpToDate(kprC_StepTable const& steps) const override;
  bool SaysSomethingIn(std::size_t index) const override { return States().HasOwn(index); }
  void EmptyStep(std::size_t index, kprC_StepTable const& bare) override;
  void RestoreHistory(cls_ReadVisitor const& in, kprC_StepTable const& steps) override;
};
