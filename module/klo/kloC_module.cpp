#include "module/klo/kloC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/klo/kloC_Loads.h"
#include "module/kpr/family/ddb_FamilyModule.h"

namespace {
constexpr kloC_Constructor kConstructors[] = {
#define KLO_LOAD(number, Class) kprC_ConstructorOf<kloC_Load, Class>(),
#include "module/klo/Types.def"
};

cow_List<atr_String> TypesOf(kloC_CategoryEnm category, unsigned procedureType) {
  cow_List<atr_String> types;
  for (kloC_TypeRow const& row : kloC_Types()) {
    if (row.category == category && row.procedures.Contains(procedureType)) { types.Append(atr_String(row.type)); }
  }
  return types;
}
}  // namespace

std::span<kloC_Constructor const> kloC_Constructors() { return kConstructors; }

cow_List<atr_String> kloC_getMechanicalLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::MECHANICAL, procedureType);
}
cow_List<atr_String> kloC_getThermalLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::THERMAL, procedureType); }
cow_List<atr_String> kloC_getFluidLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::FLUID, procedureType); }
cow_List<atr_String> kloC_getElectricalLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::ELECTRICAL, procedureType);
}
cow_List<atr_String> kloC_getMassDiffusionLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::MASS_DIFFUSION, procedureType);
}
cow_List<atr_String> kloC_getAcousticLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::ACOUSTIC, procedureType); }
cow_List<atr_String> kloC_getOtherLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::OTHER_LOAD, procedureType); }

void kloC_initialize(int& count) {
  ddb_EnterFamily<kloC_Load>(count, kloC_moduleNumber, kloC_Load::loadRepositoryCmd(), kloC_Errors(), [] {
#define KLO_TYPE(number, Class, name) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/klo/Types.def"
  });
}

void kloC_finalize(int& count) { ddb_LeaveFamily<kloC_Load>(count, kloC_moduleNumber, kloC_Load::loadRepositoryCmd()); }
