#pragma once

#include <array>

#include "module/kin/kinC_InteractionProperty.h"
#include "platform/BasicUtils/cls_Optional.h"

/// The shape of a wave front.
enum class kinC_IncidentWaveEnm { PLANAR, SPHERICAL, DIFFUSE };
/// How a spherical wave decays on its way.
enum class kinC_WavePropagationEnm { ACOUSTIC, UNDEX_CHARGE, GENERALIZED_DECAY };

template <> struct omu_EnumTable<kinC_IncidentWaveEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"PLANAR", 0}, {"SPHERICAL", 1}, {"DIFFUSE", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_WavePropagationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"ACOUSTIC", 0}, {"UNDEX_CHARGE", 1}, {"GENERALIZED_DECAY", 2}, {nullptr, 0}};
};

/// A charge that explodes under water (UNDEX), and the constants of the similitude by which the pressure of its shock wave follows from
/// its mass and the distance.
class DDB_API kinC_UndexCharge final : public cls_Persistent<kinC_UndexCharge, cls_Object> {
public:
  double mass = cls_unsetReal;
  double density = cls_unsetReal;
  double pressureConstant = cls_unsetReal;
  double timeConstant = cls_unsetReal;
  double pressureExponent = cls_unsetReal;
  double timeExponent = cls_unsetReal;
  double charge = cls_unsetReal;

  kinC_UndexCharge();
  explicit kinC_UndexCharge(cls_ReadVisitor const& in);

  bool IsComplete() const;
  /// Whether all that is given is above 0.
  bool IsPositive() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_UndexCharge;
    visit("mass", &Self::mass, cls_MemberText{"mass of the charge", "mass"});
    visit("density", &Self::density, cls_MemberText{"density of the charge", "mass/length^3"});
    visit("pressureConstant", &Self::pressureConstant, cls_MemberText{"constant of the peak pressure", "force/length^2"});
    visit("timeConstant", &Self::timeConstant, cls_MemberText{"constant of the decay in time", "time"});
    visit("pressureExponent", &Self::pressureExponent, cls_MemberText{"exponent of the peak pressure over the scaled distance"});
    visit("timeExponent", &Self::timeExponent, cls_MemberText{"exponent of the decay in time over the scaled distance"});
    visit("charge", &Self::charge, cls_MemberText{"constant of the pressure in the charge", "force/length^2"});
  }

private:
  auto Values() const { return std::array{mass, density, pressureConstant, timeConstant, pressureExponent, timeExponent, charge}; }
};

/// How a wave that comes from outside of the model travels and decays.
class DDB_API kinC_IncidentWaveProperty final : public cls_Persistent<kinC_IncidentWaveProperty, kinC_OtherIP> {
public:
  using DefinitionEnm = kinC_IncidentWaveEnm;
  using PropagationModelEnm = kinC_WavePropagationEnm;

  static constexpr omn_FixedString constructorCmd() { return "IncidentWaveProperty"; }

  omu_PrimEnum<DefinitionEnm> definition = DefinitionEnm::PLANAR;
  omu_PrimEnum<PropagationModelEnm> propagationModel = PropagationModelEnm::ACOUSTIC;
  cls_Optional<kinC_UndexCharge> undexCharge;
  double soundSpeed = cls_unsetReal;
  double fluidDensity = cls_unsetReal;
  double specificHeatRatio = cls_unsetReal;
  double gravity = cls_unsetReal;
  double atmosphericPressure = cls_unsetReal;
  bool waveEffects = false;
  bool fluidDrag = false;
  double fluidDragCoefficient = cls_unsetReal;
  double fluidDragExponent = cls_unsetReal;
  double duration = cls_unsetReal;
  int maximumSteps = cls_unsetInteger;
  double relativeStepControl = cls_unsetReal;
  double absoluteStepControl = cls_unsetReal;
  double controlExponent = cls_unsetReal;
  double generalizedDecayA = 0.0;
  double generalizedDecayB = 0.0;
  double generalizedDecayC = 0.0;

  kinC_IncidentWaveProperty();
  explicit kinC_IncidentWaveProperty(cls_ReadVisitor const& in);

  /// Refuses: 148 a charge that is missing or not complete, with UNDEX_CHARGE; 154 a value of a charge that is not above 0; 149 speed of
  /// sound; 150 specific heat ratio; 151, 152 drag; 153 control exponent; 155 density; 185, 186, 187 generalized decay. What is not given
  /// passes.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_IncidentWaveProperty;
    kinC_OtherIP::VisitMembers(visit);
    visit("definition", &Self::definition, cls_MemberText{"shape of the wave front"});
    visit("propagationModel", &Self::propagationModel, cls_MemberText{"how a spherical wave decays on its way"});
    visit("undexCharge", &Self::undexCharge, cls_MemberText{"the charge that explodes under water; needed with UNDEX_CHARGE"});
    visit("soundSpeed", &Self::soundSpeed, cls_MemberText{"speed of sound in the fluid", "length/time"});
    visit("fluidDensity", &Self::fluidDensity, cls_MemberText{"density of the fluid", "mass/length^3"});
    visit("specificHeatRatio", &Self::specificHeatRatio, cls_MemberText{"ratio of the specific heats of the gas in the bubble, from 1 on"});
    visit("gravity", &Self::gravity, cls_MemberText{"acceleration of gravity", "length/time^2"});
    visit("atmosphericPressure", &Self::atmosphericPressure, cls_MemberText{"pressure of the air over the fluid", "force/length^2"});
    visit("waveEffects", &Self::waveEffects, cls_MemberText{"whether waves in fluid and gas act on the bubble"});
    visit("fluidDrag", &Self::fluidDrag, cls_MemberText{"whether the fluid drags on the bubble as it rises"});
    visit("fluidDragCoefficient", &Self::fluidDragCoefficient, cls_MemberText{"coefficient of the drag"});
    visit("fluidDragExponent", &Self::fluidDragExponent, cls_MemberText{"exponent of the drag"});
    visit("duration", &Self::duration, cls_MemberText{"time over which the bubble is followed", "time"});
    visit("maximumSteps", &Self::maximumSteps, cls_MemberText{"most increments for the bubble"});
    visit("relativeStepControl", &Self::relativeStepControl, cls_MemberText{"relative tolerance of its increments"});
    visit("absoluteStepControl", &Self::absoluteStepControl, cls_MemberText{"absolute tolerance of its increments"});
    visit("controlExponent", &Self::controlExponent, cls_MemberText{"exponent of the error control of its increments, above 0 up to 1"});
    visit("generalizedDecayA", &Self::generalizedDecayA, cls_MemberText{"constant A of the generalized decay, above -1"});
    visit("generalizedDecayB", &Self::generalizedDecayB, cls_MemberText{"constant B of the generalized decay, above -1"});
    visit("generalizedDecayC", &Self::generalizedDecayC, cls_MemberText{"constant C of the generalized decay, from 0 on"});
  }
};
