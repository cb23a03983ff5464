#pragma once

#include "module/kpr/steps/kprC_ProcedureStep.h"

/// Loads at which a structure loses its stability, and the shapes in which it does, from the linearized problem about
/// the base state.
class DDB_API kprC_BuckleStep final : public kprC_ProcedureStep<kprC_BuckleStep, kprC_EigenRange, kprC_EigenExtraction> {
public:
  kprC_BuckleStep();
  explicit kprC_BuckleStep(cls_ReadVisitor const& in);

  /// Refuses: 2 number of eigenvalues; 1 largest eigenvalue; 3 number of vectors; 4 number of iterations; 84 block size; 85
  /// number of blocks; 83 smallest eigenvalue; 86 the multi-level eigensolver. What is not given is the solver's choice and passes.
  void AssertValid() const override;
};
