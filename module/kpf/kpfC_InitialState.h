#pragma once

#include "module/kpf/kpfC_Field.h"
#include "module/kpf/kpfC_FromFileState.h"

/// Per-step state of an initial state.
class DDB_API kpfC_InitialStateState final : public kprC_StateOf<kpfC_InitialStateState, kpfC_FromFileState> {
public:
  kpfC_InitialStateState() = default;
  explicit kpfC_InitialStateState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<bool> updateReferenceConfiguration;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kpfC_FromFileState::VisitMembers(visit);
    visit("updateReferenceConfiguration", &kpfC_InitialStateState::updateReferenceConfiguration,
          cls_MemberText{"whether strains count from the deformed state on"});
  }
};

/// The deformed state of instances, with its stresses, as an earlier job left it.
///
/// Refuses in addition, of a model: 85 an instance that another such field has; where the application has results files, 83 one that the
/// file does not have under this name, 86 one that has no mesh there.
class DDB_API kpfC_InitialState final : public cls_Persistent<kpfC_InitialState, kpfC_Field> {
public:
  kpfC_InitialState() = default;
  explicit kpfC_InitialState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  static constexpr omn_FixedString instancesCmd() { return "instances"; }

  cow_List<cow_String> const& Instances() const { return instances_; }
  std::unique_ptr<kpfC_FieldState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }
  void AssertInModel(ddr_Model const& model) const override;
  std::string_view Lacks(cls_Object const& state) const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kpfC_Field::VisitMembers(visit);
    visit("instanceNames", &kpfC_InitialState::instances_, cls_MemberText{"names of the instances that it is of"}.Called(instancesCmd()));
  }

protected:
  bool IgnoresRegion(kpfC_FieldState const& /*state*/) const override { return true; }

private:
  cow_List<cow_String> instances_;
};
