#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "command/Session.h"
#include "framework/kprC_StepAwareRepository.h"
#include "module/DDB_GeometricAttributes.h"

namespace gattr {

/// Runs with the library started.
class CommandTest : public ::testing::Test {
protected:
  CommandTest() { DDB_GeometricAttributes_initialize(started_); }
  ~CommandTest() override { DDB_GeometricAttributes_finalize(started_); }

private:
  int started_ = 0;
};

/// A command as it is written in a journal.
inline Json Line(std::string_view text) { return Json::parse(text); }

/// Runs a journal, each line of which must succeed.
inline void RunJournal(Session& session, std::vector<std::string> const& lines) {
  for (std::string const& line : lines) {
    Outcome const outcome = session.Execute(Line(line));
    ASSERT_TRUE(outcome.ok) << line << "\n" << outcome.message;
  }
}

/// The construction command of a step by its letter.
inline std::string StepCommand(char letter) {
  switch (letter) {
    case 'G': return "StaticStep";
    case 'E': return "ImplicitDynamicsStep";
    case 'X': return "ExplicitDynamicsStep";
    case 'A': return "AnnealStep";
    case 'P': return "StaticLinearPerturbationStep";
    case 'F': return "FrequencyStep";
    case 'M': return "ModalDynamicsStep";
    case 'C': return "ComplexFrequencyStep";
    case 'S': return "SubspaceDynamicsStep";
    default: return "";
  }
}

/// Appends steps S1, S2, ... for the letters behind the "I" of the initial one.
inline void AppendSteps(Session& session, std::string_view letters) {
  for (std::size_t i = 1; i < letters.size(); ++i) {
    RunJournal(session, {R"({"command": ")" + StepCommand(letters[i]) + R"(", "name": "S)" + std::to_string(i) + R"("})"});
  }
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
