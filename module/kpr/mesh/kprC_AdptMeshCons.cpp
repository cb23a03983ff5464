#include "module/kpr/mesh/kprC_AdptMeshCons.h"

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
#define DDB_CLASS(number, Class)
#define DDB_TYPE(number, Class, stateNumber, State, command, label) Row<Class, State>(command, label),
#include "module/kpr/mesh/Types.def"
};
constexpr kprC_Constructor<kprC_AdptMeshCons> kConstructors[] = {
#define DDB_CLASS(number, Class)
#define DDB_TYPE(number, Class, stateNumber, State, command, label) {command, label, &cls_Make<Class>},
#include "module/kpr/mesh/Types.def"
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
  auto const* row = kprC_FindType(kprC_AdptMeshConsTypes(), static_cast<unsigned>(constraintType));
  return row != nullptr && row->procedures.Contains(static_cast<unsigned>(procedureType));
}
