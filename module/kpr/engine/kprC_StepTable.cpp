#include "module/kpr/engine/kprC_StepTable.h"

#include <algorithm>
#include <bit>
#include <functional>

kprC_StepTable::kprC_StepTable() {
  static cow_Handle<Body> const empty = cow_Handle<Body>::Make();
  body_ = empty;
}

kprC_StepTable::kprC_StepTable(kprC_StepSequence steps) : body_(cow_Handle<Body>::Make()) {
  Body& body = body_.Get();
  std::size_t const count = steps.Size();
  body.types.reserve(count);
  body.slots.resize(std::bit_ceil(2 * count + 1));
  std::size_t const mask = body.slots.size() - 1;
  for (std::size_t i = 0; i < count; ++i) {
    kprC_StepNameProcedurePair const& pair = steps[i];
    unsigned const type = pair.ProcedureType();
    if (body.types.empty() || type != body.types.back()) {
      if (std::ranges::find(body.distinctTypes, type) == body.distinctTypes.end()) { body.distinctTypes.push_back(type); }
    }
    body.types.push_back(type);
    std::size_t slot = std::hash<std::string_view>{}(pair.stepName.View()) & mask;
    while (body.slots[slot] != 0 && !(steps[body.slots[slot] - 1].stepName == pair.stepName)) { slot = (slot + 1) & mask; }
    if (body.slots[slot] == 0) { body.slots[slot] = static_cast<std::uint32_t>(i + 1); }
  }
  body.segmentEnds.resize(count);
  for (std::size_t i = count; i-- > 0;) {
    bool const joined = i + 1 < count && body.types[i] == body.types[i + 1];
    body.segmentEnds[i] = joined ? body.segmentEnds[i + 1] : static_cast<std::uint32_t>(i + 1);
  }
  body.steps = std::move(steps);
}

std::size_t kprC_StepTable::Find(std::string_view name) const {
  Body const& body = *body_;
  if (body.types.empty()) { return npos; }
  std::size_t const mask = body.slots.size() - 1;
  for (std::size_t slot = std::hash<std::string_view>{}(name)&mask; body.slots[slot] != 0; slot = (slot + 1) & mask) {
    std::size_t const at = body.slots[slot] - 1;
    if (body.steps[at].stepName.View() == name) { return at; }
  }
  return npos;
}

bool kprC_StepTable::SameNames(kprC_StepTable const& other) const {
  return std::ranges::equal(Steps(), other.Steps(), {}, &kprC_StepNameProcedurePair::stepName, &kprC_StepNameProcedurePair::stepName);
}

bool kprC_StepTable::Tells(kprC_StepTable const& other) const {
  return SameNames(other) &&
         std::ranges::equal(Steps(), other.Steps(), {}, &kprC_StepNameProcedurePair::procedure, &kprC_StepNameProcedurePair::procedure);
}

kprC_StepTable kprC_StepTable::WithInserted(std::size_t index, kprC_StepNameProcedurePair const& pair) const {
  kprC_StepSequence steps = body_->steps;
  steps.Insert(index, pair);
  return kprC_StepTable(std::move(steps));
}

kprC_StepTable kprC_StepTable::WithRemoved(std::size_t index) const {
  kprC_StepSequence steps = body_->steps;
  steps.Remove(index);
  return kprC_StepTable(std::move(steps));
}

kprC_StepTable kprC_StepTable::WithReplaced(std::size_t index, kprC_StepNameProcedurePair const& pair) const {
  kprC_StepSequence steps = body_->steps;
  steps.Get(index) = pair;
  return kprC_StepTable(std::move(steps));
}
