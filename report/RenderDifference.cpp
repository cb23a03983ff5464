#include "report/RenderDifference.h"

#include <ostream>
#include <string>

#include "command/Origins.h"
#include "report/RenderEffects.h"
#include "report/TextTable.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// What is said in a step, for a person: "created", "deactivate".
std::string WordsOf(Says says, ObjectDifference const& object) {
  std::string off = object.switchOff.empty() ? "off" : object.switchOff;
  switch (says) {
    case Says::Nothing: return "nothing";
    case Says::Values: return "says";
    case Says::Creation: return "created";
    case Says::CreationOff: return "created, " + off;
    case Says::Off: return off;
  }
  return {};
}

/// "u2 -12.0 -> -13.0, amplitude nothing -> Ramp"; of what only one side has its values.
std::string MembersText(std::vector<MemberDifference> const& members, bool onlyWas, bool onlyIs) {
  std::string text;
  for (MemberDifference const& one : members) {
    text += (text.empty() ? "" : ", ") + one.member + " ";
    text += onlyWas ? SideText(one.was) : onlyIs ? SideText(one.is) : SideText(one.was) + " -> " + SideText(one.is);
  }
  return text;
}

std::string Joined(std::string const& head, std::string const& members) {
  return head.empty() ? members : members.empty() ? head : head + ": " + members;
}

std::string HeadOf(RecordDifference const& record, ObjectDifference const& object) {
  if (!record.movedFrom.empty()) { return WordsOf(record.is, object) + ", moved from " + Quoted(record.movedFrom); }
  if (record.was == record.is) { return {}; }
  if (record.is == Says::Nothing) { return "no longer " + WordsOf(record.was, object); }
  std::string const head = WordsOf(record.is, object);
  return record.was == Says::Nothing ? head : head + ", no longer " + WordsOf(record.was, object);
}
std::string TextOf(RecordDifference const& record, ObjectDifference const& object) {
  auto const hasNone = [](Says says) { return says == Says::Nothing || says == Says::Off; };
  return Joined(HeadOf(record, object), MembersText(record.members, hasNone(record.is), hasNone(record.was)));
}

/// What is told of the object as a whole.
std::string HeadOf(ObjectDifference const& object) {
  std::string head = object.before.empty() ? "" : "was " + Quoted(object.before);
  auto const add = [&head](std::string const& more) { head += (head.empty() ? "" : ", ") + more; };
  if (object.change == ChangeKind::Created || object.change == ChangeKind::Deleted) {
    std::string const& type = object.change == ChangeKind::Created ? object.type : object.typeBefore;
    if (!type.empty()) { add(type); }
  } else if (object.type != object.typeBefore) {
    add(object.typeBefore + " -> " + object.type);
  }
  if (!object.previous.empty()) { add((object.change == ChangeKind::Created ? "behind " : "now behind ") + Quoted(object.previous)); }
  return head;
}
std::string TextOf(ObjectDifference const& object) {
  if (object.change == ChangeKind::Deleted) { return HeadOf(object); }
  return Joined(HeadOf(object), MembersText(object.members, false, object.change == ChangeKind::Created));
}

Json MembersJson(std::vector<MemberDifference> const& members) {
  Json list = Json::array();
  for (MemberDifference const& one : members) {
    list.push_back({{"member", one.member}, {"before", ToJson(one.was)}, {"now", ToJson(one.is)}});
  }
  return list;
}

Json ToJson(ObjectDifference const& object) {
  Json json = {{"change", ChangeText(object.change)}, {"kind", object.kind}, {"name", object.name}};
  auto const add = [&json](char const* name, std::string const& text) {
    if (!text.empty()) { json[name] = text; }
  };
  add("nameBefore", object.before);
  add("typeBefore", object.typeBefore);
  add("type", object.type);
  add("previous", object.previous);
  json["members"] = MembersJson(object.members);
  Json steps = Json::array();
  for (RecordDifference const& record : object.records) {
    Json step = {{"step", record.step}, {"before", SaysText(record.was)}, {"now", SaysText(record.is)}};
    if (!record.movedFrom.empty()) { step["movedFrom"] = record.movedFrom; }
    step["members"] = MembersJson(record.members);
    steps.push_back(std::move(step));
  }
  json["steps"] = std::move(steps);
  return json;
}

}  // namespace

std::string SideText(cls_Value const& value) {
  if (value.IsNull()) { return "nothing"; }
  std::string text = ValueText(value);
  return text.empty() ? "\"\"" : text;
}

void RenderText(std::ostream& out, std::span<ObjectDifference const> differences, TextLayout const& layout) {
  if (differences.empty()) { return void(out << "no difference\n"); }
  TextTable table({"change", "kind", "name", "step", "what"});
  for (ObjectDifference const& object : differences) {
    bool first = true;
    auto const add = [&](std::string const& step, std::string const& text) {
      table.Add({{first ? ChangeText(object.change) : "", StyleOf(object.change)},
                 {first ? std::string_view(object.kind) : "", Style::Faint},
                 {first ? std::string_view(object.name) : "", Style::Strong},
                 step,
                 text});
      first = false;
    };
    std::string const whole = TextOf(object);
    if (!whole.empty() || object.records.empty()) { add("", whole); }
    if (object.change == ChangeKind::Deleted) { continue; }  // what it said goes without saying
    for (RecordDifference const& record : object.records) { add(record.step, TextOf(record, object)); }
  }
  table.Print(out, layout.width, layout.color);
}

void RenderJson(std::ostream& out, std::span<ObjectDifference const> differences) {
  Json list = Json::array();
  for (ObjectDifference const& object : differences) { list.push_back(ToJson(object)); }
  out << JsonPage(list) << '\n';
}

void RenderHtml(std::ostream& out, std::span<ObjectDifference const> differences, std::string_view before, std::string_view now) {
  std::string const title = HtmlText(before) + " and " + HtmlText(now);
  out << "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" << title << R"(</title>
<style>
body { font: 14px/1.5 system-ui, sans-serif; margin: 2em; color: #222 }
table { border-collapse: collapse }
th, td { padding: .2em .8em; text-align: left; vertical-align: top; border-bottom: 1px solid #e4e4e4 }
small { color: #999 } del { color: #a33 } ins { color: #263; text-decoration: none; font-weight: 600 }
.new { background: #c9efd2 } .changed { background: #ffe9b8 } .off { background: #ffd6d1 }
</style></head><body>
<h1>)" << title
      << "</h1>\n";
  if (differences.empty()) {
    out << "<p>no difference</p>\n</body></html>\n";
    return;
  }
  out << "<table>\n<tr><th>change</th><th>object</th><th>step</th><th>member</th><th>before</th><th>now</th></tr>\n";
  for (ObjectDifference const& object : differences) {
    std::string const who = "<tr><td class=\"" + std::string(CssClass(StyleOf(object.change))) + "\">" +
                            std::string(ChangeText(object.change)) + "</td><td><small>" + HtmlText(object.kind) + "</small> " +
                            HtmlText(object.name) + "</td>";
    bool first = true;
    auto const add = [&](std::string const& step, std::string const& head, std::vector<MemberDifference> const& members) {
      auto const begin = [&] {
        out << (first ? who : std::string("<tr><td></td><td></td>")) << "<td>" << HtmlText(step) << "</td>";
        first = false;
      };
      if (!head.empty()) {
        begin();
        out << "<td colspan=\"3\">" << HtmlText(head) << "</td></tr>\n";
      }
      for (MemberDifference const& one : members) {
        begin();
        auto const cell = [&](cls_Value const& value, char const* tag) {
          out << "<td>";
          if (!value.IsNull()) { out << '<' << tag << '>' << HtmlText(SideText(value)) << "</" << tag << '>'; }
          out << "</td>";
        };
        out << "<td>" << HtmlText(one.member) << "</td>";
        cell(one.was, "del");
        cell(one.is, "ins");
        out << "</tr>\n";
      }
    };
    std::string const head = HeadOf(object);
    add("", head.empty() && object.members.empty() && object.records.empty() ? " " : head, object.members);
    for (RecordDifference const& record : object.records) { add(record.step, HeadOf(record, object), record.members); }
  }
  out << "</table>\n</body></html>\n";
}

}  // namespace gattr
