#pragma once

#include <iosfwd>
#include <span>
#include <string_view>

#include "command/Difference.h"
#include "report/RenderHistory.h"

namespace gattr {

/// A line for each object and each step in which two models differ: 'changed boundaryCondition Punch Draw-1 u2 -12 -> -13'.
void RenderText(std::ostream& out, std::span<ObjectDifference const> differences, TextLayout const& layout);
/// A list of {"change": "changed", "kind": ..., "name": ..., "members": [{"member": "u2", "before": -12.0, "now": -13.0}], "steps": [...]}.
void RenderJson(std::ostream& out, std::span<ObjectDifference const> differences);
/// A page that stands alone, without scripts: a line for each member. The title names both sides.
void RenderHtml(std::ostream& out, std::span<ObjectDifference const> differences, std::string_view before, std::string_view now);

/// A value as differences show it; "nothing" where there is none.
std::string SideText(cls_Value const& value);

}  // namespace gattr
