#include "report/HtmlReport.h"

#include <algorithm>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "command/Check.h"
#include "command/Command.h"
#include "command/HistoryTable.h"
#include "command/Members.h"
#include "command/Words.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "report/HtmlReportData.h"
#include "report/PageText.h"
#include "report/RenderHistory.h"
#include "store/ReplacingFile.h"
#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

char const kHtmlReportMark[] =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><meta name=\"generator\" content=\"gattr report\">";

namespace {

/// A hash given in hexadecimal digits as policies write it.
std::string Base64(std::string_view hex) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  unsigned bits = 0;
  int count = 0;
  for (char const c : hex) {
    bits = bits << 4 | static_cast<unsigned>(c <= '9' ? c - '0' : c - 'a' + 10);
    for (count += 4; count >= 6; count -= 6) { text += kDigits[bits >> (count - 6) & 63]; }
  }
  if (count > 0) { text += kDigits[bits << (6 - count) & 63]; }
  return text.append((4 - text.size() % 4) % 4, '=');
}

// ---- what is there without a script, too

/// A step's parameters: those that are not what a new step of the procedure has, then the others, or in which of the steps in \p known
/// they were the same.
void WriteParameters(std::ostream& out, kprC_Step const& step, std::string_view name, std::map<std::string, std::string>& known) {
  auto const* const procedure = kprC_FindProcedure(step.DynTypeId());
  std::unique_ptr<cls_Object> const fresh = procedure == nullptr ? nullptr : ClassOf(step).make();
  std::string own, others;
  for (cls_MemberRow const& row : step.MemberRows()) {
    if (row.again || !row.text.settable) { continue; }
    bool const isOwn =
        fresh != nullptr && !row.ops->equal(row.In(static_cast<void const*>(&step)), row.In(static_cast<void const*>(fresh.get())));
    std::string& to = isOwn ? own : others;
    to += (isOwn ? "<span title=\"" + HtmlText(row.text.meaning) + "\"><i>" : std::string("<span><i>")) + HtmlText(ArgumentName(row)) +
          "</i> " + HtmlText(ReadableValue(row.ToValue(&step))) + "</span> ";
  }
  out << own;
  if (others.empty()) { return; }
  auto const [same, isNew] = known.try_emplace(others, name);
  if (!isNew) {
    out << "<small>the others as in " << HtmlContent(same->second) << "</small>";
  } else {
    out << "<details><summary>the others, as a new step has them</summary>" << others << "</details>";
  }
}

void WriteSteps(std::ostream& out, kprC_StepContainer const& steps) {
  out << "<section id=\"steps\" aria-labelledby=\"steps-title\"><h2 "
         "id=\"steps-title\">Steps</h2>\n<table>\n<thead><tr><th>#</th><th>step</th>"
         "<th>procedure</th><th>period</th><th>parameters</th></tr></thead>\n<tbody>\n";
  std::map<std::string, std::string> known;
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    kprC_Step const& step = steps.Step(i);
    out << "<tr><td>" << i << "</td><th scope=\"row\">" << HtmlText(steps.Name(i).View()) << "</th><td>"
        << HtmlText(ProcedureWords(ProcedureText(steps.Table().ProcedureType(i))))
        << (step.Perturbation() ? " <small>perturbation</small>" : "") << "</td><td class=\"number\">"
        << (i == 0 ? "" : HtmlText(ReadableValue(step.TimePeriod()))) << "</td><td>";
    WriteParameters(out, step, steps.Name(i).View(), known);
    out << "</td></tr>\n";
  }
  out << "</tbody></table></section>\n";
}

void WriteFindings(std::ostream& out, std::vector<Finding> const& findings) {
  out << "<section id=\"findings\" aria-labelledby=\"findings-title\"><h2 id=\"findings-title\">Findings</h2>\n";
  if (findings.empty()) {
    out << "<p>nothing found</p></section>\n";
    return;
  }
  out << "<table>\n<thead><tr><th>id</th><th>severity</th><th>object</th><th>name</th><th>step</th><th>member</th><th>what it is</th>"
         "<th>code</th></tr></thead>\n<tbody>\n";
  std::map<FindingKind, std::string> above;  // what the last one of its kind has said
  for (Finding const& finding : findings) {
    FindingRow const& row = finding.Row();
    std::string message = OneLine(finding.refusal.message);
    for (std::string const& more : {finding.detail, finding.hint}) { message += (more.empty() ? "" : " ") + OneLine(more); }
    out << "<tr class=" << SeverityText(row.severity) << "><td>" << row.id << "<td><b>" << SeverityText(row.severity) << "</b><td>"
        << HtmlText(SplitWords(finding.kind)) << (finding.suppressed ? " (suppressed)" : "") << "<th>" << HtmlContent(finding.name)
        << "<td>" << HtmlText(finding.step) << "<td>" << HtmlText(finding.member) << "<td>"
        << (message == above[finding.found] ? "<small>the same</small>" : HtmlContent(message)) << "<td>";
    above[finding.found] = std::move(message);
    if (finding.refusal.code >= 0) { out << HtmlText(finding.refusal.module) << ' ' << finding.refusal.code; }
    out << "</tr>\n";
  }
  out << "</tbody></table></section>\n";
}

/// For readers without script; the page's own takes it away.
void WriteSigns(std::ostream& out, ddr_Model const& model) {
  std::ostringstream text;
  RenderCompact(text, HistoriesOf(model), {});
  out << "<section id=\"signs\"><h2>Histories</h2>\n<pre>\n";
  for (std::string_view rest = text.view(); !rest.empty();) {
    std::size_t const end = rest.find('\n');
    out << HtmlText(rest.substr(0, end)) << '\n';
    rest.remove_prefix(end + 1);
  }
  out << "</pre></section>\n";
}

}  // namespace

void WriteHtmlReport(std::ostream& out, ddr_Model const& model, Progress const& progress) {
  std::size_t attributes = 0;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) { attributes += family.Size(); });
  std::size_t const total = attributes * 2;
  auto const part = [&](std::size_t before) -> Progress {
    if (!progress) { return {}; }
    return [&progress, before, total](std::size_t done, std::size_t) { return progress(std::min(before + done, total), total); };
  };
  std::vector<Finding> const findings = Check(model, part(0));
  Progress const writing = part(attributes);
  Ticker tick(writing, total);
  kprC_StepContainer const& steps = kprC_Steps(model);
  std::string const title = model.Name().IsEmpty() ? "Histories" : HtmlText(model.Name().View());
  out << kHtmlReportMark << "\n<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; script-src 'sha256-"
      << Base64(kPageScriptHash) << "'; style-src 'sha256-" << Base64(kPageStyleHash) << "'; base-uri 'none'; form-action 'none'\">\n"
      << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"><meta name=\"color-scheme\" content=\"light dark\">\n"
      << "<title>" << title << "</title>\n<style>" << kPageStyle << "</style>\n<script>" << kPageScript
      << "</script></head>\n<body>\n<header id=\"top\"><h1>" << title << "</h1><p>" << Counted(attributes, "attribute") << ", "
      << Counted(steps.Size(), "step") << ", "
      << (model.Space() == ddr_Model::THREE_D ? "three dimensions"
                                              : ProcedureWords(omu_PrimEnum<ddr_Model::SpaceEnm>(model.Space()).View()))
      << ", " << (findings.empty() ? "no findings" : Counted(findings.size(), "finding")) << "</p></header>\n<main>\n";
  WriteSigns(out, model);
  WriteSteps(out, steps);
  WriteFindings(out, findings);
  out << "</main>\n<script type=\"application/json\" id=\"data\">";
  WriteReportData(out, model, tick);
  out << "</script>\n</body></html>\n";
  tick.Finish();
}

void WriteHtmlReportFile(ddr_Model const& model, std::string const& path, Progress const& progress) {
  try {
    ReplacingFile file(path);
    WriteHtmlReport(file.Stream(), model, progress);
    if (!file.Stream()) { throw StoreError(file.Failure()); }
    file.Commit();
  } catch (StoreError const& error) { throw StoreError(Shown(path) + ": " + error.what()); }
}

}  // namespace gattr
