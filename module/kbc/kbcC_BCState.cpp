#include "module/kbc/kbcC_BCState.h"

#include <algorithm>

bool kbcC_BCState::IsNonZero() const {
  return std::ranges::any_of(MemberRows(), [this](cls_MemberRow const& row) {
    double const* const value = row.text.component == 0 ? nullptr : row.ops->realInForce(row.In(this));
    return value != nullptr && *value != 0.0;
  });
}

bool kbcC_BCState::SetsNonZero() const {
  return std::ranges::any_of(MemberRows(), [this](cls_MemberRow const& row) {
    if (row.text.component == 0 || !row.ops->isModified(row.In(this))) { return false; }
    double const* const value = row.ops->realInForce(row.In(this));
    return value != nullptr && *value != 0.0;
  });
}

std::uint32_t kbcC_BCState::Components() const {
  std::uint32_t components = 0;
  for (cls_MemberRow const& row : MemberRows()) {
    if (row.text.component != 0) { components |= 1U << row.text.component; }
  }
  return components;
}

std::uint32_t kbcC_BCState::ComponentsInForce() const {
  if (IsFixed()) { return Components(); }
  std::uint32_t components = 0;
  for (cls_MemberRow const& row : MemberRows()) {
    if (row.text.component != 0 && row.ops->realInForce(row.In(this)) != nullptr) { components |= 1U << row.text.component; }
  }
  return components;
}

std::string kbcC_BCState::ComponentsBeyond(unsigned offers) const {
  std::string names;
  for (cls_MemberRow const& row : MemberRows()) {
    bool const offered = (offers >> row.text.component & 1U) != 0;
    if (row.text.component == 0 || offered || row.ops->realInForce(row.In(this)) == nullptr) { continue; }
    names.append(names.empty() ? "" : ", ").append(row.name);
  }
  return names;
}
