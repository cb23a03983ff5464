#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "module/kpr/engine/kprC_StepTable.h"
#include "module/kpr/steps/kprC_Steps.h"

/// Step sequences written as letters: I initial, G static general, E implicit dynamics, X explicit dynamics, A anneal,
/// T coupled temperature-displacement, H heat transfer, P static linear perturbation, F frequency, M modal dynamics,
/// C complex frequency, S subspace dynamics, U steady-state subspace, O soils, D mass diffusion, V coupled thermal-electric. The steps are
/// called Initial, S1, S2 and so on.
namespace test {

inline cow_Handle<kprC_Step> StepOf(char letter) {
  switch (letter) {
    case 'I': return cow_Handle<kprC_InitialStep>::Make();
    case 'G': return cow_Handle<kprC_StaticStep>::Make();
    case 'E': return cow_Handle<kprC_ImplicitDynamicsStep>::Make();
    case 'X': return cow_Handle<kprC_ExplicitDynamicsStep>::Make();
    case 'A': return cow_Handle<kprC_AnnealStep>::Make();
    case 'T': return cow_Handle<kprC_CoupledTempDisplacementStep>::Make();
    case 'H': return cow_Handle<kprC_HeatTransferStep>::Make();
    case 'P': return cow_Handle<kprC_StaticLinearPerturbationStep>::Make();
    case 'F': return cow_Handle<kprC_FrequencyStep>::Make();
    case 'M': return cow_Handle<kprC_ModalDynamicsStep>::Make();
    case 'C': return cow_Handle<kprC_ComplexFrequencyStep>::Make();
    case 'S': return cow_Handle<kprC_SubspaceDynamicsStep>::Make();
    case 'U': return cow_Handle<kprC_SteadyStateSubspaceStep>::Make();
    case 'O': return cow_Handle<kprC_SoilsStep>::Make();
    case 'D': return cow_Handle<kprC_MassDiffusionStep>::Make();
    case 'V': return cow_Handle<kprC_CoupledThermalElectricStep>::Make();
    default: throw std::invalid_argument(std::string("no step has the letter ") + letter);
  }
}

inline kprC_StepSequence StepsOf(std::string_view letters) {
  kprC_StepSequence steps;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    std::string const name = i == 0 ? "Initial" : "S" + std::to_string(i);
    steps.Append(kprC_StepNameProcedurePair(cow_String(name), StepOf(letters[i])));
  }
  return steps;
}

/// A procedure by its command, in the scripts of random edits.
inline std::string NameOfProcedure(unsigned type) { return type == 0 ? "Initial" : std::string(kprC_FindProcedure(type)->command.View()); }
inline kprC_StepNameProcedurePair NamedStep(std::string const& name, unsigned procedureType) {
  return {cow_String(name), kprC_MakeStep(procedureType == 0 ? kprC_InitialStep::TypeId() : procedureType)};
}

}  // namespace test
