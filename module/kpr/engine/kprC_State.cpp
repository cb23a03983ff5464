#include "module/kpr/engine/kprC_State.h"

#include <algorithm>

namespace {

/// Calls \p fn(row, member) for every member that is carried from step to step.
template <class State, class Fn> void ForEachCarried(State& state, Fn&& fn) {
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (row.ops->propagate != nullptr) { fn(row, row.In(&state)); }
  }
}

}  // namespace

void kprC_State::Modify(kprC_State const& own) {
  switchedOff_ = own.switchedOff_;
  if (switchedOff_ || own.DynTypeId() != DynTypeId()) { return; }
  for (cls_MemberRow const& row : MemberRows()) {
    if (row.ops->modify != nullptr) { row.ops->modify(row.In(static_cast<void*>(this)), row.In(static_cast<void const*>(&own)), row.name); }
  }
}

bool kprC_State::IsMergedOnto(kprC_State const& source) const {
  if (switchedOff_ || source.DynTypeId() != DynTypeId()) { return false; }
  return std::ranges::all_of(MemberRows(), [&](cls_MemberRow const& row) {
    void const* const own = row.In(static_cast<void const*>(this));
    void const* const other = row.In(static_cast<void const*>(&source));
    if (own == &switchedOff_) { return true; }
    return row.ops->isMerged != nullptr ? row.ops->isMerged(own, other, row.name) : row.ops->equal(own, other);
  });
}

void kprC_State::Propagate() {
  ForEachCarried(*this, [](cls_MemberRow const& row, void* member) { row.ops->propagate(member, row.name); });
}

void kprC_State::TakeOver() {
  ForEachCarried(*this, [](cls_MemberRow const& row, void* member) { row.ops->takeOver(member); });
}

void kprC_State::Zero() {
  ForEachCarried(*this, [](cls_MemberRow const& row, void* member) { row.ops->zero(member); });
}

bool kprC_State::IsModified() const {
  return std::ranges::any_of(MemberRows(), [this](cls_MemberRow const& row) {
    return row.ops->isModified != nullptr && row.ops->isModified(row.In(static_cast<void const*>(this)));
  });
}

bool kprC_State::IsConditionModified() const {
  return std::ranges::any_of(MemberRows(), [this](cls_MemberRow const& row) {
    return row.ops->isConditionModified != nullptr && row.ops->isConditionModified(row.In(static_cast<void const*>(this)));
  });
}
