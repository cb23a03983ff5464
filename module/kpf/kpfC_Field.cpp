#include "module/kpf/kpfC_Field.h"

#include "module/kpf/kpfC_FromFileState.h"

template class kprC_StepAttribute<kpfC_Rules>;
template class kprC_PropagatingContainer<kpfC_Field>;

bool kpfC_Field::StaysFromInitial(kprC_StepFacts /*step*/) const { return Type().procedures == kprC_ProcedureType::Initial; }

void kpfC_Field::AssertState(kpfC_FieldState const& state, std::size_t index) const {
  kpfC_Assert(Type().Takes(state.Distribution()), Type().refusal);
  state.AssertValid();
  kpfC_Assert(state.Distribution() != FIELD || !fieldName_.IsEmpty(), kpfC_ErrorEnm::FieldNameMissing);
  bool const hasRegion = *region_ && !region_->IsEmpty();
  kpfC_Assert(hasRegion || IgnoresRegion(state), kpfC_ErrorEnm::RegionMissing);
  std::optional<double> const magnitude = state.IsUniform() ? state.Magnitude() : std::nullopt;
  kpfC_Assert(!States().IsCreateStep(index) || !magnitude || *magnitude != 0.0, kpfC_ErrorEnm::ZeroMagnitude);
}

void kpfC_Field::AssertInModel(ddr_Model const& model) const {
  ForEachEditable([&model](kpfC_FieldState const& state) {
    state.AssertInSpace(model.Space());
    auto const* const fromFile = dynamic_cast<kpfC_FromFileState const*>(&state);
    if (fromFile != nullptr && kpfC_RegionIgnored(state.Distribution())) { fromFile->AssertInFile(); }
  });
}

std::string_view kpfC_Field::Lacks(cls_Object const& state) const {
  auto const* const fromFile = dynamic_cast<kpfC_FromFileState const*>(&state);
  bool const isRead = fromFile != nullptr && (kpfC_RegionIgnored(fromFile->Distribution()) || IgnoresRegion(*fromFile));
  return isRead && fromFile->fileName.ConstGet().IsEmpty() ? kpfC_FromFileState::fileNameCmd().View() : std::string_view();
}

kprC_ActsOn kpfC_Field::ActsOn() const {
  bool needsRegion = false;
  ForEachEditable([&](kpfC_FieldState const& state) { needsRegion = needsRegion || !IgnoresRegion(state); });
  return needsRegion ? Type().actsOn : kprC_ActsOn::Anything;
}
