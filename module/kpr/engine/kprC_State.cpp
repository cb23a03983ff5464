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
  bool modified = false;
  ForEachCarried(*this, [&](cls_MemberRow const& row, void const* member) { modified = modified || row.ops->isModified(member); });
  return modified;
}

bool kprC_State::IsConditionModified() const {
  bool modified = false;
  ForEachCarried(*this, [&](cls_MemberRow const& row, void const* member) { modified = modified || row.ops->isConditionModified(member); });
  return modified;
}
