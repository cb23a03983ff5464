#include "module/kpr/engine/kprC_Propagator.h"

#include <algorithm>

using Status = mdl_PropagationStatusEnm;

namespace {
bool IsModified(kprC_State const& state) { return state.IsModified() || state.IsConditionModified(); }
/// Whether both say the same, also of being switched off, which not every family lists as a member.
bool SaySame(kprC_State const& a, kprC_State const& b) { return a.SwitchedOff() == b.SwitchedOff() && a.Equals(b); }
}  // namespace

std::unique_ptr<kprC_State> kprC_Duplicate(kprC_State const& state) {
  return std::unique_ptr<kprC_State>(static_cast<kprC_State*>(state.Copy().release()));
}

bool kprC_IsOffByItself(Status status, kprC_State const& state, bool ownRecordsOnly) {
  switch (status) {
    case Status::Deactivated:
    case Status::Inactive11:
    case Status::Status15: return true;
    case Status::InactiveAfterDeactivation:
    case Status::Inactive6:
    case Status::Inactive7:
    case Status::Reserved13:
    case Status::Status14: return ownRecordsOnly && !IsModified(state);
    default: return false;
  }
}

kprC_Propagator::Kind kprC_Propagator::Classify(Own const& own) {
  if (!own.state) { return Kind::Carried; }
  if (own.status == Status::Created) { return Kind::Creation; }
  if (own.marked) { return Kind::Off; }
  return IsModified(*own.state) ? Kind::Change : Kind::Carried;
}

kprC_History::Span kprC_Propagator::Run() {
  kprC_History::Span const touched = history_.body_->touched;
  kprC_History::Span changed = touched;
  auto const owns = history_.Owns();
  auto const from = std::ranges::lower_bound(owns, touched.first, {}, &Own::step);
  std::size_t kept = static_cast<std::size_t>(from - owns.begin());
  if (kept > 0) {
    Own const& before = owns[kept - 1];
    base_ = before.base;
    untouched_ = before.untouched;
    source_ = &*std::ranges::lower_bound(owns, before.source, {}, &Own::step);
  }
  for (std::size_t at = kept; at < owns.size(); ++at) {
    Own& own = owns[at];
    Handle const state = own.state;
    Status const status = own.status;
    if (!Take(own)) { continue; }
    if (!(own.state == state)) {  // what was carried of another state
      own.on.Reset();
      own.off.Reset();
    }
    bool const sameState = own.state == state && !touched.Holds(own.step);
    bool const sameCarry = own.source == source_->step && own.base == base_ && own.untouched == untouched_;
    if (source_ == &own) { sourceChanged_ = !sameState; }
    bool const same = sameState && own.status == status;
    bool const settled = kept == at && own.step > touched.last && same && sameCarry && !sourceChanged_;
    if (!same) { changed.Add({own.step, own.step}); }
    own.source = source_->step;
    own.base = base_;
    own.untouched = untouched_;
    if (kept != at) {
      bool const isSource = source_ == &own;
      owns[kept] = std::move(own);
      if (isSource) { source_ = &owns[kept]; }
    }
    ++kept;
    if (settled) { return changed; }
  }
  history_.body_.Get().Erase(owns.data() + kept, owns.data() + owns.size());
  return changed;
}

bool kprC_Propagator::Take(Own& own) {
  Kind kind = Classify(own);
  if (kind == Kind::Carried) { return false; }
  std::size_t const index = history_.steps_.Position(own.step);
  kprC_StepFacts const step = history_.steps_.Facts(index);
  kprC_StepKind const stepKind = history_.Family().kind(step.procedureType);
  if (source_ == nullptr) {
    Create(own, stepKind, history_.steps_.IsInitial(index));
    return true;
  }
  own.creation = false;
  if (kind == Kind::Creation) { kind = IsModified(*own.state) ? Kind::Change : Kind::Carried; }
  return kind != Kind::Carried && Change(own, stepKind, step, kind == Kind::Change);
}

void kprC_Propagator::Create(Own& own, kprC_StepKind kind, bool initial) {
  // what was a change becomes the creation, since the creation went: it keeps what is in force here as its own
  bool const was = !own.creation && own.status != Status::Created && own.status != Status::NotYetCreated;
  if (was || own.state->SwitchedOff() != own.marked) {
    auto made = kprC_Duplicate(*own.state);
    if (was) { made->TakeOver(); }
    made->SetSwitchedOff(own.marked);
    if (!SaySame(*made, *own.state)) {
      made->NewUid();
      own.state = Handle(std::move(made));
    }
  }
  own.creation = true;
  own.status = own.marked ? history_.Pass().createdOff : Status::Created;
  base_ = kind != kprC_StepKind::General ? Base::None : own.marked ? Base::Off : Base::On;
  untouched_ = initial;
  source_ = &own;
}

bool kprC_Propagator::Change(Own& own, kprC_StepKind kind, kprC_StepFacts step, bool change) {
  kprC_PassTable const& pass = history_.Pass();
  bool const general = kind == kprC_StepKind::General;
  if (base_ == Base::None || kind == kprC_StepKind::Modal) { return false; }
  if (!history_.IsCarriedInto(step)) {
    if (!general && pass.asksAdmissionInPerturbation && !(change && pass.keepsPerturbationChange)) { return false; }
    if (general && !change) {
      own.status = history_.PassedOver(step, untouched_ && base_ == Base::On);  // the switch-off stays for later
      own.state = Plain(base_ == Base::Off, own.state);
      return true;
    }
  }
  if (base_ == Base::Off) {
    own.status = pass.afterOff;
    own.state = change ? Merged(own.state, true) : Plain(true, own.state);
    return true;
  }
  if (!general) {
    if (change && !pass.keepsPerturbationChange) { return false; }
    own.status = change ? pass.perturbationChanged : pass.perturbationOff;
    own.state = change ? Merged(own.state, false) : Plain(true, own.state);
    return true;
  }
  if (!change) {
    own.status = pass.off;
    own.state = Plain(true, own.state);
    base_ = Base::Off;
    return true;
  }
  own.status = untouched_ ? pass.changedFromInitial : pass.changed;
  own.state = Merged(own.state, false);
  untouched_ = false;
  source_ = &own;
  return true;
}

kprC_Propagator::Handle kprC_Propagator::Plain(bool off, Handle const& present) const {
  return Handle::Sharing(history_.Carry(*source_, off, present));
}

kprC_Propagator::Handle kprC_Propagator::Merged(Handle const& own, bool off) const {
  if (!off && own->IsMergedOnto(*source_->state)) { return own; }
  auto made = kprC_Duplicate(*source_->state);
  made->Propagate();
  if (own->SwitchedOff()) {  // a state that is off takes nothing over
    auto clear = kprC_Duplicate(*own);
    clear->SetSwitchedOff(false);
    made->Modify(*clear);
  } else {
    made->Modify(*own);
  }
  made->SetSwitchedOff(off);
  if (SaySame(*own, *made)) { return own; }
  made->NewUid();
  return Handle(std::move(made));
}
