#include <gmock/gmock.h>

#include <sstream>

#include "command/Recreate.h"
#include "store/TextStore.h"
#include "tests/command/CommandTest.h"

namespace gattr {
namespace {

using ::testing::HasSubstr;

class Curves : public CommandTest {
protected:
  Curves() {
    RunJournal(session_,
               {R"({"command": "TabularAmplitude", "name": "Ramp", "timeSpan": "TOTAL", "points": [[0, 0], [1, 1]]})",
                R"({"command": "SmoothStepAmplitude", "name": "Smooth", "points": [[0, 0], [1, 1]], "description": "no jump"})",
                R"({"command": "PeriodicAmplitude", "name": "Swing", "frequency": 6.28, "start": 0.5, "coefficients": [[0, 1]]})",
                R"({"command": "DecayAmplitude", "name": "Blast", "decayTime": 0.01})", R"({"command": "Amplitude", "name": "Ours"})",
                R"({"command": "setValues", "amplitude": "Blast", "jump": 30.0})"});
  }
  Session session_;
};

TEST_F(Curves, AreRefusedWithoutANumberWhereTheyMakeNoSense) {
  std::string const ramp = R"({"command": "setValues", "amplitude": "Ramp", )";
  std::string const swing = R"({"command": "setValues", "amplitude": "Swing", )";
  std::string const blast = R"({"command": "setValues", "amplitude": "Blast", )";
  std::pair<std::string, char const*> const rows[] = {
      {ramp + R"("points": [[0, 0], [1, 1], [1, 2]]})", "that of point 3 is not above the one before"},
      {ramp + R"("points": []})", "\"points\" of an amplitude is a list of rows of two numbers, at least one row."},
      {ramp + R"("points": [[1], [2]]})", "rows of two numbers"},
      {ramp + R"("points": [[1, null]]})", "expected a list of rows of one length"},
      {ramp + R"("timeSpan": "ALL"})", R"(expected one of "STEP", "TOTAL")"},
      {R"({"command": "SmoothStepAmplitude", "name": "New"})", "at least one row"},
      {swing + R"("frequency": 0})", "\"frequency\" of an amplitude is a number above 0."},
      {swing + R"("start": null})", "\"start\" of an amplitude is a number."},
      {swing + R"("coefficients": [[1]]})", "rows of two numbers"},
      {R"({"command": "DecayAmplitude", "name": "New"})", "\"decayTime\" of an amplitude is a number above 0."},
      {blast + R"("decayTime": -1})", "number above 0"},
      {blast + R"("jump": null})", "\"jump\" of an amplitude is a number."},
      {R"({"command": "setValues", "amplitude": "Ours", "points": [[0, 0]]})", "There is no argument \"points\""},
  };
  for (auto const& [line, text] : rows) {
    ddr_Model const before = session_.Model();
    Outcome const outcome = session_.Execute(Line(line));
    EXPECT_FALSE(outcome.ok) << line;
    EXPECT_THAT(outcome.message, HasSubstr(text)) << line;
    EXPECT_LT(outcome.refused.code, 0) << line;
    EXPECT_TRUE(session_.Model().Equals(before)) << line;
  }
}

TEST_F(Curves, ComeBackFromTextsAndFromTheCommandsThatMakeThem) {
  std::stringstream text;
  WriteText(session_.Model(), text);
  EXPECT_TRUE(ReadText(text, "text").Equals(session_.Model()));
  Session again;
  EXPECT_TRUE(Recreate(session_.Model(), [&](cls_Value const& command) { again.Execute(command); }).empty());
  EXPECT_TRUE(again.Model().Equals(session_.Model()));
}

}  // namespace
}  // namespace gattr
