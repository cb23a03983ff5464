#pragma once

#include "module/kpr/family/kprC_RefusingState.h"
#include "module/kpr/procedures/kprC_Procedures.h"

// procedures in whose steps an amplitude, a complex value or a magnitude means nothing or something
inline constexpr kprC_ProcedureSet kprC_noAmplitude = {kprC_ProcedureType::Buckle, kprC_ProcedureType::Frequency,
                                                       kprC_ProcedureType::StaticRiks, kprC_ProcedureType::StaticLinearPerturbation,
                                                       kprC_ProcedureType::ComplexFrequency};
inline constexpr kprC_ProcedureSet kprC_complex = {kprC_ProcedureType::SteadyStateDirect};
inline constexpr kprC_ProcedureSet kprC_noMagnitude = {kprC_ProcedureType::Frequency, kprC_ProcedureType::ComplexFrequency};

/// Base of the states of families whose values an amplitude may scale over a step. \p Assert raises the family's refusals.
template <auto Assert> class kprC_AmplitudeState : public kprC_RefusingState<Assert> {
public:
  static constexpr omn_FixedString amplitudeCmd() { return "amplitude"; }
  static constexpr omn_FixedString deactivateCmd() { return "deactivate"; }

  mdl_PropAttr<cow_String> amplitude;  ///< name of the amplitude that varies the values over the step

  /// False for the initial step and for buckle, frequency, static Riks, static linear perturbation and complex frequency.
  virtual bool UseAmplitude(unsigned procedureType) const { return procedureType != 0 && !kprC_noAmplitude.Contains(procedureType); }
  /// True for steady-state direct only.
  virtual bool UseComplex(unsigned procedureType) const { return kprC_complex.Contains(procedureType); }
  /// False for frequency and complex frequency.
  virtual bool UseMagnitude(unsigned procedureType) const { return !kprC_noMagnitude.Contains(procedureType); }
  /// Drops an amplitude that a step of \p procedureType has no use for.
  virtual void ChangeProcedureType(unsigned procedureType) {
    if (!UseAmplitude(procedureType)) { amplitude = mdl_PropAttributeStateEnm::Unset; }
  }
};
