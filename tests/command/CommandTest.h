#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "command/Check.h"
#include "command/Session.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"
#include "text/Json.h"
#include "text/JsonText.h"

namespace gattr {

using CommandTest = test::WithLibrary;

/// A command as it is written in a journal.
inline cls_Value Line(std::string_view text) { return ParseJson(text); }
/// A command that was put together.
inline cls_Value CommandOf(Json const& command) { return Line(command.dump()); }

/// Runs a journal, each line of which must succeed.
inline void RunJournal(Session& session, std::vector<std::string> const& lines) {
  for (std::string const& line : lines) {
    Outcome const outcome = session.Execute(Line(line));
    ASSERT_TRUE(outcome.ok) << line << "\n" << outcome.message;
  }
}

/// What stands in the way of solving the model.
inline std::vector<Finding> ErrorsOf(ddr_Model const& model) {
  std::vector<Finding> findings = Check(model);
  std::erase_if(findings, [](Finding const& finding) { return finding.Row().severity != Severity::Error; });
  return findings;
}

/// The construction command of a step by its letter (StepLetters.h).
inline std::string StepCommand(char letter) { return std::string(kprC_FindProcedure(test::StepOf(letter)->DynTypeId())->command.View()); }

/// What a step of that letter must be given beside its name.
inline Json StepArguments(char letter) {
  switch (letter) {
    case 'G': return {{"initialInc", 0.1}};
    case 'E': return {{"initialInc", 0.1}, {"haftol", 1.0}};
    case 'H':
    case 'T': return {{"initialInc", 0.1}, {"deltmx", 10.0}};
    case 'F': return {{"numEigen", 10}};
    case 'U': return Json::parse(R"({"frequencyRange": [{"lower": 1.0, "upper": 10.0}]})");
    default: return Json::object();
  }
}
/// The command that makes a step.
inline Json NewStep(char letter, std::string const& name) {
  Json command = {{"command", StepCommand(letter)}, {"name", name}};
  command.update(StepArguments(letter));
  return command;
}

/// Appends steps S1, S2, ... for the letters behind the "I" of the initial one.
inline void AppendSteps(Session& session, std::string_view letters) {
  for (std::size_t i = 1; i < letters.size(); ++i) { RunJournal(session, {NewStep(letters[i], "S" + std::to_string(i)).dump()}); }
}

inline kprC_StepAwareRepository const& BoundaryConditions(Session const& session) {
  return session.Model().ConstGet<kprC_StepAwareRepository>(ddr_Model::bcCmd());
}

/// "0 1 2 3".
inline std::string HistoryOf(Session const& session, std::string_view name) {
  std::string text;
  kprC_StepDependent const* item = BoundaryConditions(session).ConstItem(name);
  if (item == nullptr) { return "none"; }
  for (mdl_PropagationStatusEnm const status : item->History()) {
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(status));
  }
  return text;
}

}  // namespace gattr
