#pragma once

#include <iosfwd>

#include "command/Explain.h"
#include "command/InForce.h"
#include "report/StepGrid.h"

namespace gattr {

// With a time that is not null, values are those that amplitudes make of them then.

/// The members of an attribute by steps: what a step says itself is marked, what it carries tells the step that said it.
void RenderMembers(std::ostream& out, FoundAttribute const& attribute, TextLayout const& layout, AtTime const* at = nullptr);
/// A line per step and member: step, status, member, value, standing, own, from.
void RenderMembersCsv(std::ostream& out, FoundAttribute const& attribute, AtTime const* at = nullptr);

/// Why an attribute, or a member of it, is what it is in a step: in a sentence, and what its members are there.
void RenderExplanation(std::ostream& out, Explanation const& explanation, kprC_StepTable const& steps, TextLayout const& layout);

/// What is in force, a table per step. Writes each step as soon as it is told.
void RenderInForce(std::ostream& out, InForce walk, TextLayout const& layout, AtTime const* at = nullptr);

}  // namespace gattr
