#include <sstream>

#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

/// What a displacement condition goes through: operations in short, each followed by the history or by the refusal's number.
struct Story {
  char const* steps;   ///< as StepLetters.h has them
  char const* create;  ///< the create step
  std::vector<std::pair<char const*, char const*>> operations;
};

/// "move S1 S3" as a command.
Json CommandOf(std::string const& operation) {
  std::istringstream words(operation);
  std::string verb, first, second;
  words >> verb >> first >> second;
  Json command = {{"command", verb}, {"boundaryCondition", "BC"}};
  if (verb == "modify") { return {{"command", "setValuesInStep"}, {"boundaryCondition", "BC"}, {"stepName", first}, {"u2", 0.5}}; }
  if (verb == "redefine") { return {{"command", "setValues"}, {"boundaryCondition", "BC"}, {"u2", 0.0}}; }
  if (verb == "move") {
    command["fromStepName"] = first;
    command["toStepName"] = second;
  } else if (verb == "insertP") {
    return {{"command", "StaticLinearPerturbationStep"}, {"name", "New"}, {"previous", first}};
  } else if (verb == "deleteStep") {
    return {{"command", "delete"}, {"step", first}};
  } else {
    command["stepName"] = first;
  }
  return command;
}

class Histories : public CommandTest, public ::testing::WithParamInterface<Story> {};

TEST_P(Histories, FollowEveryCommand) {
  Story const& story = GetParam();
  Session session;
  session.SetTrace(true);
  AppendSteps(session, story.steps);
  Json const create = {{"command", "DisplacementBC"}, {"name", "BC"}, {"createStepName", story.create}, {"u1", 0.0}};
  ASSERT_TRUE(session.Execute(create).ok);
  for (auto const& [operation, expected] : story.operations) {
    if (*operation == '\0') {
      EXPECT_EQ(HistoryOf(session, "BC"), expected) << "as created";
      continue;
    }
    ddr_Model const before = session.Model();
    Outcome const outcome = session.Execute(CommandOf(operation));
    if (std::string_view(expected).starts_with("kbc ")) {
      EXPECT_FALSE(outcome.ok) << operation;
      EXPECT_EQ(outcome.refused.module + " " + std::to_string(outcome.refused.code), expected) << operation;
      EXPECT_TRUE(session.Model().Equals(before)) << operation << ": a refusal leaves the model as it was";
    } else {
      EXPECT_TRUE(outcome.ok) << operation << ": " << outcome.message;
      EXPECT_EQ(HistoryOf(session, "BC"), expected) << operation;
      ASSERT_EQ(outcome.history.size(), 1U);
      EXPECT_EQ(outcome.history[0].first, "BC");
      EXPECT_EQ(outcome.history[0].second.size(), BoundaryConditions(session).Steps().Size());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Displacement, Histories,
    ::testing::Values(
        Story{"IGGGG",
              "S2",
              {{"", "0 0 1 2 2"},
               {"modify S3", "0 0 1 3 2"},
               {"deactivate S4", "0 0 1 3 4"},
               {"reset S4", "0 0 1 3 2"},
               {"reset S3", "kbc 57"},
               {"remove S3", "0 0 1 2 2"}}},
        Story{"IGGGG",
              "Initial",
              {{"", "1 9 9 9 9"}, {"modify S2", "1 9 10 2 2"}, {"deactivate S3", "1 9 10 4 5"}, {"reset S3", "1 9 10 2 2"}}},
        Story{"IGGGG", "S1", {{"modify S3", "0 1 2 3 2"}, {"deactivate S2", "0 1 4 5 5"}, {"reset S2", "0 1 2 3 2"}}},
        Story{"IGPGP",
              "S1",
              {{"", "0 1 9 2 9"},
               {"modify S2", "0 1 10 2 9"},
               {"deactivate S2", "0 1 11 2 9"},
               {"reset S2", "0 1 9 2 9"},
               {"deactivate S1", "0 4 5 5 5"}}},
        Story{"IGFMCG", "S1", {{"", "0 1 9 12 12 2"}, {"deactivate S2", "0 1 11 5 5 2"}}},
        Story{"IGFMCG", "S1", {{"deactivate S3", "kbc 9"}, {"modify S3", "kbc 0"}}}, Story{"IGFMG", "S2", {{"", "0 0 1 12 7"}}},
        Story{"IESG", "S1", {{"", "0 1 12 2"}}},
        Story{"IGPPG", "S2", {{"", "0 0 1 7 7"}, {"modify S3", "kbc 0"}, {"move S2 S4", "kbc 38"}}},
        Story{"IXXAX", "S1", {{"", "0 1 2 6 2"}, {"deactivate S2", "0 1 4 6 5"}}}, Story{"IGPGG", "S1", {{"move S1 S3", "0 0 0 1 2"}}},
        Story{"IGGGG", "S1", {{"modify S3", "0 1 2 3 2"}, {"move S1 S4", "kbc 27"}, {"move S1 S3", "kbc 28"}, {"move S3 S4", "0 1 2 2 3"}}},
        Story{"IGG", "S1", {{"deactivate S1", "0 4 5"}, {"reset S1", "kbc 19"}, {"redefine", "0 1 2"}}},
        Story{"IGGG", "S1", {{"deactivate S2", "0 1 4 5"}, {"insertP S1", "0 1 9 4 5"}}},
        Story{"IGGG", "S1", {{"deactivate S2", "0 1 4 5"}, {"deleteStep S2", "0 1 2"}}},
        Story{"IGG", "S1", {{"remove S1", "0 0 0"}, {"redefine", "kbc 0"}}}),
    [](auto const& row) { return std::string(row.param.steps) + "From" + row.param.create + "_" + std::to_string(row.index); });

}  // namespace
}  // namespace gattr
