#include "module/kpr/engine/kprC_History.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <numeric>

#include "module/kpr/engine/kprC_Propagator.h"
#include "platform/BasicUtils/cls_Weight.h"

// ---- a state made when it is asked for

kprC_LazyState::kprC_LazyState(kprC_LazyState const& other) noexcept {
  kprC_State const* const present = other.Present();
  if (present != nullptr) { present->Retain(); }
  state_.store(present, std::memory_order_relaxed);
}

kprC_LazyState& kprC_LazyState::operator=(kprC_LazyState other) noexcept {
  kprC_State const* const present = Present();
  state_.store(other.Present(), std::memory_order_relaxed);
  other.state_.store(present, std::memory_order_relaxed);
  return *this;
}

void kprC_LazyState::Reset() noexcept {
  kprC_State const* const present = Present();
  if (present == nullptr) { return; }
  state_.store(nullptr, std::memory_order_relaxed);
  if (present->Release()) { delete present; }
}

kprC_State const& kprC_LazyState::Keep(cow_Handle<kprC_State> const& made) const {
  kprC_State const* present = nullptr;
  made->Retain();
  if (state_.compare_exchange_strong(present, made.ConstGet(), std::memory_order_acq_rel)) { return *made; }
  static_cast<void>(made->Release());  // another thread was first; the handle still holds ours
  return *present;
}

// ---- records that are lent

struct kprC_History::Loan {
  Number step;
  std::unique_ptr<kprC_Record> record;
  Status_ status;  // as lent, to see what has changed
  Handle state;

  bool IsChanged() const { return record->StatusNow() != status || !(record->StateNow() == state); }
};
struct kprC_History::Loans {
  std::map<Number, Loan> bySteps;
};

// ---- what an attribute says, in one piece

cow_Handle<kprC_History::Body> kprC_History::Body::Make(kprC_Family const& family, std::size_t room) {
  Records const records{static_cast<std::uint32_t>(std::max<std::size_t>(room, 1))};  // the creation at least
  return cow_Handle<Body>(std::unique_ptr<Body>(new (records) Body(&family, records)));
}

std::unique_ptr<kprC_History::Body> kprC_History::Body::Copy() const {
  Records const more{count_ + 1};
  std::unique_ptr<Body> copy(new (more) Body(*this, more));
  std::uninitialized_copy(begin(), end(), copy->begin());
  copy->count_ = count_;
  return copy;
}

kprC_History::Own& kprC_History::Body::Insert(cow_Handle<Body>& body, std::size_t place) {
  bool const shared = body->IsShared();
  if (!shared && body->count_ < body->room_) {
    Body& own = body.Get();
    Own* const made = own.begin() + place;
    Own* const end = std::construct_at(own.end());
    ++own.count_;
    if (made == end) { return *made; }
    std::move_backward(made, end, end + 1);
    return *made = Own();
  }
  Records const more{shared ? body->count_ + 1 : 2 * body->room_};
  std::unique_ptr<Body> other(new (more) Body(*body, more));
  Own* const made = other->begin() + place;
  auto const fill = [&](auto first, auto last) {
    std::uninitialized_copy_n(first, place, other->begin());
    std::construct_at(made);
    std::uninitialized_copy(first + static_cast<std::ptrdiff_t>(place), last, made + 1);
  };
  if (shared) {
    fill(body->begin(), body->end());
  } else {
    fill(std::make_move_iterator(body.Get().begin()), std::make_move_iterator(body.Get().end()));
  }
  other->count_ = body->count_ + 1;
  body = cow_Handle<Body>(std::move(other));
  return *made;
}

void kprC_History::Body::Erase(Own const* from, Own const* to) {
  Own* const first = begin() + (from - begin());
  Own* const left = std::move(begin() + (to - begin()), end(), first);
  std::destroy(left, end());
  count_ = static_cast<std::uint32_t>(left - begin());
}

kprC_History::kprC_History(kprC_Family const& family) : body_(Body::Make(family)) {}
kprC_History::kprC_History(kprC_History const& other) : steps_(other.steps_), body_(other.body_) {
  if (!other.loans_) { return; }
  for (auto const& [step, loan] : other.loans_->bySteps) { Take(loan); }
}
kprC_History::kprC_History(kprC_History&& other) noexcept = default;
kprC_History& kprC_History::operator=(kprC_History other) noexcept {
  std::swap(steps_, other.steps_);
  std::swap(body_, other.body_);
  if (loans_) { RefreshLoans(); }
  return *this;
}
kprC_History::~kprC_History() = default;

kprC_Record& kprC_History::Lend(std::size_t index) {
  if (!loans_) { loans_ = std::make_unique<Loans>(); }
  Number const step = steps_.NumberOf(index);
  auto lent = loans_->bySteps.find(step);
  if (lent == loans_->bySteps.end()) {
    Loan loan{step, Family().makeRecord(), Status(index), StateHandle(index)};
    loan.record->Take(steps_[index], loan.status, loan.state, RecordUid(index));
    lent = loans_->bySteps.emplace(step, std::move(loan)).first;
  }
  return *lent->second.record;
}

bool kprC_History::Lent() const {
  return loans_ && std::ranges::any_of(loans_->bySteps, [](auto const& loan) { return loan.second.IsChanged(); });
}

void kprC_History::Take(Loan const& loan) {
  std::size_t const index = steps_.Position(loan.step);
  if (index == npos || !loan.IsChanged()) { return; }
  Handle state = loan.record->StateNow();
  if (!state) { return Empty(index, loan.record->StatusNow()); }
  Own const* const own = FindOwn(loan.step);
  bool const wasOff = loan.state && loan.state->SwitchedOff();
  bool const isOff = state->SwitchedOff();
  bool const marked = isOff != wasOff ? isOff : own != nullptr && own->marked;
  Set(index, loan.record->StatusNow(), std::move(state), marked);
}

void kprC_History::TakeBackLoans() {
  if (!loans_) { return; }
  for (auto& [step, loan] : loans_->bySteps) {
    Take(loan);
    loan.status = loan.record->StatusNow();
    loan.state = loan.record->StateNow();
  }
}

void kprC_History::RefreshLoans() {
  if (!loans_) { return; }
  for (auto& [step, loan] : loans_->bySteps) {
    std::size_t const index = steps_.Position(step);
    if (index == npos) { continue; }  // gone with its step, but whoever holds it may still look at it
    Record const now = Look(index);
    loan.status = now.status;
    kprC_State const* const state = StateOf(now);
    loan.state = state == nullptr ? Handle() : Handle::Sharing(*state);
    loan.record->Take(steps_[index], loan.status, loan.state, RecordUid(index));
  }
}

// ---- asking

kprC_History::Own const* kprC_History::FindOwn(Number step) const {
  auto const owns = OwnRecords();
  auto const at = std::ranges::lower_bound(owns, step, {}, &Own::step);
  return at != owns.end() && at->step == step ? &*at : nullptr;
}

kprC_History::Record kprC_History::Look(std::size_t index) const {
  Number const step = steps_.NumberOf(index);
  if (loans_) {
    if (auto const lent = loans_->bySteps.find(step); lent != loans_->bySteps.end() && lent->second.IsChanged()) {
      return {lent->second.record->StatusNow(), lent->second.record->StateNow().ConstGet()};
    }
  }
  auto const owns = OwnRecords();
  auto own = std::ranges::upper_bound(owns, step, {}, &Own::step);
  if (own == owns.begin()) { return {Status_::NotYetCreated, nullptr}; }
  if ((--own)->step == step) { return {own->status, own->state.ConstGet()}; }
  while (!own->state) {  // emptied
    if (own == owns.begin()) { return {Status_::NotYetCreated, nullptr}; }
    --own;
  }
  return Carried(*own, index);
}

kprC_History::Handle kprC_History::StateHandle(std::size_t index) const {
  kprC_State const* const state = State(index);
  return state == nullptr ? Handle() : Handle::Sharing(*state);
}

kprC_History::Handle kprC_History::OffHandle(std::size_t index) const {
  Record const record = Look(index);
  if (record.source != nullptr) { return Handle::Sharing(Carry(*record.source, true)); }
  auto off = kprC_Duplicate(*record.state);
  off->SetSwitchedOff(true);
  off->NewUid();
  return Handle(std::move(off));
}

cls_Uid kprC_History::RecordUid(std::size_t index) const {
  constexpr std::uint64_t kOfAStep = std::uint64_t{1} << 62;  // keeps clear of the parts 0 and all ones, which mean something else
  return cls_Uid::OfElement(Uid(), std::hash<std::string_view>{}(steps_.Name(index).View()) / 4 | kOfAStep);
}

std::size_t kprC_History::CreateStep() const {
  for (Own const& own : OwnRecords()) {
    if (own.state) { return steps_.Position(own.step); }
  }
  return npos;
}

std::unique_ptr<kprC_State> kprC_History::StateCopy(std::size_t index) const {
  Record const record = Look(index);
  if (record.source != nullptr) { return CarriedCopy(*record.source, record.off); }
  return record.state == nullptr ? nullptr : kprC_Duplicate(*record.state);
}

std::unique_ptr<kprC_State> kprC_History::CarriedCopy(Own const& source, bool off) {
  auto made = kprC_Duplicate(*source.state);
  made->Propagate();
  made->SetSwitchedOff(off);
  return made;
}

kprC_State const& kprC_History::Carry(Own const& source, bool off, Handle const& present) const {
  return (off ? source.off : source.on).Get([&] {
    auto made = CarriedCopy(source, off);
    auto const isSame = [&](kprC_State const& state) { return state.SwitchedOff() == off && made->Equals(state); };
    if (present && isSame(*present)) { return present; }
    if (isSame(*source.state)) { return source.state; }
    made->NewUid();
    return Handle(std::move(made));
  });
}

kprC_History::Record kprC_History::Carried(Own const& own, std::size_t index) const {
  kprC_PassTable const& pass = Pass();
  kprC_StepFacts const step = steps_.Facts(index);
  kprC_StepKind const kind = Family().kind(step.procedureType);
  Own const* const found = own.source == own.step ? &own : FindOwn(own.source);
  Own const& source = found == nullptr || !found->state ? own : *found;  // one that went is missed until the next pass
  bool const modal = kind == kprC_StepKind::Modal;
  bool const off = own.base == Base::Off;
  auto const carry = [&](Status_ status, bool isOff) { return Record{status, nullptr, &source, isOff}; };
  // the status in the last frequency step, as far as that says something of its own
  auto const inFrequency = [&] {
    Number const frequency = steps_.LastBefore(index, kprC_frequencyStepType);
    Own const* const there = frequency == 0 ? nullptr : FindOwn(frequency);
    return there == nullptr ? Status_::NotYetCreated : there->status;
  };
  if (own.base == Base::None) { return carry(modal && inFrequency() == Status_::Created ? pass.held : pass.notCarried, false); }
  if (!IsCarriedInto(step) && (kind != kprC_StepKind::Perturbation || pass.asksAdmissionInPerturbation)) {
    return carry(PassedOver(step, own.untouched && !off), off);
  }
  if (modal) { return carry(off || inFrequency() == pass.perturbationOff ? pass.afterOff : pass.held, false); }
  if (off) { return carry(pass.afterOff, true); }
  if (kind == kprC_StepKind::Perturbation) { return carry(pass.perturbation, false); }
  return carry(own.untouched ? pass.carriedFromInitial : pass.carried, false);
}

std::size_t kprC_History::WeightBeside(kprC_History const* other) const {
  if (other != nullptr && body_ == other->body_) { return 0; }
  auto const theirs = other == nullptr ? std::span<Own const>() : other->OwnRecords();
  auto their = theirs.begin();
  std::size_t weight = body_->Room() * sizeof(Own);
  for (Own const& own : OwnRecords()) {
    while (their != theirs.end() && their->step < own.step) { ++their; }
    Own const* const same = their != theirs.end() && their->step == own.step ? &*their : nullptr;
    kprC_State const* states[] = {own.state.ConstGet(), own.on.Present(), own.off.Present()};
    std::array<cls_Object const*, 2 * std::size(states)> known = {};  // what may share the contents of their members
    if (same != nullptr) { known = {same->state.ConstGet(), same->on.Present(), same->off.Present()}; }
    for (std::size_t i = 0; i < std::size(states); ++i) {
      if (states[i] == nullptr || std::ranges::find(known, states[i]) != known.end()) { continue; }
      weight += cls_OwnBytes(*states[i]) + cls_HeldBytes(*states[i], known);
      known[std::size(states) + i] = states[i];
    }
  }
  return weight;
}

// ---- changing

kprC_History::Own& kprC_History::Put(Number step) {
  auto const owns = OwnRecords();
  auto const place = static_cast<std::size_t>(std::ranges::lower_bound(owns, step, {}, &Own::step) - owns.begin());
  if (place < owns.size() && owns[place].step == step) {
    Own& own = Owns()[place];
    own.on.Reset();
    own.off.Reset();
    own.creation = false;
    Touch(step, step);
    return own;
  }
  Own& own = Body::Insert(body_, place);
  own.step = own.source = step;
  if (place > 0) {  // until the next pass
    Own const& before = *(&own - 1);
    own.source = before.source;
    own.base = before.base;
    own.untouched = before.untouched;
  }
  Touch(step, step);
  return own;
}

void kprC_History::Set(std::size_t index, Status_ status, Handle state, bool marked) {
  if (!state) { return Clear(index, index + 1); }
  Own& own = Put(steps_.NumberOf(index));
  own.state = std::move(state);
  own.status = status;
  own.marked = marked;
}

void kprC_History::Empty(std::size_t index, Status_ status) {
  Own& own = Put(steps_.NumberOf(index));
  own.state.Reset();
  own.status = status;
  own.marked = false;
}

void kprC_History::Clear(std::size_t begin, std::size_t end) {
  if (begin >= end) { return; }
  auto const owns = Owns();
  Number const first = steps_.NumberOf(begin), last = steps_.NumberOf(end - 1);
  auto const from = std::ranges::lower_bound(owns, first, {}, &Own::step);
  auto const to = std::ranges::upper_bound(owns, last, {}, &Own::step);
  body_.Get().Erase(owns.data() + (from - owns.begin()), owns.data() + (to - owns.begin()));
  Touch(first, last);
}

void kprC_History::StartWith(cow_String const& step, Handle state) {
  steps_ = kprC_StepTable::OfOne(step);
  TouchAll();
  Own& own = Put(steps_.NumberOf(0));
  own.marked = state->SwitchedOff();
  own.state = std::move(state);
  own.status = Status_::Created;
}

void kprC_History::Attach(kprC_StepTable const& steps) {
  if (steps_.Same(steps)) { return; }
  TakeBackLoans();
  bool const follows = steps.Continues(steps_);
  bool const kept = follows && (steps.Disturbed() == 0 || FindOwn(steps.Disturbed()) == nullptr);
  if (!kept && !OwnRecords().empty()) {
    auto const owns = Owns();
    for (Own& own : owns) {  // while steps have other numbers, a source is known by its place
      Own const* const source = FindOwn(own.source);
      own.source = static_cast<Number>((source == nullptr ? &own : source) - owns.data());
    }
    for (Own& own : owns) {
      std::size_t const now = follows ? steps.Position(own.step) : steps.Find(steps_.Name(steps_.Position(own.step)).View());
      own.step = now == npos ? 0 : steps.NumberOf(now);
    }
    for (Own& own : owns) {
      Number const source = owns[own.source].step;
      own.source = source == 0 ? own.step : source;
    }
    std::ranges::sort(owns, {}, &Own::step);
    auto const gone = std::ranges::count(owns, Number{0}, &Own::step);
    body_.Get().Erase(owns.data(), owns.data() + gone);
    TouchAll();
  }
  steps_ = steps;
  RefreshLoans();
}

bool kprC_History::ChangeStates(std::function<bool(kprC_State& state)> const& change) {
  bool any = false;
  for (std::size_t i = 0; i < OwnRecords().size(); ++i) {
    Handle state = OwnRecords()[i].state;
    if (!state) { continue; }
    kprC_State& own = state.Get();
    if (!change(own)) { continue; }
    own.NewUid();
    Own& changed = Owns()[i];
    changed.state = std::move(state);
    changed.on.Reset();
    changed.off.Reset();
    Touch(changed.step, changed.step);
    any = true;
  }
  return any;
}

void kprC_History::SetCarrying(cow_Handle<kprC_Carrying> const& carrying) {
  auto const& present = body_->carrying;
  if (present == carrying || (present && present->Equals(*carrying))) { return; }
  TouchAll();
  body_.Get().carrying = carrying;
}

kprC_History::Span kprC_History::Form() {
  TakeBackLoans();
  if (body_->touched.IsEmpty()) { return {}; }
  Span const changed = kprC_Propagator(*this).Run();
  body_.Get().touched = {};
  RefreshLoans();
  return changed;
}

// ---- storing

namespace {
/// Whether the class of \p state lists as a member that it is switched off; where not, it follows from the status.
bool ListsSwitchedOff(kprC_State const& state) {
  auto const other = kprC_Duplicate(state);
  other->SetSwitchedOff(!state.SwitchedOff());
  return !other->Equals(state);
}
}  // namespace

void kprC_History::Write(cls_WriteVisitor const& out, std::string_view name) const {
  if (Lent()) { return kprC_History(*this).Write(out, name); }
  if (out.WritesOwnRecordsOnly()) {
    auto const owns = OwnRecords();
    auto const isTold = [](Own const& own) { return static_cast<bool>(own.state); };
    // a brief record of a creation that is switched off is followed by one that says so where its state does not
    bool const tellsOff =
        out.IsBrief() && !owns.empty() && isTold(owns.front()) && owns.front().marked && !ListsSwitchedOff(*owns.front().state);
    out.StartList(name, static_cast<std::size_t>(std::ranges::count_if(owns, isTold)) + (tellsOff ? 1 : 0));
    bool first = true;
    for (Own const& own : owns) {
      if (!isTold(own)) { continue; }
      std::size_t const index = steps_.Position(own.step);
      if (out.IsBrief()) {  // what follows from the steps before is no matter of the record: a step there may be edited elsewhere
        out.WriteChange(steps_.Name(index).View(), own.marked && !first ? nullptr : own.state.ConstGet(), first);
        if (first && tellsOff) { out.WriteChange(steps_.Name(index).View(), nullptr, false); }
        first = false;
        continue;
      }
      Family().writeRecord(out, {steps_.Name(index), own.status, own.state, nullptr},
                           RecordUid(index));  // the sequence tells the procedure
    }
  } else {
    out.StartList(name, Size());
    for (std::size_t i = 0; i < Size(); ++i) {
      Family().writeRecord(out, {steps_.Name(i), Status(i), StateHandle(i), steps_[i].procedure}, RecordUid(i));
    }
  }
  out.EndList();
}

void kprC_History::Read(cls_ReadVisitor const& in, std::string_view name) {
  std::vector<Stored> told;
  std::size_t const count = in.StartList(name);
  told.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    Stored record;
    if (in.IsBrief()) {
      record = ReadChange(in, name, told.empty() ? nullptr : &told.front().state);
      bool const ofFirst = told.size() == 1 && record.stepName == told.front().stepName;
      if (ofFirst && record.status == Status_::Deactivated && !ListsSwitchedOff(*record.state)) {
        told.front().state.Get().SetSwitchedOff(true);
        continue;
      }
    } else {
      in.ReadNested("", [&](cls_ReadVisitor const& nested) { record = Family().readRecord(nested); });
    }
    if (!record.state && record.status != Status_::NotYetCreated) { in.Refuse(name, "a state in every record from the create step on"); }
    told.push_back(std::move(record));
  }
  in.EndList();
  // Where the model's sequence is at hand, records stand on it at once; else on one of their own, to be matched by names.
  bool const ownOnly = in.ReadsOwnRecordsOnly();
  auto const* const source = ownOnly ? dynamic_cast<kprC_StepSource const*>(&in) : nullptr;
  kprC_History read(Family());
  read.body_ =
      Body::Make(Family(), static_cast<std::size_t>(std::ranges::count_if(told, [](Stored const& record) { return bool(record.state); })));
  std::vector<std::size_t> places;
  if (source != nullptr) {
    read.steps_ = source->Steps();
    for (Stored const& record : told) {
      std::size_t const at = read.steps_.Find(record.stepName.View());
      if (at == npos || (!places.empty() && at <= places.back())) { break; }
      places.push_back(at);
    }
  }
  if (source == nullptr || places.size() != told.size()) {
    kprC_StepSequence steps;
    for (Stored const& record : told) { steps.Append(kprC_StepNameProcedurePair(record.stepName, record.procedure)); }
    read.steps_ = kprC_StepTable(steps);
    places.resize(told.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
  }
  bool isFirst = true;
  for (std::size_t i = 0; i < told.size(); ++i) {
    auto& [step, status, state, procedure] = told[i];
    if (!state) { continue; }
    bool const brief = in.IsBrief();
    bool const isOff = status == Status_::Deactivated || status == Status_::InactiveAfterDeactivation;
    if (!brief && isOff && !state->SwitchedOff() && !ListsSwitchedOff(*state)) { state.Get().SetSwitchedOff(true); }
    bool const marked = brief && isFirst ? state->SwitchedOff() : kprC_IsOffByItself(status, *state, ownOnly);
    read.Set(places[i], status, std::move(state), marked);
    isFirst = false;
  }
  if (!isFirst) { read.Owns().front().creation = true; }
  read.TouchAll();
  *this = std::move(read);
}

kprC_History::Stored kprC_History::ReadChange(cls_ReadVisitor const& in, std::string_view name, Handle const* first) const {
  auto [step, values] = in.ReadChange();
  if (!values) {
    if (first == nullptr) { in.Refuse(name, "values in the first record"); }
    return {cow_String(step), Status_::Deactivated, *first, {}};
  }
  Handle state = Family().asState(values);
  if (!state) { in.Refuse(name, "an object of another class"); }
  return {cow_String(step), first == nullptr ? Status_::Created : Status_::Modified, std::move(state), {}};
}

bool kprC_History::Equals(kprC_History const& other) const {
  if (Lent() || other.Lent()) { return kprC_History(*this).Equals(kprC_History(other)); }
  bool const sameSteps = steps_.Same(other.steps_);
  if (sameSteps && body_ == other.body_) { return true; }
  auto const isSameStep = [&](Own const& one, Own const& two) {
    return sameSteps ? one.step == two.step : steps_.Position(one.step) == other.steps_.Position(two.step);
  };
  auto const says = [&](Own const& one, Own const& two) {
    return isSameStep(one, two) && one.status == two.status && one.marked == two.marked &&
           cls_MemberTraits<Handle>::Equal(one.state, two.state);
  };
  return std::ranges::equal(OwnRecords(), other.OwnRecords(), says) && cls_MemberTraits<kprC_StepTable>::Equal(steps_, other.steps_);
}

void kprC_History::References(cls_ReferenceVisitor const& visit) const {
  for (Own const& own : OwnRecords()) {
    if (own.state) { cls_ForEachReference(own.state->MemberRows(), own.state.ConstGet(), visit); }
  }
}
