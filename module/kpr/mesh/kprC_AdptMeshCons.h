#pragma once

#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "module/kpr/engine/kprC_Propagator.h"
#include "module/kpr/family/kprC_BucklingCase.h"
#include "module/kpr/family/kprC_TypeOf.h"
#include "module/kpr/mesh/Rules.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/CoreUtils/atr_String.h"

/// What the mesh does where it is constrained.
enum class kprC_MotionTypeEnum {
  INDEPENDENT = 0,   ///< moves as prescribed, whatever the material does
  FOLLOW = 1,        ///< follows the material
  USER_DEFINED = 2,  ///< moves as a user subroutine says
};
template <> struct omu_EnumTable<kprC_MotionTypeEnum> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"INDEPENDENT", 0}, {"FOLLOW", 1}, {"USER_DEFINED", 2}, {nullptr, 0}};
};

/// Documented names that nothing here uses.
struct kprC_AdptMeshConsNames {
  static constexpr omn_FixedString amplitudeCmd() { return "amplitude"; }
  static constexpr omn_FixedString amplitudeStateCmd() { return "amplitudeState"; }
  static constexpr omn_FixedString categoryCmd() { return "category"; }
  static constexpr omn_FixedString createStepNameCmd() { return "createStepName"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }
  static constexpr omn_FixedString fromStepNameCmd() { return "fromStepName"; }
  static constexpr omn_FixedString globalCsysName() { return "(Global)"; }
  static constexpr omn_FixedString modifyParametersCmd() { return "setValuesInStep"; }
  static constexpr omn_FixedString moveCmd() { return "move"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString resetCmd() { return "reset"; }
  static constexpr omn_FixedString resumeCmd() { return "resume"; }
  static constexpr omn_FixedString setParametersCmd() { return "setValues"; }
  static constexpr omn_FixedString statusCmd() { return "status"; }
  static constexpr omn_FixedString stepNameCmd() { return "stepName"; }
  static constexpr omn_FixedString suppressCmd() { return "suppress"; }
  static constexpr omn_FixedString toStepNameCmd() { return "toStepName"; }
  static constexpr omn_FixedString upgradeAdptMeshConsMDBCmd() { return "_upgradeAdptMeshConsMdb"; }
};

extern template class DDB_API kprC_StepAttribute<kprC_AdptMeshConsRules>;

/// Base of the adaptive mesh constraints: they prescribe the motion of the mesh, not of the material, on a region, in steps that may
/// have adaptive mesh domains. The per-step operations, with their refusals, are those of a constraint under the family's rules
/// (Rules.h).
///
/// AssertValid refuses, in this order: 208 active in an anneal step, 226 active where the type is not admitted, 242 a motion by a
/// user subroutine that is active in an explicit step, 190 anything but zero in the initial step. Nothing while suppressed.
class DDB_API kprC_AdptMeshCons : public cls_Persistent<kprC_AdptMeshCons, kprC_Constraint<kprC_AdptMeshConsRules>>,
                                  public kprC_AdptMeshConsNames {
public:
  using CategoryEnm = kprC_AdptMeshConsCategoryEnm;
  using enum kprC_AdptMeshConsCategoryEnm;
  using MotionTypeEnum = kprC_MotionTypeEnum;
  using enum kprC_MotionTypeEnum;

  static constexpr char const* kModule = "kpr";
  /// The construction commands of the family.
  static std::span<kprC_Constructor<kprC_AdptMeshCons> const> Constructors();

  static constexpr omn_FixedString adptMeshConsCmd() { return "adaptiveMeshConstraint"; }
  static constexpr omn_FixedString itemCmd() { return adptMeshConsCmd(); }
  static constexpr omn_FixedString copyConstructorCmd() { return "AdaptiveMeshConstraint"; }
  static constexpr omn_FixedString adptMeshConsRepositoryCmd() { return "adaptiveMeshConstraints"; }
  static constexpr omn_FixedString regionCmd() { return "region"; }
  static constexpr omn_FixedString csysCmd() { return "localCsys"; }
  static constexpr omn_FixedString motionTypeCmd() { return "motionType"; }
  static constexpr omn_FixedString suppressedCmd() { return "suppressed"; }

  MotionTypeEnum MotionType() const { return motionType_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(suppressedCmd(), &kprC_AdptMeshCons::suppress_, cls_MemberText{"whether the constraint is suppressed as a whole"}.NotSettable());
    visit(regionCmd(), &kprC_AdptMeshCons::region_, cls_MemberText{"the set or surface that it acts on"}.RefersTo(cls_Reference::Region));
    visit(csysCmd(), &kprC_AdptMeshCons::csys_,
          cls_MemberText{"local coordinate system; empty for the global one"}.RefersTo(cls_Reference::CoordinateSystem));
    visit(motionTypeCmd(), &kprC_AdptMeshCons::motionType_, cls_MemberText{"what the mesh does on the region"});
    visit("states", &kprC_AdptMeshCons::states_, cls_MemberText{"the per-step records"}.NotSettable());
  }

protected:
  bool IsUserDefined() const override { return motionType_ == USER_DEFINED; }
  bool NeedsNoValue(bool /*oneValue*/) const override { return motionType_ != INDEPENDENT; }
  /// Refuses 242.
  void AssertWhole() const override;
  bool LooksAtSteps() const override { return IsUserDefined(); }
  /// The initial step takes a constraint, whose values are then zero.
  bool ValidByOwnRule(unsigned procedureType, bool /*carried*/) const override { return procedureType == kprC_ProcedureType::Initial; }

private:
  omu_PrimEnum<MotionTypeEnum, 1> motionType_;
};

extern template class DDB_API kprC_PropagatingContainer<kprC_AdptMeshCons>;

/// Per-step state of a displacement constraint.
class DDB_API kprC_DispAdptMeshConsState final
    : public kprC_Displacements<kprC_DispAdptMeshConsState, kprC_AdptMeshConsState, kprC_ErrorEnm::AmcComponentValue> {
public:
  static constexpr omn_FixedString pythonTypeName() { return "DisplacementAdaptiveMeshConstraintState"; }
  static constexpr omn_FixedString buckleCaseCmd() { return "buckleCase"; }

  kprC_DispAdptMeshConsState() = default;
  explicit kprC_DispAdptMeshConsState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<omu_PrimEnum<kprC_BucklingCaseEnm, 1>> buckleCase;  ///< which part of a buckle step it acts in

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_Displacements::VisitMembers(visit);
    visit(buckleCaseCmd(), &kprC_DispAdptMeshConsState::buckleCase, cls_MemberText{"the part of a buckle step that it acts in"});
  }
};

/// Displacements and rotations of the mesh on a region.
class DDB_API kprC_DispAdptMeshCons final : public kprC_TypeOf<kprC_DispAdptMeshCons, kprC_AdptMeshCons> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

/// Per-step state of a velocity constraint.
class DDB_API kprC_VelAdptMeshConsState final
    : public kprC_Velocities<kprC_VelAdptMeshConsState, kprC_AdptMeshConsState, kprC_ErrorEnm::AmcComponentValue> {
public:
  static constexpr omn_FixedString pythonTypeName() { return "VelocityAdaptiveMeshConstraintState"; }

  kprC_VelAdptMeshConsState() = default;
  explicit kprC_VelAdptMeshConsState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
};

/// Velocities and angular velocities of the mesh on a region.
class DDB_API kprC_VelAdptMeshCons final : public kprC_TypeOf<kprC_VelAdptMeshCons, kprC_AdptMeshCons> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

/// The labels of the types. The process has one table: thr_GlobalSingleton<kprC_AdptMeshConsTypeLabelMap>::Instance().
class DDB_API kprC_AdptMeshConsTypeLabelMap {
public:
  /// The label of the type of that identity; empty for what is no type.
  std::string_view Label(unsigned typeId) const;
};

// The labels of the types of a category that a step of \p procedureType admits; none of the initial step (0).
DDB_API cow_List<atr_String> kprC_getMechanicalAdptMeshConsTypesforStep(int procedureType);
DDB_API cow_List<atr_String> kprC_getOtherAdptMeshConsTypesforStep(int procedureType);
/// Whether a step of that procedure type admits the type of that identity.
DDB_API bool kprC_isValidAdptMeshConsTypeforStep(int constraintType, int procedureType);
