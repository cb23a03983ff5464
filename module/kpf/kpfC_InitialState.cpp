#include "module/kpf/kpfC_InitialState.h"

#include <algorithm>

#include "module/kpf/kpfC_ResultsFiles.h"

namespace {
bool Shares(kpfC_InitialState const& one, kpfC_InitialState const& other) {
  return std::ranges::any_of(one.Instances(),
                             [&](cow_String const& name) { return std::ranges::find(other.Instances(), name) != other.Instances().end(); });
}
}  // namespace

void kpfC_InitialState::AssertInModel(ddr_Model const& model) const {
  auto const& fields = model.ConstGet<kprC_PropagatingContainer<kpfC_Field>>(predefinedFieldsCmd());
  fields.ForEach([this](cow_String const& name, kprC_StepDependent const& field) {
    auto const* const other = dynamic_cast<kpfC_InitialState const*>(&field);
    bool const competes = other != nullptr && name != Name() && !other->IsSuppressed();
    kpfC_Assert(!competes || !Shares(*this, *other), kpfC_ErrorEnm::InstancesShared);
  });
  auto const files = kpfC_ResultsFiles::Known();
  if (!files) { return; }
  ForEachEditable([&](kpfC_FieldState const& state) {
    auto const& fromFile = static_cast<kpfC_InitialStateState const&>(state);
    fromFile.AssertInFile();
    auto const file = files->Find(fromFile.fileName.ConstGet().View());
    if (!file || !file->isTold) { return; }
    for (cow_String const& name : instances_) {
      auto const instance = std::ranges::find(file->instances, name.View(), &kpfC_ResultsFile::Instance::name);
      kpfC_Assert(instance != file->instances.end(), kpfC_ErrorEnm::InstanceNames);
      kpfC_Assert(instance->meshed, kpfC_ErrorEnm::InstanceUnmeshed);
    }
  });
}

std::string_view kpfC_InitialState::Lacks(cls_Object const& state) const {
  std::string_view const lacks = kpfC_Field::Lacks(state);
  return lacks.empty() && instances_.IsEmpty() ? instancesCmd().View() : lacks;
}
