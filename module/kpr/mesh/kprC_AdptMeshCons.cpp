#include "module/kpr/mesh/kprC_AdptMeshCons.h"

#include <algorithm>

#include "platform/CoreUtils/thr_Singleton.h"

template class kprC_StepAttribute<kprC_AdptMeshConsRules>;
template class kprC_PropagatingContainer<kprC_AdptMeshCons>;

namespace {
/// The steps that may have adaptive mesh domains.
constexpr kprC_ProcedureSet kAdaptiveMesh = kprC_ProcedureSet::With(&kprC_ProcedureRow::adaptiveMesh);

template <class Class, class State> constexpr kprC_AdptMeshConsTypeRow Row(std::string_view command, std::string_view label) {
  kprC_TypeRow row = kprC_RowOf<Class, State>(command, label, kAdaptiveMesh);
  row.actsOn = kprC_ActsOn::Regions;
  return {row, kprC_AdptMeshConsCategoryEnm::MECHANICAL};
}
constexpr kprC_AdptMeshConsTypeRow kTypes[] = {
    Row<kprC_DispAdptMeshCons, kprC_DispAdptMeshConsState>("DisplacementAdaptiveMeshConstraint", "Displacement/Rotation"),
    Row<kprC_VelAdptMeshCons, kprC_VelAdptMeshConsState>("VelocityAdaptiveMeshConstraint", "Velocity/Angular velocity"),
};
constexpr kprC_Constructor<kprC_AdptMeshCons> kConstructors[] = {
    {kTypes[0].command, kTypes[0].label, &cls_Make<kprC_DispAdptMeshCons>},
    {kTypes[1].command, kTypes[1].label, &cls_Make<kprC_VelAdptMeshCons>},
};

cow_List<atr_String> TypesOf(kprC_AdptMeshConsCategoryEnm category, int procedureType) {
  cow_List<atr_String> labels;
  for (auto const& row : kTypes) {
    if (row.category == category && row.procedures.Contains(static_cast<unsigned>(procedureType))) { labels.Append(atr_String(row.label)); }
  }
  return labels;
}
}  // namespace

std::span<kprC_AdptMeshConsTypeRow const> kprC_AdptMeshConsTypes() { return kTypes; }

std::span<kprC_Constructor<kprC_AdptMeshCons> const> kprC_AdptMeshCons::Constructors() { return kConstructors; }

void kprC_AdptMeshCons::AssertWhole() const {
  if (!IsUserDefined()) { return; }
  ForEachRun([this](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const*) {
    for (; IsActive(status) && begin < end; ++begin) {
      kprC_Assert(!kprC_IsExplicit(Steps().ProcedureType(begin)), kprC_ErrorEnm::AmcUserSubroutineExplicit);
    }
  });
}

std::string_view kprC_AdptMeshConsTypeLabelMap::Label(unsigned typeId) const {
  auto const* row = kprC_FindType(kprC_AdptMeshConsTypes(), typeId);
  return row == nullptr ? std::string_view() : row->label;
}

cow_List<atr_String> kprC_getMechanicalAdptMeshConsTypesforStep(int procedureType) {
  return TypesOf(kprC_AdptMeshConsCategoryEnm::MECHANICAL, procedureType);
}
cow_List<atr_String> kprC_getOtherAdptMeshConsTypesforStep(int procedureType) {
  return TypesOf(kprC_AdptMeshConsCategoryEnm::OTHER, procedureType);
}

bool kprC_isValidAdptMeshConsTypeforStep(int constraintType, int procedureType) {
  auto const label = thr_GlobalSingleton<kprC_AdptMeshConsTypeLabelMap>::Instance().Label(static_cast<unsigned>(constraintType));
  auto const lists = [label](cow_List<atr_String> const& labels) {
    return std::ranges::any_of(labels, [label](atr_String const& listed) { return listed.View() == label; });
  };
  return lists(kprC_getMechanicalAdptMeshConsTypesforStep(procedureType)) || lists(kprC_getOtherAdptMeshConsTypesforStep(procedureType));
}
