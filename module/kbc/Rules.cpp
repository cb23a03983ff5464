#include "module/kbc/Rules.h"

#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_MotionBC.h"
#include "module/kbc/kbcC_SubmodelBC.h"
#include "module/kbc/kbcC_TypeBC.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kbcC_CategoryEnm;
using enum kprC_LoadCase;

using Set = kprC_ProcedureSet;

// Sets of procedures that several rows share.
constexpr Set kConstraining = {Initial,
                               Static,
                               StaticRiks,
                               Visco,
                               ImplicitDynamics,
                               Geostatic,
                               Soils,
                               CoupledTempDisplacement,
                               ExplicitDynamics,
                               TempDisplacementDynamics,
                               Buckle,
                               Frequency,
                               StaticLinearPerturbation,
                               SteadyStateDirect,
                               SteadyStateSubspace,
                               SubstructureGenerate};
constexpr Set kInMotion = {Initial, ImplicitDynamics, ExplicitDynamics, TempDisplacementDynamics};
constexpr Set kConnectorInTime = {Initial, Static, Visco, ImplicitDynamics, ExplicitDynamics, TempDisplacementDynamics};
constexpr Set kStepwise = {Buckle, Frequency, StaticLinearPerturbation, SteadyStateDirect, SteadyStateSubspace};

template <class T> constexpr kprC_AdmissionRow Of(Set procedures) { return {T::TypeId(), cls_TypeIdOf<T>::kName, procedures}; }
constexpr bool kMechanicalList = true, kOtherList = false, kStays = true, kRests = false;

// clang-format off
constexpr kbcC_TypeRow kTypes[] = {
    //   type and the procedures that admit its creation                  category        load case  list             carried
    {{Of<kbcC_DisplacementBC>(kConstraining),                             MECHANICAL,     Accepted}, kMechanicalList, kStays},
    {{Of<kbcC_TypeBC>(kConstraining),                                     MECHANICAL,     Accepted}, kMechanicalList, kStays},
    {{Of<kbcC_SymmBC>(kConstraining),                                     MECHANICAL,     Accepted}, kMechanicalList, kStays},
    {{Of<kbcC_VelocityBC>(kInMotion | Set{Static, Visco, Geostatic, Soils,
                                          CoupledTempDisplacement}),      MECHANICAL,     Accepted}, kMechanicalList, kStays},
    {{Of<kbcC_AccelerationBC>(kInMotion),                                 MECHANICAL,     Accepted}, kMechanicalList, kStays},
    {{Of<kbcC_ConnDisplacementBC>(kConnectorInTime | kStepwise
                                  | Set{StaticRiks}),                     MECHANICAL,     NotYet},   kMechanicalList, kStays},
    {{Of<kbcC_ConnVelocityBC>(kConnectorInTime),                          MECHANICAL,     NotYet},   kMechanicalList, kStays},
    {{Of<kbcC_ConnAccelerationBC>(kInMotion),                             MECHANICAL,     NotYet},   kMechanicalList, kStays},
    {{Of<kbcC_SubmodelBC>({Static, StaticRiks, Visco, ImplicitDynamics, Geostatic, Soils, CoupledTempDisplacement, HeatTransfer,
                           CoupledThermalElectric, MassDiffusion, ExplicitDynamics, TempDisplacementDynamics,
                           StaticLinearPerturbation}),                    OTHER_BC,       NotYet},   kOtherList,      kStays},
    {{Of<kbcC_TemperatureBC>({Initial, HeatTransfer, CoupledTempDisplacement, CoupledThermalElectric,
                              TempDisplacementDynamics}),                 THERMAL,        Refused},  kOtherList,      kRests},
    {{Of<kbcC_PorePressureBC>({Initial, Geostatic, Soils}),               FLUID,          Refused},  kOtherList,      kStays},
    {{Of<kbcC_AcousticPressureBC>(kStepwise | Set{Initial, Static, Visco, ImplicitDynamics, ExplicitDynamics,
                                                  TempDisplacementDynamics}),
                                                                          ACOUSTIC,       Refused},  kOtherList,      kStays},
    {{Of<kbcC_FluidCavityPressureBC>({Initial, Static, StaticRiks, Visco, ImplicitDynamics,
                                      StaticLinearPerturbation}),         FLUID,          Refused},  kOtherList,      kStays},
    {{Of<kbcC_ElectricPotentialBC>({Initial, Static, ImplicitDynamics, CoupledThermalElectric, Frequency,
                                    StaticLinearPerturbation, SteadyStateDirect}),
                                                                          ELECTRICAL,     Refused},  kOtherList,      kStays},
    {{Of<kbcC_ConcentrationBC>({Initial, MassDiffusion}),                 MASS_DIFFUSION, Refused},  kOtherList,      kRests},
    {{Of<kbcC_MassFlowBC>({Initial, Static, Visco, ImplicitDynamics}),    OTHER_BC,       NotYet},   kOtherList,      kStays},
};
// clang-format on
}  // namespace

std::span<kbcC_TypeRow const> kbcC_Types() { return kTypes; }

bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType) {
  kbcC_TypeRow const* row = kprC_FindType(kbcC_Types(), typeId);
  return row != nullptr && row->procedures.Contains(procedureType);
}
