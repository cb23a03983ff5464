#pragma once

#include "module/kpr/Types.h"
#include "module/kpr/engine/kprC_Procedure.h"
#include "module/kpr/kprC_Names.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/CaeUtils/omu_PrimEnum.h"

/// A step of the analysis: the initial step, which stands for the base state, or one that runs a procedure.
class DDB_API kprC_Step : public cls_Persistent<kprC_Step, kprC_Procedure>, public kprC_StepNames {
public:
  enum class NlgeomEnm { OFF, ON, NOT_AVAILABLE };
  enum class ResponseEnm { STEADY_STATE, TRANSIENT, NOT_APPLICABLE };
  enum class SolutionTechniqueEnm { FULL_NEWTON, SEPARATED, CONTACT_ITERATIONS, QUASI_NEWTON };
  enum class ReplacementPolicyEnm { DO_NOT_REPLACE, SUBSTITUTE, DELETE, SUBSTITUTE_DELETE };
  enum class AmplitudeEnm { STEP, RAMP };
  enum class ExtrapolationEnm { LINEAR, PARABOLIC, NONE };
  enum class MatrixSolverEnm { DIRECT_SYMMETRIC, DIRECT_UNSYMMETRIC, SOLVER_DEFAULT, DDM_ITERATIVE, SYMMETRIC, UNSYMMETRIC };
  enum class ConvertSDIEnm { CONVERT_SDI_OFF, CONVERT_SDI_ON, PROPAGATED };
  enum class DefaultEnm { DEFAULT };
  enum class EigensolverEnm { SUBSPACE, LANCZOS, AMS };
  enum class TimeIncrementationMethodEnm { AUTOMATIC, FIXED };

  static constexpr omn_FixedString initialCmd() { return "Initial"; }  ///< also the name of the initial step
  static constexpr omn_FixedString stepCmd() { return "step"; }
  static constexpr omn_FixedString stepRepositoryCmd() { return "steps"; }
  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString descriptionCmd() { return "description"; }
  static constexpr omn_FixedString maintainAttributesCmd() { return "maintainAttributes"; }
  static constexpr omn_FixedString replacementPolicyCmd() { return "replacementPolicy"; }

  // How nlgeom is shown to a person; the third differs from the enumeration's own text.
  static constexpr omn_FixedString NLGEOM_ON() { return "ON"; }
  static constexpr omn_FixedString NLGEOM_OFF() { return "OFF"; }
  static constexpr omn_FixedString NLGEOM_NA() { return "N/A"; }

  /// Whether a procedure type is a linear perturbation procedure. False for what is no procedure type.
  static constexpr bool Perturbation(unsigned procedureType) { return kprC_perturbationProcedures.Contains(procedureType); }

  cow_String description;

  bool Perturbation() const override = 0;
  /// Whether the step runs an adiabatic stress analysis.
  virtual bool IsAdiabatic() const = 0;
  /// Whether the step may define load cases.
  virtual bool AllowLoadCases() const = 0;
  /// Whether adaptive mesh domains may be active in the step.
  virtual bool AllowAdaptiveMeshDomains() const = 0;
  /// Whether the procedure has no displacement degrees of freedom.
  virtual bool Nonmechanical() const = 0;
  /// Whether the procedure is integrated explicitly in time.
  virtual bool Explicit() const = 0;
  virtual ResponseEnm Response() const = 0;
  std::uint8_t Traits() const override;
  /// The step's duration; 0 for a step that takes no time.
  virtual double TimePeriod() const = 0;
  virtual NlgeomEnm Nlgeom() const = 0;
  /// Checks the parameters and raises the first refusal (kprC_Assert). Changes nothing.
  virtual void AssertValid() const = 0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(descriptionCmd(), &kprC_Step::description, cls_MemberText{"free text about the step"}.Later());
  }

protected:
  /// Raises the numbered refusal that the member's text names, where it names one.
  [[noreturn]] void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const override;
};

template <> struct omu_EnumTable<kprC_Step::NlgeomEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"OFF", 0}, {"ON", 1}, {"NOT_AVAILABLE", 2}, {nullptr, 0}};
  static constexpr std::size_t kChoices = 2;
};
template <> struct omu_EnumTable<kprC_Step::ResponseEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"STEADY_STATE", 0}, {"TRANSIENT", 1}, {"NOT_APPLICABLE", 2}, {nullptr, 0}};
  static constexpr std::size_t kChoices = 2;
};
template <> struct omu_EnumTable<kprC_Step::SolutionTechniqueEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"FULL_NEWTON", 0}, {"SEPARATED", 1}, {"CONTACT_ITERATIONS", 2}, {"QUASI_NEWTON", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::ReplacementPolicyEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"DO_NOT_REPLACE", 0}, {"SUBSTITUTE", 1}, {"DELETE", 2}, {"SUBSTITUTE_DELETE", 3}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::AmplitudeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"STEP", 0}, {"RAMP", 1}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::ExtrapolationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"LINEAR", 0}, {"PARABOLIC", 1}, {"NONE", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::MatrixSolverEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"DIRECT_SYMMETRIC", 0}, {"DIRECT_UNSYMMETRIC", 1}, {"SOLVER_DEFAULT", 2}, {"DDM_ITERATIVE", 3},
      {"SYMMETRIC", 4},        {"UNSYMMETRIC", 5},        {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::ConvertSDIEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"CONVERT_SDI_OFF", 0}, {"CONVERT_SDI_ON", 1}, {"PROPAGATED", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::DefaultEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::EigensolverEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"SUBSPACE", 0}, {"LANCZOS", 1}, {"AMS", 2}, {nullptr, 0}};
};
template <> struct omu_EnumTable<kprC_Step::TimeIncrementationMethodEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"AUTOMATIC", 0}, {"FIXED", 1}, {nullptr, 0}};
};

/// A step, shared until it is changed. A handle that changes a step that others hold gives it an identity of its own
/// with NewUid().
using kprC_StepHandle = cow_Handle<kprC_Step>;
