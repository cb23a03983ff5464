#include "report/RenderHistory.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/Library.h"
#include "text/JsonText.h"

namespace gattr {
namespace {

HistoryTable Small() {
  HistoryTable table;
  table.model = "forming";
  table.steps = {{"Initial", "INITIAL"}, {"Draw", "STATIC_GENERAL"}, {"Modes", "FREQUENCY", true}};
  table.rows = {{"Die", "boundaryCondition", "EncastreBC", false, {1, 9, 9}},
                {"冲头", "boundaryCondition", "DisplacementBC", true, {0, 1, 11}}};
  return table;
}

template <class Render> std::string Rendered(Render&& render) {
  std::ostringstream out;
  render(out);
  return out.str();
}

TEST(RenderText, AlignsWordsUnderTheirSteps) {
  EXPECT_EQ(Rendered([](auto& out) { RenderText(out, Small(), {}); }),
            "attribute  type                         Initial  Draw            Modes\n"
            "                                        initial  static general  frequency\n"
            "Die        EncastreBC                   created  base state      base state\n"
            "冲头       DisplacementBC (suppressed)  -        created         off here\n");
}

TEST(RenderText, WrapsStepsInBlocksThatFitTheWidth) {
  std::string const text = Rendered([](auto& out) { RenderText(out, Small(), {52, false}); });
  EXPECT_EQ(text,
            "steps 1 to 1 of 3\n"
            "attribute  type                         Initial\n"
            "                                        initial\n"
            "Die        EncastreBC                   created\n"
            "冲头       DisplacementBC (suppressed)  -\n"
            "\n"
            "steps 2 to 3 of 3\n"
            "attribute  Draw            Modes\n"
            "           static general  frequency\n"
            "Die        base state      base state\n"
            "冲头       created         off here\n");
}

TEST(RenderText, KeepsToTheWidthWhateverTheNames) {
  HistoryTable table;
  for (int i = 0; i < 40; ++i) {
    table.steps.push_back({std::string(static_cast<std::size_t>(i), 'x') + "步", "STEADY_STATE_SUBSPACE", true});
    table.rows.push_back({"name" + std::string(static_cast<std::size_t>(i * 2), 'y'), "boundaryCondition", "DisplacementBC", false, {}});
  }
  for (auto& row : table.rows) { row.statuses.assign(table.steps.size(), 10); }
  std::istringstream lines(Rendered([&](auto& out) { RenderText(out, table, {90, false}); }));
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_LE(Width(line), 90U);
    EXPECT_FALSE(line.ends_with(' '));
  }
  EXPECT_GT(count, table.rows.size());
}

TEST(RenderText, ColoursWithoutChangingTheText) {
  std::string colored = Rendered([](auto& out) { RenderText(out, Small(), {0, true}); });
  EXPECT_NE(colored.find("\033[1;32mcreated\033[0m"), std::string::npos);
  for (std::size_t at = 0; (at = colored.find('\033')) != std::string::npos;) { colored.erase(at, colored.find('m', at) - at + 1); }
  EXPECT_EQ(colored, Rendered([](auto& out) { RenderText(out, Small(), {}); }));
}

TEST(RenderCompact, FitsAHundredStepsOfAnAttributeOnATerminal) {
  HistoryTable table;
  for (int i = 0; i <= 100; ++i) { table.steps.push_back({"Step-" + std::to_string(i), "STATIC_GENERAL"}); }
  std::vector<std::uint8_t> statuses(101, 2);
  statuses[0] = 0;
  statuses[1] = 1;
  statuses[60] = 3;
  table.rows = {{"Die", "boundaryCondition", "DisplacementBC", false, statuses}};
  EXPECT_EQ(Rendered([&](auto& out) {
              RenderCompact(out, table, {80, false});
            }),
            "attribute  type            0          10         20         30\n"
            "Die        DisplacementBC  .C======== ========== ========== ==========\n"
            "\n"
            "attribute  type            40         50         60         70\n"
            "Die        DisplacementBC  ========== ========== M========= ==========\n"
            "\n"
            "attribute  type            80         90         100\n"
            "Die        DisplacementBC  ========== ========== =\n"
            "\n"
            ". not yet created, C created, = propagated, M modified\n");
  EXPECT_EQ(Rendered([&](auto& out) {
              RenderRanges(out, table, {80, false});
            }),
            "attribute  type            from     to        steps  status\n"
            "Die        DisplacementBC  Step-0             1      -\n"
            "                           Step-1             1      created\n"
            "                           Step-2   Step-59   58     propagated\n"
            "                           Step-60            1      modified\n"
            "                           Step-61  Step-100  40     propagated\n");
}

TEST(RenderCsv, WritesALinePerAttribute) {
  EXPECT_EQ(Rendered([](auto& out) { RenderCsv(out, Small()); }),
            "name,kind,type,suppressed,Initial,Draw,Modes\r\n"
            "Die,boundaryCondition,EncastreBC,false,created,base state,base state\r\n"
            "冲头,boundaryCondition,DisplacementBC,true,not yet created,created,off here\r\n");
}

TEST(RenderJson, TellsStatusesByNumber) {
  Json const json = Json::parse(Rendered([](auto& out) { RenderJson(out, Small()); }));
  EXPECT_EQ(json["model"], "forming");
  EXPECT_EQ(json["steps"][2], Json::parse(R"({"name": "Modes", "procedure": "FREQUENCY", "perturbation": true})"));
  EXPECT_EQ(json["attributes"][1]["history"], Json({0, 1, 11}));
  Json const empty = Json::parse(Rendered([](auto& out) { RenderJson(out, {}); }));
  EXPECT_TRUE(empty["steps"].empty() && empty["attributes"].empty());
}

TEST(RenderHtml, HoldsNoMarkupOfANames) {
  HistoryTable table = Small();
  table.model = "</title><script>";
  table.rows[0].name = table.steps[0].name = "<img src=x onerror='a\"b'>";
  std::string const html = Rendered([&](auto& out) { RenderHtml(out, table); });
  EXPECT_EQ(html.find("<script"), std::string::npos);
  EXPECT_EQ(html.find("<img"), std::string::npos);
  EXPECT_NE(html.find("&lt;img src=x onerror=&#39;a&quot;b&#39;&gt;"), std::string::npos);
}

using Histories = test::WithLibrary;

TEST_F(Histories, OfAModelAreThoseThatItsCommandsTell) {
  Session session;
  session.SetTrace(true);
  Outcome last;
  for (char const* command :
       {R"({"command": "StaticStep", "name": "A", "initialInc": 0.1})", R"({"command": "FrequencyStep", "name": "B", "numEigen": 10})",
        R"({"command": "Set", "name": "S"})", R"({"command": "EncastreBC", "name": "Fix", "createStepName": "Initial", "region": "S"})",
        R"({"command": "DisplacementBC", "name": "Push", "createStepName": "A", "region": "S", "u1": 1.0})",
        R"({"command": "suppress", "boundaryCondition": "Push"})", R"({"command": "StaticStep", "name": "C", "initialInc": 0.1})"}) {
    last = session.Execute(ParseJson(command));
    ASSERT_TRUE(last.ok) << last.message;
  }
  HistoryTable const table = HistoriesOf(session.Model());
  ASSERT_EQ(table.rows.size(), last.history.size());
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    EXPECT_EQ(table.rows[i].name, last.history[i].first);
    EXPECT_EQ(std::vector<int>(table.rows[i].statuses.begin(), table.rows[i].statuses.end()), last.history[i].second);
  }
  EXPECT_EQ(table.rows[0].type, "EncastreBC");
  EXPECT_TRUE(table.rows[1].suppressed);
  EXPECT_EQ(table.steps[2].procedure, "FREQUENCY");

  HistoryTable const part = HistoriesOf(session.Model(), {{"Push"}, {"C", "A"}});
  ASSERT_EQ(part.rows.size(), 1U);
  ASSERT_EQ(part.steps.size(), 2U);
  EXPECT_EQ(part.steps[0].name, "A");
  EXPECT_EQ(part.rows[0].statuses[0], table.rows[1].statuses[1]);
  EXPECT_EQ(part.rows[0].statuses[1], table.rows[1].statuses[3]);
}

}  // namespace
}  // namespace gattr
