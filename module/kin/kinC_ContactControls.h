#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kin/Types.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// Whether the solver chooses how often contact is searched in the whole model.
enum class kinC_globTrkEnm { DEFAULT, SPECIFY };
/// How deep surfaces may penetrate each other where contact is enforced approximately.
enum class kinC_penetrationTolEnm { DEFAULT, ABSOLUTE, RELATIVE };
enum class kinC_zeroDampingEnm { DEFAULT, SPECIFY };
enum class kinC_slideDistanceEnm { DEFAULT, SPECIFY };
/// How the damping that stabilizes contact is given.
enum class kinC_stabilizationEnm { DEFAULT, FACTOR, COEFFICIENT };
/// When friction sets in on surfaces that come into contact.
enum class kinC_frictionOnsetEnm { DEFAULT, IMMEDIATE, DELAYED };
enum class kinC_enforceWithLagrangeMultipliersEnm { DEFAULT, ON, OFF };
/// Stands for the solver's own controls in the place of a name.
enum class kinC_ContactControlEnm { DEFAULT };

template <> struct omu_EnumTable<kinC_globTrkEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"SPECIFY", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_penetrationTolEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"ABSOLUTE", 1}, {"RELATIVE", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_zeroDampingEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"SPECIFY", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_slideDistanceEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"SPECIFY", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_stabilizationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"FACTOR", 1}, {"COEFFICIENT", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_frictionOnsetEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"IMMEDIATE", 1}, {"DELAYED", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_enforceWithLagrangeMultipliersEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"ON", 1}, {"OFF", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_ContactControlEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {nullptr, 0}};
};

/// The contact controls of a model by name: its extension "contactControls".
using kinC_ContactControlsMap = mdl_MapString2ObjCow<kinC_ContactControls>;

/// What contact pairs refer to by name: how the solver is to treat them.
class DDB_API kinC_ContactControls : public cls_Persistent<kinC_ContactControls, cls_Object> {
public:
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString contactControlsCmd() { return "contactControls"; }

  cow_String name;

  /// Raises the first rule that the controls break as a whole.
  virtual void AssertValid() const = 0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(nameCmd(), &kinC_ContactControls::name, cls_MemberText{"the name of the controls"}.NotSettable());
  }
};

/// Controls of contact by equilibrium iterations. What is not given is the solver's.
class DDB_API kinC_StdContactControls final : public cls_Persistent<kinC_StdContactControls, kinC_ContactControls> {
public:
  static constexpr omn_FixedString constructorCmd() { return "StdContactControls"; }

  double stiffnessScaleFactor = cls_unsetReal;
  omu_PrimEnum<kinC_penetrationTolEnm> penetrationTolChoice = kinC_penetrationTolEnm::DEFAULT;
  double absolutePenetrationTolerance = cls_unsetReal;
  double relativePenetrationTolerance = cls_unsetReal;
  omu_PrimEnum<kinC_slideDistanceEnm> slideDistanceChoice = kinC_slideDistanceEnm::DEFAULT;
  double maxSlideDistance = cls_unsetReal;
  int maxViolatingPoints = 0;
  double maxTensileStress = 0.0;
  double maxOverclosure = 0.0;
  omu_PrimEnum<kinC_stabilizationEnm> stabilizationChoice = kinC_stabilizationEnm::DEFAULT;
  double stabilizationFactor = cls_unsetReal;
  double stabilizationCoefficient = cls_unsetReal;
  double tangentFraction = cls_unsetReal;
  double endOfStepFraction = cls_unsetReal;
  omu_PrimEnum<kinC_zeroDampingEnm> zeroDampingChoice = kinC_zeroDampingEnm::DEFAULT;
  double zeroDamping = cls_unsetReal;
  omu_PrimEnum<kinC_frictionOnsetEnm> frictionOnset = kinC_frictionOnsetEnm::DEFAULT;
  omu_PrimEnum<kinC_enforceWithLagrangeMultipliersEnm> enforceWithLagrangeMultipliers = kinC_enforceWithLagrangeMultipliersEnm::DEFAULT;

  kinC_StdContactControls();
  explicit kinC_StdContactControls(cls_ReadVisitor const& in);

  /// Refuses: 125 a stiffness scale factor that is not above 0; negative values 126 to 128, 132 to 134; 129 a limit above 0 without
  /// points, 130 points without a limit; negative values 135 to 139; 183 and 184 what a choice needs and is not given.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_StdContactControls;
    kinC_ContactControls::VisitMembers(visit);
    visit("stiffnessScaleFactor", &Self::stiffnessScaleFactor, cls_MemberText{"factor on the penalty stiffness"});
    visit("penetrationTolChoice", &Self::penetrationTolChoice, cls_MemberText{"how the penetration that is tolerated is given"});
    visit("absolutePenetrationTolerance", &Self::absolutePenetrationTolerance, cls_MemberText{"the penetration as a distance", "length"});
    visit("relativePenetrationTolerance", &Self::relativePenetrationTolerance,
          cls_MemberText{"the penetration as a fraction of the size of an element"});
    visit("slideDistanceChoice", &Self::slideDistanceChoice, cls_MemberText{"whether the largest slide distance is given"});
    visit("maxSlideDistance", &Self::maxSlideDistance, cls_MemberText{"the largest slide distance", "length"});
    visit("maxViolatingPoints", &Self::maxViolatingPoints,
          cls_MemberText{"most points that may violate contact in an increment; needs one of the two limits"});
    visit("maxTensileStress", &Self::maxTensileStress,
          cls_MemberText{"tensile stress, or force, that such a point may carry", "force/length^2, force"});
    visit("maxOverclosure", &Self::maxOverclosure, cls_MemberText{"overclosure that such a point may have", "length"});
    visit("stabilizationChoice", &Self::stabilizationChoice, cls_MemberText{"how the stabilizing damping is given"});
    visit("stabilizationFactor", &Self::stabilizationFactor, cls_MemberText{"factor on the damping that the solver finds"});
    visit("stabilizationCoefficient", &Self::stabilizationCoefficient, cls_MemberText{"the damping itself", "force*time/length^3"});
    visit("tangentFraction", &Self::tangentFraction,
          cls_MemberText{"stabilizing damping along the surfaces as a fraction of that along the normal"}.Unset("DEFAULT"));
    visit("endOfStepFraction", &Self::endOfStepFraction, cls_MemberText{"fraction of the damping that is left at the end of the step"});
    visit("zeroDampingChoice", &Self::zeroDampingChoice, cls_MemberText{"whether the clearance is given at which the damping ends"});
    visit("zeroDamping", &Self::zeroDamping, cls_MemberText{"clearance at which the stabilizing damping becomes zero", "length"});
    visit("frictionOnset", &Self::frictionOnset, cls_MemberText{"when friction sets in: with contact, or an increment later"});
    visit("enforceWithLagrangeMultipliers", &Self::enforceWithLagrangeMultipliers,
          cls_MemberText{"whether Lagrange multipliers enforce contact where penalties could"});
  }
};

/// Controls of contact in explicit steps. What is not given is the solver's.
class DDB_API kinC_ExpContactControls final : public cls_Persistent<kinC_ExpContactControls, kinC_ContactControls> {
public:
  static constexpr omn_FixedString constructorCmd() { return "ExpContactControls"; }

  omu_PrimEnum<kinC_globTrkEnm> globTrkChoice = kinC_globTrkEnm::DEFAULT;
  int globTrkInc = cls_unsetInteger;
  bool fastLocalTrk = true;
  int warpCheckInc = cls_unsetInteger;
  double highlyWarpedAngle = cls_unsetReal;
  double penaltyScaleFactor = cls_unsetReal;

  kinC_ExpContactControls();
  explicit kinC_ExpContactControls(cls_ReadVisitor const& in);

  /// Refuses what is not above 0: 121 increments between global searches, 122 between warp checks, 123 angle, 124 factor; 182 a number
  /// of increments that a choice needs and is not given.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_ExpContactControls;
    kinC_ContactControls::VisitMembers(visit);
    visit("globTrkChoice", &Self::globTrkChoice, cls_MemberText{"whether the number of increments between global searches is given"});
    visit("globTrkInc", &Self::globTrkInc, cls_MemberText{"most increments between two searches for contact in the whole model"});
    visit("fastLocalTrk", &Self::fastLocalTrk, cls_MemberText{"whether contact is followed by the fast local search"});
    visit("warpCheckInc", &Self::warpCheckInc, cls_MemberText{"increments between two checks for warped facets"});
    visit("highlyWarpedAngle", &Self::highlyWarpedAngle, cls_MemberText{"angle from which a facet counts as warped", "degrees"});
    visit("penaltyScaleFactor", &Self::penaltyScaleFactor, cls_MemberText{"factor on the penalty stiffness"});
  }
};
