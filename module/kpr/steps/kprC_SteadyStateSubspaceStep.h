#pragma once

#include "module/kpr/records/kprC_Factorization.h"
#include "module/kpr/records/kprC_FrequencyRange.h"
#include "module/kpr/steps/kprC_ProcedureStep.h"
#include "platform/BasicUtils/cls_xoList.h"

/// Where the system is projected onto the modes: at every frequency of a range, once in its middle, at its eigenfrequencies, at its
/// ends, or where stiffness or damping have changed by so much.
enum class kprC_ProjectionEnm { EVERY_FREQUENCY, RANGE_CENTER, EIGENFREQUENCIES, RANGE_ENDS, PROPERTY_CHANGE };
template <> struct omu_EnumTable<kprC_ProjectionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"EVERY_FREQUENCY", 0}, {"RANGE_CENTER", 1},    {"EIGENFREQUENCIES", 2},
                                                               {"RANGE_ENDS", 3},      {"PROPERTY_CHANGE", 4}, {nullptr, 0}};
};

/// Linear response to harmonic excitation at given frequencies, solved in the subspace of the modes of a frequency step.
class DDB_API kprC_SteadyStateSubspaceStep final : public kprC_ProcedureStep<kprC_SteadyStateSubspaceStep> {
public:
  using FactorizationEnm = kprC_FactorizationEnm;
  using ProjectionEnm = kprC_ProjectionEnm;
  using ScaleEnm = kprC_FrequencyScaleEnm;

  omu_PrimEnum<FactorizationEnm> factorization = FactorizationEnm::COMPLEX;
  cls_xo1DArrayList<kprC_SteadyStateSubspaceFrequency> frequencyRange;
  bool frictionDamping = false;
  double maxDampingChange = cls_unsetReal;
  double maxStiffnessChange = cls_unsetReal;
  omu_PrimEnum<ProjectionEnm> projection = ProjectionEnm::EVERY_FREQUENCY;
  omu_PrimEnum<ScaleEnm> scale = ScaleEnm::LOGARITHMIC;
  bool subdivideUsingEigenfrequencies = false;

  kprC_SteadyStateSubspaceStep();
  explicit kprC_SteadyStateSubspaceStep(cls_ReadVisitor const& in);

  /// Refuses: 42 no range of frequency; range by range 40 its ends, 39 its points, 41 its bias; 157, 158 a change of damping, of
  /// stiffness that is given and not above 0.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_ProcedureStep::VisitMembers(visit);
    visit(factorizationCmd(), &kprC_SteadyStateSubspaceStep::factorization, factorizationText());
    visit(frequencyRangeCmd(), &kprC_SteadyStateSubspaceStep::frequencyRange, frequencyRangeText());
    visit(frictionDampingCmd(), &kprC_SteadyStateSubspaceStep::frictionDamping, frictionDampingText());
    visit(maxDampingChangeCmd(), &kprC_SteadyStateSubspaceStep::maxDampingChange, maxDampingChangeText());
    visit(maxStiffnessChangeCmd(), &kprC_SteadyStateSubspaceStep::maxStiffnessChange, maxStiffnessChangeText());
    visit(projectionCmd(), &kprC_SteadyStateSubspaceStep::projection, projectionText());
    visit(scaleCmd(), &kprC_SteadyStateSubspaceStep::scale, scaleText());
    visit(subdivideUsingEigenfrequenciesCmd(), &kprC_SteadyStateSubspaceStep::subdivideUsingEigenfrequencies,
          subdivideUsingEigenfrequenciesText());
  }
};
