#include "command/Journal.h"

#include <gmock/gmock.h>

#include <sstream>

namespace gattr {
namespace {

using ::testing::HasSubstr;

TEST(JournalReader, PassesOverEmptyLinesAndCountsThem) {
  std::istringstream in("\n{\"command\": \"undo\"}\r\n   \n{\"command\": \"redo\"}");
  JournalReader reader(in);
  EXPECT_EQ(*reader.Next()->Find("command"), cls_Value("undo"));
  EXPECT_EQ(reader.Line(), 2U);
  EXPECT_EQ(*reader.Next()->Find("command"), cls_Value("redo"));
  EXPECT_EQ(reader.Line(), 4U);
  EXPECT_FALSE(reader.Next());
  EXPECT_FALSE(reader.Next());
}

TEST(JournalReader, GivesBackWhatJsonTextWrites) {
  cls_Value const command =
      cls_Value::Fields{{"command", "Set"}, {"name", "Größe\n\"1\"\x01\x7f"},
                        {"b", 1},           {"a", 0.1},
                        {"c", 1e300},       {"d", 2.0},
                        {"x", {}},          {"list", cls_Value::List{1.0, 2, cls_Value::List(), cls_Value::Fields(), true}}};
  std::string const line = JsonText(command);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  std::istringstream in(line + "\n");
  cls_Value const read = *JournalReader(in).Next();
  EXPECT_EQ(read, command);
}

/// A command with that many members, and without its end.
std::string Members(int count) {
  std::string line = R"({"command": "undo")";
  for (int i = 0; i < count; ++i) { line += ", \"m" + std::to_string(i) + "\": 0"; }
  return line;
}

struct BadLine {
  std::string line;
  std::size_t column;
  std::vector<char const*> message;
};
void PrintTo(BadLine const& bad, std::ostream* out) { *out << bad.line.substr(0, 60); }

class BadLines : public ::testing::TestWithParam<BadLine> {};

TEST_P(BadLines, AreRefusedWithTheirPlaceAndReadingGoesOn) {
  std::istringstream in("{\"command\": \"undo\"}\n" + GetParam().line + "\n{\"command\": \"redo\"}\n");
  JournalReader reader(in, "edits.jsonl");
  reader.Next();
  try {
    reader.Next();
    FAIL() << "accepted";
  } catch (JournalError const& error) {
    EXPECT_EQ(error.Line(), 2U);
    EXPECT_EQ(error.Column(), GetParam().column);
    std::string const text = error.what();
    EXPECT_THAT(text, HasSubstr("edits.jsonl, line 2"));
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_LT(text.size(), 300U);
    for (char const* part : GetParam().message) { EXPECT_THAT(text, HasSubstr(part)); }
  }
  EXPECT_EQ(*reader.Next()->Find("command"), cls_Value("redo"));
}

INSTANTIATE_TEST_SUITE_P(Rows, BadLines,
                         ::testing::Values(BadLine{R"({"command": undo})", 13, {"column 13", "no JSON"}},
                                           BadLine{R"({"command": "undo")", 19, {"no JSON"}},
                                           BadLine{R"({"command": "undo"} {})", 21, {"no JSON"}},
                                           BadLine{"{\"command\": \"\xFF\"}", 14, {"no JSON"}},
                                           BadLine{R"(["undo"])", 1, {"expected a command"}},
                                           BadLine{std::string(100, '['), 65, {"nested deeper than 64 levels"}},
                                           BadLine{Members(300000) + R"(, "m17": 1})", 0, {"\"m17\" is given twice"}},
                                           BadLine{Members(300000), Members(300000).size() + 1, {"no JSON"}},
                                           BadLine{R"({"command": "StaticStep", "timePeriod": 1e999})", 0, {"\"timePeriod\"", "1e999"}},
                                           BadLine{R"({"command": "StaticStep", "timePeriod": NaN})", 41, {"no JSON"}},
                                           BadLine{R"({"command": "undo", "u1": 1, "u1": 2})", 0, {"\"u1\" is given twice"}},
                                           BadLine{std::string((16 << 20) + 1, 'x'), 0, {"16777217 bytes", "16777216 at most"}}));

/// The names of the commands with their lines, and what is told of what cannot be read.
std::string ReadAll(std::string const& journal) {
  std::istringstream in(journal);
  JournalReader reader(in, "j");
  std::string told;
  for (int tries = 0; tries < 9; ++tries) {
    try {
      auto const command = reader.Next();
      if (!command) { return told; }
      told += *command->Find("command")->As<std::string>() + std::to_string(reader.Line()) + " ";
    } catch (JournalError const& error) { told += std::string("<") + error.what() + "> "; }
  }
  return told + "never ends";
}

TEST(JournalReader, TakesADocumentOfCommandsAndLinesOfComments) {
  std::string const long_ = R"({"command": "undo", "x": ")" + std::string(16 << 20, 'x') + "\"}";
  std::pair<std::string, char const*> const rows[] = {
      {"# one\n{\"command\": \"undo\"}\n  # two\n\n{\"command\": \"redo\"}\n#", "undo2 redo5 "},
      {R"({"commands": []})", ""},
      {R"({"$schema": "s", "commands": [{"command": "undo"}, {"command":"redo", "x": ["]}", "\"", {"a": [1]}]}]})", "undo1 redo1 "},
      {"\n# one\n{\n  \"$schema\": \"s\",\n  \"commands\": [\n    {\"command\":\n  \"undo\"}\n# two\n ,\n {\"command\": \"redo\"}\n  "
       "]\n}\n",
       "undo6 redo10 "},
      {R"({ "commands" : [ {"command": "undo"} ] , "$schema": "s" } )", "undo1 "},
      {R"({"commands": [{"command": "undo"}, 7, {"command": "redo"}]})",
       "undo1 <j, line 1, column 36: expected a command, such as {\"command\": \"undo\"}.> redo1 "},
      {"{\"commands\": [{\"command\":\n\"undo\" 1}]}", "<j, line 2, column 8: this is no JSON: unexpected number literal; expected '}'.> "},
      {R"({"commands": [{"command": "undo"})", "undo1 <j, line 1, column 34: expected \",\" or \"]\" behind a command.> "},
      {R"({"commands": [{"command": "undo"}]} {})", "undo1 <j, line 1, column 37: expected nothing behind the document.> "},
      {R"({"$schema": "s"})", "<j, line 1, column 17: the document has no \"commands\".> "},
      {R"({"$schema": 1, "commands": []})", "<j, line 1, column 13: \"$schema\" is a text.> "},
      {R"({"commands": [], "more": 1})",
       "<j, line 1, column 26: there is no member \"more\": a document has \"$schema\" and \"commands\".> "},
      {R"({"commands": {}})", "<j, line 1, column 14: expected the list of commands.> "},
      {R"({"commands": [)" + long_ + R"(, {"command": "redo"}]})",
       "<j, line 1: the value has 16777244 bytes; a command has 16777216 at most.> redo1 "},
  };
  for (auto const& [journal, told] : rows) { EXPECT_EQ(ReadAll(journal), told) << journal.substr(0, 200); }
}

}  // namespace
}  // namespace gattr
