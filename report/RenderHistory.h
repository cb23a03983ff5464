#pragma once

#include <iosfwd>

#include "command/HistoryTable.h"
#include "report/Display.h"
#include "report/StepGrid.h"

namespace gattr {

/// How a status is shown.
Style StyleOf(mdl_PropagationStatusEnm status);
/// What a page calls that style.
std::string_view CssClass(Style style);

/// Status words, or what members are (HistoryFilter::values), under the steps' names and procedures.
void RenderText(std::ostream& out, HistoryTable const& table, TextLayout const& layout);
/// A sign per step, ten to a group, under the steps' numbers; and what the signs mean.
void RenderCompact(std::ostream& out, HistoryTable const& table, TextLayout const& layout);
/// A line for each run of neighbouring steps in which an attribute has one status.
void RenderRanges(std::ostream& out, HistoryTable const& table, TextLayout const& layout);
/// A line for each step in which an attribute says something of its own, and what (HistoryFilter::changes).
void RenderChanges(std::ostream& out, HistoryTable const& table, TextLayout const& layout);
/// A line per attribute: name, kind, type, suppressed, then the status word in every step; "not created" before creation. Where
/// members are asked for their values instead, empty where there is none in force.
void RenderCsv(std::ostream& out, HistoryTable const& table);
/// {"model": ..., "steps": [...], "attributes": [{"name": ..., "history": [0, 1, 2], ...}]}; with members "values": {"u2": [null, -1.0]}
void RenderJson(std::ostream& out, HistoryTable const& table);
/// A page that stands alone, without scripts, its first column fixed.
void RenderHtml(std::ostream& out, HistoryTable const& table);

}  // namespace gattr
