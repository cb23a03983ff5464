#pragma once

#include "framework/mdl_PropAttr.h"
#include "module/kpr/steps/kprC_Step.h"
#include "module/kpr/steps/kprC_StepParameters.h"

/// Base of the steps that run a procedure. Answers every query from the procedure's row of kprC_ProcedureTable.def, and
/// holds the values that the row calls Member; the others keep their defaults and are not listed (kprC_ProcedureStep).
class DDB_API kprC_AnalysisStep : public cls_Persistent<kprC_AnalysisStep, kprC_Step>,
                                  public kprC_StepParameters,
                                  public kprC_AnalysisStepNames {
public:
  static constexpr omn_FixedString constructorCmd() { return "AnalysisStep"; }
  static constexpr omn_FixedString previousCmd() { return "previous"; }
  static constexpr omn_FixedString procedureCmd() { return "procedure"; }

  double timePeriod = 1.0;
  omu_PrimEnum<NlgeomEnm> nlgeom = NlgeomEnm::OFF;
  omu_PrimEnum<MatrixSolverEnm> matrixSolver = MatrixSolverEnm::DIRECT_SYMMETRIC;
  omu_PrimEnum<ConvertSDIEnm> convertSDI = ConvertSDIEnm::PROPAGATED;
  omu_PrimEnum<ResponseEnm> response = ResponseEnm::TRANSIENT;
  bool adiabatic = false;

  unsigned ProcedureType() const override { return DynTypeId(); }
  using kprC_Step::Perturbation;
  bool Perturbation() const override { return Row().perturbation == kprC_Answer::Yes; }
  bool IsAdiabatic() const override { return Row().adiabatic == kprC_Answer::Member && adiabatic; }
  bool AllowLoadCases() const override { return Row().loadCases == kprC_Answer::Yes; }
  bool AllowAdaptiveMeshDomains() const override { return Row().adaptiveMesh == kprC_Answer::Yes; }
  bool Nonmechanical() const override { return Row().nonmechanical == kprC_Answer::Yes; }
  bool Explicit() const override { return Row().isExplicit == kprC_Answer::Yes; }
  ResponseEnm Response() const override;
  double TimePeriod() const override;
  NlgeomEnm Nlgeom() const override;
  /// Whether iterations with severe discontinuities count towards convergence; off where the procedure has none.
  virtual ConvertSDIEnm ConvertSDI() const;

  template <class V> static constexpr void VisitMembers(V&& visit) { kprC_Step::VisitMembers(visit); }

private:
  kprC_ProcedureRow const& Row() const { return *kprC_FindProcedure(DynTypeId()); }
};
