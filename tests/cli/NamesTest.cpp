#include <set>

#include "tests/cli/Program.h"

namespace {

using Json = nlohmann::ordered_json;
using test::Ran;

using Names = test::Program;

/// Names that would do something if they were printed as they are.
constexpr char const* kNames[] = {
    "\033[2J\033[31mred", "\u009b31mred",      "\u202egnp.exe", "line\nbreak\r\ttab", "<script>alert(1)</script>",
    "=cmd|' /C calc'!A1", "say \"hi\", twice", "-rf",           "Stößel 冲头 🔩",      "{} %s %n {0}",
    "a\\u001bb",
};

/// Nothing but text: no control characters but line ends, none that turn the direction.
void ExpectPlain(std::string const& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto const byte = static_cast<unsigned char>(text[i]);
    ASSERT_TRUE(byte >= 0x20 || text[i] == '\n' || text[i] == '\r') << "byte " << int(byte) << " in " << text;
    ASSERT_NE(byte, 0x7F);
  }
  for (char const* acting : {"\u009b", "\u202e", "\u2066", "\u200b"}) { ASSERT_EQ(text.find(acting), std::string::npos) << text; }
}

TEST_F(Names, OfAnyKindAreShownAndNeverActed) {
  std::string journal;
  for (std::string const name : kNames) {
    for (Json const& command :
         {Json{{"command", "setModel"}, {"name", name}}, Json{{"command", "StaticStep"}, {"name", name}, {"initialInc", 0.1}},
          Json{{"command", "Set"}, {"name", name}},
          Json{{"command", "EncastreBC"}, {"name", name}, {"createStepName", name}, {"region", name}},
          Json{{"command", "reset"}, {"boundaryCondition", name}, {"stepName", name}}}) {
      journal += command.dump() + "\n";
    }
  }
  Ran const replay = Gattr({"replay", "-", "--trace", "--keep-going", "-o", "m.gadb"}, journal);
  EXPECT_EQ(replay.status, 1) << "nothing can be reset";
  ExpectPlain(replay.out + replay.err);

  std::set<std::string> shown;
  Json const history = Json::parse(Gattr({"history", "m.gadb", "--format", "json"}).out);
  for (Json const& row : history["attributes"]) { shown.insert(row["name"].get<std::string>()); }
  EXPECT_EQ(shown, std::set<std::string>(std::begin(kNames), std::end(kNames)));
  std::string const csv = Gattr({"history", "m.gadb", "--format", "csv"}).out;
  for (std::size_t at = csv.find("\r\n"); at + 2 < csv.size(); at = csv.find("\r\n", at + 2)) {
    EXPECT_EQ(std::string("=+-@").find(csv[at + 2]), std::string::npos) << csv.substr(at + 2, 40);
  }

  std::vector<std::vector<std::string>> runs = {
      {"history", "m.gadb"}, {"history", "m.gadb", "--format", "csv"},  {"history", "m.gadb", "--format", "html"},
      {"steps", "m.gadb"},   {"history", "m.gadb", "--format", "json"}, {"steps", "m.gadb", "--format", "json"},
      {"check", "m.gadb"}};
  for (std::string const name : kNames) {
    for (auto const& run : {std::vector<std::string>{"steps", "m.gadb", "--may-follow=" + name}, {"history", name}, {name}}) {
      runs.push_back(run);
    }
  }
  for (std::vector<std::string> const& arguments : runs) {
    Ran const run = Gattr(arguments);
    ExpectPlain(run.out + run.err);
    if (arguments.back() == "html") { EXPECT_EQ(run.out.find("<script>alert"), std::string::npos); }
  }
}

}  // namespace
