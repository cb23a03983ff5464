#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "module/kpr/family/kprC_Constructor.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// The tables of a family's page, made from what the library itself goes by.
namespace test {

/// A type as a page shows it: the head of its column and the construction commands that make it.
template <class Attribute> struct PageType {
  std::string head;
  std::vector<kprC_Constructor<Attribute>> commands;
};

inline std::string Joined(std::vector<std::string> const& texts, std::string_view separator = ", ") {
  std::string joined;
  for (std::string const& text : texts) { joined.append(joined.empty() ? "" : separator).append(text); }
  return joined;
}
inline std::string Row(std::vector<std::string> const& cells) { return "| " + Joined(cells, " | ") + " |\n"; }
/// Head and rule of a table. Columns from \p centred on are narrow.
inline std::string Head(std::vector<std::string> const& cells, std::size_t centred) {
  std::vector<std::string> rule(cells.size(), "---");
  std::fill(rule.begin() + static_cast<std::ptrdiff_t>(centred), rule.end(), ":-:");
  return Row(cells) + "|" + Joined(rule, "|") + "|\n";
}

/// The head under which a page shows the types of a label.
struct PageHead {
  char const* head;
  std::string_view label;
};

/// The types of a family by head and label, each head with the commands of its label. Every type must have its head.
template <class Attribute>
std::vector<PageType<Attribute>> PageTypes(std::span<kprC_Constructor<Attribute> const> constructors, std::span<PageHead const> heads) {
  std::vector<PageType<Attribute>> types;
  std::size_t shown = 0;
  for (auto const& [head, label] : heads) {
    auto& type = types.emplace_back(PageType<Attribute>{head, {}});
    std::ranges::copy_if(constructors, std::back_inserter(type.commands),
                         [label = label](auto const& constructor) { return constructor.label == label; });
    shown += type.commands.size();
  }
  EXPECT_EQ(shown, constructors.size()) << "types without a head, or heads of one label";
  return types;
}

/// The members that the class \p typeId has beside those of \p baseId and those that the page tells of in words, \p told,
/// with their units: "`u1`, `u2` (length), `fixed`".
inline std::string OwnMembers(unsigned typeId, unsigned baseId, std::set<std::string> const& told) {
  cls_ClassRegistrar const& classes = cls_MetadataRegistrar::Registrar();
  std::string members, unit;
  auto const closeUnit = [&] { members += unit.empty() ? "" : " (" + unit + ")"; };
  for (cls_MemberInfo const& member : classes.Find(typeId)->members) {
    if (classes.Find(baseId)->Find(member.name) != nullptr || told.contains(member.name)) { continue; }
    if (member.unit != unit) { closeUnit(); }
    members += (members.empty() ? "`" : ", `") + member.name + "`";
    unit = member.unit;
  }
  closeUnit();
  return members;
}

/// Head, commands, label, category and own members of each type, without those that the page tells of in words.
template <class Attribute> std::string TableOfTypes(std::vector<PageType<Attribute>> const& types, std::set<std::string> const& told = {}) {
  std::string table = Head({"short", "command", "label", "category", "members"}, 5);
  for (PageType<Attribute> const& type : types) {
    auto const item = type.commands.front().make();
    std::vector<std::string> commands, members;
    for (auto const& constructor : type.commands) { commands.push_back("`" + std::string(constructor.command) + "`"); }
    for (std::string const& own : {OwnMembers(item->DynTypeId(), Attribute::TypeId(), told),
                                   OwnMembers(item->NewState()->DynTypeId(), Attribute::State::TypeId(), told)}) {
      if (!own.empty()) { members.push_back(own); }
    }
    omu_PrimEnum<typename Attribute::CategoryEnm, 1> const category(item->Category());
    table += Row({type.head, Joined(commands), item->Label(), std::string(category.View()), Joined(members)});
  }
  return table;
}

/// Types by procedures: ● may be created there, ○ is only carried into it. Types with the same answers share a column,
/// procedures with the same answers a row.
template <class Attribute> std::string TableOfAdmission(std::vector<PageType<Attribute>> const& types) {
  std::vector<std::string> names = {"Initial"};
  std::vector<unsigned> procedures = {kprC_ProcedureType::Initial};
  for (bool const perturbation : {false, true}) {
    for (kprC_ProcedureRow const& row : kprC_procedures) {
      if (kprC_perturbationProcedures.Contains(row.type) != perturbation) { continue; }
      std::string_view const command = row.command;
      names.emplace_back(command.substr(0, command.size() - std::string_view("Step").size()));
      procedures.push_back(row.type);
    }
  }

  struct Line {
    std::vector<std::string> heads;
    std::vector<std::string> marks;
  };
  auto const add = [](std::vector<Line>& lines, std::string const& head, std::vector<std::string> const& marks) {
    auto same = std::ranges::find(lines, marks, &Line::marks);
    if (same == lines.end()) { same = lines.insert(same, {{}, marks}); }
    if (std::ranges::find(same->heads, head) == same->heads.end()) { same->heads.push_back(head); }
  };
  std::vector<Line> columns, rows;
  for (PageType<Attribute> const& type : types) {
    auto const item = type.commands.front().make();
    std::vector<std::string> marks;
    for (unsigned const procedure : procedures) {
      marks.emplace_back(item->Admits(procedure, false) ? "●" : item->Admits(procedure, true) ? "○" : " ");
    }
    add(columns, type.head, marks);
  }
  for (std::size_t i = 0; i < procedures.size(); ++i) {
    std::vector<std::string> marks;
    for (Line const& column : columns) { marks.push_back(column.marks[i]); }
    add(rows, names[i], marks);
  }

  std::vector<std::string> heads = {"procedure"};
  for (Line const& column : columns) { heads.push_back(Joined(column.heads, " ")); }
  std::string table = Head(heads, 1);
  for (Line const& row : rows) {
    std::vector<std::string> cells = {Joined(row.heads)};
    cells.insert(cells.end(), row.marks.begin(), row.marks.end());
    table += Row(cells);
  }
  return table;
}

}  // namespace test
