#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "framework/kprC_History.h"

/// How the propagator takes a step.
enum class kprC_StepKind : std::uint8_t {
  General,
  Perturbation,  ///< starts from the base state and leaves it as it is
  Modal,         ///< works on the modes of an earlier frequency step: nothing can be edited
};

/// What a family's records become. Statuses are the family's own; what it does not know it never gives.
struct kprC_PassTable {
  mdl_PropagationStatusEnm createdOff;            ///< first own record, switched off
  mdl_PropagationStatusEnm carried;               ///< general step, carried
  mdl_PropagationStatusEnm carriedFromInitial;    ///< the same while the base state is the untouched creation of the initial step
  mdl_PropagationStatusEnm changed;               ///< general step, own change
  mdl_PropagationStatusEnm changedFromInitial;    ///< the same, the first change of what the initial step created
  mdl_PropagationStatusEnm off;                   ///< general step, switched off
  mdl_PropagationStatusEnm afterOff;              ///< off since an earlier step
  mdl_PropagationStatusEnm notAdmitted;           ///< passed over
  mdl_PropagationStatusEnm perturbation;          ///< perturbation step, carried
  mdl_PropagationStatusEnm perturbationChanged;   ///< perturbation step, own change
  mdl_PropagationStatusEnm perturbationOff;       ///< switched off for one perturbation step
  mdl_PropagationStatusEnm held;                  ///< modal-based step
  mdl_PropagationStatusEnm notCarried;            ///< made in a perturbation or modal-based step, later steps
  bool keepsPerturbationChange;                   ///< false: an own change in a perturbation step is dropped
  bool asksAdmissionInPerturbation;               ///< false: a perturbation step carries what it does not admit
};

/// Forms the history of one attribute: walks the records in step order and gives each its status and its state.
///
/// Runs of equal records over neighbouring steps of one procedure type are taken in one go, so a pass is linear in what
/// differs, not in the steps. A second pass changes nothing. Carried states are shared by all records that carry them,
/// and a state that comes out as it was keeps its identity.
/// \tparam Rules State, kPass, Kind(procedureType), IsFrequency(procedureType), kNeverOff.
/// \tparam Admits bool(unsigned procedureType): whether the type may be carried into a step of that procedure.
template <class Rules, class Admits> class kprC_Propagator {
public:
  using State = typename Rules::State;
  using Handle = cow_Handle<State>;
  using Runs = kprC_RecordRuns<State>;

  kprC_Propagator(kprC_StepTable const& steps, Admits admits) : steps_(steps), admits_(std::move(admits)) {}

  Runs Run(Runs const& records) {
    for (std::size_t run = 0, begin = 0; run < records.Runs(); begin = records.RunAt(run++).end) {
      auto const& in = records.RunAt(run);
      Own const own = Classify(in.status, in.state);
      for (std::size_t end; begin < in.end; begin = end) {
        // an own record stands for itself; what is carried goes as far as the procedure type does
        end = own >= Own::Creation ? begin + 1 : std::min<std::size_t>(in.end, steps_.SegmentEnd(begin));
        Take(begin, end, own, in.state);
      }
    }
    return std::move(out_);
  }

private:
  enum class Own { None, Carried, Creation, Off, Change };
  enum class View { None, On, Off };
  static constexpr kprC_PassTable const& kPass = Rules::kPass;

  static Own Classify(mdl_PropagationStatusEnm status, Handle const& state) {
    if (!state) { return Own::None; }
    if (status == mdl_PropagationStatusEnm::Created) { return Own::Creation; }
    if (state->SwitchedOff() && !((Rules::kNeverOff >> static_cast<unsigned>(status)) & 1U)) { return Own::Off; }
    return state->IsModified() || state->IsConditionModified() ? Own::Change : Own::Carried;
  }

  void Take(std::size_t begin, std::size_t end, Own own, Handle const& state) {
    unsigned const procedure = steps_.ProcedureType(begin);
    kprC_StepKind const kind = Rules::Kind(procedure);
    if (!created_) {
      if (own <= Own::Carried) { return out_.Append(end - begin, mdl_PropagationStatusEnm::NotYetCreated, nullptr); }
      Create(kind, procedure == 0, state);
    } else {
      if (own == Own::Creation) { own = state->IsModified() || state->IsConditionModified() ? Own::Change : Own::Carried; }
      auto const [status, result] = After(kind, procedure, own, state);
      out_.Append(end - begin, status, result);
    }
    if (Rules::IsFrequency(procedure)) { inFrequency_ = out_.Status(begin); }
  }

  void Create(kprC_StepKind kind, bool initial, Handle const& state) {
    created_ = true;
    source_ = state;
    if (kind == kprC_StepKind::General) {
      base_ = state->SwitchedOff() ? View::Off : View::On;
      untouchedInitial_ = initial;
    }
    out_.Append(1, state->SwitchedOff() ? kPass.createdOff : mdl_PropagationStatusEnm::Created, state);
  }

  /// Status and state of a record after the creation: the first row that applies.
  std::pair<mdl_PropagationStatusEnm, Handle> After(kprC_StepKind kind, unsigned procedure, Own own, Handle const& state) {
    bool const modal = kind == kprC_StepKind::Modal;
    if (base_ == View::None) {
      return {modal && inFrequency_ == mdl_PropagationStatusEnm::Created ? kPass.held : kPass.notCarried, Carried(false, state)};
    }
    bool const off = base_ == View::Off;
    bool const change = own == Own::Change;
    if (modal) {
      if (!Admitted(procedure)) { return {kPass.notAdmitted, Carried(off, state)}; }
      bool const out = off || inFrequency_ == kPass.perturbationOff;
      return {out ? kPass.afterOff : kPass.held, Carried(false, state)};
    }
    bool const perturbation = kind == kprC_StepKind::Perturbation;
    if (!change && (!perturbation || kPass.asksAdmissionInPerturbation) && !Admitted(procedure)) {
      return {kPass.notAdmitted, Carried(off, state)};
    }
    if (off) { return {kPass.afterOff, change ? Merged(*state, true, state) : Carried(true, state)}; }
    if (perturbation) {
      if (own == Own::Off) { return {kPass.perturbationOff, Carried(true, state)}; }
      if (!change) { return {kPass.perturbation, Carried(false, state)}; }
      return {kPass.perturbationChanged, kPass.keepsPerturbationChange ? Merged(*state, false, state) : Carried(false, state)};
    }
    if (own == Own::Off) {
      std::pair result{kPass.off, Carried(true, state)};
      base_ = View::Off;
      return result;
    }
    if (!change) { return {untouchedInitial_ ? kPass.carriedFromInitial : kPass.carried, Carried(false, state)}; }
    std::pair result{untouchedInitial_ ? kPass.changedFromInitial : kPass.changed, Merged(*state, false, state)};
    untouchedInitial_ = false;
    SetSource(result.second);
    return result;
  }

  bool Admitted(unsigned procedure) {
    if (procedure != askedOf_) {
      askedOf_ = procedure;
      answer_ = admits_(procedure);
    }
    return answer_;
  }

  void SetSource(Handle const& source) {
    source_ = source;
    carried_ = {};
  }

  /// What the source gives to a later step, switched off or on; \p now is what stands there, kept when it is the same.
  Handle const& Carried(bool off, Handle const& now) {
    Handle& carried = carried_[off];
    if (!carried) {
      carried = Settle(Propagated(off), now, carried_[!off]);
    }
    return carried;
  }

  /// The carried state with the step's own members on it.
  Handle Merged(State const& own, bool off, Handle const& now) {
    auto clear = Duplicate(own);
    clear->SetSwitchedOff(false);
    auto made = Propagated(false);
    made->Modify(*clear);
    made->SetSwitchedOff(off);
    return Settle(std::move(made), now, nullptr);
  }

  std::unique_ptr<State> Propagated(bool off) const {
    auto made = Duplicate(*source_);
    made->Propagate();
    made->SetSwitchedOff(off);
    return made;
  }
  static std::unique_ptr<State> Duplicate(State const& state) {
    return std::unique_ptr<State>(static_cast<State*>(state.Copy().release()));
  }
  /// The present object where it is equal, else the source, else a new object with an identity of its own.
  Handle Settle(std::unique_ptr<State> made, Handle const& now, Handle const& other) {
    if (now && now->Equals(*made)) { return now; }
    if (other && other->Equals(*made)) { return other; }
    if (source_->Equals(*made)) { return source_; }
    made->NewUid();
    return Handle(std::move(made));
  }

  kprC_StepTable const& steps_;
  Admits admits_;
  Runs out_;
  bool created_ = false;
  View base_ = View::None;         ///< the base state as the last general step left it
  bool untouchedInitial_ = false;  ///< the base state is still what the initial step created
  Handle source_;                  ///< values of the base state; without one, those of the creation
  std::array<Handle, 2> carried_;  ///< the source as later steps carry it: on, off
  mdl_PropagationStatusEnm inFrequency_ = mdl_PropagationStatusEnm::NotYetCreated;  ///< status in the last frequency step
  unsigned askedOf_ = ~0U;
  bool answer_ = false;
};
