#pragma once

#include <string_view>

#include "module/kpr/steps/kprC_AnnealStep.h"
#include "module/kpr/steps/kprC_BuckleStep.h"
#include "module/kpr/steps/kprC_ComplexFrequencyStep.h"
#include "module/kpr/steps/kprC_CoupledTempDisplacementStep.h"
#include "module/kpr/steps/kprC_CoupledThermalElectricStep.h"
#include "module/kpr/steps/kprC_ExplicitDynamicsStep.h"
#include "module/kpr/steps/kprC_FrequencyStep.h"
#include "module/kpr/steps/kprC_GeostaticStep.h"
#include "module/kpr/steps/kprC_HeatTransferStep.h"
#include "module/kpr/steps/kprC_ImplicitDynamicsStep.h"
#include "module/kpr/steps/kprC_InitialStep.h"
#include "module/kpr/steps/kprC_MassDiffusionStep.h"
#include "module/kpr/steps/kprC_ModalDynamicsStep.h"
#include "module/kpr/steps/kprC_RandomResponseStep.h"
#include "module/kpr/steps/kprC_ResponseSpectrumStep.h"
#include "module/kpr/steps/kprC_SoilsStep.h"
#include "module/kpr/steps/kprC_StaticLinearPerturbationStep.h"
#include "module/kpr/steps/kprC_StaticRiksStep.h"
#include "module/kpr/steps/kprC_StaticStep.h"
#include "module/kpr/steps/kprC_SteadyStateDirectStep.h"
#include "module/kpr/steps/kprC_SteadyStateModalStep.h"
#include "module/kpr/steps/kprC_SteadyStateSubspaceStep.h"
#include "module/kpr/steps/kprC_SubspaceDynamicsStep.h"
#include "module/kpr/steps/kprC_SubstructureGenerateStep.h"
#include "module/kpr/steps/kprC_TempDisplacementDynamicsStep.h"
#include "module/kpr/steps/kprC_UsaAddedMassGenerationStep.h"
#include "module/kpr/steps/kprC_ViscoStep.h"

/// A step of the procedure type with its default parameters; the initial step for its own type, null for any other number.
DDB_API kprC_StepHandle kprC_MakeStep(unsigned procedureType);
/// A step by its construction command ("StaticStep"); null for a text that is none.
DDB_API kprC_StepHandle kprC_ConstructStep(std::string_view constructorCmd);
/// Hands the metadata of all step classes that have a procedure to the registrar.
void kprC_DescribeSteps();
