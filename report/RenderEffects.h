#pragma once

#include <iosfwd>

#include "command/Session.h"
#include "report/RenderHistory.h"
#include "text/Json.h"

namespace gattr {

/// How a change is shown.
Style StyleOf(ChangeKind change);

/// What edits have come to, or would: a line for each object, then one for each run of steps with another status.
void RenderText(std::ostream& out, Effects const& effects, TextLayout const& layout);
/// {"objects": [{"change": "changed", "kind": ..., "name": ..., "steps": [...]}], "statuses": [{"kind": ..., "name": ..., "firstStep": ...,
/// "lastStep": ..., "before": 2, "after": 4}]}; null where there is no such step.
Json ToJson(Effects const& effects);

/// What became of a command: {"ok": true, "history": {...}, "changed": false, "report": ..., "effects": ...}, or {"ok": false,
/// "refused": {...}}; the members that a command has nothing to tell of are left out.
Json ToJson(Outcome const& outcome);

}  // namespace gattr
