#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

class GeneralContact : public CommandTest {
protected:
  GeneralContact() {
    AppendSteps(session_, "IXXX");
    RunJournal(session_, {R"({"command": "Surface", "name": "A"})", R"({"command": "Surface", "name": "B"})",
                          R"({"command": "ContactExp", "name": "GC", "createStepName": "S1", "useAllstar": true})"});
  }
  /// The line of a command on the contact, with \p rest behind its name.
  static cls_Value On(std::string const& command, std::string const& rest) {
    return Line(R"({"command": ")" + command + R"(", "interaction": "GC")" + (rest.empty() ? "" : ", " + rest) + "}");
  }
  std::string Report() { return session_.Execute(On("report", "")).report; }

  Session session_;
};

TEST_F(GeneralContact, IsEditedListByListAndTakenBackLineByLine) {
  std::pair<char const*, char const*> const edits[] = {
      {"addPairs", R"("stepName": "S1", "pairs": [{"region1": "A", "region2": "B"}, {"region1": "B", "region2": "B"}])"},
      {"removePairs", R"("stepName": "S2", "pairs": [{"region1": "B", "region2": "A"}])"},
      {"addPairs", R"("stepName": "S3", "pairs": [{"region1": "A", "region2": "B"}], "excluded": true)"},
      {"appendInStep", R"("stepName": "S2", "pairs": [{"region1": "A"}, {}], "surfaceOffsetAssignment": [{"definition": "SPOS"}, {}])"},
      {"changeValuesInStep", R"("stepName": "S3", "indices": [0], "surfaceOffsetAssignment": [{"definition": "SPECIFIED", "value": 0.5}])"},
      {"deleteAssignments", R"("surfaceOffsetAssignment": [1])"},
  };
  std::vector<std::string> reports = {Report()};
  for (auto const& [command, rest] : edits) {
    Outcome const tried = session_.Execute(On(command, std::string(rest) + R"(, "dryRun": true)"));
    EXPECT_TRUE(tried.ok) << tried.message;
    EXPECT_EQ(Report(), reports.back()) << "tried only";
    Outcome const outcome = session_.Execute(On(command, rest));
    ASSERT_TRUE(outcome.ok) << outcome.message;
    reports.push_back(Report());
    EXPECT_NE(reports.back(), reports[reports.size() - 2]) << command;
  }
  EXPECT_NE(reports.back().find("\tSTEP: S3\n\t\t[A : (SPECIFIED , 0.5)]\tSET\n SURF FEATURE"), std::string::npos) << reports.back();
  Session again;
  for (cls_Value const& line : session_.Journal()) { EXPECT_TRUE(again.Execute(line).ok) << JsonText(line); }
  EXPECT_TRUE(again.Model().Equals(session_.Model())) << "a report is no line of the journal";
  for (; reports.size() > 1; reports.pop_back()) {
    EXPECT_EQ(Report(), reports.back());
    EXPECT_TRUE(session_.Undo());
  }
  EXPECT_EQ(Report(), reports.back());
}

TEST_F(GeneralContact, RefusesWhatItsListsDoNotHave) {
  RunJournal(session_, {R"({"command": "addPairs", "interaction": "GC", "stepName": "S1", "pairs": [{"region1": "A", "region2": "B"}]})"});
  struct {
    char const* command;
    char const* rest;
    int code;
    char const* message;
  } const rows[] = {
      {"addPairs", R"("stepName": "S2", "pairs": [{"region1": "B", "region2": "A"}], "excluded": true)", -1, "already"},
      {"addPairs", R"("stepName": "S2", "pairs": [])", -1, "no pairs to add"},
      {"addPairs", R"("stepName": "S2", "pairs": [{"region1": "A", "region2": "C"}])", -1, R"(There is no region "C")"},
      {"addPairs", R"("stepName": "S9", "pairs": [{"region1": "A"}])", 77, ""},
      {"addPairs", R"("stepName": "Initial", "pairs": [{"region1": "A"}])", 1, "begins in \"S1\""},
      {"removePairs", R"("stepName": "S2", "pairs": [{"region1": "A"}])", -1, "does not take part"},
      {"appendInStep", R"("stepName": "S2", "pairs": [{}], "surfaceOffsetAssignment": [{}, {}])", -1, "There are 1 pair and 2 values"},
      {"appendInStep", R"("stepName": "S2", "pairs": [{}], "surfaceOffsetAssignment": [{}], "masterSlaveAssignment": [{}])", -1,
       "one kind"},
      {"appendInStep", R"("stepName": "S2", "pairs": [{}], "surfaceOffsetAssignment": [{"definition": "UP"}])", -1, "definition"},
      {"changeValuesInStep", R"("stepName": "S2", "indices": [0], "surfaceOffsetAssignment": [{}])", -1, "no assignment 0"},
      {"deleteAssignments", R"("surfaceOffsetAssignment": [0])", -1, "does not exist"},
      {"appendInStep", R"("stepName": "S2", "pairs": [{"region1": "A"}], "contactPropertyAssignment": [""])", 3, ""},
  };
  std::string const report = Report();
  for (auto const& row : rows) {
    Outcome const outcome = session_.Execute(On(row.command, row.rest));
    EXPECT_FALSE(outcome.ok) << row.rest;
    EXPECT_EQ(outcome.refused.code, row.code) << outcome.message;
    EXPECT_NE(outcome.message.find(row.message), std::string::npos) << outcome.message;
    EXPECT_EQ(Report(), report);
  }
  RunJournal(session_, {JsonText(On("suppress", ""))});
  EXPECT_EQ(session_.Execute(On("deleteAssignments", R"("surfaceOffsetAssignment": [0])")).refused.code, 117);
  EXPECT_EQ(Report().find("STEP"), std::string::npos);
}

}  // namespace
}  // namespace gattr
