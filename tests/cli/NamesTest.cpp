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
  for (std::string const name : kNames) {
    SCOPED_TRACE(name);
    std::string journal;
    for (Json const& command :
         {Json{{"command", "setModel"}, {"name", name}}, Json{{"command", "StaticStep"}, {"name", name}, {"initialInc", 0.1}},
          Json{{"command", "Set"}, {"name", name}},
          Json{{"command", "EncastreBC"}, {"name", name}, {"createStepName", name}, {"region", name}},
          Json{{"command", "reset"}, {"boundaryCondition", name}, {"stepName", name}}}) {
      journal += command.dump() + "\n";
    }
    std::filesystem::remove(Path("m.gadb"));
    Ran const replay = Gattr({"replay", "-", "--trace", "--keep-going", "-o", "m.gadb"}, journal);
    if (replay.status == 2) {  // a name that may not be one is refused as bad input
      ExpectPlain(replay.out + replay.err);
      continue;
    }
    EXPECT_EQ(replay.status, 1) << replay.err;
    ExpectPlain(replay.out + replay.err);
    EXPECT_EQ(replay.Line(3)["history"], Json({{name, {0, 1}}}));

    for (std::vector<std::string> const& arguments : std::vector<std::vector<std::string>>{{"history", "m.gadb"},
                                                                                           {"history", "m.gadb", "--format", "csv"},
                                                                                           {"history", "m.gadb", "--format", "html"},
                                                                                           {"history", "m.gadb", "--format", "json"},
                                                                                           {"steps", "m.gadb"},
                                                                                           {"steps", "m.gadb", "--format", "json"},
                                                                                           {"check", "m.gadb"},
                                                                                           {"steps", "m.gadb", "--may-follow=" + name},
                                                                                           {"history", "m.gadb", "--step=x" + name},
                                                                                           {"history", name},
                                                                                           {name}}) {
      Ran const run = Gattr(arguments);
      ExpectPlain(run.out + run.err);
      EXPECT_EQ(run.out.find("<script>alert"), arguments.back() == "html" ? std::string::npos : run.out.find("<script>alert"));
    }
    EXPECT_EQ(Json::parse(Gattr({"history", "m.gadb", "--format", "json"}).out)["attributes"][0]["name"], name);
    std::string const csv = Gattr({"history", "m.gadb", "--format", "csv"}).out;
    char const first = csv[csv.find("\r\n") + 2];
    EXPECT_TRUE(first != '=' && first != '+' && first != '-' && first != '@') << csv;
  }
}

}  // namespace
