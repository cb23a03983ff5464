#pragma once

#include "module/klo/kloC_Vector.h"

// Mechanical loads over edges, surfaces and volumes, and their states. Tractions have a file of their own.

/// How a pressure varies over its surface.
enum class kloC_PressureDistEnm { UNIFORM, USER_DEFINED, HYDROSTATIC, FIELD, STAGNATION, VISCOUS };
template <> struct omu_EnumTable<kloC_PressureDistEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"UNIFORM", 0},    {"USER_DEFINED", 1}, {"HYDROSTATIC", 2}, {"FIELD", 3},
                                                               {"STAGNATION", 4}, {"VISCOUS", 5},      {nullptr, 0}};
};

class DDB_API kloC_PressureState final
    : public kprC_StateOf<kloC_PressureState, kloC_WithDistribution<kloC_ScalarState, kloC_PressureDistEnm>> {
public:
  kloC_PressureState() = default;
  explicit kloC_PressureState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("pressure on the surface", "force/length^2"); }

  mdl_PropAttr<double> hZero;       ///< elevation of zero pressure, length
  mdl_PropAttr<double> hReference;  ///< elevation at which the magnitude is reached, length
  mdl_PropAttr<bool> useHydrostatic;
  mdl_PropAttr<cow_String> referencePoint;

  bool IsHydrostatic() const { return distType == kloC_PressureDistEnm::HYDROSTATIC; }
  /// Whether the elevations decide in this step.
  bool IsHydrostaticInUse() const { return IsHydrostatic() && !(useHydrostatic == false); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_PressureState;
    kprC_StateOf::VisitMembers(visit);
    visit(distTypeCmd(), &Self::distType, distTypeText());
    visit("hZero", &Self::hZero, kloC_Value("elevation z0 of zero pressure", "length"));
    visit("hReference", &Self::hReference, kloC_Value("elevation z1 at which the magnitude is reached", "length"));
    visit("useHydrostatic", &Self::useHydrostatic, kloC_Value("false where a hydrostatic pressure does without its elevations"));
    visit("referencePoint", &Self::referencePoint,
          cls_MemberText{"name of the point whose velocity a stagnation or viscous pressure is measured against"});
  }
};
/// Pressure on surfaces.
///
/// Refuses in addition: 19 a hydrostatic pressure in force in an explicit step, 20 equal elevations where it is in use.
class DDB_API kloC_Pressure final : public kprC_TypeOf<kloC_Pressure, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using DistTypeEnm = kloC_PressureDistEnm;

protected:
  void AssertState(kloC_LoadState const& state, std::size_t index) const override;
  /// A hydrostatic one may be carried into an explicit step.
  bool LooksAtSteps() const override;

private:
  /// Whether an explicit step takes the state of the step \p index, changed there or carried.
  DDB_LOCAL bool ReachesExplicitStep(std::size_t index) const;
};

class DDB_API kloC_PressurePenetrationState final : public kprC_StateOf<kloC_PressurePenetrationState, kloC_LoadState> {
public:
  kloC_PressurePenetrationState() = default;
  explicit kloC_PressurePenetrationState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<cow_String> interaction;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kloC_LoadState::VisitMembers(visit);
    visit(
        "interaction", &kloC_PressurePenetrationState::interaction,
        cls_MemberText{"name of the contact interaction between whose surfaces the fluid penetrates"}.RefersTo(cls_Reference::Interaction));
  }
};
/// Pressure of a fluid that penetrates between surfaces in contact. No procedure admits it yet.
class DDB_API kloC_PressurePenetration final : public kprC_TypeOf<kloC_PressurePenetration, kloC_Load> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

enum class kloC_PipeSideEnm { INTERNAL, EXTERNAL };
template <> struct omu_EnumTable<kloC_PipeSideEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"INTERNAL", 0}, {"EXTERNAL", 1}, {nullptr, 0}};
};
enum class kloC_PipeEndEnm { CLOSED, OPEN };
template <> struct omu_EnumTable<kloC_PipeEndEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"CLOSED", 0}, {"OPEN", 1}, {nullptr, 0}};
};

class DDB_API kloC_PipePressureState final : public kprC_StateOf<kloC_PipePressureState, kloC_DistributedState> {
public:
  kloC_PipePressureState() = default;
  explicit kloC_PipePressureState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("pressure in or about the pipe", "force/length^2"); }

  mdl_PropAttr<omu_PrimEnum<kloC_PipeSideEnm, 1>> side;
  mdl_PropAttr<omu_PrimEnum<kloC_PipeEndEnm, 1>> endCondition;
  mdl_PropAttr<double> diameter;  ///< effective diameter, length

  /// Refuses 42 an effective diameter that is not greater than zero.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_PipePressureState;
    kprC_StateOf::VisitMembers(visit);
    visit("side", &Self::side, kloC_Value("the side of the wall that the pressure acts on"));
    visit("endCondition", &Self::endCondition, kloC_Value("whether the ends of the pipe are closed and pulled by the pressure"));
    visit("diameter", &Self::diameter, kloC_Value("effective inner or outer diameter, greater than zero", "length"));
  }
};
/// Pressure in or about pipes.
class DDB_API kloC_PipePressure final : public kprC_TypeOf<kloC_PipePressure, kloC_Distributed> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using SideEnm = kloC_PipeSideEnm;
  using EndConditionEnm = kloC_PipeEndEnm;
};

enum class kloC_LineSystemEnm { GLOBAL, LOCAL };
template <> struct omu_EnumTable<kloC_LineSystemEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"GLOBAL", 0}, {"LOCAL", 1}, {nullptr, 0}};
};

class DDB_API kloC_LineLoadState final : public kloC_VectorOf<kloC_LineLoadState, kloC_WithDistribution<kloC_VectorState>> {
public:
  kloC_LineLoadState() = default;
  explicit kloC_LineLoadState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr kloC_ComponentTexts components() {
    return {{{"comp1", "force per length along axis 1", "force/length", true},
             {"comp2", "force per length along axis 2", "force/length", true},
             {"comp3", "force per length along axis 3", "force/length", false}}};
  }

  mdl_PropAttr<bool> useC1, useC3;  ///< false where the system has no such component
  mdl_PropAttr<omu_PrimEnum<kloC_LineSystemEnm, 1>> system;

  bool IsNonZero() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kloC_LineLoadState;
    kloC_VectorOf::VisitMembers(visit);
    visit("useC1", &Self::useC1, kloC_Value("whether component 1 is taken"));
    visit("useC3", &Self::useC3, kloC_Value("whether component 3 is taken"));
    visit("system", &Self::system, kloC_Value("whether the axes are the global ones or those of the beam section"));
    visit(distTypeCmd(), &Self::distType, distTypeText());
  }
};
/// Force along beams.
class DDB_API kloC_LineLoad final : public kprC_TypeOf<kloC_LineLoad, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using SystemEnm = kloC_LineSystemEnm;
};

class DDB_API kloC_BodyForceState final : public kloC_VectorOf<kloC_BodyForceState, kloC_WithDistribution<kloC_VectorState>> {
public:
  kloC_BodyForceState() = default;
  explicit kloC_BodyForceState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr kloC_ComponentTexts components() {
    return {{{"comp1", "force per volume along axis 1", "force/length^3", true},
             {"comp2", "force per volume along axis 2", "force/length^3", true},
             {"comp3", "force per volume along axis 3", "force/length^3", false}}};
  }

  /// Refuses 69 the distribution FIELD.
  void AssertValid() const override { kloC_Assert(!UsesField(), kloC_ErrorEnm::FieldsNotEnabled); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kloC_VectorOf::VisitMembers(visit);
    visit(distTypeCmd(), &kloC_BodyForceState::distType, distTypeText());
  }
};
/// Force on volumes.
class DDB_API kloC_BodyForce final : public kprC_TypeOf<kloC_BodyForce, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

class DDB_API kloC_GravityState final : public kloC_VectorOf<kloC_GravityState> {
public:
  using kloC_VectorOf::kloC_VectorOf;
  static constexpr kloC_ComponentTexts components() {
    return {{{"comp1", "acceleration along axis 1", "length/time^2", true},
             {"comp2", "acceleration along axis 2", "length/time^2", true},
             {"comp3", "acceleration along axis 3", "length/time^2", false}}};
  }

  /// Refuses 47 anything but component 2, the one along the axis, in axisymmetric space.
  void AssertInSpace(SpaceEnm space) const override;
};
/// Gravity.
class DDB_API kloC_Gravity final : public kprC_TypeOf<kloC_Gravity, kloC_Vector> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
