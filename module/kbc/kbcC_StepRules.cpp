#include "module/kbc/kbcC_StepRules.h"

#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_MotionBC.h"
#include "module/kbc/kbcC_SubmodelBC.h"
#include "module/kbc/kbcC_TypeBC.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kbcC_CategoryEnm;
using enum kbcC_LoadCaseEnm;

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
    //  type and the procedures that admit its creation                   category        list             load case  carried
    {Of<kbcC_DisplacementBC>(kConstraining),                              MECHANICAL,     kMechanicalList, Accepted,  kStays},
    {Of<kbcC_TypeBC>(kConstraining),                                      MECHANICAL,     kMechanicalList, Accepted,  kStays},
    {Of<kbcC_SymmBC>(kConstraining),                                      MECHANICAL,     kMechanicalList, Accepted,  kStays},
    {Of<kbcC_VelocityBC>(kInMotion | Set{Static, Visco, Geostatic, Soils,
                                         CoupledTempDisplacement}),       MECHANICAL,     kMechanicalList, Accepted,  kStays},
    {Of<kbcC_AccelerationBC>(kInMotion),                                  MECHANICAL,     kMechanicalList, Accepted,  kStays},
    {Of<kbcC_ConnDisplacementBC>(kConnectorInTime | kStepwise
                                 | Set{StaticRiks}),                      MECHANICAL,     kMechanicalList, NotYet,    kStays},
    {Of<kbcC_ConnVelocityBC>(kConnectorInTime),                           MECHANICAL,     kMechanicalList, NotYet,    kStays},
    {Of<kbcC_ConnAccelerationBC>(kInMotion),                              MECHANICAL,     kMechanicalList, NotYet,    kStays},
    {Of<kbcC_SubmodelBC>({Static, StaticRiks, Visco, ImplicitDynamics, Geostatic, Soils, CoupledTempDisplacement, HeatTransfer,
                          CoupledThermalElectric, MassDiffusion, ExplicitDynamics, TempDisplacementDynamics,
                          StaticLinearPerturbation}),                     OTHER_BC,       kOtherList,      NotYet,    kStays},
    {Of<kbcC_TemperatureBC>({Initial, HeatTransfer, CoupledTempDisplacement, CoupledThermalElectric,
                             TempDisplacementDynamics}),                  THERMAL,        kOtherList,      Refused,   kRests},
    {Of<kbcC_PorePressureBC>({Initial, Geostatic, Soils}),                FLUID,          kOtherList,      Refused,   kStays},
    {Of<kbcC_AcousticPressureBC>(kStepwise | Set{Initial, Static, Visco, ImplicitDynamics, ExplicitDynamics,
                                                 TempDisplacementDynamics}),
                                                                          ACOUSTIC,       kOtherList,      Refused,   kStays},
    {Of<kbcC_FluidCavityPressureBC>({Initial, Static, StaticRiks, Visco, ImplicitDynamics,
                                     StaticLinearPerturbation}),          FLUID,          kOtherList,      Refused,   kStays},
    {Of<kbcC_ElectricPotentialBC>({Initial, Static, ImplicitDynamics, CoupledThermalElectric, Frequency,
                                   StaticLinearPerturbation, SteadyStateDirect}),
                                                                          ELECTRICAL,     kOtherList,      Refused,   kStays},
    {Of<kbcC_ConcentrationBC>({Initial, MassDiffusion}),                  MASS_DIFFUSION, kOtherList,      Refused,   kRests},
    {Of<kbcC_MassFlowBC>({Initial, Static, Visco, ImplicitDynamics}),     OTHER_BC,       kOtherList,      NotYet,    kStays},
};
// clang-format on
}  // namespace

std::span<kbcC_TypeRow const> kbcC_Types() { return kTypes; }

bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType) {
  kbcC_TypeRow const* row = kprC_FindType(kbcC_Types(), typeId);
  return row != nullptr && row->procedures.Contains(procedureType);
}
