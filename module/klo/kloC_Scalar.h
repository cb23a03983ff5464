#pragma once

#include "module/klo/kloC_Load.h"
#include "module/kpr/family/kprC_Prescribed.h"

/// What a distribution adds to a state: the member "distType", and what follows from it. \p Enum has at least the
/// enumerators USER_DEFINED and FIELD.
template <class Base, class Enum = kprC_DistributionEnm> class kloC_WithDistribution : public Base {
public:
  static constexpr omn_FixedString distTypeCmd() { return "distType"; }
  static constexpr cls_MemberText distTypeText() { return kloC_Value("how the load varies over the region"); }

  mdl_PropAttr<omu_PrimEnum<Enum, 1>> distType;

  bool IsUserDefined() const override { return distType == Enum::USER_DEFINED; }
  bool UsesField() const override { return distType == Enum::FIELD; }
};

/// Per-step state of a load that is one value, real or complex. Types give its meaning and unit as value().
class DDB_API kloC_ScalarState : public kprC_StateOf<kloC_ScalarState, kloC_LoadState> {
public:
  kloC_ScalarState() = default;
  explicit kloC_ScalarState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("the value", "of the quantity"); }

  mdl_PropAttr<double> magnitude;
  mdl_PropAttr<bool> useComplex;  ///< the complex magnitude is taken
  mdl_PropAttr<double> complexMagReal, complexMagImag;

  bool IsNonZero() const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    using Self = kloC_ScalarState;
    kloC_LoadState::VisitMembers(visit);
    visit("magnitude", &Self::magnitude, Type::value());
    visit("useComplex", &Self::useComplex, kloC_Value("whether the complex magnitude is taken in place of the real one"));
    visit("complexMagReal", &Self::complexMagReal, kloC_Value("real part of the complex magnitude", Type::value().unit));
    visit("complexMagImag", &Self::complexMagImag, kloC_Value("imaginary part of the complex magnitude", Type::value().unit));
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kloC_ScalarState>(visit); }
};

/// Base of the loads that are one value.
class DDB_API kloC_Scalar : public cls_Persistent<kloC_Scalar, kloC_Load> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kloC_Load::VisitMembers(visit); }
};

/// Per-step state of a load that is one value spread over its region. Types give its meaning and unit as value().
class DDB_API kloC_DistributedState : public kprC_StateOf<kloC_DistributedState, kloC_WithDistribution<kloC_LoadState>> {
public:
  kloC_DistributedState() = default;
  explicit kloC_DistributedState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("the value", "of the quantity"); }

  mdl_PropAttr<double> magnitude;

  bool IsNonZero() const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    kloC_LoadState::VisitMembers(visit);
    visit("magnitude", &kloC_DistributedState::magnitude, Type::value());
    visit(distTypeCmd(), &kloC_DistributedState::distType, distTypeText());
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kloC_DistributedState>(visit); }
};

/// Base of the loads that are one value spread over their region.
class DDB_API kloC_Distributed : public cls_Persistent<kloC_Distributed, kloC_Load> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kloC_Load::VisitMembers(visit); }
};

/// Whether any of the values is in force and not zero.
template <class... Values> bool kloC_AnyNonZero(Values const&... values) {
  return ((values.HasValue() && values.ConstGet() != 0.0) || ...);
}
