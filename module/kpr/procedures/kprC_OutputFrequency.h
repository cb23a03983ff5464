#pragma once

#include "module/kpr/procedures/kprC_Procedures.h"

// In which ways output requests of a step may say how often they write. A history request is told by \p history; the other is a field
// request.

/// Procedures whose increments are found by iterations, over a time: every way but by modes.
inline constexpr kprC_ProcedureSet kprC_timedOutput = {kprC_ProcedureType::Static,        kprC_ProcedureType::Visco,
                                                       kprC_ProcedureType::Soils,         kprC_ProcedureType::ImplicitDynamics,
                                                       kprC_ProcedureType::HeatTransfer,  kprC_ProcedureType::CoupledTempDisplacement,
                                                       kprC_ProcedureType::MassDiffusion, kprC_ProcedureType::CoupledThermalElectric};
/// Those that count increments or load cases, whatever the time.
inline constexpr kprC_ProcedureSet kprC_countedOutput = {
    kprC_ProcedureType::Geostatic,        kprC_ProcedureType::StaticRiks,          kprC_ProcedureType::StaticLinearPerturbation,
    kprC_ProcedureType::ModalDynamics,    kprC_ProcedureType::SubspaceDynamics,    kprC_ProcedureType::SteadyStateDirect,
    kprC_ProcedureType::SteadyStateModal, kprC_ProcedureType::SteadyStateSubspace, kprC_ProcedureType::RandomResponse,
    kprC_ProcedureType::ResponseSpectrum};
/// Those that give modes.
inline constexpr kprC_ProcedureSet kprC_modalOutput = {kprC_ProcedureType::Frequency, kprC_ProcedureType::Buckle,
                                                       kprC_ProcedureType::ComplexFrequency};
/// Those in small explicit increments; an anneal step writes nothing.
inline constexpr kprC_ProcedureSet kprC_explicitOutput = {kprC_ProcedureType::ExplicitDynamics,
                                                          kprC_ProcedureType::TempDisplacementDynamics};
/// All that write anything.
inline constexpr kprC_ProcedureSet kprC_anyOutput = kprC_timedOutput | kprC_countedOutput | kprC_modalOutput | kprC_explicitOutput;
/// Those whose modes have no history.
inline constexpr kprC_ProcedureSet kprC_noHistoryOutput = {kprC_ProcedureType::Frequency, kprC_ProcedureType::Buckle};

/// Whether a request may write every so many increments.
constexpr bool kprC_OutputFrequencyIsAllowed(unsigned procedureType, bool history) {
  return (kprC_timedOutput | kprC_countedOutput).Contains(procedureType) || (history && kprC_explicitOutput.Contains(procedureType));
}
/// Whether it may write at equal parts of the step's time: not where the response is steady state.
constexpr bool kprC_NumberIntervalIsAllowed(kprC_StepFacts step) {
  bool const timed = kprC_timedOutput.Contains(step.procedureType) && !step.Has(kprC_StepFacts::SteadyState);
  return timed || kprC_explicitOutput.Contains(step.procedureType);
}
inline bool kprC_NumberIntervalIsAllowed(kprC_Procedure const& step) { return kprC_NumberIntervalIsAllowed(kprC_StepFacts(&step)); }
/// Whether it may write in intervals of time.
constexpr bool kprC_TimeIntervalIsAllowed(unsigned procedureType) {
  return (kprC_timedOutput | kprC_explicitOutput).Contains(procedureType);
}
/// Whether it may name modes.
constexpr bool kprC_ModesIsAllowed(unsigned procedureType) { return kprC_modalOutput.Contains(procedureType); }
/// Whether it may name points of time.
constexpr bool kprC_TimePointIsAllowed(unsigned procedureType, bool history) {
  return kprC_timedOutput.Contains(procedureType) || (!history && kprC_explicitOutput.Contains(procedureType));
}
/// Whether it may ask for the exact times, to which the increments are then fitted.
constexpr bool kprC_TimeMarksIsAllowed(unsigned procedureType, bool history) { return kprC_TimePointIsAllowed(procedureType, history); }
