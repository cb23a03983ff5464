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

  /// The operations of a family whose attributes are switched off, and moved.
  static constexpr auto Operations(std::span<kprC_Test const> deactivate, std::span<kprC_Test const> reset,
                                   std::span<kprC_Test const> move) {
    return std::to_array<kprC_Operation>({
        {"deactivate", "switches an attribute off from a step on", kprC_Effect::SwitchOff, deactivate},
        {"reset", "takes back a deactivation", kprC_Effect::TakeBack, reset},
        {"move", "moves what an attribute sets in one step to another", kprC_Effect::Move, move},
    });
  }

  /// The procedures that nothing is moved into, in the order in which they are asked, each with its refusal. The last four
  /// are perturbation procedures and not reached behind the first.
  template <class Error> struct MoveRefusals {
    Error perturbation, anneal, modalDynamics, randomResponse, responseSpectrum, steadyStateModal;
  };
  template <class Error> static constexpr auto MoveTargets(MoveRefusals<Error> const& to) {
    using Set = kprC_ProcedureSet;
    return std::to_array<kprC_MoveTarget>({
        {kprC_perturbationProcedures, to.perturbation},
        {Set(kprC_ProcedureType::Anneal), to.anneal},
        {Set(kprC_ProcedureType::ModalDynamics), to.modalDynamics},
        {Set(kprC_ProcedureType::RandomResponse), to.randomResponse},
        {Set(kprC_ProcedureType::ResponseSpectrum), to.responseSpectrum},
        {Set(kprC_ProcedureType::SteadyStateModal), to.steadyStateModal},
    });
  }
};
