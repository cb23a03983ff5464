#include "tests/cli/Program.h"

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
  }
  EXPECT_GE(count, 2U);
}

TEST_F(Examples, FormingReleasesItsToolsAtTheEnd) {
  EXPECT_EQ(Histories("forming.jsonl"), Json::parse(R"({
      "Die": [1, 9, 9, 9, 9, 9, 4],
      "Holder": [1, 10, 2, 2, 2, 2, 4],
      "Locator": [0, 0, 0, 0, 0, 0, 1],
      "Punch": [1, 9, 10, 3, 2, 3, 4],
      "Rim": [0, 1, 3, 2, 2, 2, 4],
      "Symmetry-X": [1, 9, 9, 9, 9, 9, 9],
      "Symmetry-Z": [1, 9, 9, 9, 9, 9, 9]})"));
}

TEST_F(Examples, ModalStepsBuildOnThePrestressedState) {
  EXPECT_EQ(Histories("prestressed_modes.jsonl"), Json::parse(R"({
      "Damper": [0, 0, 1, 12, 12, 7],
      "Rig": [0, 1, 11, 5, 5, 2],
      "Root": [1, 9, 9, 12, 12, 9],
      "Tip": [0, 1, 10, 12, 12, 3]})"));
}

TEST_F(Examples, DemoShowsThemAndLeavesAModel) {
  std::filesystem::create_directory(Path("examples"));
  for (char const* file : {"demo.sh", "forming.jsonl", "prestressed_modes.jsonl"}) {
    std::filesystem::copy(Folder() / file, Path("examples"));
  }
  std::string const command = "GATTR='" GATTR_PROGRAM "' '" + Path("examples/demo.sh").string() + "' > '" + Path("out").string() + "' 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << Read("out");
  EXPECT_TRUE(std::filesystem::exists(Path("build/demo/forming.gadb")));
  EXPECT_NE(Read("out").find("[kbc 2"), std::string::npos) << Read("out");
}

}  // namespace
