#include <gmock/gmock.h>

#include "tests/cli/Program.h"

namespace {

using Json = nlohmann::ordered_json;
using test::Ran;

class Tables : public test::Program {
protected:
  Tables() { made_ = Gattr({"replay", "-", "-o", "m.gadb"}, test::kJournal).status; }
  void SetUp() override { ASSERT_EQ(made_, 0); }

private:
  int made_;
};

TEST_F(Tables, HistoryShowsWordsAndFiltersBoth) {
  EXPECT_EQ(Gattr({"history", "m.gadb"}).out,
            "attribute  type            Initial  Step-1          Step-2\n"
            "                           initial  static general  static general\n"
            "Fix        DisplacementBC  -        created         propagated\n");
  EXPECT_EQ(Gattr({"history", "m.gadb", "--step", "Step-2", "--attribute", "Fix", "--format", "csv"}).out,
            "name,kind,type,suppressed,Step-2\r\nFix,boundaryCondition,DisplacementBC,false,propagated\r\n");
  EXPECT_NE(Gattr({"history", "m.gadb", "--format", "html"}).out.find("<td class=\"new\""), std::string::npos);
}

TEST_F(Tables, HistoryTellsRangesAndChangesOfWhatFitsAPattern) {
  ASSERT_EQ(Gattr({"replay", "-", "--on", "m.gadb", "-o", "m.gadb"},
                  R"({"command": "EncastreBC", "name": "Base", "createStepName": "Initial", "region": "Rim"}
{"command": "setValuesInStep", "boundaryCondition": "Fix", "stepName": "Step-2", "u1": "FREED", "u2": 0.5})")
                .status,
            0);
  EXPECT_EQ(Gattr({"history", "m.gadb", "--changes", "--type", "Disp*"}).out,
            "attribute  type            step    status    values\n"
            "Fix        DisplacementBC  Step-1  created   u1 0.0\n"
            "                           Step-2  modified  u1 FREED, u2 0.5\n");
  EXPECT_EQ(Gattr({"history", "m.gadb", "--ranges", "--attribute", "B?se", "--step", "Step*"}).out,
            "attribute  type        from    to      steps  status\n"
            "Base       EncastreBC  Step-1  Step-2  2      base state\n");
  EXPECT_EQ(Gattr({"history", "m.gadb", "--compact", "--status", "modified"}).out,
            "attribute  type            0\n"
            "Fix        DisplacementBC  .CM\n"
            "\n"
            ". not yet created, C created, M modified\n");
  for (std::vector<std::string> const& wrong : std::vector<std::vector<std::string>>{{"--compact", "--ranges"},
                                                                                     {"--changes", "--format", "csv"},
                                                                                     {"--status", "propagate"},
                                                                                     {"--attribute", "X*"},
                                                                                     {"--type", "BC"}}) {
    std::vector<std::string> arguments = {"history", "m.gadb"};
    arguments.insert(arguments.end(), wrong.begin(), wrong.end());
    EXPECT_EQ(Gattr(arguments).status, 2) << wrong.front();
  }
}

TEST_F(Tables, HistoryIsColouredWhenAskedAndNeverIntoAFileByItself) {
  EXPECT_EQ(Gattr({"history", "m.gadb"}).out.find('\033'), std::string::npos);
  EXPECT_NE(Gattr({"history", "m.gadb", "--color", "always"}).out.find('\033'), std::string::npos);
  EXPECT_EQ(Gattr({"history", "m.gadb", "--color", "never"}, "", "CLICOLOR_FORCE=1").out.find('\033'), std::string::npos);
}

TEST_F(Tables, StepsTellTheSequenceAndWhatMayFollow) {
  Json const steps = Json::parse(Gattr({"steps", "m.gadb", "--format", "json"}).out);
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(steps[1]["procedure"], "STATIC_GENERAL");
  EXPECT_EQ(steps[1]["timePeriod"], 1.0);
  EXPECT_EQ(steps[1]["maxNumInc"], 100);
  EXPECT_NE(Gattr({"steps", "m.gadb"}).out.find("2  Step-2   STATIC_GENERAL"), std::string::npos);

  Json const follow = Json::parse(Gattr({"steps", "m.gadb", "--may-follow", "Step-1", "--format", "json"}).out);
  EXPECT_EQ(follow.size(), 25U);
  for (Json const& row : follow) {
    EXPECT_EQ(row["mayFollow"].get<bool>(), row["whyNot"] == "");
    // what the table says is what a command meets
    std::string const label = row["procedure"];
    if (label == "FREQUENCY") { EXPECT_TRUE(row["mayFollow"]); }
    if (label == "MODAL_DYNAMICS") { EXPECT_NE(row["whyNot"].get<std::string>().find("FREQUENCY"), std::string::npos); }
    if (label == "STATIC_RIKS") { EXPECT_EQ(row["whyNot"], "The steps behind it could not follow it."); }
  }
  EXPECT_NE(Gattr({"replay", "-", "--on", "m.gadb"}, R"({"command": "StaticRiksStep", "name": "R", "previous": "Step-1"})").status, 0);
  EXPECT_EQ(
      Gattr({"replay", "-", "--on", "m.gadb"}, R"({"command": "FrequencyStep", "name": "F", "previous": "Step-1", "numEigen": 10})").status,
      0);
}

TEST_F(Tables, CheckFindsNothingInASoundModelAndTellsWhatItFinds) {
  Ran const sound = Gattr({"check", "m.gadb"});
  EXPECT_EQ(sound.status, 0);
  EXPECT_EQ(sound.out, "nothing found\n");
  EXPECT_EQ(Gattr({"check", "m.gadb", "--format", "json"}).out, "[]\n");

  // a region that is gone: only a text edited by hand can lack it
  std::string text = Gattr({"dump", "m.gadb"}).out;
  std::size_t const at = text.find("\"Rim\"", text.find("\"region\":"));
  ASSERT_NE(at, std::string::npos);
  text.replace(at, 5, R"({"name": "Gap"})");
  Write("gap.gattr.json", text);
  Ran const found = Gattr({"check", "gap.gattr.json", "--format", "json", "--disable", "GA017"});
  EXPECT_EQ(found.status, 1) << found.err;
  Json const findings = Json::parse(found.out);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0]["name"], "Fix");
  Ran const shown = Gattr({"check", "gap.gattr.json"});
  EXPECT_EQ(shown.status, 1);
  EXPECT_NE(shown.out.find("boundaryCondition  Fix"), std::string::npos);
  EXPECT_NE(shown.out.find("Gap"), std::string::npos);
}

TEST_F(Tables, DumpAndLoadGiveTheSameTextAgain) {
  std::string const text = Gattr({"dump", "m.gadb"}).out;
  EXPECT_EQ(Gattr({"dump", "m.gadb", "-o", "m.gattr.json"}).status, 0);
  EXPECT_EQ(Read("m.gattr.json"), text);
  EXPECT_EQ(Gattr({"load", "m.gattr.json", "-o", "again.gadb"}).status, 0);
  EXPECT_EQ(Gattr({"dump", "again.gadb"}).out, text);
  EXPECT_EQ(Gattr({"load", "-", "-o", "piped.gattr.json"}, text).status, 0);
  EXPECT_EQ(Read("piped.gattr.json"), text);
  EXPECT_EQ(Gattr({"history", "m.gattr.json"}).out, Gattr({"history", "m.gadb"}).out);
}

TEST_F(Tables, DescribeTellsMembersWhateverTheCaseOfTheName) {
  Json const command = Json::parse(Gattr({"describe", "displacementbc", "--format", "json"}).out);
  EXPECT_EQ(command["class"], "kbcC_DisplacementBC");
  auto const created = command["createdIn"].get<std::vector<std::string>>();
  EXPECT_NE(std::find(created.begin(), created.end(), "STATIC_GENERAL"), created.end());
  EXPECT_EQ(std::find(created.begin(), created.end(), "ANNEAL"), created.end());
  auto const carried = command["carriedInto"].get<std::vector<std::string>>();
  EXPECT_NE(std::find(carried.begin(), carried.end(), "MODAL_DYNAMICS"), carried.end());
  auto const member = [](Json const& description, std::string_view name) {
    for (Json const& entry : description["members"]) {
      if (entry["name"] == name) { return entry; }
    }
    return Json();
  };
  EXPECT_EQ(member(command, "u1"), Json::parse(R"({"name": "u1", "type": "number", "required": false, "perStep": true,
      "default": "UNSET", "unit": "length", "permissible": [], "meaning": "displacement along axis 1"})"));
  EXPECT_EQ(member(command, "distributionType")["permissible"], Json({"UNIFORM", "USER_DEFINED", "FIELD"}));
  EXPECT_EQ(member(Json::parse(Gattr({"describe", "STATICSTEP", "--format", "json"}).out), "maxNumInc")["default"], 100);
  Json const type = Json::parse(Gattr({"describe", "kbcC_TypeBC", "--format", "json"}).out);
  EXPECT_EQ(type["commands"].size(), 8U);
  Ran const move = Gattr({"describe", "move"});
  EXPECT_NE(move.out.find("toStepName"), std::string::npos);
  EXPECT_NE(move.out.find("dryRun"), std::string::npos);
  EXPECT_EQ(move.out.find("| step"), std::string::npos) << "what cannot be moved";
  EXPECT_EQ(Json::parse(Gattr({"describe", "Pressure", "--format", "json"}).out)["inBaseStateOf"].size(), 10U);
}

TEST_F(Tables, WhatDescribeListsCanBeDescribed) {
  Json const all = Json::parse(Gattr({"describe", "--format", "json"}).out);
  std::vector<std::string> names = all["classes"];
  for (Json const& command : all["commands"]) { names.push_back(command["name"]); }
  EXPECT_GT(names.size(), 80U);
  for (std::size_t i = 0; i < names.size(); i += 9) {  // to start the program for each takes long, and they are made alike
    std::string const& name = names[i];
    Ran const run = Gattr({"describe", name, "--format", "json"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Json::parse(run.out)["name"], name);
  }
}

TEST_F(Tables, VariablesAreThoseOfTheStepOrTheProcedure) {
  auto const names = [this](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"variables", "--format", "json"});
    Ran const run = Gattr(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    std::vector<std::string> found;
    for (Json const& variable : Json::parse(run.out)) { found.push_back(variable["name"]); }
    return found;
  };
  EXPECT_GT(names({}).size(), names({"--procedure", "SOILS"}).size());
  std::vector<std::string> const diffusion = {"CONC", "NNC", "CONCFL", "ISOL"};
  EXPECT_EQ(names({"--procedure", "MASS_DIFFUSION", "--channel", "field", "--category", "Mass diffusion"}), diffusion);
  EXPECT_EQ(names({"--procedure", "MassDiffusionStep", "--channel", "field", "--category", "Mass diffusion"}), diffusion);
  std::string const csv =
      Gattr({"variables", "--procedure", "SOILS", "--channel", "history", "--category", "Energy", "--format", "csv"}).out;
  EXPECT_THAT(csv, ::testing::HasSubstr("\nALLEN,Energy,history,WHOLE_MODEL,Energy output,ALLAE ALLCD ALLEE ALLFD ALLIE ALLJD ALLKE ALLPD "
                                        "ALLSE ALLSD ALLVD ALLWK ETOTAL,,true,energies of the whole model,"));
}

TEST_F(Tables, TheVersionIsTold) {
  Ran const run = Gattr({"--version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, ::testing::MatchesRegex("gattr [0-9]+[.][0-9]+[.][0-9]+\n"));
}

TEST_F(Tables, HelpTeachesWithAnExample) {
  Ran const whole = Gattr({"--help"});
  EXPECT_EQ(whole.status, 0);
  EXPECT_NE(whole.out.find("Exit status: 0 "), std::string::npos);
  for (char const* name : {"replay", "history", "check", "steps", "dump", "load", "describe", "codes", "variables"}) {
    EXPECT_NE(whole.out.find(name), std::string::npos);
    Ran const run = Gattr({name, "--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(std::string("Example: gattr ") + name), std::string::npos) << name;
  }
}

}  // namespace
