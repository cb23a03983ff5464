#include "report/HtmlReport.h"

#include <algorithm>
#include <array>
#include <map>
#include <ostream>
#include <unordered_map>
#include <utility>

#include "command/Check.h"
#include "command/Command.h"
#include "command/Members.h"
#include "command/Origins.h"
#include "command/Words.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "report/PageText.inc"
#include "report/RenderHistory.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

char const kHtmlReportMark[] =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><meta name=\"generator\" content=\"gattr report\">";

namespace {

/// "boundary condition" of "boundaryCondition".
std::string Spaced(std::string_view word) {
  std::string spaced;
  for (char const c : word) {
    bool const capital = c >= 'A' && c <= 'Z';
    if (capital) { spaced += ' '; }
    spaced += static_cast<char>(capital ? c - 'A' + 'a' : c);
  }
  return spaced;
}

/// "STATIC_GENERAL" as "static general".
std::string Lowered(std::string_view label) {
  std::string text(label);
  for (char& c : text) { c = c == '_' ? ' ' : c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
  return text;
}

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

// ---- JSON inside a script element: names are shown, so that none acts in the page, and nothing in them can end the element

void AppendText(std::string& out, std::string_view text) {
  std::string quoted;
  AppendJsonQuoted(quoted, Shown(text));
  for (char const c : quoted) { c == '<' ? out += "\\u003c" : out += c; }
}
std::string TextOf(std::string_view text) {
  std::string out;
  AppendText(out, text);
  return out;
}

/// A value as the page shows it: numbers as such, all else as text.
std::string ValueJson(cls_Value const& value) {
  if (value.As<double>() != nullptr || value.As<long long>() != nullptr) { return JsonText(value); }
  if (auto const* const text = value.As<std::string>()) { return TextOf(*text); }
  return value.IsNull() ? TextOf("unset") : TextOf(JsonText(value));
}
/// The same for a reader without script.
std::string ValueText(cls_Value const& value) {
  auto const* const text = value.As<std::string>();
  return text != nullptr ? *text : value.IsNull() ? "unset" : JsonText(value);
}

/// Texts of JSON, each once, by number.
class Numbered {
public:
  std::size_t operator()(std::string text) {
    auto const [place, isNew] = numbers_.try_emplace(std::move(text), texts_.size());
    if (isNew) { texts_.push_back(&place->first); }
    return place->second;
  }
  void Write(std::ostream& out, std::string_view name) const {
    out << ",\n\"" << name << "\":[";
    for (std::size_t i = 0; i < texts_.size(); ++i) { out << (i == 0 ? "" : i % 32 == 0 ? ",\n" : ",") << *texts_[i]; }
    out << ']';
  }

private:
  std::unordered_map<std::string, std::size_t> numbers_;
  std::vector<std::string const*> texts_;
};

void AppendNumber(std::string& out, long long number) {
  if (!out.empty() && out.back() != '[') { out += ','; }
  out += std::to_string(number);
}

// what a member may have instead of a value, in place of its number
constexpr long long kFreed = -1, kNoValue = -2;

/// The data of a page. What a step says is a list of members and values; those lists, the members and the values stand in tables, and
/// an attribute refers to them by number.
class Data {
public:
  Data(std::ostream& out, ddr_Model const& model) : out_(out), model_(model), steps_(kprC_Steps(model)) {}

  template <class Tick> void Write(Tick&& tick) {
    out_ << "{\"model\":" << TextOf(model_.Name().View()) << ",\n\"words\":[";
    for (std::size_t i = 0; i < kStatusCount; ++i) {
      StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(i));
      out_ << (i == 0 ? "[" : ",[") << TextOf(i == 0 ? word.meaning : word.word) << ',' << TextOf(word.meaning) << ','
           << TextOf(std::string_view(&word.sign, 1)) << ",\"" << CssClass(StyleOf(static_cast<mdl_PropagationStatusEnm>(i))) << "\"]";
    }
    out_ << "],\n\"attributes\":[";
    char const* separator = "\n";
    ForEachRepository(model_, [&](auto const&, kprC_StepAwareRepository const& family) {
      std::size_t const kind = KindOf(family);
      family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
        out_ << std::exchange(separator, ",\n") << '[' << TextOf(name.View()) << ',' << TypeOf(kind, item) << ','
             << (item.IsSuppressed() ? 1 : 0) << ",\"" << Runs(item) << "\"," << Fixed(item) << ',' << Events(family, item) << ']';
        tick();
      });
    });
    out_ << "\n],\n\"steps\":[";
    for (std::size_t i = 0; i < steps_.Size(); ++i) {
      kprC_Step const& step = steps_.Step(i);
      out_ << (i == 0 ? "\n[" : ",\n[") << TextOf(steps_.Name(i).View()) << ','
           << TextOf(Lowered(ProcedureText(steps_.Table().ProcedureType(i)))) << ',' << (i == 0 ? "0" : JsonText(step.TimePeriod())) << ']';
    }
    out_ << "\n]";
    kinds_.Write(out_, "kinds");
    types_.Write(out_, "types");
    members_.Write(out_, "members");
    values_.Write(out_, "values");
    says_.Write(out_, "says");
    out_ << "}\n";
  }

private:
  /// ["boundary condition", statuses that are the step's own, statuses in which it is in force], the latter as bits.
  std::size_t KindOf(kprC_StepAwareRepository const& family) {
    unsigned own = 0, active = 0;
    for (std::size_t status = 0; status < family.Statuses().size(); ++status) {
      unsigned const traits = family.Statuses()[status];
      own |= (traits & kprC_Changed) != 0 ? 1U << status : 0;
      active |= (traits & kprC_Active) != 0 ? 1U << status : 0;
    }
    return kinds_("[" + TextOf(Spaced(family.ItemCmd())) + "," + std::to_string(own) + "," + std::to_string(active) + "," +
                  TextOf(family.ItemCmd()) + "]");
  }

  std::size_t TypeOf(std::size_t kind, kprC_StepDependent const& item) {
    return types_("[" + TextOf(item.ConstructionName()) + "," + std::to_string(kind) + "]");
  }

  /// A letter for each run of steps with one status, "a" for the first status, and how many they are where that is not one.
  static std::string Runs(kprC_StepDependent const& item) {
    std::string runs;
    char last = 0;
    std::size_t length = 0;
    auto const end = [&] {
      if (length > 1) { runs += std::to_string(length); }
    };
    item.ForEachRun([&](std::size_t begin, std::size_t past, mdl_PropagationStatusEnm status, cls_Object const*) {
      char const letter = static_cast<char>('a' + static_cast<int>(status));
      if (letter != last) {
        end();
        runs += last = letter;
        length = 0;
      }
      length += past - begin;
    });
    end();
    return runs;
  }

  std::size_t MemberOf(cls_MemberRow const& row) {
    return members_("[" + TextOf(ArgumentName(row)) + "," + TextOf(row.text.meaning) + "," + TextOf(row.text.unit) + "]");
  }
  long long Value(cls_Value const& value) { return static_cast<long long>(values_(ValueJson(value))); }
  std::size_t Say(std::string pairs) { return says_("[" + std::move(pairs) + "]"); }

  /// What is the same in all steps, where it is not what a new attribute of the type has.
  std::size_t Fixed(kprC_StepDependent const& item) {
    std::string pairs;
    for (Origin const& origin : OwnMembers(item)) {
      if (origin.standing != Standing::Set) { continue; }
      AppendNumber(pairs, static_cast<long long>(MemberOf(*origin.row)));
      AppendNumber(pairs, Value(origin.Value()));
    }
    return Say(std::move(pairs));
  }

  /// [step, says, ...]: from that step on the members have those values, which the step says. Where another step said them, as after a
  /// step whose change was for it alone, the number is -1 less, and that step follows.
  std::string Events(kprC_StepAwareRepository const& family, kprC_StepDependent const& item) {
    std::string events = "[";
    std::vector<std::pair<std::size_t, long long>> now;  // by the member's place, who said what
    std::map<std::size_t, std::string> news;             // by the step that said it
    ForEachOriginRun(family, item, [&](OriginRun const& run) {
      news.clear();
      now.resize(std::max(now.size(), run.members.size()), {kNoStep, kNoValue});
      for (std::uint32_t const place : run.differing) {
        Origin const& origin = run.members[place];
        std::size_t const step = origin.step == kNoStep ? run.begin : origin.step;
        std::pair const then{step, origin.standing == Standing::Set     ? Value(origin.Value())
                                   : origin.standing == Standing::Freed ? kFreed
                                                                        : kNoValue};
        if (then == now[place] || (then.second == kNoValue && now[place].second == kNoValue)) { continue; }
        now[place] = then;
        std::string& pairs = news[step];
        AppendNumber(pairs, static_cast<long long>(MemberOf(*origin.row)));
        AppendNumber(pairs, then.second);
      }
      for (auto& [step, pairs] : news) {
        auto const say = static_cast<long long>(Say(std::move(pairs)));
        AppendNumber(events, static_cast<long long>(run.begin));
        AppendNumber(events, step == run.begin ? say : -1 - say);
        if (step != run.begin) { AppendNumber(events, static_cast<long long>(step)); }
      }
    });
    return events += ']';
  }

  std::ostream& out_;
  ddr_Model const& model_;
  kprC_StepContainer const& steps_;
  Numbered kinds_, types_, members_, values_, says_;
};

// ---- what is there without a script, too

/// A step's parameters: those that are not what a new step of the procedure has, then the others.
void WriteParameters(std::ostream& out, kprC_Step const& step) {
  auto const* const procedure = kprC_FindProcedure(step.DynTypeId());
  std::unique_ptr<cls_Object> const fresh = procedure == nullptr ? nullptr : ClassOf(step).make();
  std::string own, others;
  for (cls_MemberRow const& row : step.MemberRows()) {
    if (row.again || !row.text.settable) { continue; }
    bool const isOwn =
        fresh != nullptr && !row.ops->equal(row.In(static_cast<void const*>(&step)), row.In(static_cast<void const*>(fresh.get())));
    std::string& to = isOwn ? own : others;
    to += (isOwn ? "<span title=\"" + HtmlText(row.text.meaning) + "\"><i>" : std::string("<span><i>")) + HtmlText(ArgumentName(row)) +
          "</i> " + HtmlText(ValueText(row.ToValue(&step))) + "</span> ";
  }
  out << own;
  if (!others.empty()) { out << "<details><summary>as a new step has them</summary>" << others << "</details>"; }
}

void WriteSteps(std::ostream& out, kprC_StepContainer const& steps) {
  out << "<section id=\"steps\" aria-labelledby=\"steps-title\"><h2 "
         "id=\"steps-title\">Steps</h2>\n<table>\n<thead><tr><th>#</th><th>step</th>"
         "<th>procedure</th><th>period</th><th>parameters</th></tr></thead>\n<tbody>\n";
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    kprC_Step const& step = steps.Step(i);
    out << "<tr><td>" << i << "</td><th scope=\"row\">" << HtmlText(steps.Name(i).View()) << "</th><td>"
        << HtmlText(Lowered(ProcedureText(steps.Table().ProcedureType(i)))) << (step.Perturbation() ? " <small>perturbation</small>" : "")
        << "</td><td class=\"number\">" << (i == 0 ? "" : HtmlText(JsonText(step.TimePeriod()))) << "</td><td>";
    WriteParameters(out, step);
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
  for (Finding const& finding : findings) {
    FindingRow const& row = finding.Row();
    std::string message = OneLine(finding.refusal.message);
    for (std::string const& more : {finding.detail, finding.hint}) { message += (more.empty() ? "" : " ") + OneLine(more); }
    out << "<tr class=" << SeverityText(row.severity) << "><td>" << row.id << "<td><b>" << SeverityText(row.severity) << "</b><td>"
        << HtmlText(Spaced(finding.kind)) << (finding.suppressed ? " (suppressed)" : "") << "<th>" << HtmlText(finding.name) << "<td>"
        << HtmlText(finding.step) << "<td>" << HtmlText(finding.member) << "<td>" << HtmlText(message) << "<td>";
    if (finding.refusal.code >= 0) { out << HtmlText(finding.refusal.module) << ' ' << finding.refusal.code; }
    out << '\n';
  }
  out << "</tbody></table></section>\n";
}

/// A sign per step, ten to a group.
void WriteSigns(std::ostream& out, ddr_Model const& model, auto&& tick) {
  std::size_t names = 9, types = 4, longest = 40;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      names = std::min(longest, std::max(names, Width(Shown(name.View()))));
      types = std::min(longest, std::max(types, item.ConstructionName().size()));
    });
  });
  out << "<noscript><section id=\"signs\"><h2>Histories</h2>\n<p>A sign per step:";
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(i));
    out << (i == 0 ? " " : ", ") << "<code>" << HtmlText(std::string_view(&word.sign, 1)) << "</code> "
        << HtmlText(i == 0 ? word.meaning : word.word);
  }
  out << ".</p>\n<pre>\n";
  std::string signs;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) {
    family.ForEach([&](cow_String const& name, kprC_StepDependent const& item) {
      signs.clear();
      item.ForEachRun([&signs](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const*) {
        for (; begin < end; ++begin) {
          if (begin != 0 && begin % 10 == 0) { signs += ' '; }
          signs += WordOf(status).sign;
        }
      });
      out << HtmlText(Fitted(Shown(name.View()), names)) << "  " << HtmlText(Fitted(item.ConstructionName(), types)) << "  "
          << HtmlText(signs) << (item.IsSuppressed() ? "  suppressed\n" : "\n");
      tick();
    });
  });
  out << "</pre></section></noscript>\n";
}

std::string Counted(std::size_t count, std::string_view one) {
  return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

}  // namespace

void WriteHtmlReport(std::ostream& out, ddr_Model const& model, Progress const& progress) {
  std::size_t attributes = 0;
  ForEachRepository(model, [&](auto const&, kprC_StepAwareRepository const& family) { attributes += family.Size(); });
  std::size_t const total = attributes * 3;
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
      << Base64(kScriptHash) << "'; style-src 'sha256-" << Base64(kStyleHash) << "'; base-uri 'none'; form-action 'none'\">\n"
      << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"><meta name=\"color-scheme\" content=\"light dark\">\n"
      << "<title>" << title << "</title>\n<style>" << kStyle << "</style></head>\n<body>\n<header id=\"top\"><h1>" << title << "</h1><p>"
      << Counted(attributes, "attribute") << ", " << Counted(steps.Size(), "step") << ", space "
      << model.Member(ddr_Model::spaceCmd()).As<std::string>()[0] << ", "
      << (findings.empty() ? "no findings" : Counted(findings.size(), "finding")) << "</p></header>\n<main>\n";
  WriteSigns(out, model, tick);
  WriteSteps(out, steps);
  WriteFindings(out, findings);
  out << "</main>\n<script type=\"application/json\" id=\"data\">";
  Data(out, model).Write(tick);
  out << "</script>\n<script>" << kScript << "</script>\n</body></html>\n";
  tick.Finish();
}

}  // namespace gattr
