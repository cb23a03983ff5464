#pragma once

#include "module/kin/kinC_Interaction.h"

// Contact of two surfaces, and of one with itself, and their states.

/// How far the surfaces may slide along each other.
enum class kinC_SlidingEnm { FINITE, SMALL };
template <> struct omu_EnumTable<kinC_SlidingEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"FINITE", 0}, {"SMALL", 1}, {nullptr, 0}};
};
/// Where the condition of no penetration is enforced.
enum class kinC_EnforcementEnm { SURFACE_TO_SURFACE, NODE_TO_SURFACE };
template <> struct omu_EnumTable<kinC_EnforcementEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"SURFACE_TO_SURFACE", 0}, {"NODE_TO_SURFACE", 1}, {nullptr, 0}};
};
/// Whether the thickness of shells and membranes counts.
enum class kinC_ThicknessEnm { ON, OFF };
template <> struct omu_EnumTable<kinC_ThicknessEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ON", 0}, {"OFF", 1}, {nullptr, 0}};
};
/// Which nodes of the slave surface are moved onto the master surface before the analysis.
enum class kinC_AdjustEnm { NONE, OVERCLOSED, TOLERANCE, SET };
template <> struct omu_EnumTable<kinC_AdjustEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"NONE", 0}, {"OVERCLOSED", 1}, {"TOLERANCE", 2}, {"SET", 3}, {nullptr, 0}};
};
/// How the initial clearance of the surfaces is given: not, as one value, or by the thread of a bolt.
enum class kinC_ClearanceEnm { NONE, UNIFORM, BOLT };
template <> struct omu_EnumTable<kinC_ClearanceEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"NONE", 0}, {"UNIFORM", 1}, {"BOLT", 2}, {nullptr, 0}};
};
/// How an explicit analysis enforces contact.
enum class kinC_FormulationEnm { KINEMATIC, PENALTY };
template <> struct omu_EnumTable<kinC_FormulationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"KINEMATIC", 0}, {"PENALTY", 1}, {nullptr, 0}};
};

/// Base of the states of contact pairs. Refuses 3 a state that names no interaction property.
template <class Derived> class kinC_InContact : public kinC_WithProperty<Derived> {
public:
  static constexpr omn_FixedString contactControlsCmd() { return "contactControls"; }

  mdl_PropAttr<cow_String> contactControls;

  void AssertValid() const override { kinC_Assert(!this->InteractionProperty().IsEmpty(), kinC_ErrorEnm::PropertyMissing); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_WithProperty<Derived>::VisitMembers(visit);
    visit(contactControlsCmd(), &kinC_InContact::contactControls,
          cls_MemberText{"name of the contact controls; empty for the solver's own"}.RefersTo(cls_Reference::ContactControls));
  }
};

/// Per-step state of contact between two surfaces.
class DDB_API kinC_SurfaceToSurfaceContactState : public kinC_InContact<kinC_SurfaceToSurfaceContactState> {
public:
  kinC_SurfaceToSurfaceContactState() = default;
  explicit kinC_SurfaceToSurfaceContactState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_InContact::VisitMembers(visit); }
};

/// Base of contact between two surfaces.
///
/// Refuses in addition, in this order: 169, 170, 171 a pitch or a diameter of the thread that is not greater than 0; 172 no
/// value for a uniform clearance; 174, 175 no angle or pitch of the thread; 179 a clearance without small sliding.
class DDB_API kinC_SurfaceToSurfaceContact : public cls_Persistent<kinC_SurfaceToSurfaceContact, kinC_Interaction> {
public:
  using SlidingEnm = kinC_SlidingEnm;
  using ClearanceEnm = kinC_ClearanceEnm;

  static constexpr omn_FixedString masterCmd() { return "master"; }
  static constexpr omn_FixedString slaveCmd() { return "slave"; }
  static constexpr omn_FixedString slidingCmd() { return "sliding"; }
  static constexpr omn_FixedString clearanceCmd() { return "clearance"; }

  rgnC_Region const& Master() const { return *master_; }
  rgnC_Region const& Slave() const { return *slave_; }
  bool IsSmallSliding() const { return sliding_ == SlidingEnm::SMALL; }
  bool HasClearance() const { return clearance_ != ClearanceEnm::NONE; }
  cls_xoList<rgnC_Region> ConstGetContactNodeSets() const override { return Regions(rgnC_Set); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_SurfaceToSurfaceContact;
    kinC_Interaction::VisitMembers(visit);
    visit(masterCmd(), &Self::master_, cls_MemberText{"the master surface"}.RefersTo(cls_Reference::Region));
    visit(slaveCmd(), &Self::slave_, cls_MemberText{"the slave surface, or a set of nodes in its place"}.RefersTo(cls_Reference::Region));
    visit(slidingCmd(), &Self::sliding_, cls_MemberText{"how far the surfaces may slide along each other"});
    visit(clearanceCmd(), &Self::clearance_, cls_MemberText{"how the initial clearance is given"});
    visit("initialClearance", &Self::initialClearance_, cls_MemberText{"initial clearance of the surfaces, where it is uniform", "length"});
    visit("halfThreadAngle", &Self::halfThreadAngle_, cls_MemberText{"half of the angle of the bolt's thread", "degrees"});
    visit("pitch", &Self::pitch_, cls_MemberText{"pitch of the bolt's thread", "length"});
    visit("majorDiameter", &Self::majorDiameter_, cls_MemberText{"major diameter of the bolt's thread", "length"});
    visit("meanDiameter", &Self::meanDiameter_, cls_MemberText{"mean diameter of the bolt's thread", "length"});
    visit("boltAxis", &Self::boltAxis_, cls_MemberText{"name of the datum axis along the bolt"}.RefersTo(cls_Reference::Axis));
  }

protected:
  void AssertWhole() const override;

  omu_PrimEnum<SlidingEnm, 1> sliding_;

private:
  cls_Shared<rgnC_Region> master_, slave_;
  omu_PrimEnum<ClearanceEnm, 1> clearance_;
  double initialClearance_ = cls_unsetReal, halfThreadAngle_ = cls_unsetReal, pitch_ = cls_unsetReal;
  double majorDiameter_ = cls_unsetReal, meanDiameter_ = cls_unsetReal;
  cow_String boltAxis_;
};

/// What the standard analysis smooths of a master surface, the same for both kinds of contact.
inline constexpr double kinC_defaultSmoothing = 0.2;
inline constexpr cls_MemberText kinC_smoothingText = {"fraction of the edges of the master surface along which it is smoothed, 0 to 0.5"};
/// Refuses 4 a fraction that is not between 0 and 0.5.
DDB_API void kinC_AssertSmoothing(double smoothing);

class DDB_API kinC_SurfaceToSurfaceContactStdState final
    : public kprC_StateOf<kinC_SurfaceToSurfaceContactStdState, kinC_SurfaceToSurfaceContactState> {
public:
  using kprC_StateOf::kprC_StateOf;
};
/// Contact between two surfaces in the standard analysis.
///
/// Refuses in addition, in this order, before what the base refuses: 4 smoothing, 5 penetration before a cutback, 6 slide distance, 7
/// extension zone out of their bounds; 75 nodes to adjust that are no set; 160 tied surfaces without adjustment; 167 another
/// smoothing than the default with small sliding; 168 finite sliding of nodes on a surface where the thickness counts.
class DDB_API kinC_SurfaceToSurfaceContactStd final : public cls_Persistent<kinC_SurfaceToSurfaceContactStd, kinC_SurfaceToSurfaceContact> {
public:
  using EnforcementEnm = kinC_EnforcementEnm;
  using ThicknessEnm = kinC_ThicknessEnm;
  using AdjustEnm = kinC_AdjustEnm;

  kinC_SurfaceToSurfaceContactStd() = default;
  explicit kinC_SurfaceToSurfaceContactStd(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_SurfaceToSurfaceContactStd;
    kinC_SurfaceToSurfaceContact::VisitMembers(visit);
    visit("enforcement", &Self::enforcement_, cls_MemberText{"where the condition of no penetration is enforced"});
    visit("thickness", &Self::thickness_, cls_MemberText{"whether the thickness of shells and membranes counts"});
    visit("smoothing", &Self::smoothing_, kinC_smoothingText);
    visit("penetrationBeforeCutback", &Self::penetrationBeforeCutback_,
          cls_MemberText{"penetration at which an increment is begun again with a smaller one", "length"});
    visit("slideDistance", &Self::slideDistance_,
          cls_MemberText{"distance over which the slave surface may slide in three dimensions", "length"});
    visit("extensionZone", &Self::extensionZone_,
          cls_MemberText{"fraction of an end segment by which the master surface is extended, 0 to 0.2"});
    visit("adjustMethod", &Self::adjustMethod_, cls_MemberText{"which slave nodes are moved onto the master surface before the analysis"});
    visit("adjustTolerance", &Self::adjustTolerance_, cls_MemberText{"distance within which slave nodes are adjusted", "length"});
    visit("adjustSet", &Self::adjustSet_, cls_MemberText{"the slave nodes to adjust"}.RefersTo(cls_Reference::Region));
    visit("tied", &Self::tied_, cls_MemberText{"whether the surfaces are tied for the whole analysis"});
  }

protected:
  void AssertWhole() const override;

private:
  omu_PrimEnum<EnforcementEnm, 1> enforcement_;
  omu_PrimEnum<ThicknessEnm, 1> thickness_;
  double smoothing_ = kinC_defaultSmoothing;
  double penetrationBeforeCutback_ = cls_unsetReal, slideDistance_ = cls_unsetReal;
  double extensionZone_ = 0.1;
  omu_PrimEnum<AdjustEnm, 1> adjustMethod_;
  double adjustTolerance_ = 0.0;
  cls_Shared<rgnC_Region> adjustSet_;
  bool tied_ = false;
};

class DDB_API kinC_SurfaceToSurfaceContactXplState final
    : public kprC_StateOf<kinC_SurfaceToSurfaceContactXplState, kinC_SurfaceToSurfaceContactState> {
public:
  using kprC_StateOf::kprC_StateOf;
};
/// Contact between two surfaces in an explicit analysis.
///
/// Refuses in addition: of the create step 45 small sliding behind the first analysis step, 180 a clearance in any step but that
/// one; then, before what the base refuses, 112 a weighting factor that is not between 0 and 1, 181 small sliding by penalties.
class DDB_API kinC_SurfaceToSurfaceContactXpl final : public cls_Persistent<kinC_SurfaceToSurfaceContactXpl, kinC_SurfaceToSurfaceContact> {
public:
  using FormulationEnm = kinC_FormulationEnm;

  kinC_SurfaceToSurfaceContactXpl() = default;
  explicit kinC_SurfaceToSurfaceContactXpl(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_SurfaceToSurfaceContactXpl;
    kinC_SurfaceToSurfaceContact::VisitMembers(visit);
    visit("formulation", &Self::formulation_, cls_MemberText{"how contact is enforced"});
    visit("weightingFactor", &Self::weightingFactor_,
          cls_MemberText{"weight of the master surface in a balanced pair, 0 to 1; the solver's own where it is not given"});
  }

protected:
  void AssertCreateStep(std::size_t index) const override;
  void AssertWhole() const override;
  /// Which step is the first one counts.
  bool LooksAtSteps() const override { return IsSmallSliding() || HasClearance(); }

private:
  omu_PrimEnum<FormulationEnm, 1> formulation_;
  double weightingFactor_ = cls_unsetReal;
};

/// Per-step state of contact of a surface with itself.
class DDB_API kinC_SelfContactState : public kinC_InContact<kinC_SelfContactState> {
public:
  kinC_SelfContactState() = default;
  explicit kinC_SelfContactState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_InContact::VisitMembers(visit); }
};

/// Base of contact of a surface with itself.
class DDB_API kinC_SelfContact : public cls_Persistent<kinC_SelfContact, kinC_Interaction> {
public:
  static constexpr omn_FixedString surfaceCmd() { return "surface"; }

  rgnC_Region const& Region() const { return *surface_; }
  cls_xoList<rgnC_Region> ConstGetContactNodeSets() const override { return Regions(rgnC_Set); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_Interaction::VisitMembers(visit);
    visit(surfaceCmd(), &kinC_SelfContact::surface_, cls_MemberText{"the surface that may touch itself"}.RefersTo(cls_Reference::Region));
  }

private:
  cls_Shared<rgnC_Region> surface_;
};

class DDB_API kinC_SelfContactStdState final : public kprC_StateOf<kinC_SelfContactStdState, kinC_SelfContactState> {
public:
  using kprC_StateOf::kprC_StateOf;
};
/// Contact of a surface with itself in the standard analysis.
///
/// Refuses in addition: 4 smoothing out of its bounds.
class DDB_API kinC_SelfContactStd final : public cls_Persistent<kinC_SelfContactStd, kinC_SelfContact> {
public:
  kinC_SelfContactStd() = default;
  explicit kinC_SelfContactStd(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_SelfContact::VisitMembers(visit);
    visit("enforcement", &kinC_SelfContactStd::enforcement_, cls_MemberText{"where the condition of no penetration is enforced"});
    visit("thickness", &kinC_SelfContactStd::thickness_, cls_MemberText{"whether the thickness of shells and membranes counts"});
    visit("smoothing", &kinC_SelfContactStd::smoothing_, kinC_smoothingText);
  }

protected:
  void AssertWhole() const override;

private:
  omu_PrimEnum<kinC_EnforcementEnm, 1> enforcement_;
  omu_PrimEnum<kinC_ThicknessEnm, 1> thickness_;
  double smoothing_ = kinC_defaultSmoothing;
};

class DDB_API kinC_SelfContactXplState final : public kprC_StateOf<kinC_SelfContactXplState, kinC_SelfContactState> {
public:
  using kprC_StateOf::kprC_StateOf;
};
/// Contact of a surface with itself in an explicit analysis.
class DDB_API kinC_SelfContactXpl final : public cls_Persistent<kinC_SelfContactXpl, kinC_SelfContact> {
public:
  kinC_SelfContactXpl() = default;
  explicit kinC_SelfContactXpl(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  std::unique_ptr<kinC_InteractionState> NewStateFor(unsigned procedureType) const override { return DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_SelfContact::VisitMembers(visit);
    visit("formulation", &kinC_SelfContactXpl::formulation_, cls_MemberText{"how contact is enforced"});
  }

private:
  omu_PrimEnum<kinC_FormulationEnm, 1> formulation_;
};
