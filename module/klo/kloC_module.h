#pragma once

#include "module/klo/kloC_Load.h"

/// Starts the module of loads: number 648 in the component table, an empty repository as the model's extension "loads", the
/// classes' metadata, the catalogue of refusals. Counted: only the first call works, and adds one to \p count.
DDB_API void kloC_initialize(int& count);
/// Mirrors kloC_initialize at the last call.
DDB_API void kloC_finalize(int& count);

// The texts of the types of a category that a step of \p procedureType admits, in the order of the table of types.
DDB_API cow_List<atr_String> kloC_getMechanicalLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getThermalLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getFluidLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getElectricalLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getMassDiffusionLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getAcousticLoadTypesforStep(unsigned procedureType);
DDB_API cow_List<atr_String> kloC_getOtherLoadTypesforStep(unsigned procedureType);
