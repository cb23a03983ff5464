#include "tests/cli/Program.h"
#include "tests/support/Page.h"

namespace {

using Json = nlohmann::ordered_json;
using test::Ran;

class Examples : public test::Program {
protected:
  static std::filesystem::path Folder() { return std::filesystem::path(GATTR_SOURCE_DIR) / "examples"; }

  Json Histories(std::string const& example) const {
    Ran const run = Gattr({"replay", (Folder() / example).string(), "-o", "m.gadb"});
    EXPECT_EQ(run.status, 0) << run.err;
    Json histories;
    Json const table = Json::parse(Gattr({"history", "m.gadb", "--format", "json"}).out);
    for (Json const& row : table["attributes"]) { histories[row["name"]] = row["history"]; }
    return histories;
  }
};

TEST_F(Examples, RunAndHaveNothingWrong) {
  std::size_t count = 0;
  for (auto const& entry : std::filesystem::directory_iterator(Folder())) {
    if (entry.path().extension() != ".jsonl") { continue; }
    ++count;
    std::string const model = entry.path().stem().string() + ".gadb";
    Ran const run = Gattr({"replay", entry.path().string(), "-o", model});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Gattr({"check", model}).out, "nothing found\n");
    Ran const checked = Gattr({"replay", entry.path().string(), "--check", "--fail-on", "warning"});
    EXPECT_EQ(checked.out + std::to_string(checked.status), "nothing found\n0") << "no line without a trace either";
  }
  EXPECT_GE(count, 2U);
}

TEST_F(Examples, GiveTheHistoriesThatTheirPageTells) {
  std::pair<char const*, char const*> const rows[] = {
      {"forming.jsonl", R"({
        "Die": [1, 9, 9, 9, 9, 9, 4],
        "Holder": [1, 10, 2, 2, 2, 2, 4],
        "Locator": [0, 0, 0, 0, 0, 0, 1],
        "Punch": [1, 9, 10, 3, 2, 3, 4],
        "Rim": [0, 1, 3, 2, 2, 2, 4],
        "Symmetry-X": [1, 9, 9, 9, 9, 9, 9],
        "Symmetry-Z": [1, 9, 9, 9, 9, 9, 9],
        "Sheet": [0, 1, 3, 2, 2, 2, 4],
        "Springback": [0, 0, 0, 0, 0, 0, 1],
        "Energies": [0, 1, 2, 2, 2, 2, 2],
        "Punch-Force": [0, 0, 1, 2, 2, 3, 4]})"},
      {"prestressed_modes.jsonl", R"({
        "Damper": [0, 0, 1, 12, 12, 7],
        "Rig": [0, 1, 11, 5, 5, 2],
        "Root": [1, 9, 9, 12, 12, 9],
        "Tip": [0, 1, 10, 12, 12, 3],
        "Shapes": [0, 0, 1, 7, 7, 7],
        "Modal-Sweep": [0, 0, 0, 0, 1, 7],
        "Ringing": [0, 0, 0, 1, 7, 7]})"},
      {"quenched_plate.jsonl", R"({
        "Bath": [0, 0, 0, 1, 4, 5],
        "Furnace": [0, 1, 4, 5, 5, 5],
        "Ground": [1, 6, 6, 6, 9, 6],
        "Hooks": [0, 1, 3, 4, 5, 5],
        "Shop": [0, 0, 0, 0, 0, 1],
        "Supply": [0, 0, 0, 0, 1, 6]})"},
      {"crank.jsonl", R"({
        "Housing": [1, 9, 9, 9, 9, 9],
        "Lock": [1, 9, 4, 5, 5, 5],
        "Piston": [0, 1, 3, 2, 2, 2],
        "Speed": [0, 0, 0, 1, 3, 3],
        "Spin-Up": [0, 0, 1, 4, 5, 5]})"},
      {"excavation.jsonl", R"({
        "Bedrock": [1, 9, 9, 9, 9, 9, 9],
        "Drained-4m": [0, 0, 1, 4, 5, 6, 5],
        "Drained-8m": [0, 0, 0, 1, 4, 6, 5],
        "Far-End": [1, 9, 9, 9, 9, 9, 9],
        "Far-Water": [0, 1, 2, 2, 2, 6, 2],
        "Middle": [1, 9, 9, 9, 9, 9, 9],
        "Water-Table": [1, 9, 9, 9, 9, 6, 9],
        "Well": [0, 0, 1, 3, 2, 6, 4]})"},
      {"bolted_flange.jsonl", R"({
        "Saddle": [1, 9, 9, 9, 9, 9, 9],
        "Symmetry": [1, 9, 9, 9, 9, 9, 9],
        "Fields": [0, 1, 2, 7, 7, 3, 2],
        "Hum": [0, 0, 0, 0, 1, 7, 7],
        "Shapes": [0, 0, 0, 1, 7, 7, 7],
        "Bolt-Force": [0, 1, 2, 7, 7, 2, 2],
        "Energies": [0, 1, 2, 7, 7, 2, 2],
        "Hum-Energies": [0, 0, 0, 0, 1, 7, 7],
        "Blind": [0, 0, 1, 8, 8, 3, 4],
        "Bolt-1": [0, 1, 3, 8, 8, 2, 2],
        "Bolt-2": [0, 1, 3, 8, 8, 2, 2],
        "Bolt-3": [0, 1, 3, 8, 8, 2, 2],
        "Bore": [0, 0, 1, 8, 8, 3, 4],
        "Pump": [0, 0, 0, 0, 1, 7, 7],
        "Weight": [0, 1, 2, 8, 8, 2, 2]})"},
      {"rotor.jsonl", R"({
        "Bearings": [1, 9, 9, 12, 9, 9, 9, 9],
        "Braking": [0, 0, 0, 0, 0, 0, 0, 1],
        "Coriolis": [0, 1, 8, 8, 8, 3, 8, 3],
        "Gas": [0, 1, 8, 8, 8, 2, 8, 4],
        "Rotation": [0, 1, 8, 8, 8, 3, 8, 3],
        "Unbalance": [0, 0, 0, 0, 1, 7, 7, 7]})"},
      {"bolted_joint.jsonl", R"({
        "Guide": [1, 9, 9, 9, 9, 9, 9],
        "Wall": [1, 9, 9, 9, 9, 9, 9],
        "Bearing": [0, 0, 0, 0, 0, 1, 2],
        "Head": [1, 2, 2, 2, 8, 2, 2],
        "Nut": [1, 2, 2, 2, 8, 2, 2],
        "Pin": [1, 2, 2, 4, 5, 5, 5],
        "Plates": [1, 2, 3, 2, 8, 2, 2],
        "Bolt": [0, 1, 3, 3, 8, 2, 2],
        "Pull": [0, 0, 0, 1, 8, 3, 4]})"},
      {"crash_box.jsonl", R"({
        "Barrier": [0, 1, 2, 3],
        "Longitudinal": [1, 9, 9, 9],
        "Everything": [0, 1, 3, 2]})"},
      {"lifting_lug.jsonl", R"({
        "Weld": [1, 9, 9, 9, 9],
        "Across": [0, 0, 0, 0, 1],
        "Across-Unit-Hanging": [0, 0, 1, 7, 7],
        "Along": [0, 0, 0, 0, 1],
        "Along-Unit-Hanging": [0, 0, 1, 7, 7],
        "Up": [0, 0, 0, 0, 1],
        "Up-Unit-Hanging": [0, 0, 1, 7, 7],
        "Weight": [0, 1, 8, 3, 8]})"},
      {"fire.jsonl", R"({
        "Ground": [0, 1, 2, 2, 2],
        "Upper-Deck": [0, 1, 2, 3, 2],
        "Cables": [0, 0, 1, 4, 5],
        "Drain": [0, 0, 1, 4, 5],
        "Plume": [0, 1, 3, 3, 4],
        "Smoke": [0, 0, 1, 3, 4],
        "Spray": [0, 0, 0, 1, 4]})"},
      {"exhaust.jsonl", R"({
        "Bolts": [0, 1, 2, 2, 2],
        "Draught": [0, 1, 2, 2, 3],
        "Gas": [0, 1, 3, 2, 4],
        "Glow": [0, 0, 1, 2, 2],
        "Water": [0, 0, 0, 1, 4]})"},
      {"cast_bracket.jsonl", R"({
        "Ground": [1, 9, 9, 9, 9, 9, 9],
        "Mould": [0, 1, 2, 4, 5, 5, 5],
        "Casting": [1, 2, 3, 2, 8, 15, 13],
        "Insert": [1, 2, 3, 2, 8, 2, 3],
        "Porosity": [1, 2, 2, 2, 8, 2, 2],
        "Rolled": [1, 14, 14, 14, 8, 14, 14]})"},
      {"extrusion.jsonl", R"({
        "Inlet": [0, 1, 2, 3, 6, 2],
        "Outlet": [1, 9, 10, 3, 6, 4],
        "Die": [1, 9, 9, 9, 6, 9],
        "Ram": [0, 1, 2, 2, 6, 2]})"},
  };
  for (auto const& [example, histories] : rows) {
    std::filesystem::remove(Path("m.gadb"));
    EXPECT_EQ(Histories(example), Json::parse(histories)) << example;
  }
}

TEST_F(Examples, ReportGeneralContactAsItsPageShows) {
  Ran const run = Gattr({"replay", (Folder() / "crash_box.jsonl").string()});
  test::ExpectOnPage("docs/general-contact.md", "report", "```\n" + run.out + "```\n");
}

TEST_F(Examples, TellTheirValuesAsTheirPageShows) {
  auto const expect = [this](std::string const& part, std::vector<std::vector<std::string>> const& commands) {
    std::string shown = "```\n";
    for (std::vector<std::string> const& command : commands) {
      Ran const run = Gattr(command);
      EXPECT_EQ(run.status, 0) << run.err;
      shown += "$ gattr";
      for (std::string const& word : command) { shown += " " + word; }
      shown += "\n" + run.out;
    }
    test::ExpectOnPage("docs/values.md", part, shown + "```\n");
  };
  for (std::string const name : {"forming", "prestressed_modes"}) {
    EXPECT_EQ(Gattr({"replay", (Folder() / (name + ".jsonl")).string(), "-o", name + ".gadb"}).status, 0);
  }
  expect("show", {{"show", "forming.gadb", "Punch"}});
  expect("values", {{"history", "forming.gadb", "--values", "u2,frequency"}});
  expect("explain", {{"explain", "forming.gadb", "Punch", "Dwell"},
                     {"explain", "forming.gadb", "Punch", "Release", "u2"},
                     {"explain", "prestressed_modes.gadb", "Rig", "Unload"},
                     {"explain", "prestressed_modes.gadb", "Tip", "Unload", "ur1"}});
  expect("inforce", {{"inforce", "forming.gadb", "Release"}, {"inforce", "forming.gadb", "Draw-1", "--changes"}});
  expect("lines", {{"inforce", "forming.gadb", "Draw-1", "--changes", "--format", "json"}});
  std::string_view const rise =
      R"({"command": "SmoothStepAmplitude", "name": "Rise", "points": [[0, 0], [1, 1]]})"
      "\n"
      R"({"command": "TabularAmplitude", "name": "Fade", "timeSpan": "TOTAL", "points": [[0, 1], [10, 0]]})"
      "\n"
      R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Draw-1", "amplitude": "Rise"})"
      "\n"
      R"({"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Retract", "amplitude": "Fade"})"
      "\n";
  EXPECT_EQ(Gattr({"replay", "--on", "forming.gadb", "-o", "forming.gadb", "-"}, rise).status, 0);
  expect("at", {{"show", "forming.gadb", "Punch", "--at", "0.5"}});
  Ran const unknown = Gattr({"explain", "forming.gadb", "Punch", "Draw-1", "u7"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find(R"(boundaryCondition "Punch" has no member "u7". Did you mean)"), std::string::npos) << unknown.err;
}

TEST_F(Examples, AreHeldAgainstTheResultsThatTheyRead) {
  std::string const folder = Folder().string();
  EXPECT_EQ(Gattr({"replay", folder + "/cast_bracket.jsonl", "--results", folder, "-o", "m.gadb"}).status, 0);
  EXPECT_EQ(Gattr({"check", "m.gadb", "--results", folder}).out, "nothing found\n");
  EXPECT_NE(Gattr({"check", "m.gadb", "--results", "."}).out.find("Missing odb file mould.odb"), std::string::npos);
  Ran const run = Gattr({"replay", "--on", "m.gadb", "--results", folder, "-"},
                        R"({"command": "setValuesInStep", "predefinedField": "Casting", "stepName": "Cool", "endStep": 3})"
                        "\n");
  EXPECT_NE(run.err.find("[kpf 84]"), std::string::npos) << run.err;
  EXPECT_EQ(Gattr({"check", "m.gadb", "--results", "nowhere"}).status, 2);
  std::ofstream(Path("mould.odb.json")) << "{}";
  EXPECT_NE(Gattr({"check", "m.gadb", "--results", "."}).out.find("is not of the form"), std::string::npos);
}

TEST_F(Examples, RefuseComponentsThatTheCrankDoesNotOffer) {
  Histories("crank.jsonl");
  Ran const run = Gattr({"replay", "--on", "m.gadb", "-"},
                        R"({"command": "setValuesInStep", "boundaryCondition": "Piston", "stepName": "Slow", "u2": 0.1, "ur3": 0.1})"
                        "\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("(CORM: u2, ur3)"), std::string::npos) << run.err;
}

TEST_F(Examples, DemoShowsThemAndLeavesAModel) {
  std::filesystem::create_directory(Path("examples"));
  for (char const* file : {"demo.sh", "forming.jsonl", "prestressed_modes.jsonl", "bolted_flange.jsonl"}) {
    std::filesystem::copy(Folder() / file, Path("examples"));
  }
  std::string const command = "GATTR='" GATTR_PROGRAM "' '" + Path("examples/demo.sh").string() + "' > '" + Path("out").string() + "' 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << Read("out");
  EXPECT_TRUE(std::filesystem::exists(Path("build/demo/forming.gadb")));
  EXPECT_NE(Read("out").find("[kbc 2"), std::string::npos) << Read("out");
}

}  // namespace
