#pragma once

#include <array>

#include "module/kpr/engine/kprC_StepAttribute.h"
#include "module/kpr/procedures/kprC_Procedures.h"

/// What the families' rules say of procedures, as far as a family has nothing else to say.
struct kprC_ProcedureRules {
  /// A procedure is a perturbation procedure or a general one.
  static constexpr kprC_StepKind Kind(unsigned procedureType) {
    return kprC_perturbationProcedures.Contains(procedureType) ? kprC_StepKind::Perturbation : kprC_StepKind::General;
  }

  /// The procedures that nothing is moved into, in the order in which they are asked, each with its refusal. The last four
  /// are perturbation procedures and not reached behind the first.
  template <class Error> struct MoveRefusals {
    Error perturbation, anneal, modalDynamics, randomResponse, responseSpectrum, steadyStateModal;
  };
  template <class Error> static constexpr auto MoveTargets(MoveRefusals<Error> const& to) {
    return std::to_array<kprC_MoveTarget<kprC_ProcedureSet, Error>>({
        {kprC_perturbationProcedures, to.perturbation},
        {kprC_ProcedureType::Anneal, to.anneal},
        {kprC_ProcedureType::ModalDynamics, to.modalDynamics},
        {kprC_ProcedureType::RandomResponse, to.randomResponse},
        {kprC_ProcedureType::ResponseSpectrum, to.responseSpectrum},
        {kprC_ProcedureType::SteadyStateModal, to.steadyStateModal},
    });
  }
};
