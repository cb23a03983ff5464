#include "report/HtmlReportData.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <ostream>
#include <span>
#include <unordered_map>
#include <utility>

#include "command/AtTime.h"
#include "command/Command.h"
#include "command/Origins.h"
#include "command/Words.h"
#include "framework/Refusal.h"
#include "framework/ddr_ModelMembers.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "module/kpr/model/kprC_StepTimes.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"
#include "report/RenderHistory.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {
namespace {

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

/// A value as the page has it: numbers as such, all else as text.
std::string ValueJson(cls_Value const& value) {
  bool const isNumber = value.As<double>() != nullptr || value.As<long long>() != nullptr;
  return isNumber ? JsonText(value) : TextOf(ReadableValue(value));
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

/// Points through which straight lines follow a curve, closely enough for the eye: [part of the step's time, factor, ...].
std::string LineOf(ampC_Curve const& curve, double start, double period) {
  constexpr int kParts = 16, kHalvings = 6;
  constexpr double kNear = 1e-3;    // of the height
  constexpr double kInside = 0.43;  // not the middle: a swing that fits the parts would be zero at all of them
  std::vector<std::pair<double, double>> points;
  auto const add = [&](double part) { points.emplace_back(part, curve.ValueAt(start + part * period)); };
  for (int i = 0; i <= kParts; ++i) { add(static_cast<double>(i) / kParts); }
  if (auto const* const through = dynamic_cast<ampC_PointCurve const*>(&curve)) {
    for (std::size_t row = 0; row < through->points.Rows(); ++row) {
      double const part = (through->points.ConstGet(row, 0) - start) / period;
      if (part > 0.0 && part < 1.0) { add(part); }
    }
  }
  std::ranges::sort(points);
  double const low = std::ranges::min_element(points, {}, &std::pair<double, double>::second)->second;
  double const high = std::ranges::max_element(points, {}, &std::pair<double, double>::second)->second;
  double const near = std::max(high - low, 1e-9) * kNear;
  for (int i = 0; i < kHalvings; ++i) {
    std::size_t const known = points.size();
    for (std::size_t k = 1; k < known; ++k) {
      double const inside = std::lerp(points[k - 1].first, points[k].first, kInside);
      double const value = curve.ValueAt(start + inside * period);
      if (std::abs(value - std::lerp(points[k - 1].second, points[k].second, kInside)) > near) { points.emplace_back(inside, value); }
    }
    if (points.size() == known) { break; }
    std::ranges::sort(points);
  }
  std::string line = "[";
  auto const append = [&line](double number) {
    char digits[32];
    if (line.size() > 1) { line += ','; }
    line.append(digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 5).ptr);
  };
  for (std::size_t k = 0; k < points.size(); ++k) {
    auto const [part, value] = points[k];
    if (k > 0 && k + 1 < points.size()) {  // what the neighbours' line passes through is left out
      auto const [before, from] = points[k - 1];
      auto const [behind, to] = points[k + 1];
      if (behind > before && std::abs(from + (to - from) * (part - before) / (behind - before) - value) <= near * 1e-3) { continue; }
    }
    append(part);
    append(value);
  }
  return line += ']';
}

/// The data of a page. What a step says is a list of members and values; those lists, the members and the values stand in tables, and
/// an attribute refers to them by number.
class Data {
public:
  Data(std::ostream& out, ddr_Model const& model) : out_(out), model_(model), steps_(kprC_Steps(model)) {}

  void Write(Ticker& tick) {
    out_ << "{\"model\":" << TextOf(model_.Name().View()) << ",\n\"words\":[";
    for (std::size_t i = 0; i < kStatusCount; ++i) {
      StatusWord const& word = WordOf(static_cast<mdl_PropagationStatusEnm>(i));
      out_ << (i == 0 ? "[" : ",[") << TextOf(word.Text()) << ',' << TextOf(word.meaning) << ',' << TextOf(std::string_view(&word.sign, 1))
           << ",\"" << CssClass(StyleOf(static_cast<mdl_PropagationStatusEnm>(i))) << "\"]";
    }
    out_ << "],\n\"attributes\":[";
    char const* separator = "\n";
    ForEachRepository(model_, [&](auto const&, kprC_StepAwareRepository const& family) {
      if (family.Size() == 0) { return; }
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
           << TextOf(ProcedureWords(ProcedureText(steps_.Table().ProcedureType(i)))) << ',' << (i == 0 ? "0" : JsonText(step.TimePeriod()))
           << ']';
    }
    out_ << "\n]";
    WriteCurves();
    lines_.Write(out_, "lines");
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
    return kinds_("[" + TextOf(SplitWords(family.ItemCmd())) + "," + std::to_string(own) + "," + std::to_string(active) + "," +
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

  /// [name, meaning, unit, the number of the member that names the amplitude by which it varies, or -1]
  std::size_t MemberOf(Origin const& origin, std::span<Origin const> members) {
    if (auto const known = memberOf_.find(origin.row); known != memberOf_.end()) { return known->second; }
    auto const by = std::ranges::find_if(members, [&](Origin const& other) { return Varies(other, origin); });
    std::string const amplitude = by == members.end() ? "-1" : std::to_string(MemberOf(*by, members));
    cls_MemberText const& text = origin.row->text;
    std::size_t const number =
        members_("[" + TextOf(origin.Member()) + "," + TextOf(text.meaning) + "," + TextOf(text.unit) + "," + amplitude + "]");
    return memberOf_.emplace(origin.row, number).first->second;
  }
  long long Value(cls_Value const& value) { return static_cast<long long>(values_(ValueJson(value))); }
  std::size_t Say(std::string pairs) { return says_("[" + std::move(pairs) + "]"); }

  /// What is the same in all steps, where it is not what a new attribute of the type has.
  std::size_t Fixed(kprC_StepDependent const& item) {
    std::string pairs;
    for (Origin const& origin : OwnMembers(item)) {
      if (origin.standing != Standing::Set) { continue; }
      AppendNumber(pairs, static_cast<long long>(MemberOf(origin, {})));
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
        AppendNumber(pairs, static_cast<long long>(MemberOf(origin, run.members)));
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

  /// [amplitude, [line in each step, ...]]: by number, -1 for a step that takes no time.
  void WriteCurves() {
    kprC_StepTimes const times(steps_);
    out_ << ",\n\"curves\":[";
    char const* separator = "\n";
    auto const& amplitudes = model_.ConstGet<ddr_AmplitudeMap>(ddr_Model::amplitudesCmd());
    for (cow_String const& name : amplitudes.Keys()) {
      auto const* const curve = dynamic_cast<ampC_Curve const*>(amplitudes.ConstObject(name.View()));
      if (curve == nullptr || RefusalBy([&] { curve->AssertValid(); })) { continue; }
      std::string lines = "[";
      std::map<std::pair<double, double>, long long> known;  // by start and period
      for (std::size_t step = 0; step < steps_.Size(); ++step) {
        double const period = times.Period(step);
        double const start = curve->timeSpan == ampC_TimeSpanEnm::TOTAL ? times.Start(step) : 0.0;
        auto const [line, isNew] = known.try_emplace({start, period}, -1);
        if (isNew && period > 0.0) { line->second = static_cast<long long>(lines_(LineOf(*curve, start, period))); }
        AppendNumber(lines, line->second);
      }
      out_ << std::exchange(separator, ",\n") << '[' << TextOf(name.View()) << ',' << lines << "]]";
    }
    out_ << ']';
  }

  std::ostream& out_;
  ddr_Model const& model_;
  kprC_StepContainer const& steps_;
  Numbered kinds_, types_, members_, values_, says_, lines_;
  std::unordered_map<cls_MemberRow const*, std::size_t> memberOf_;
};

}  // namespace

std::string ReadableValue(cls_Value const& value) {
  std::string text;
  if (auto const* const list = value.As<cls_Value::List>()) {
    for (cls_Value const& item : *list) {
      bool const isPlain = item.As<cls_Value::List>() == nullptr && item.As<cls_Value::Fields>() == nullptr;
      text += (text.empty() ? "" : isPlain ? ", " : "; ") + ReadableValue(item);
    }
    return text.empty() ? "none" : text;
  }
  if (auto const* const fields = value.As<cls_Value::Fields>()) {
    for (auto const& [name, item] : *fields) {
      std::string const told = ReadableValue(item);
      if (!told.empty()) { text.append(text.empty() ? "" : ", ").append(name).append(" ").append(told); }
    }
    return text;
  }
  return value.IsNull() ? "unset" : ValueText(value);
}

void WriteReportData(std::ostream& out, ddr_Model const& model, Ticker& tick) { Data(out, model).Write(tick); }

}  // namespace gattr
