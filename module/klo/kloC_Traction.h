#pragma once

#include "module/klo/kloC_Point.h"
#include "module/klo/kloC_Scalar.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"

// Tractions on surfaces and shell edges, and their states.

/// An axis of a coordinate system.
enum class kloC_TractionAxisEnm { AXIS_1, AXIS_2, AXIS_3 };
template <> struct omu_EnumTable<kloC_TractionAxisEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"AXIS_1", 0}, {"AXIS_2", 1}, {"AXIS_3", 2}, {nullptr, 0}};
};
/// Kinds of traction on a surface.
enum class kloC_SurfaceTractionEnm { SHEAR, GENERAL };
template <> struct omu_EnumTable<kloC_SurfaceTractionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"SHEAR", 0}, {"GENERAL", 1}, {nullptr, 0}};
};
/// Kinds of traction on the edge of a shell.
enum class kloC_ShellEdgeLoadTractionEnm { NORMAL, TRANSVERSE, SHEAR, MOMENT, GENERAL };
template <> struct omu_EnumTable<kloC_ShellEdgeLoadTractionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"NORMAL", 0}, {"TRANSVERSE", 1}, {"SHEAR", 2},
                                                               {"MOMENT", 3}, {"GENERAL", 4},    {nullptr, 0}};
};

/// Per-step state of a traction. Types say what the kinds of traction are.
class DDB_API kloC_TractionState : public kprC_StateOf<kloC_TractionState, kloC_WithDistribution<kloC_ScalarState>> {
public:
  static constexpr omn_FixedString tractionCmd() { return "traction"; }

  kloC_TractionState() = default;
  explicit kloC_TractionState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<dtmC_DatumRef> csys;
  mdl_PropAttr<cow_String> userCsys;
  mdl_PropAttr<double> angle;  ///< degrees
  mdl_PropAttr<omu_PrimEnum<kloC_TractionAxisEnm, 1>> axis;
  mdl_PropAttr<cow_2DArray<double>> directionVector;  ///< the points from which and to which it runs; its length says nothing
  mdl_PropAttr<bool> follower;
  mdl_PropAttr<bool> resultant;

  /// The direction vector; along axis 1 where none is given. Refuses 10 anything but two points.
  kloC_Coordinates Direction() const;
  /// Refuses, in this order: 65 a direction vector without length, 67 no follower unless the traction is general, 66 a
  /// coordinate system both picked and defined by the user.
  void AssertValid() const override;
  /// Refuses 11 a direction out of the plane in two dimensions.
  void AssertInSpace(SpaceEnm space) const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    using Self = kloC_TractionState;
    kloC_ScalarState::VisitFor<Type>(visit);
    visit("csys", &Self::csys,
          cls_MemberText{"picked coordinate system of the direction; empty for the global one"}.RefersTo(cls_Reference::CoordinateSystem));
    visit("userCsys", &Self::userCsys, cls_MemberText{"name of a coordinate system that the user defines, in place of a picked one"});
    visit("angle", &Self::angle, kloC_Value("by how much the coordinate system is turned", "degrees"));
    visit("axis", &Self::axis, kloC_Value("the axis about which the coordinate system is turned"));
    visit("directionVector", &Self::directionVector,
          kloC_Value("the direction, as the points from which and to which it runs; axis 1 where none is given", "length"));
    visit("follower", &Self::follower, kloC_Value("whether the direction follows the rotation of the surface"));
    visit("resultant", &Self::resultant, kloC_Value("whether the magnitude is that of the resultant over the undeformed region"));
    visit(distTypeCmd(), &Self::distType, distTypeText());
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kloC_TractionState>(visit); }

private:
  /// Whether the traction has a direction of its own.
  virtual bool IsGeneral() const { return false; }
};

/// Base of the tractions.
class DDB_API kloC_Traction : public cls_Persistent<kloC_Traction, kloC_Load> {
public:
  using AxisEnm = kloC_TractionAxisEnm;

  template <class V> static constexpr void VisitMembers(V&& visit) { kloC_Load::VisitMembers(visit); }
};

class DDB_API kloC_SurfaceTractionState final : public kprC_StateOf<kloC_SurfaceTractionState, kloC_TractionState> {
public:
  kloC_SurfaceTractionState() = default;
  explicit kloC_SurfaceTractionState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("traction on the surface", "force/length^2"); }

  mdl_PropAttr<omu_PrimEnum<kloC_SurfaceTractionEnm, 1>> traction;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_StateOf::VisitMembers(visit);
    visit(tractionCmd(), &kloC_SurfaceTractionState::traction,
          kloC_Value("along the direction as given, or as the surface's tangent takes it"));
  }

private:
  bool IsGeneral() const override { return traction == kloC_SurfaceTractionEnm::GENERAL; }
};
/// Traction on surfaces.
class DDB_API kloC_SurfaceTraction final : public kprC_TypeOf<kloC_SurfaceTraction, kloC_Traction> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using SurfaceTractionEnm = kloC_SurfaceTractionEnm;
};

class DDB_API kloC_ShellEdgeLoadState final : public kprC_StateOf<kloC_ShellEdgeLoadState, kloC_TractionState> {
public:
  kloC_ShellEdgeLoadState() = default;
  explicit kloC_ShellEdgeLoadState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("traction along the edge", "force/length, or force for a moment"); }

  mdl_PropAttr<omu_PrimEnum<kloC_ShellEdgeLoadTractionEnm, 1>> traction;

  /// The kind of traction has two names, that which tractions have and the type's own.
  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_StateOf::VisitMembers(visit);
    visit(tractionCmd(), &kloC_ShellEdgeLoadState::traction,
          kloC_Value("the edge's direction along which the traction acts, or its own").Later());
    visit("direction", &kloC_ShellEdgeLoadState::traction, kloC_Value("the same"));
  }

private:
  bool IsGeneral() const override { return traction == kloC_ShellEdgeLoadTractionEnm::GENERAL; }
};
/// Traction on the edges of shells.
class DDB_API kloC_ShellEdgeLoad final : public kprC_TypeOf<kloC_ShellEdgeLoad, kloC_Traction> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using ShellEdgeLoadTractionEnm = kloC_ShellEdgeLoadTractionEnm;
};
