#include "report/Display.h"

#include <gtest/gtest.h>

#include <random>

#include "text/Text.h"

namespace gattr {
namespace {

struct Row {
  std::string in, out;
};

TEST(Shown, EscapesWhatActsAndKeepsWhatIsRead) {
  Row const rows[] = {
      {"Punch", "Punch"},
      {"Stößel 冲头 🔩", "Stößel 冲头 🔩"},
      {"a\nb\tc\rd", "a\\nb\\tc\\rd"},
      {"\033[31mred", "\\u001b[31mred"},
      {"\u009b31mred", "\\u009b31mred"},    // C1: a control sequence in one character
      {"\u202etxt.exe", "\\u202etxt.exe"},  // turns the direction
      {"\u2066x\u2069", "\\u2066x\\u2069"},
      {"a\u200bb\ufeff", "a\\u200bb\\ufeff"},  // invisible
      {"\U000E0041", "\\U000e0041"},           // a tag character
      {"क्\u200dष", "क्\u200dष"},                // joiners are part of the script
      {std::string("a\0b", 3), "a\\u0000b"},
      {"\x9b", "\\x9b"},  // bytes that are no UTF-8
      {"\xc0\xaf|\xed\xa0\x80|\xf5", "\\xc0\\xaf|\\xed\\xa0\\x80|\\xf5"},
      {"ab\xe2\x82", "ab\\xe2\\x82"},
      {"", ""},
  };
  for (Row const& row : rows) { EXPECT_EQ(Shown(row.in), row.out); }
}

TEST(Shown, GivesPlainUtf8ForAnyBytesAndIsItsOwnImage) {
  std::mt19937 random(4711);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(random() % 40, '\0');
    for (char& c : bytes) { c = static_cast<char>(random()); }
    std::string const shown = Shown(bytes);
    EXPECT_TRUE(IsUtf8(shown));
    EXPECT_EQ(Shown(shown), shown);
    for (char const c : shown) { ASSERT_TRUE(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F); }
    for (std::size_t width = 0; width < 12; ++width) { ASSERT_EQ(Width(Fitted(shown, width)), width) << shown; }
  }
}

TEST(Width, CountsColumnsOfATerminal) {
  std::pair<std::string, std::size_t> const rows[] = {{"Punch", 5}, {"é", 1},  {"e\u0301", 1}, {"冲头", 4}, {"🔩", 2},
                                                      {"ｱ", 1},     {"한", 2}, {"…", 1},       {"", 0}};
  for (auto const& [text, width] : rows) { EXPECT_EQ(Width(text), width) << text; }
}

TEST(Fitted, CutsBetweenCharactersAndFillsUp) {
  EXPECT_EQ(Fitted("Punch", 8), "Punch   ");
  EXPECT_EQ(Fitted("Punch", 5), "Punch");
  EXPECT_EQ(Fitted("Punch", 4), "Pun…");
  EXPECT_EQ(Fitted("冲头冲头", 4), "冲… ");
}

TEST(CsvField, QuotesAndDisarms) {
  Row const rows[] = {
      {"Punch", "Punch"},
      {"a,b", "\"a,b\""},
      {"say \"hi\"", "\"say \"\"hi\"\"\""},
      {"=1+2", "'=1+2"},
      {"+1", "'+1"},
      {"-1", "'-1"},
      {"@SUM(A1)", "'@SUM(A1)"},
      {"=\"a\"&B1", "\"'=\"\"a\"\"&B1\""},
      {"a\nb", "a\\nb"},
      {"\tx", "\\tx"},
      {" a", "\" a\""},
      {"", ""},
  };
  for (Row const& row : rows) { EXPECT_EQ(CsvField(row.in), row.out); }
}

TEST(JsonLine, SpacesValuesAndEscapesWhatActs) {
  EXPECT_EQ(JsonLine({{"line", 3}, {"ok", true}, {"history", {{"Fix", {0, 1, 2}}}}}),
            R"({"line": 3, "ok": true, "history": {"Fix": [0, 1, 2]}})");
  EXPECT_EQ(JsonLine(Json::object()), "{}");
  EXPECT_EQ(JsonLine("ü\u009b\u202e\U000E0041\033"), R"("ü\u009b\u202e\udb40\udc41\u001b")");
}

TEST(JsonPage, ReadsBackAsTheSameValue) {
  Json const value = {{"name", "a\nb\u202e\u007f"}, {"list", {{{"x", 1.5}, {"y", nullptr}}, Json::object()}}, {"empty", Json::array()}};
  EXPECT_EQ(Json::parse(JsonPage(value)), value);
  EXPECT_EQ(Json::parse(JsonLine(value)), value);
}

}  // namespace
}  // namespace gattr
