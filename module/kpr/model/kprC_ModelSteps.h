#pragma once

#include <string_view>

#include "framework/ddr_Model.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/model/kprC_StepContainer.h"

/// The steps of a model, edited so that everything that depends on them follows. Each edit checks the step's parameters,
/// asks the sequencer, changes the container and hands the new sequence to every repository of step-dependent attributes,
/// which form all histories anew. Done whole or not at all: a refusal, an attribute's too, leaves the model and the change
/// history as they were. Linear in the steps and in the attributes.
///
/// Refusals beside those of kprC_StepContainer: what the step's AssertValid refuses, 50 for a procedure that may not stand
/// there, 53 when a general step would turn nlgeom off after an earlier one had it on, then what the attributes refuse.
DDB_API kprC_StepContainer const& kprC_Steps(ddr_Model const& model);
/// Inserts \p step behind the step called \p previous. \p following is told whose refusal passes.
DDB_API void kprC_InsertStep(ddr_Model& model, cow_String const& previous, cow_String const& name, kprC_StepHandle const& step,
                             kprC_StepAwareRepository::Following const& following = {});
/// Removes a step; attributes that were created in it go with it.
DDB_API void kprC_RemoveStep(ddr_Model& model, cow_String const& name, kprC_StepAwareRepository::Following const& following = {});
DDB_API void kprC_RenameStep(ddr_Model& model, cow_String const& name, cow_String const& newName);
/// Puts \p step in the place of the step called \p name. With another procedure what attributes say in the step is dropped,
/// and one that was created there is refused; those that \p following says keep what they say. The initial step
/// takes another initial step alone, which may differ in its description.
DDB_API void kprC_ReplaceStep(ddr_Model& model, cow_String const& name, kprC_StepHandle const& step,
                              kprC_StepAwareRepository::Following const& following = {});
/// Hands the model's sequence to every repository again; \p following as above.
DDB_API void kprC_UpdateRepositories(ddr_Model& model, kprC_StepAwareRepository::Following const& following = {});
