#pragma once

#include "module/kin/kinC_OnRegion.h"

// What an acoustic medium meets at its surfaces, and the states.

/// Whether a surface takes sound up by its impedance or lets it out without reflection.
enum class kinC_ImpedanceEnm { IMPEDANCE, NONREFLECTING };
template <> struct omu_EnumTable<kinC_ImpedanceEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"IMPEDANCE", 0}, {"NONREFLECTING", 1}, {nullptr, 0}};
};
/// The shape of a surface that does not reflect.
enum class kinC_NonreflectingEnm { PLANE, CIRCULAR, SPHERICAL, ELLIPTICAL, PROLATE };
template <> struct omu_EnumTable<kinC_NonreflectingEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"PLANE", 0},      {"CIRCULAR", 1}, {"SPHERICAL", 2},
                                                               {"ELLIPTICAL", 3}, {"PROLATE", 4},  {nullptr, 0}};
};
/// What an incident wave is given as.
enum class kinC_WaveEnm { PRESSURE, ACCELERATION, UNDEX };
template <> struct omu_EnumTable<kinC_WaveEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"PRESSURE", 0}, {"ACCELERATION", 1}, {"UNDEX", 2}, {nullptr, 0}};
};

class DDB_API kinC_AcousticImpedanceState final : public kinC_WithProperty<kinC_AcousticImpedanceState> {
public:
  kinC_AcousticImpedanceState() = default;
  explicit kinC_AcousticImpedanceState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_WithProperty::VisitMembers(visit); }
};
/// Impedance of a surface of an acoustic medium.
///
/// Refuses in addition, in this order: 142 a radius, 143 a semimajor axis that is not greater than 0, 144 an eccentricity below 0, 145
/// a direction without length, 146 to switch it off in the first analysis step.
class DDB_API kinC_AcousticImpedance final : public kinC_OnRegion<kinC_AcousticImpedance> {
public:
  static constexpr std::string_view regionText() { return "the surface of the acoustic medium"; }

  kinC_AcousticImpedance() = default;
  explicit kinC_AcousticImpedance(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_AcousticImpedance;
    kinC_OnRegion::VisitMembers(visit);
    visit("definition", &Self::definition_, cls_MemberText{"whether the surface has an impedance or does not reflect"});
    visit("nonreflectingType", &Self::nonreflectingType_, cls_MemberText{"shape of a surface that does not reflect"});
    visit("radius", &Self::radius_, cls_MemberText{"radius of a circle or sphere", "length"});
    visit("semimajorAxis", &Self::semimajorAxis_, cls_MemberText{"semimajor axis of an ellipse or a prolate spheroid", "length"});
    visit("eccentricity", &Self::eccentricity_, cls_MemberText{"eccentricity of an ellipse or a prolate spheroid"});
    visit("centerCoordinate1", &Self::center1_, cls_MemberText{"coordinate 1 of the center of an ellipse or spheroid", "length"});
    visit("centerCoordinate2", &Self::center2_, cls_MemberText{"coordinate 2 of the center", "length"});
    visit("centerCoordinate3", &Self::center3_, cls_MemberText{"coordinate 3 of the center", "length"});
    visit("directionCosine1", &Self::cosine1_, cls_MemberText{"direction cosine 1 of the major axis"});
    visit("directionCosine2", &Self::cosine2_, cls_MemberText{"direction cosine 2 of the major axis"});
    visit("directionCosine3", &Self::cosine3_, cls_MemberText{"direction cosine 3 of the major axis"});
  }

protected:
  void AssertWhole() const override;
  /// Which step is the first one counts.
  bool LooksAtSteps() const override { return true; }

private:
  omu_PrimEnum<kinC_ImpedanceEnm, 1> definition_;
  omu_PrimEnum<kinC_NonreflectingEnm, 1> nonreflectingType_;
  double radius_ = 1.0, semimajorAxis_ = 1.0, eccentricity_ = 0.0;
  double center1_ = 0.0, center2_ = 0.0, center3_ = 0.0;
  double cosine1_ = 0.0, cosine2_ = 0.0, cosine3_ = 1.0;
};

/// Per-step state of an incident wave. Refuses, in this order: 34 a pressure or acceleration without an amplitude, 156 a reference
/// magnitude of 0.
class DDB_API kinC_IncidentWaveState final : public kinC_WithProperty<kinC_IncidentWaveState> {
public:
  using WaveEnm = kinC_WaveEnm;

  kinC_IncidentWaveState() = default;
  explicit kinC_IncidentWaveState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<omu_PrimEnum<WaveEnm, 1>> definition;
  mdl_PropAttr<cow_String> amplitude;
  mdl_PropAttr<double> referenceMagnitude;
  mdl_PropAttr<double> detonationTime;

  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_IncidentWaveState;
    kinC_WithProperty::VisitMembers(visit);
    visit("definition", &Self::definition, cls_MemberText{"what the wave is given as; an explosion takes all from the property"});
    visit("amplitude", &Self::amplitude, kinC_AmplitudeText("name of the amplitude that gives the wave at the standoff point over time"));
    visit("referenceMagnitude", &Self::referenceMagnitude,
          cls_MemberText{"by how much the amplitude is multiplied", "force/length^2, length/time^2"});
    visit("detonationTime", &Self::detonationTime, cls_MemberText{"time of the detonation", "time"});
  }
};
/// A wave that comes from a source outside the medium, in force in the steps that say so and in no other.
///
/// Refuses in addition: 157 a normal of the fluid's surface without length, 158 an initial depth that is not greater than 0.
class DDB_API kinC_IncidentWave final : public kinC_OnRegion<kinC_IncidentWave> {
public:
  static constexpr std::string_view regionText() { return "the surface that the wave meets"; }

  kinC_IncidentWave() = default;
  explicit kinC_IncidentWave(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_IncidentWave;
    kinC_OnRegion::VisitMembers(visit);
    visit("sourcePoint", &Self::sourcePoint_, cls_MemberText{"the point that the wave comes from"}.RefersTo(cls_Reference::Region));
    visit("standoffPoint", &Self::standoffPoint_, cls_MemberText{"the point at which the wave is known"}.RefersTo(cls_Reference::Region));
    visit("surfaceNormal1", &Self::normal1_, cls_MemberText{"component 1 of the normal of the fluid's surface"});
    visit("surfaceNormal2", &Self::normal2_, cls_MemberText{"component 2 of the normal of the fluid's surface"});
    visit("surfaceNormal3", &Self::normal3_, cls_MemberText{"component 3 of the normal of the fluid's surface"});
    visit("initialDepth", &Self::initialDepth_, cls_MemberText{"depth of the source below the fluid's surface", "length"});
  }

protected:
  void AssertWhole() const override;

private:
  cls_Shared<rgnC_Region> sourcePoint_, standoffPoint_;
  double normal1_ = 0.0, normal2_ = 0.0, normal3_ = 1.0;
  double initialDepth_ = cls_unsetReal;
};
