#pragma once

#include "module/kpf/kpfC_GeneralFieldBase.h"

// What a material has gone through before the analysis begins.

/// Per-step state of a hardening.
class DDB_API kpfC_HardeningState final : public kprC_StateOf<kpfC_HardeningState, kpfC_FieldState> {
public:
  kpfC_HardeningState() = default;
  explicit kpfC_HardeningState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> equivPlasticStrain;

  /// Refuses 63 a plastic strain unless uniform, 64 none where it is.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kpfC_FieldState::VisitMembers(visit);
    visit("equivPlasticStrain", &kpfC_HardeningState::equivPlasticStrain, cls_MemberText{"equivalent plastic strain at the beginning"});
  }
};

/// How far a material has hardened.
class DDB_API kpfC_Hardening final : public kprC_TypeOf<kpfC_Hardening, kpfC_Field> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

/// Per-step state of state-dependent variables.
class DDB_API kpfC_SDVState final : public kprC_StateOf<kpfC_SDVState, kpfC_FieldState> {
public:
  kpfC_SDVState() = default;
  explicit kpfC_SDVState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<kpfC_Magnitudes> magnitudes;

  /// Refuses 65 values unless uniform, 66 none where it is.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kpfC_FieldState::VisitMembers(visit);
    visit("magnitudes", &kpfC_SDVState::magnitudes, cls_MemberText{"the variables in the order of their numbers", "of the variables"});
  }
};

/// Variables that user subroutines keep from increment to increment.
class DDB_API kpfC_SDV final : public kprC_TypeOf<kpfC_SDV, kpfC_Field> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
