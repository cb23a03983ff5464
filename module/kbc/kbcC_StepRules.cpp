#include "module/kbc/kbcC_StepRules.h"

#include <algorithm>

#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"

namespace {
using enum kprC_ProcedureType::Enm;

constexpr kprC_ProcedureSet kConstrained = {
    Initial,
    Static,
    StaticRiks,
    Visco,
    ImplicitDynamics,
    Geostatic,
    Soils,
    Buckle,
    Frequency,
    CoupledTempDisplacement,
    ExplicitDynamics,
    TempDisplacementDynamics,
    StaticLinearPerturbation,
    SteadyStateDirect,
    SteadyStateSubspace,
    SubstructureGenerate,
};

template <class T> constexpr kbcC_AdmissionRow Mechanical(kprC_ProcedureSet procedures) {
  return {T::TypeId(), cls_TypeIdOf<T>::kName, true, procedures};
}

constexpr kbcC_AdmissionRow kAdmission[] = {
    Mechanical<kbcC_DisplacementBC>(kConstrained),
    Mechanical<kbcC_TypeBC>(kConstrained),
};
}  // namespace

std::span<kbcC_AdmissionRow const> kbcC_Admission() { return kAdmission; }

bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType) {
  auto const* row = std::ranges::find(kAdmission, typeId, &kbcC_AdmissionRow::typeId);
  return row != std::end(kAdmission) && row->procedures.Contains(procedureType);
}
