#include "module/kbc/kbcC_StepRules.h"

#include <algorithm>
#include <span>

namespace {
constexpr kprC_ProcedureSet kConstrained = {
    kprC_INITIAL,      kprC_STATIC_GENERAL,  kprC_STATIC_RIKS,         kprC_VISCO,
    kprC_GEOSTATIC,    kprC_SOILS,           kprC_DYNAMIC_IMPLICIT,    kprC_COUPLED_TEMP_DISPLACEMENT,
    kprC_BUCKLE,       kprC_DYNAMIC_EXPLICIT, kprC_FREQUENCY,          kprC_DYNAMIC_TEMP_DISPLACEMENT,
    kprC_STATIC_LINEAR_PERTURBATION, kprC_STEADY_STATE_DIRECT, kprC_STEADY_STATE_SUBSPACE, kprC_SUBSTRUCTURE_GENERATE,
};

constexpr kbcC_AdmissionRow kAdmission[] = {
    {"kbcC_DisplacementBC", true, kConstrained},
    {"kbcC_TypeBC", true, kConstrained},
};
}  // namespace

std::span<kbcC_AdmissionRow const> kbcC_Admission() { return kAdmission; }

bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType) {
  cls_ClassMetadata const* type = cls_MetadataRegistrar::Registrar().Find(typeId);
  auto const* row = type == nullptr ? std::end(kAdmission) : std::ranges::find(kAdmission, type->name, &kbcC_AdmissionRow::type);
  return row != std::end(kAdmission) && row->procedures.Has(procedureType);
}
