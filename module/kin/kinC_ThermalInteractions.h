#pragma once

#include "module/kin/kinC_OnRegion.h"
#include "platform/BasicUtils/cls_xoList.h"

// Heat that surfaces and points give to their surroundings and to each other, and the states.

/// Where the film coefficient comes from: the step, an interaction property, a user subroutine, or the step scaled by a field.
enum class kinC_FilmDefinitionEnm { COEFFICIENT, PROPERTY, USER_DEFINED, FIELD };
template <> struct omu_EnumTable<kinC_FilmDefinitionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"COEFFICIENT", 0}, {"PROPERTY", 1}, {"USER_DEFINED", 2}, {"FIELD", 3}, {nullptr, 0}};
};
/// How the emissivity varies over a surface.
enum class kinC_EmissivityEnm { UNIFORM, FIELD };
template <> struct omu_EnumTable<kinC_EmissivityEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNIFORM", 0}, {"FIELD", 1}, {nullptr, 0}};
};

/// Refuses 54 an emissivity in force that is not between 0 and 1.
DDB_API void kinC_AssertEmissivity(mdl_PropAttr<double> const& emissivity);

/// Base of the states of film conditions. Refuses 3 a film by a property that is not named.
template <class Derived> class kinC_FilmState : public kinC_WithProperty<Derived> {
public:
  using DefinitionEnm = kinC_FilmDefinitionEnm;

  mdl_PropAttr<omu_PrimEnum<DefinitionEnm, 1>> definition;
  mdl_PropAttr<double> filmCoefficient;
  mdl_PropAttr<cow_String> filmCoefficientAmplitude;
  mdl_PropAttr<double> sinkTemperature;
  mdl_PropAttr<cow_String> sinkTemperatureAmplitude;

  void AssertValid() const override {
    bool const byProperty = definition == DefinitionEnm::PROPERTY;
    kinC_Assert(!byProperty || !this->InteractionProperty().IsEmpty(), kinC_ErrorEnm::PropertyMissing);
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_WithProperty<Derived>::VisitMembers(visit);
    visit("definition", &kinC_FilmState::definition, cls_MemberText{"where the film coefficient comes from"});
    visit("filmCoefficient", &kinC_FilmState::filmCoefficient,
          cls_MemberText{"heat flux per difference of temperature", "energy/(time*length^2*temperature)"});
    visit("filmCoefficientAmplitude", &kinC_FilmState::filmCoefficientAmplitude,
          kinC_AmplitudeText("name of the amplitude that varies the film coefficient over the step"));
    visit("sinkTemperature", &kinC_FilmState::sinkTemperature, cls_MemberText{"temperature of the surroundings", "temperature"});
    visit("sinkTemperatureAmplitude", &kinC_FilmState::sinkTemperatureAmplitude,
          kinC_AmplitudeText("name of the amplitude that varies the temperature of the surroundings over the step"));
  }
};

/// Base of the states of radiation. Refuses 54 an emissivity that is not between 0 and 1.
template <class Derived> class kinC_RadiationState : public kprC_StateOf<Derived, kinC_InteractionState> {
public:
  mdl_PropAttr<double> emissivity;
  mdl_PropAttr<double> ambientTemperature;
  mdl_PropAttr<cow_String> ambientTemperatureAmplitude;

  void AssertValid() const override { kinC_AssertEmissivity(emissivity); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_InteractionState::VisitMembers(visit);
    visit("emissivity", &kinC_RadiationState::emissivity, cls_MemberText{"emissivity of the surface, 0 to 1"});
    visit("ambientTemperature", &kinC_RadiationState::ambientTemperature, cls_MemberText{"temperature of the surroundings", "temperature"});
    visit("ambientTemperatureAmplitude", &kinC_RadiationState::ambientTemperatureAmplitude,
          kinC_AmplitudeText("name of the amplitude that varies the temperature of the surroundings over the step"));
  }
};

/// The line of a list for the area that a point stands for.
inline constexpr cls_MemberText kinC_nodalAreaText = {"area that each point stands for", "length^2"};

/// A type on a surface whose values a named field may distribute. \p Derived says with IsDistributed(state) whether one does.
template <class Derived> class kinC_OnFieldSurface : public kinC_OnRegion<Derived> {
public:
  /// Of the create step.
  bool UsesField(cow_String& name) const override {
    std::size_t const create = this->States().CreateStep();
    if (create == kprC_StepTable::npos || !Derived::IsDistributed(*this->StateAt(create))) { return false; }
    return name = fieldName_, true;
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_OnRegion<Derived>::VisitMembers(visit);
    visit(kinC_Interaction::fieldNameCmd(), &kinC_OnFieldSurface::fieldName_,
          cls_MemberText{"the field that the distribution FIELD takes"}.RefersTo(cls_Reference::Field));
  }

protected:
  cow_String fieldName_;
};

class DDB_API kinC_FilmConditionState final : public kinC_FilmState<kinC_FilmConditionState> {
public:
  kinC_FilmConditionState() = default;
  explicit kinC_FilmConditionState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_FilmState::VisitMembers(visit); }
};
/// Convection at a surface. Refuses in addition: 63 a creation in the initial step.
class DDB_API kinC_FilmCondition final : public kinC_OnFieldSurface<kinC_FilmCondition> {
public:
  static constexpr std::string_view regionText() { return "the surface that the fluid flows over"; }
  static bool IsDistributed(cls_Object const& state);

  kinC_FilmCondition() = default;
  explicit kinC_FilmCondition(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_OnFieldSurface::VisitMembers(visit); }

protected:
  void AssertCreateStep(std::size_t index) const override;
};

class DDB_API kinC_RadiationToAmbientState final : public kinC_RadiationState<kinC_RadiationToAmbientState> {
public:
  kinC_RadiationToAmbientState() = default;
  explicit kinC_RadiationToAmbientState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<omu_PrimEnum<kinC_EmissivityEnm, 1>> distribution;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_RadiationState::VisitMembers(visit);
    visit("distribution", &kinC_RadiationToAmbientState::distribution, cls_MemberText{"how the emissivity varies over the surface"});
  }
};
/// Radiation of a surface to its surroundings. Refuses in addition: 64 a creation in the initial step.
class DDB_API kinC_RadiationToAmbient final : public kinC_OnFieldSurface<kinC_RadiationToAmbient> {
public:
  static constexpr std::string_view regionText() { return "the surface that radiates"; }
  static bool IsDistributed(cls_Object const& state);

  kinC_RadiationToAmbient() = default;
  explicit kinC_RadiationToAmbient(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_OnFieldSurface::VisitMembers(visit); }

protected:
  void AssertCreateStep(std::size_t index) const override;
};

class DDB_API kinC_ConcFilmConditionState final : public kinC_FilmState<kinC_ConcFilmConditionState> {
public:
  kinC_ConcFilmConditionState() = default;
  explicit kinC_ConcFilmConditionState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> nodalArea;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_FilmState::VisitMembers(visit);
    visit("nodalArea", &kinC_ConcFilmConditionState::nodalArea, kinC_nodalAreaText);
  }
};
/// Convection at points.
class DDB_API kinC_ConcFilmCondition final : public kinC_OnRegion<kinC_ConcFilmCondition> {
public:
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr std::string_view regionText() { return "the points that the fluid flows past"; }

  kinC_ConcFilmCondition() = default;
  explicit kinC_ConcFilmCondition(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_OnRegion::VisitMembers(visit); }
};

class DDB_API kinC_ConcRadiationToAmbientState final : public kinC_RadiationState<kinC_ConcRadiationToAmbientState> {
public:
  kinC_ConcRadiationToAmbientState() = default;
  explicit kinC_ConcRadiationToAmbientState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> nodalArea;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_RadiationState::VisitMembers(visit);
    visit("nodalArea", &kinC_ConcRadiationToAmbientState::nodalArea, kinC_nodalAreaText);
  }
};
/// Radiation of points to their surroundings.
class DDB_API kinC_ConcRadiationToAmbient final : public kinC_OnRegion<kinC_ConcRadiationToAmbient> {
public:
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr std::string_view regionText() { return "the points that radiate"; }

  kinC_ConcRadiationToAmbient() = default;
  explicit kinC_ConcRadiationToAmbient(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_OnRegion::VisitMembers(visit); }
};

class DDB_API kinC_CavityRadiationState final : public kinC_RadiationState<kinC_CavityRadiationState> {
public:
  kinC_CavityRadiationState() = default;
  explicit kinC_CavityRadiationState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_RadiationState::VisitMembers(visit); }
};
/// Radiation between the surfaces of a cavity.
class DDB_API kinC_CavityRadiation final : public cls_Persistent<kinC_CavityRadiation, kinC_Interaction> {
public:
  kinC_CavityRadiation() = default;
  explicit kinC_CavityRadiation(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_Interaction::VisitMembers(visit);
    visit("surfaces", &kinC_CavityRadiation::surfaces_, cls_MemberText{"the surfaces of the cavity"}.RefersTo(cls_Reference::Region));
    visit("isOpen", &kinC_CavityRadiation::isOpen_, cls_MemberText{"whether the cavity is open to its surroundings"});
  }

private:
  cls_xoList<rgnC_Region> surfaces_;
  bool isOpen_ = false;
};
