#pragma once

#include "module/kpr/steps/kprC_Step.h"

/// The first step of every sequence, called "Initial": the base state, without a procedure of its own.
class DDB_API kprC_InitialStep final : public cls_Persistent<kprC_InitialStep, kprC_Step> {
public:
  kprC_InitialStep();
  explicit kprC_InitialStep(cls_ReadVisitor const& in);

  unsigned ProcedureType() const override { return TypeId(); }
  bool Perturbation() const override { return false; }
  bool IsAdiabatic() const override { return false; }
  bool AllowLoadCases() const override { return false; }
  bool AllowAdaptiveMeshDomains() const override { return false; }
  bool Nonmechanical() const override { return false; }
  bool Explicit() const override { return false; }
  ResponseEnm Response() const override { return ResponseEnm::NOT_APPLICABLE; }
  double TimePeriod() const override { return 0.0; }
  NlgeomEnm Nlgeom() const override { return NlgeomEnm::OFF; }
  void AssertValid() const override {}

  template <class V> static constexpr void VisitMembers(V&& visit) { kprC_Step::VisitMembers(visit); }
};
