#pragma once

#include <string>
#include <utility>

#include "framework/kprC_PropagatingState.h"
#include "framework/kprC_RecordRuns.h"
#include "framework/kprC_StepTable.h"
#include "platform/BasicUtils/cls_xoList.h"

/// The records of one attribute, one per step. A value: a copy is a snapshot and shares everything.
///
/// How the records are kept is this class's own business; families, stores and commands ask by position or name.
template <class S> class kprC_History {
public:
  using Record = kprC_PropagatingState<S>;
  using Handle = cow_Handle<S>;
  using Runs = kprC_RecordRuns<S>;

  kprC_StepTable const& Steps() const { return steps_; }
  Runs const& Records() const { return records_; }
  std::size_t Size() const { return records_.Size(); }
  std::size_t Find(std::string_view step) const { return steps_.Find(step); }
  mdl_PropagationStatusEnm Status(std::size_t index) const { return records_.Status(index); }
  Handle const& State(std::size_t index) const { return records_.State(index); }
  /// The record as an object of its own. Its identity is that of the step in this list.
  Record At(std::size_t index) const {
    return Record(steps_[index], Status(index), State(index), cls_Uid::OfElement(uid_, steps_[index].Uid()));
  }
  /// Position of the first record that holds a state, or npos.
  std::size_t CreateStep() const {
    for (std::size_t run = 0; run < records_.Runs(); ++run) {
      if (records_.RunAt(run).state) { return records_.Begin(run); }
    }
    return kprC_StepTable::npos;
  }

  cls_Uid const& Uid() const { return uid_; }
  void NewUid() { uid_ = cls_Uid::AllocateUid(); }

  void Set(std::size_t index, mdl_PropagationStatusEnm status, Handle state) { records_.Set(index, status, std::move(state)); }
  void SetState(std::size_t index, Handle state) { records_.Set(index, Status(index), std::move(state)); }
  void ClearStates(std::size_t begin, std::size_t end) { records_.ClearStates(begin, end); }
  void ReplaceRecords(Runs records) { records_ = std::move(records); }

  /// The first record of an attribute that no repository holds.
  void StartWith(cow_String const& step, Handle state) {
    kprC_StepSequence steps;
    steps.Append(kprC_StepNameProcedurePair(step, nullptr));
    steps_ = kprC_StepTable(std::move(steps));
    records_.Append(1, mdl_PropagationStatusEnm::Created, std::move(state));
  }
  /// A new record, status 0 and no state, for the step \p index of \p steps, which has one step more.
  void InsertAt(std::size_t index, kprC_StepTable const& steps) {
    records_.InsertAt(index, mdl_PropagationStatusEnm::NotYetCreated, nullptr);
    steps_ = steps;
  }
  /// Drops the record \p index; \p steps has that step less.
  void EraseAt(std::size_t index, kprC_StepTable const& steps) {
    records_.EraseAt(index);
    steps_ = steps;
  }
  /// Takes a sequence of as many steps, record by record.
  void Attach(kprC_StepTable const& steps) { steps_ = steps; }
  /// Matches the records with \p steps by name: keeps state, status and identity, adds what is missing, drops the rest.
  void MatchTo(kprC_StepTable const& steps) {
    if (steps_.Same(steps)) { return; }
    if (steps_.SameNames(steps)) { return Attach(steps); }
    Runs matched;
    if (Size() == 1) {  // a new attribute: one lookup, not one per step
      std::size_t const at = steps.Find(steps_.Name(0).View());
      if (at == kprC_StepTable::npos) {
        matched.Append(steps.Size(), mdl_PropagationStatusEnm::NotYetCreated, nullptr);
      } else {
        matched.Append(at, mdl_PropagationStatusEnm::NotYetCreated, nullptr);
        matched.Append(1, Status(0), State(0));
        matched.Append(steps.Size() - at - 1, mdl_PropagationStatusEnm::NotYetCreated, nullptr);
      }
    } else {
      for (std::size_t i = 0; i < steps.Size(); ++i) {
        bool const stays = i < steps_.Size() && steps_.Name(i) == steps.Name(i);
        std::size_t const at = stays ? i : steps_.Find(steps.Name(i).View());
        bool const known = at != kprC_StepTable::npos;
        matched.Append(1, known ? Status(at) : mdl_PropagationStatusEnm::NotYetCreated, known ? State(at) : Handle());
      }
    }
    records_ = std::move(matched);
    steps_ = steps;
  }

private:
  friend struct cls_MemberTraits<kprC_History<S>>;

  kprC_StepTable steps_;
  Runs records_;
  cls_Uid uid_ = cls_Uid::AllocateUid();
};

/// A history is stored as the list of its records, in step order. Where the store takes runs, equal neighbours are one
/// record followed by the number of steps that it stands for; the step sequence is then handed over by the repository.
template <class S> struct cls_MemberTraits<kprC_History<S>> {
  using History = kprC_History<S>;
  using Record = typename History::Record;

  static void Describe(cls_MemberInfo& info) {
    info.typeId = Record::TypeId();
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, History const& history) {
    auto const& records = history.Records();
    if (out.WritesRuns()) {
      out.StartList(name, 2 * records.Runs());
      for (std::size_t run = 0; run < records.Runs(); ++run) {
        Record record = history.At(records.Begin(run));
        record.procedure.Reset();  // the step sequence tells it
        out.WriteNested("", record);
        out.WriteInteger("", static_cast<long long>(records.RunAt(run).end - records.Begin(run)));
      }
    } else {
      out.StartList(name, history.Size());
      for (std::size_t i = 0; i < history.Size(); ++i) { out.WriteNested("", history.At(i)); }
    }
    out.EndList();
  }
  static void Read(cls_ReadVisitor const& in, std::string_view name, History& history) {
    History read;
    kprC_StepSequence steps;
    std::size_t const count = in.StartList(name);
    for (std::size_t i = 0; i < count; ++i) {
      Record record;
      in.ReadNested("", [&](cls_ReadVisitor const& nested) { record = Record(nested); });
      long long stands = 1;
      if (in.ReadsRuns()) {
        stands = in.ReadInteger("");
        ++i;
        if (stands < 1 || stands > cls_unsetInteger) { in.Refuse(name, "a positive number of steps"); }
      }
      read.records_.Append(static_cast<std::size_t>(stands), record.status, record.state);
      for (; stands > 0; --stands) { steps.Append(kprC_StepNameProcedurePair(record.stepName, record.procedure)); }
    }
    in.EndList();
    read.steps_ = kprC_StepTable(std::move(steps));
    history = std::move(read);
  }
  static void NewUid(History& history) { history.NewUid(); }
  static bool Equal(History const& a, History const& b) {
    if (a.Size() != b.Size()) { return false; }
    if (!a.steps_.Same(b.steps_) && !cls_MemberTraits<kprC_StepSequence>::Equal(a.steps_.Steps(), b.steps_.Steps())) { return false; }
    std::size_t runA = 0, runB = 0;
    for (std::size_t i = 0; i < a.Size();) {
      auto const& one = a.records_.RunAt(runA);
      auto const& two = b.records_.RunAt(runB);
      if (one.status != two.status || !cls_MemberTraits<cow_Handle<S>>::Equal(one.state, two.state)) { return false; }
      i = std::min(one.end, two.end);
      runA += one.end == i;
      runB += two.end == i;
    }
    return true;
  }
  static cls_Value ToValue(History const& history) {
    cls_Value::List statuses;
    for (std::size_t i = 0; i < history.Size(); ++i) { statuses.emplace_back(static_cast<int>(history.Status(i))); }
    return statuses;
  }
  static std::string_view FromValue(History&, cls_Value const&) { return "nothing: a history follows from the edits"; }
};
