#include "report/RenderFindings.h"

#include <algorithm>
#include <cctype>
#include <ostream>

#include "command/Command.h"
#include "command/Words.h"
#include "report/Display.h"
#include "report/TextTable.h"
#include "text/Text.h"

namespace gattr {

namespace {

bool Fails(FindingRow const& row, bool warningsFail) {
  return row.severity == Severity::Error || (warningsFail && row.severity == Severity::Warning);
}

/// A path as a reference to a file: what a URI does not take escaped.
std::string UriOf(std::string const& path) {
  constexpr char const* kDigits = "0123456789ABCDEF";
  std::string uri = path.starts_with('/') ? "file://" : "";
  for (char const letter : path) {
    auto const byte = static_cast<unsigned char>(letter);
    if (std::isalnum(byte) != 0 || std::string_view("-._~/").find(letter) != std::string_view::npos) {
      uri += letter;
    } else {
      (uri += '%') += kDigits[byte >> 4];
      uri += kDigits[byte & 15U];
    }
  }
  return uri;
}

/// What is wrong, with the member and the number, and what would do.
std::string MessageText(Finding const& finding) {
  std::string text = finding.member.empty() ? "" : Quoted(finding.member) + ": ";
  text += RefusalText(finding.refusal);
  for (std::string const& more : {finding.detail, finding.hint}) { text += (more.empty() ? "" : " ") + OneLine(more); }
  return finding.suppressed ? text + " (suppressed)" : text;
}
}  // namespace

std::string FindingText(Finding const& finding) {
  std::string const step = finding.step.empty() || finding.kind == "step" ? "" : " in step " + Quoted(finding.step);
  return ObjectText(finding.kind, finding.name) + step + ": " + MessageText(finding);
}

Json ToJson(Finding const& finding) {
  Json told = {{"id", finding.Row().id},
               {"severity", SeverityText(finding.Row().severity)},
               {"object", ObjectText(finding.kind, finding.name)},
               {"kind", finding.kind},
               {"name", finding.name},
               {"step", finding.step},
               {"member", finding.member},
               {"suppressed", finding.suppressed},
               {"module", finding.refusal.module},
               {"code", finding.refusal.code},
               {"exception", finding.refusal.exception},
               {"message", finding.refusal.message},
               {"detail", finding.detail},
               {"hint", finding.hint}};
  if (finding.line > 0) { told["line"] = finding.line; }
  return told;
}

void RenderText(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style) {
  if (findings.empty()) {
    out << "nothing found\n";
    return;
  }
  auto const styleOf = [](Severity severity) {
    return severity == Severity::Error ? Style::Off : severity == Severity::Warning ? Style::Changed : Style::Faint;
  };
  TextTable table({"id", "severity", "line", "object", "name", "step", "message"});
  for (Finding const& finding : findings) {
    Severity const severity = finding.Row().severity;
    table.Add({{finding.Row().id, Style::Faint},
               {SeverityText(severity), styleOf(severity)},
               finding.line > 0 ? std::to_string(finding.line) : std::string(),
               {finding.kind, Style::Faint},
               {finding.name, Style::Strong},
               finding.step,
               MessageText(finding)});
  }
  table.Print(out, style.width, style.color);
}

void RenderSarif(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style) {
  Json rules = Json::array(), results = Json::array();
  std::vector<std::string> ids;
  for (Finding const& finding : findings) {
    FindingRow const& row = finding.Row();
    auto known = std::ranges::find(ids, row.id);
    std::size_t const index = static_cast<std::size_t>(known - ids.begin());
    if (known == ids.end()) {
      ids.push_back(row.id);
      rules.push_back({{"id", row.id},
                       {"shortDescription", {{"text", row.meaning}}},
                       {"defaultConfiguration", {{"level", SeverityText(row.severity)}}}});
    }
    Json logical = {{"name", finding.name}, {"kind", finding.kind}};
    std::string whole = finding.kind + "/" + finding.name;
    if (!finding.step.empty() && finding.kind != "step") { whole += "/" + finding.step; }
    if (!finding.member.empty()) { whole += "/" + finding.member; }
    logical["fullyQualifiedName"] = whole;
    Json location = {{"logicalLocations", Json::array({std::move(logical)})}};
    std::string const& file = finding.line > 0 ? style.journal : style.model;
    if (!file.empty()) {
      Json& physical = location["physicalLocation"] = {{"artifactLocation", {{"uri", UriOf(file)}}}};
      if (finding.line > 0) { physical["region"] = {{"startLine", finding.line}}; }
    }
    Json result = {{"ruleId", row.id},
                   {"ruleIndex", index},
                   {"level", SeverityText(row.severity)},
                   {"message", {{"text", FindingText(finding)}}},
                   {"locations", Json::array({std::move(location)})}};
    if (finding.refusal.code >= 0) { result["properties"] = {{"refusal", finding.refusal.module + std::to_string(finding.refusal.code)}}; }
    results.push_back(std::move(result));
  }
  Json const run = {{"tool", {{"driver", {{"name", "gattr"}, {"version", style.version}, {"rules", std::move(rules)}}}}},
                    {"columnKind", "utf16CodeUnits"},
                    {"results", std::move(results)}};
  out << JsonPage({{"version", "2.1.0"}, {"runs", Json::array({run})}}) << '\n';
}

void RenderJunit(std::ostream& out, std::span<Finding const> findings, FindingsStyle const& style) {
  std::vector<std::vector<Finding const*>> byRow(FindingRows().size());
  for (Finding const& finding : findings) { byRow[static_cast<std::size_t>(finding.found)].push_back(&finding); }
  std::size_t failures = 0;
  for (std::size_t i = 0; i < byRow.size(); ++i) { failures += !byRow[i].empty() && Fails(FindingRows()[i], style.warningsFail) ? 1U : 0U; }
  std::string const checked = !style.journal.empty() ? style.journal : !style.model.empty() ? style.model : "model";
  std::string const counts = "tests=\"" + std::to_string(byRow.size()) + "\" failures=\"" + std::to_string(failures) + R"(" errors="0")";
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"gattr check\" " << counts << ">\n";
  out << "  <testsuite name=\"" << HtmlText(checked) << "\" " << counts << " skipped=\"0\">\n";
  for (std::size_t i = 0; i < byRow.size(); ++i) {
    FindingRow const& row = FindingRows()[i];
    out << "    <testcase classname=\"gattr." << SeverityText(row.severity) << "\" name=\"" << row.id << ": " << HtmlText(row.meaning)
        << '"';
    if (byRow[i].empty()) {
      out << "/>\n";
      continue;
    }
    std::string told, lines;
    for (Finding const* const finding : byRow[i]) {
      if (finding->line > 0) { lines += style.journal + ":" + std::to_string(finding->line) + ": "; }
      lines += FindingText(*finding);
      told += (told.empty() ? "" : "\n") + HtmlText(lines);
      lines.clear();
    }
    bool const fails = Fails(row, style.warningsFail);
    std::string const element = fails ? "failure" : "system-out";
    out << ">\n      <" << element;
    if (fails) {
      out << " type=\"" << row.id << "\" message=\"" << byRow[i].size() << (byRow[i].size() == 1 ? " finding\"" : " findings\"");
    }
    out << '>' << told << "</" << element << ">\n    </testcase>\n";
  }
  out << "  </testsuite>\n</testsuites>\n";
}

void RenderJson(std::ostream& out, std::span<Finding const> findings) {
  Json list = Json::array();
  for (Finding const& finding : findings) { list.push_back(ToJson(finding)); }
  out << JsonPage(list) << '\n';
}

bool AnyFails(std::span<Finding const> findings, bool warningsFail) {
  return std::ranges::any_of(findings, [=](Finding const& finding) { return Fails(finding.Row(), warningsFail); });
}

}  // namespace gattr
