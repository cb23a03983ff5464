#pragma once

#include "module/kpr/steps/kprC_AnalysisStep.h"
#include "module/kpr/steps/kprC_StepGroups.h"

/// What a concrete step class needs beside its own parameters: persistence, its construction command, and a list of the base's
/// members that its row of the procedure table calls Member and of the groups of parameters that it has. A class with
/// parameters of its own lists them after these:
/// \code
///   class kprC_ViscoStep final : public kprC_ProcedureStep<kprC_ViscoStep, kprC_Incrementation, kprC_ContactIterations> {
///     template <class V> static constexpr void VisitMembers(V&& visit) {
///       kprC_ProcedureStep::VisitMembers(visit);
///       visit(cetolCmd(), &kprC_ViscoStep::cetol, cetolText());
///     }
///   };
/// \endcode
template <class Derived, class... Groups> class kprC_ProcedureStep : public cls_Persistent<Derived, kprC_AnalysisStep>, public Groups... {
  static constexpr kprC_ProcedureRow const& kRow = *kprC_FindProcedure(cls_TypeIdOf<Derived>::value);

public:
  static constexpr omn_FixedString constructorCmd() requires(kRow.label.Size() != 0) { return kRow.command; }

  void AssertValid() const override {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Base = kprC_AnalysisStep;
    using enum kprC_Answer;
    Base::VisitMembers(visit);
    if constexpr (kRow.period == Member) { visit(Base::timePeriodCmd(), &Base::timePeriod, Base::timePeriodText()); }
    if constexpr (kRow.nlgeom == Member) { visit(Base::nlgeomCmd(), &Base::nlgeom, Base::nlgeomText()); }
    if constexpr (kRow.solver == Member) { visit(Base::matrixSolverCmd(), &Base::matrixSolver, Base::matrixSolverText()); }
    if constexpr (kRow.convertSDI == Member) { visit(Base::convertSDICmd(), &Base::convertSDI, Base::convertSDIText()); }
    if constexpr (kRow.response == Member) { visit(Base::responseCmd(), &Base::response, Base::responseText()); }
    if constexpr (kRow.adiabatic == Member) { visit(Base::adiabaticCmd(), &Base::adiabatic, Base::adiabaticText()); }
    (Groups::VisitMembers(visit), ...);
  }
};
