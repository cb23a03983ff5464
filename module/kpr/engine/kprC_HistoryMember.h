#pragma once

#include "module/kpr/engine/kprC_History.h"

/// A history is stored as the list of its records in step order; where the store takes that, as its own records alone,
/// from which the others follow. What is read holds the own records until the attribute forms the history.
template <class Rules> struct cls_MemberTraits<kprC_History<Rules>> {
  using History = kprC_History<Rules>;
  using Record = typename History::Record;

  static void Describe(cls_MemberInfo& info) {
    info.typeId = Record::TypeId();
    info.many = true;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, History const& history) {
    if (out.WritesOwnRecordsOnly()) {
      out.StartList(name, history.Own().size());
      for (auto const& entry : history.Own()) {
        Record record = history.At(entry.index);
        record.procedure.Reset();  // the step sequence tells it
        out.WriteNested("", record);
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
      if (record.state) {
        read.Entries().push_back({static_cast<std::uint32_t>(i), record.status, record.state, {}});
      } else if (record.status != mdl_PropagationStatusEnm::NotYetCreated) {
        in.Refuse(name, "a state in every record from the create step on");
      }
      steps.Append(kprC_StepNameProcedurePair(record.stepName, record.procedure));
    }
    in.EndList();
    read.steps_ = kprC_StepTable(std::move(steps));
    history = std::move(read);
  }
  static void NewUid(History& history) { history.NewUid(); }
  static bool Equal(History const& a, History const& b) {
    return std::ranges::equal(a.Own(), b.Own(),
                              [](auto const& one, auto const& two) {
                                return one.index == two.index && one.status == two.status &&
                                       cls_MemberTraits<typename History::Handle>::Equal(one.state, two.state);
                              }) &&
           (a.steps_.Same(b.steps_) || cls_MemberTraits<kprC_StepSequence>::Equal(a.steps_.Steps(), b.steps_.Steps()));
  }
  /// What the own records name; the others name nothing else.
  static void References(History const& history, cls_Reference, cls_ReferenceVisitor const& visit) {
    for (auto const& entry : history.Own()) { cls_ForEachReference(entry.state->MemberRows(), entry.state.ConstGet(), visit); }
  }
  static bool Redirect(History& history, cls_Reference, cls_Redirection const& to) {
    bool redirected = false;
    for (std::size_t i = 0; i < history.Own().size(); ++i) {
      auto state = history.Own()[i].state;
      auto& own = state.Get();
      if (!cls_Redirect(own.MemberRows(), &own, to)) { continue; }
      own.NewUid();
      auto const& entry = history.Own()[i];
      history.Set(entry.index, entry.status, std::move(state));
      redirected = true;
    }
    return redirected;
  }
  static cls_Value ToValue(History const& history) {
    cls_Value::List statuses;
    for (std::size_t i = 0; i < history.Size(); ++i) { statuses.emplace_back(static_cast<int>(history.Status(i))); }
    return statuses;
  }
  static std::string_view FromValue(History&, cls_Value const&) { return "nothing: a history follows from the edits"; }
};
