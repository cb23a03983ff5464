#pragma once

#include <array>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "command/Command.h"
#include "tests/command/CommandTest.h"

namespace gattr {

/// Steps and what attributes refer to, for commands at random.
inline void BeginAny(Session& session, unsigned seed) {
  RunJournal(session, {R"({"command": "Set", "name": "Set-1"})", R"({"command": "Set", "name": "Set-2"})",
                       R"({"command": "Surface", "name": "Surf-1"})", R"({"command": "Surface", "name": "Surf-2"})",
                       R"({"command": "Amplitude", "name": "Ramp"})"});
  AppendSteps(session, std::array{"IGPGG", "IXXX", "ITGTG", "IGFMG"}[seed % 4]);
}

/// Commands at random on every family of the model, on steps and on what both refer to.
class AnyCommands {
public:
  AnyCommands(Session const& session, unsigned seed) : session_(session), random_(seed) {
    ForEachRepository(session.Model(), [&](auto const&, kprC_StepAwareRepository const& repository) {
      for (auto const& construction : repository.Constructions()) { types_.emplace_back(&repository, construction.command); }
    });
  }

  Json Next() {
    std::string const step = Step(), other = Step();
    switch (Below(16)) {
      case 0: return With(NewStep("GGGPFEXHTAG"[Below(11)], step), {{"previous", Below(2) == 0 ? "Initial" : other}});
      case 1: return {{"command", Below(3) == 0 ? "delete" : "rename"}, {"step", step}, {"newName", other}};
      case 2: {
        char const letter = "GGPFEHT"[Below(7)];
        return With({{"command", "replace"},
                     {"step", step},
                     {"procedure", StepCommand(letter)},
                     {"maintainAttributes", Below(2) == 0},
                     {"replacementPolicy", Below(2) == 0 ? "SUBSTITUTE" : "SUBSTITUTE_DELETE"}},
                    StepArguments(letter));
      }
      case 3:
        return Below(2) == 0 ? Json{{"command", "setValues"}, {"step", step}, {"adiabatic", Below(2) == 0}}
                             : Json{{"command", "setValues"}, {"step", step}, {"maxNumInc", Below(50)}};
      case 4: return {{"command", "setValues"}, {"region", Region(Below(2) == 0)}, {"dimension", Below(4)}};
      default: return OnAttribute(step, other);
    }
  }
  int Below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }

private:
  static Json With(Json command, Json const& arguments) {
    command.update(arguments);
    return command;
  }
  std::string Step() { return Below(6) == 0 ? "Initial" : "S" + std::to_string(1 + Below(6)); }
  std::string Region(bool surface) { return (surface ? "Surf-" : "Set-") + std::to_string(1 + Below(2)); }
  std::string Name() { return "A" + std::to_string(Below(3)); }

  Json Value(cls_MemberInfo const& info) {
    if (info.propagating && Below(6) == 0) { return Below(2) == 0 ? "UNSET" : "FREED"; }
    Json value;
    switch (info.kind) {
      case cls_MemberKind::Integer: value = Below(4); break;
      case cls_MemberKind::Real: value = Below(3) - 0.5; break;
      case cls_MemberKind::Boolean: value = Below(2) == 0; break;
      case cls_MemberKind::Enumerated:
        if (!info.permissible.empty()) {
          value = info.permissible[static_cast<std::size_t>(Below(static_cast<int>(info.permissible.size())))];
        }
        break;
      default:
        value = info.refers == cls_Reference::Region ? Region(Below(2) == 0) : info.refers == cls_Reference::Amplitude ? "Ramp" : "Any";
    }
    return info.many ? Json::array({value}) : value;
  }
  void AddMembers(Json& command, cls_Object const& object, int often) {
    for (MemberArgument const& argument : MemberArguments(object)) {
      bool const isRegion = argument.info->refers == cls_Reference::Region;
      if (Below(isRegion && often > 0 ? 2 : 4 + often) == 0) { command[std::string(argument.argument)] = Value(*argument.info); }
    }
  }
  Json OnAttribute(std::string const& step, std::string const& other) {
    auto const& [repository, type] = types_[static_cast<std::size_t>(Below(static_cast<int>(types_.size())))];
    std::unique_ptr<kprC_StepDependent> const fresh = repository->Construct(type);
    fresh->Begin("S", kprC_FindProcedure(kprC_ConstructStep("StaticStep")->DynTypeId())->type);
    std::string const kind(repository->ItemCmd());
    // one that there is, most of the time
    auto const& present = *mdl_ExtensionAs<kprC_StepAwareRepository>(&PresentOf(*repository));
    std::string name = Name();
    auto const keys = present.Keys();
    if (keys.Size() != 0 && Below(8) != 0) { name = keys[static_cast<std::size_t>(Below(static_cast<int>(keys.Size())))].View(); }
    kprC_StepDependent const* const item = present.ConstItem(name);
    if (item == nullptr || Below(6) == 0) {
      Json command = {{"command", std::string(type)}, {"name", Name()}, {"createStepName", step}};
      AddMembers(command, *fresh, 0);
      AddMembers(command, *fresh->StateAt(0), Below(3));
      return command;
    }
    Json command = {{"command", ""}, {kind, name}};
    int const what = Below(20);
    auto const edits = repository->TypeEdits();
    if (!edits.empty() && Below(2) == 0) {
      kprC_TypeEdit const& edit = edits[static_cast<std::size_t>(Below(static_cast<int>(edits.size())))];
      if (edit.typeId == item->DynTypeId()) { return TypeEdit(command, edit, step); }
    }
    if (what < 7) {
      command["command"] = what == 0 ? "setValues" : "setValuesInStep";
      if (what != 0) { command["stepName"] = step; }
      if (cls_Object const* const state =
              item->CreateStepName().IsEmpty() ? nullptr : item->StateAt(item->Steps().Find(item->CreateStepName()))) {
        AddMembers(command, *state, 1);
      }
      return command;
    }
    if (what < 16) {
      auto const operations = repository->Operations();
      if (operations.empty()) { return With(command, {{"command", "suppress"}}); }
      auto const& operation = operations[static_cast<std::size_t>(Below(static_cast<int>(operations.size())))];
      bool const moves = operation.effect == kprC_Effect::Move;
      command["command"] = std::string(operation.command);
      return With(command, moves ? Json{{"fromStepName", step}, {"toStepName", other}} : Json{{"stepName", step}});
    }
    if (what == 16) { return With(command, {{"command", "remove"}, {"stepName", step}}); }
    if (what == 17) { return With(command, {{"command", Below(3) == 0 ? "delete" : "copy"}, {"newName", Name()}}); }
    return With(command, {{"command", Below(3) == 0 ? "suppress" : "resume"}});
  }
  Json TypeEdit(Json command, kprC_TypeEdit const& edit, std::string const& step) {
    command["command"] = std::string(edit.command);
    if (edit.inStep) { command["stepName"] = step; }
    std::unique_ptr<cls_Object> const arguments = edit.arguments();
    int kinds = 0;
    for (MemberArgument const& argument : MemberArguments(*arguments)) {
      bool const isPairs = argument.argument == "pairs", isFlag = argument.info->kind == cls_MemberKind::Boolean;
      if (isPairs) {
        std::string const second = Region(true);
        command["pairs"] = {{{"region1", Region(true)}, {"region2", second}}};
      } else if (isFlag || argument.argument == "indices") {
        command[std::string(argument.argument)] = isFlag ? Json(Below(2) == 0) : Json{Below(3)};
      } else if (argument.argument == "surfaceThicknessAssignment" && kinds++ == 0) {
        command["surfaceThicknessAssignment"] =
            edit.command == "deleteAssignments" ? Json{Below(3)} : Json{{{"scaleFactor", 1.0 + Below(3)}}};
      }
    }
    return command;
  }
  mdl_Extension const& PresentOf(kprC_StepAwareRepository const& repository) const {
    mdl_Extension const* found = nullptr;
    ForEachRepository(session_.Model(), [&](auto const&, kprC_StepAwareRepository const& one) {
      if (one.ItemCmd() == repository.ItemCmd()) { found = &one; }
    });
    return *found;
  }

  Session const& session_;
  std::mt19937 random_;
  std::vector<std::pair<kprC_StepAwareRepository const*, std::string_view>> types_;
};

}  // namespace gattr
