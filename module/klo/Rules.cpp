#include "module/klo/Rules.h"

#include "module/klo/kloC_Loads.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kloC_CategoryEnm;
using enum kprC_LoadCase;

using Set = kprC_ProcedureSet;

// Sets of procedures that several rows share. The perturbation procedures here are those in which loads may be created,
// which is neither all of them nor only them.
constexpr Set kPerturbation = {Buckle,           ModalDynamics,    StaticLinearPerturbation, SteadyStateDirect,
                               SteadyStateModal, SubspaceDynamics, SteadyStateSubspace};
constexpr Set kGeneral = {Static, StaticRiks, Visco, ImplicitDynamics, Geostatic, Soils, CoupledTempDisplacement};
constexpr Set kExplicit = {ExplicitDynamics, TempDisplacementDynamics};
constexpr Set kStress = kPerturbation | kGeneral | kExplicit;
constexpr Set kPlaneStrain = kPerturbation | Set{Static, StaticRiks, Visco, ImplicitDynamics};
constexpr Set kConnector = kPlaneStrain | kExplicit;
constexpr Set kCoriolis = {Static, Visco, ImplicitDynamics, StaticLinearPerturbation, SteadyStateDirect, SteadyStateSubspace};
constexpr Set kInertia = {Static, StaticRiks, ImplicitDynamics, StaticLinearPerturbation, Buckle};
constexpr Set kHeat = {CoupledTempDisplacement, CoupledThermalElectric, HeatTransfer, TempDisplacementDynamics};
constexpr Set kPores = {Geostatic, Soils};
constexpr Set kCharge = {Static, ImplicitDynamics, StaticLinearPerturbation, SteadyStateDirect};
constexpr Set kAcoustic = kPerturbation | kExplicit | Set{ImplicitDynamics};

template <class T> constexpr kprC_AdmissionRow Of(Set procedures) { return {T::TypeId(), T::label(), procedures}; }

// clang-format off
constexpr kloC_TypeRow kTypes[] = {
    //  type and the procedures that admit its creation               category        load case
    {Of<kloC_ConcentratedForce>(kStress),                             MECHANICAL,     Accepted},
    {Of<kloC_Pressure>(kStress),                                      MECHANICAL,     Accepted},
    {Of<kloC_SurfaceHeatFlux>(kHeat),                                 THERMAL,        Refused},
    {Of<kloC_PressurePenetration>({}),                                MECHANICAL,     Accepted},
    {Of<kloC_RotationalBodyForce>(kStress),                           MECHANICAL,     Accepted},
    {Of<kloC_CoriolisForce>(kCoriolis),                               MECHANICAL,     Accepted},
    {Of<kloC_ConnectorForce>(kConnector),                             MECHANICAL,     NotYet},
    {Of<kloC_ConnectorMoment>(kConnector),                            MECHANICAL,     NotYet},
    {Of<kloC_Moment>(kStress),                                        MECHANICAL,     Accepted},
    {Of<kloC_LineLoad>(kStress),                                      MECHANICAL,     Accepted},
    {Of<kloC_PipePressure>(kGeneral),                                 MECHANICAL,     Accepted},
    {Of<kloC_BodyForce>(kStress),                                     MECHANICAL,     Accepted},
    {Of<kloC_Gravity>(kStress),                                       MECHANICAL,     Accepted},
    {Of<kloC_PEGLoad>(kPlaneStrain),                                  MECHANICAL,     Accepted},
    {Of<kloC_BoltLoad>(kGeneral),                                     MECHANICAL,     Accepted},
    {Of<kloC_ConcentratedHeatFlux>(kHeat),                            THERMAL,        Refused},
    {Of<kloC_BodyHeatFlux>(kHeat),                                    THERMAL,        Refused},
    {Of<kloC_ConcentratedPoreFluid>(kPores),                          FLUID,          Refused},
    {Of<kloC_SurfacePoreFluid>(kPores),                               FLUID,          Refused},
    {Of<kloC_HydroFluidFlow>({Static, StaticLinearPerturbation}),     OTHER_LOAD,     Refused},
    {Of<kloC_ConcentratedCharge>(kCharge),                            ELECTRICAL,     Refused},
    {Of<kloC_ConcentratedCurrent>({CoupledThermalElectric}),          ELECTRICAL,     Refused},
    {Of<kloC_SurfaceCharge>(kCharge),                                 ELECTRICAL,     Refused},
    {Of<kloC_SurfaceCurrent>({CoupledThermalElectric}),               ELECTRICAL,     Refused},
    {Of<kloC_BodyCharge>(kCharge),                                    ELECTRICAL,     Refused},
    {Of<kloC_BodyCurrent>({CoupledThermalElectric}),                  ELECTRICAL,     Refused},
    {Of<kloC_ConcentratedConcentrationFlux>({MassDiffusion}),         MASS_DIFFUSION, Refused},
    {Of<kloC_SurfaceConcentrationFlux>({MassDiffusion}),              MASS_DIFFUSION, Refused},
    {Of<kloC_BodyConcentrationFlux>({MassDiffusion}),                 MASS_DIFFUSION, Refused},
    {Of<kloC_InwardVolAccel>(kAcoustic),                              ACOUSTIC,       Accepted},
    {Of<kloC_InertiaRelief>(kInertia),                                MECHANICAL,     Accepted},
    {Of<kloC_ShellEdgeLoad>(kStress),                                 MECHANICAL,     Accepted},
    {Of<kloC_SurfaceTraction>(kStress),                               MECHANICAL,     Accepted},
};
// clang-format on
}  // namespace

std::span<kloC_TypeRow const> kloC_Types() { return kTypes; }

std::string_view kloC_TypeText(unsigned typeId) {
  auto const* row = kprC_FindType(kloC_Types(), typeId);
  return row == nullptr ? std::string_view() : row->type;
}
