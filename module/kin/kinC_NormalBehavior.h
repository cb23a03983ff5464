#pragma once

#include "module/kin/Types.h"
#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// How pressure follows from overclosure.
enum class kinC_PressureOverclosureEnm { HARD, EXPONENTIAL, LINEAR, TABULAR, SCALE_FACTOR };
/// How contact is enforced.
enum class kinC_EnforcementMethodEnm { DEFAULT, AUGMENTED_LAGRANGE, PENALTY, DIRECT };
enum class kinC_StiffnessBehaviorEnm { LINEAR, NONLINEAR };

template <> struct omu_EnumTable<kinC_PressureOverclosureEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"HARD", 0},    {"EXPONENTIAL", 1},  {"LINEAR", 2},
                                                               {"TABULAR", 3}, {"SCALE_FACTOR", 4}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_EnforcementMethodEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"DEFAULT", 0}, {"AUGMENTED_LAGRANGE", 1}, {"PENALTY", 2}, {"DIRECT", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kinC_StiffnessBehaviorEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"LINEAR", 0}, {"NONLINEAR", 1}, {nullptr, 0}};
};

/// What surfaces in contact do to each other along their normal.
class DDB_API kinC_NormalBehavior final : public cls_Persistent<kinC_NormalBehavior, cls_Object> {
public:
  using PressureOverclosureEnm = kinC_PressureOverclosureEnm;
  using EnforcementMethodEnm = kinC_EnforcementMethodEnm;
  using StiffnessBehaviorEnm = kinC_StiffnessBehaviorEnm;

  omu_PrimEnum<PressureOverclosureEnm> pressureOverclosure = PressureOverclosureEnm::HARD;
  omu_PrimEnum<EnforcementMethodEnm> constraintEnforcementMethod = EnforcementMethodEnm::DEFAULT;
  omu_PrimEnum<StiffnessBehaviorEnm> stiffnessBehavior = StiffnessBehaviorEnm::LINEAR;
  bool allowSeparation = true;
  double contactStiffness = cls_unsetReal;
  double maxStiffness = cls_unsetReal;
  double clearanceAtZeroContactPressure = 0.0;
  double overclosureMeasure = 0.0;
  double overclosureFactor = 0.0;
  double contactStiffnessScaleFactor = 1.0;
  double initialStiffnessScaleFactor = 1.0;
  double stiffnessRatio = cls_unsetReal;
  double upperQuadraticFactor = cls_unsetReal;
  double lowerQuadraticRatio = cls_unsetReal;
  cow_2DArray<double> table;

  kinC_NormalBehavior();
  explicit kinC_NormalBehavior(cls_ReadVisitor const& in);

  /// Refuses, first by the kind of pressure-overclosure. EXPONENTIAL: 71 a first pressure that is not above 0, 72 the same of the last
  /// clearance, 86 a negative maximum stiffness. LINEAR: 87 a stiffness that is not above 0. TABULAR: 23 fewer than two rows, 24
  /// pressures that do not rise, 25 a first pressure that is not exactly 0. SCALE_FACTOR: 161 unless one of measure and factor is above 0
  /// and the other exactly 0, 162 a scale factor that is not above 1. Then: 113 an enforcement method with anything but HARD; with
  /// augmented Lagrange and penalty 88 a scale factor that is not above 0; always 87 a negative stiffness, 163 an initial scale factor
  /// that is not above 0, 166 a negative measure or factor, 165 a negative scale factor, 190 and 191 ratios outside of [0, 1).
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kinC_NormalBehavior;
    visit("pressureOverclosure", &Self::pressureOverclosure, cls_MemberText{"how pressure follows from overclosure"});
    visit("constraintEnforcementMethod", &Self::constraintEnforcementMethod,
          cls_MemberText{"how contact is enforced; any but the default with hard contact only"});
    visit("stiffnessBehavior", &Self::stiffnessBehavior, cls_MemberText{"whether the penalty stiffness is constant"});
    visit("allowSeparation", &Self::allowSeparation, cls_MemberText{"whether surfaces that have touched may part again"});
    visit("contactStiffness", &Self::contactStiffness,
          cls_MemberText{"slope of the linear law, or the penalty stiffness; the solver's where not given", "force/length^3"});
    visit("maxStiffness", &Self::maxStiffness,
          cls_MemberText{"where the exponential law ends in a straight line; no bound where not given", "force/length^3"});
    visit("clearanceAtZeroContactPressure", &Self::clearanceAtZeroContactPressure,
          cls_MemberText{"clearance at which the pressure becomes zero", "length"});
    visit("overclosureMeasure", &Self::overclosureMeasure,
          cls_MemberText{"overclosure after which the stiffness is scaled again, as a length", "length"});
    visit("overclosureFactor", &Self::overclosureFactor,
          cls_MemberText{"the same as a fraction of the smallest element; one of the two is given, the other 0"});
    visit("contactStiffnessScaleFactor", &Self::contactStiffnessScaleFactor, cls_MemberText{"factor on the contact stiffness"});
    visit("initialStiffnessScaleFactor", &Self::initialStiffnessScaleFactor, cls_MemberText{"factor on the first stiffness"});
    visit("stiffnessRatio", &Self::stiffnessRatio,
          cls_MemberText{"ratio of the first to the last stiffness of a nonlinear penalty; the solver's where not given"});
    visit("upperQuadraticFactor", &Self::upperQuadraticFactor,
          cls_MemberText{"overclosure at which the quadratic part ends, as a fraction of the size of an element"});
    visit("lowerQuadraticRatio", &Self::lowerQuadraticRatio,
          cls_MemberText{"where the quadratic part begins, as a fraction of where it ends; the solver's where not given"});
    visit("table", &Self::table,
          cls_MemberText{"rows of pressure and overclosure, or clearance with the exponential law", "force/length^2, length"});
  }
};
