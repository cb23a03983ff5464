#pragma once

#include "module/klo/kloC_Scalar.h"

// Loads that are a flux, a flow, a charge or a current, and their states.

class DDB_API kloC_ConcentratedHeatFluxState final : public kloC_StateOf<kloC_ConcentratedHeatFluxState, kloC_ScalarState> {
public:
  kloC_ConcentratedHeatFluxState() = default;
  explicit kloC_ConcentratedHeatFluxState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("heat flux into the points", "energy/time"); }

  mdl_PropAttr<int> dof;  ///< 11 to 31; the first temperature where it is not given

  /// Refuses 40 a degree of freedom that is not between 11 and 31.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kloC_StateOf::VisitMembers(visit);
    visit(
        "dof", &kloC_ConcentratedHeatFluxState::dof,
        cls_MemberText{"temperature point through the thickness of a shell, 11 to 31", "", static_cast<int>(kloC_ErrorEnm::DofOutOfRange)});
  }
};
/// Heat flux at points.
class DDB_API kloC_ConcentratedHeatFlux final : public kprC_TypeOf<kloC_ConcentratedHeatFlux, kloC_ConcentratedHeatFluxState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedHeatFlux"; }
  static constexpr omn_FixedString label() { return "Concentrated heat flux"; }
};

class DDB_API kloC_SurfaceHeatFluxState final : public kloC_StateOf<kloC_SurfaceHeatFluxState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("heat flux into the surface", "energy/(time*length^2)"); }
};
/// Heat flux into surfaces.
class DDB_API kloC_SurfaceHeatFlux final : public kprC_TypeOf<kloC_SurfaceHeatFlux, kloC_SurfaceHeatFluxState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "SurfaceHeatFlux"; }
  static constexpr omn_FixedString label() { return "Surface heat flux"; }
};

class DDB_API kloC_BodyHeatFluxState final : public kloC_StateOf<kloC_BodyHeatFluxState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("heat flux into the volume", "energy/(time*length^3)"); }
};
/// Heat flux into volumes.
class DDB_API kloC_BodyHeatFlux final : public kprC_TypeOf<kloC_BodyHeatFlux, kloC_BodyHeatFluxState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "BodyHeatFlux"; }
  static constexpr omn_FixedString label() { return "Body heat flux"; }
};

class DDB_API kloC_ConcentratedPoreFluidState final : public kloC_StateOf<kloC_ConcentratedPoreFluidState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("flow of pore fluid out of the points", "length^3/time"); }
};
/// Flow of the fluid in pores at points.
class DDB_API kloC_ConcentratedPoreFluid final
    : public kprC_TypeOf<kloC_ConcentratedPoreFluid, kloC_ConcentratedPoreFluidState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedPoreFluid"; }
  static constexpr omn_FixedString label() { return "Concentrated pore fluid"; }
};

class DDB_API kloC_SurfacePoreFluidState final : public kloC_StateOf<kloC_SurfacePoreFluidState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("flow of pore fluid out of the surface", "length/time"); }
};
/// Flow of the fluid in pores through surfaces.
class DDB_API kloC_SurfacePoreFluid final : public kprC_TypeOf<kloC_SurfacePoreFluid, kloC_SurfacePoreFluidState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "SurfacePoreFluid"; }
  static constexpr omn_FixedString label() { return "Surface pore fluid"; }
};

class DDB_API kloC_HydroFluidFlowState final : public kloC_StateOf<kloC_HydroFluidFlowState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("flow into the fluid cavity", "mass/time"); }
};
/// Flow into cavities filled with a fluid.
class DDB_API kloC_HydroFluidFlow final : public kprC_TypeOf<kloC_HydroFluidFlow, kloC_HydroFluidFlowState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "HydroFluidFlow"; }
  static constexpr omn_FixedString label() { return "Hydrostatic fluid flux"; }
};

class DDB_API kloC_ConcentratedChargeState final : public kloC_StateOf<kloC_ConcentratedChargeState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("charge at the points", "charge"); }
};
/// Electric charge at points.
class DDB_API kloC_ConcentratedCharge final : public kprC_TypeOf<kloC_ConcentratedCharge, kloC_ConcentratedChargeState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedCharge"; }
  static constexpr omn_FixedString label() { return "Concentrated charge"; }
};

class DDB_API kloC_SurfaceChargeState final : public kloC_StateOf<kloC_SurfaceChargeState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("charge on the surface", "charge/length^2"); }
};
/// Electric charge on surfaces.
class DDB_API kloC_SurfaceCharge final : public kprC_TypeOf<kloC_SurfaceCharge, kloC_SurfaceChargeState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "SurfaceCharge"; }
  static constexpr omn_FixedString label() { return "Surface charge"; }
};

class DDB_API kloC_BodyChargeState final : public kloC_StateOf<kloC_BodyChargeState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("charge in the volume", "charge/length^3"); }
};
/// Electric charge in volumes.
class DDB_API kloC_BodyCharge final : public kprC_TypeOf<kloC_BodyCharge, kloC_BodyChargeState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "BodyCharge"; }
  static constexpr omn_FixedString label() { return "Body charge"; }
};

class DDB_API kloC_ConcentratedCurrentState final : public kloC_StateOf<kloC_ConcentratedCurrentState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("current into the points", "charge/time"); }
};
/// Electric current into points.
class DDB_API kloC_ConcentratedCurrent final : public kprC_TypeOf<kloC_ConcentratedCurrent, kloC_ConcentratedCurrentState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedCurrent"; }
  static constexpr omn_FixedString label() { return "Concentrated current"; }
};

class DDB_API kloC_SurfaceCurrentState final : public kloC_StateOf<kloC_SurfaceCurrentState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("current into the surface", "charge/(time*length^2)"); }
};
/// Electric current into surfaces.
class DDB_API kloC_SurfaceCurrent final : public kprC_TypeOf<kloC_SurfaceCurrent, kloC_SurfaceCurrentState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "SurfaceCurrent"; }
  static constexpr omn_FixedString label() { return "Surface current"; }
};

class DDB_API kloC_BodyCurrentState final : public kloC_StateOf<kloC_BodyCurrentState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("current into the volume", "charge/(time*length^3)"); }
};
/// Electric current into volumes.
class DDB_API kloC_BodyCurrent final : public kprC_TypeOf<kloC_BodyCurrent, kloC_BodyCurrentState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "BodyCurrent"; }
  static constexpr omn_FixedString label() { return "Body current"; }
};

class DDB_API kloC_ConcentratedConcentrationFluxState final
    : public kloC_StateOf<kloC_ConcentratedConcentrationFluxState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() {
    return kloC_Value("flux of the diffusing matter into the points", "concentration*length^3/time");
  }
};
/// Flux of diffusing matter into points.
class DDB_API kloC_ConcentratedConcentrationFlux final
    : public kprC_TypeOf<kloC_ConcentratedConcentrationFlux, kloC_ConcentratedConcentrationFluxState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "ConcentratedConcentrationFlux"; }
  static constexpr omn_FixedString label() { return "Concentrated concentration flux"; }
};

class DDB_API kloC_SurfaceConcentrationFluxState final : public kloC_StateOf<kloC_SurfaceConcentrationFluxState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() {
    return kloC_Value("flux of the diffusing matter into the surface", "concentration*length/time");
  }
};
/// Flux of diffusing matter into surfaces.
class DDB_API kloC_SurfaceConcentrationFlux final
    : public kprC_TypeOf<kloC_SurfaceConcentrationFlux, kloC_SurfaceConcentrationFluxState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "SurfaceConcentrationFlux"; }
  static constexpr omn_FixedString label() { return "Surface concentration flux"; }
};

class DDB_API kloC_BodyConcentrationFluxState final : public kloC_StateOf<kloC_BodyConcentrationFluxState, kloC_DistributedState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("flux of the diffusing matter into the volume", "concentration/time"); }
};
/// Flux of diffusing matter into volumes.
class DDB_API kloC_BodyConcentrationFlux final
    : public kprC_TypeOf<kloC_BodyConcentrationFlux, kloC_BodyConcentrationFluxState, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "BodyConcentrationFlux"; }
  static constexpr omn_FixedString label() { return "Body concentration flux"; }
};

class DDB_API kloC_InwardVolAccelState final : public kloC_StateOf<kloC_InwardVolAccelState, kloC_ScalarState> {
public:
  using kloC_StateOf::kloC_StateOf;
  static constexpr cls_MemberText value() { return kloC_Value("acceleration of the volume that enters the medium", "length^3/time^2"); }
};
/// Inward volume acceleration at points of an acoustic medium.
class DDB_API kloC_InwardVolAccel final : public kprC_TypeOf<kloC_InwardVolAccel, kloC_InwardVolAccelState, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  static constexpr omn_FixedString constructorCmd() { return "InwardVolAccel"; }
  static constexpr omn_FixedString label() { return "Inward volume acceleration"; }
};
