#pragma once

#include <string>

#include "framework/Refusal.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/steps/kprC_Step.h"

// The way out of a refusal, in a sentence or two: what stands in the way, by its name, and what would do. Empty where there is
// nothing to say beyond the refusal itself.

namespace gattr {

/// Of an attribute in a step: what it is there. Empty for a step that it does not know.
std::string StatusHint(kprC_StepDependent const& item, cow_String const& step);
/// Of an attribute that is edited in a step in which it cannot be.
std::string NotEditableHint(kprC_StepDependent const& item, cow_String const& step);
/// Of an operation that was refused with \p code, before anything changed.
std::string OperationHint(kprC_StepAwareRepository const& repository, kprC_StepDependent const& item, kprC_Operation const& operation,
                          cow_String const& step, cow_String const& toStep, int code);
/// Of an attribute that is to stand in a step: where the type may be created instead. Empty where the step takes it.
std::string AdmissionHint(kprC_StepDependent const& item, kprC_StepTable const& steps, cow_String const& step);
/// Of what a command has \p said of an output request in such a step: the variable that is to blame, how often the step lets it write.
/// Empty for any other attribute or refusal.
std::string OutputHint(kprC_StepDependent const& item, kprC_Arguments const& said, kprC_StepFacts step, Refusal const& refused);
/// Of a member that was given a word instead of a value.
std::string WordHint(std::string_view word);
/// Of a step whose parameters are refused with the step module's \p code, alone or among \p steps.
std::string ParameterHint(kprC_Step const& step, kprC_StepTable const& steps, int code);
/// Of steps that may not stand as they do: the first that could not follow, and why.
std::string SequenceHint(kprC_StepTable const& steps);

}  // namespace gattr
