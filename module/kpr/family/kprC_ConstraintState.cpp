#include "module/kpr/family/kprC_ConstraintState.h"

namespace {
/// Calls \p fn(row) with every component that has a value, set here or carried.
template <class Fn> void ForEachInForce(kprC_State const& state, Fn&& fn) {
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (row.text.component != 0 && row.ops->realInForce(row.In(&state)) != nullptr) { fn(row); }
  }
}
}  // namespace

bool kprC_AnyNonZero(kprC_State const& state, bool ownOnly) {
  bool any = false;
  ForEachInForce(state, [&](cls_MemberRow const& row) {
    bool const counts = !ownOnly || row.ops->isModified(row.In(&state));
    any = any || (counts && *row.ops->realInForce(row.In(&state)) != 0.0);
  });
  return any;
}

std::uint32_t kprC_ComponentsOf(kprC_State const& state) {
  std::uint32_t components = 0;
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (row.text.component != 0) { components |= 1U << row.text.component; }
  }
  return components;
}

std::uint32_t kprC_ComponentsInForce(kprC_State const& state) {
  std::uint32_t components = 0;
  ForEachInForce(state, [&](cls_MemberRow const& row) { components |= 1U << row.text.component; });
  return components;
}

std::string kprC_ComponentsBeyond(kprC_State const& state, unsigned offers) {
  std::string names;
  ForEachInForce(state, [&](cls_MemberRow const& row) {
    bool const offered = (offers >> row.text.component & 1U) != 0;
    if (!offered) { names.append(names.empty() ? "" : ", ").append(row.name); }
  });
  return names;
}
