#include <algorithm>
#include <random>
#include <span>

#include <sqlite3.h>

#include "store/Checksum.h"
#include "tests/store/Models.h"

namespace {

std::string OpenRefusal(Store const& store, std::filesystem::path const& path) {
  return Refusal([&] { store.read(path); });
}

/// Runs statements on a database, as another program would.
void RunSql(std::filesystem::path const& path, std::string const& sql) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  sqlite3_exec(handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
  EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
  sqlite3_close(handle);
}

TEST(Checksum, IsThatOfTheStandardOverTheLengthAndTheBytes) {
  // of the eight bytes 09 00 00 00 00 00 00 00 and the nine of the text
  EXPECT_EQ(gattr::Checksum().Add("123456789").Value(), 0x85A458E8U);
}

/// Each row is a change to a text of SmallModel that is right, and what reading the outcome says.
struct DamageRow {
  char const* text;
  char const* instead;
  char const* expected;
};
void ExpectRefused(std::string const& text, std::span<DamageRow const> rows) {
  for (DamageRow const& row : rows) {
    std::string damaged = text;
    std::size_t const at = damaged.find(row.text);
    ASSERT_NE(at, std::string::npos) << row.text;
    damaged.replace(at, std::string_view(row.text).size(), row.instead);
    std::string const refusal = Refusal([&] { Parse(damaged); });
    EXPECT_TRUE(refusal.starts_with(std::string("Model.gattr.json: ") + row.expected)) << row.instead << "\n" << refusal;
  }
}

TEST(DamagedText, IsRefusedWithThePlaceAndWhatWasExpected) {
  DamageRow const rows[] = {
      {"\"gattr model\"", "\"another\"", "format: expected \"gattr model\": this is no model"},
      {"\"format\"", "\"formats\"", "format: expected \"gattr model\": this is no model"},
      {"\n 2\n", "\n 3\n", "version: expected 2 at most, found the later version 3"},
      {"\n 2\n", "\n \"2\"\n", "version: expected a number from 1 on"},
      {"\"name\":\n \"Bracket", "\"title\":\n \"Bracket", "name: expected a text, found nothing"},
      {"\"TWO_D_PLANAR\"", "\"FLAT\"", "space: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: FLAT"},
      {"[1, 4]", "[4, 1, 4]", "connectors / Hinge / components: expected integers from 1 to 6, each at most once"},
      {"\"extensions\": {", "\"extensions\": {\"regions\": {},", "regions: stands twice"},
      {"0.1\n", "\"0.1\"\n", "boundaryConditions / Move / states[0] / u1: expected a finite number, found \"0.1\""},
      {"0.1\n", "1e999\n", "boundaryConditions / Move / states[0] / u1: expected a finite number"},
      {"0.1\n", "NaN\n", "is no JSON at line 97, column 7: invalid literal"},
      {"0.1\n", "0.1, \"u1\": 0.2\n", "boundaryConditions / Move / states[0] / u1: stands twice"},
      {"0.1\n", "0.1, \"u9\": 0.2\n", "boundaryConditions / Move / states[0] / u9: no such member is known"},
      {"\"FREED\"", "\"GONE\"",
       "boundaryConditions / Move / states[2] / u1State: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: GONE"},
      {",\"u1State\":\n      \"FREED\"", "", "boundaryConditions / Move / states: expected only records that say something of their own"},
      {"{\"off\": \"Step-4\"", "{\"off\": \"Step-4\", \"u1\": 1", "boundaryConditions / Hold / states[1] / u1: no such member is known"},
      {"{\"off\": \"Step-4\"", "{\"off\": \"Step-9\"", "boundaryConditions / Hold / states: expected one record for each step"},
      {"{\"off\": \"Step-4\"", "{\"off\": \"Step-2\"", "boundaryConditions / Hold / states: expected one record for each step"},
      {"{\"off\": \"Step-4\"", "{\"off\": \"Step-1\"", "boundaryConditions / Hold / states: expected one record for each step"},
      {"\"kbcC_TypeBCState\"", "\"kloC_BoltLoadState\"", "boundaryConditions / Clamp / states[0] / typeName: no such member is known"},
      {"\"class\":\n      \"kbcC_TypeBCState\"\n\n     ,\"typeName\":\n      \"ENCASTRE\"", "\"class\": \"kloC_BoltLoadState\"",
       "boundaryConditions / Clamp / states[0]: expected an object of another class"},
      {"{\"step\": \"Step-1\"\n\n     ,\"class\":\n      \"kbcC_TypeBCState\"\n\n     ,\"typeName\":\n      \"ENCASTRE\"",
       "{\"off\": \"Step-1\"", "boundaryConditions / Clamp / states[0]: expected values in the first record"},
      {"\"Set-1\"", "\"Set-9\"",
       "boundaryConditions / Fix / region: expected an object, or the name of one that the model declares, found \"Set-9\""},
      {"\"procedures\":\n  \"steps\"", "\"procedures\": \"others\"",
       "adaptiveMeshConstraints / procedures: expected a list, found \"others\""},
      {"{\"class\": \"kbcC_TypeBC\"", "{\"class\": \"kbcC_BC\"",
       "boundaryConditions / Clamp / class: expected a class that can be made, found \"kbcC_BC\""},
      {"{\"class\": \"kbcC_TypeBC\"", "{\"class\": \"rgnC_Region\"", "boundaryConditions / Clamp / suppress: no such member is known"},
      {"\"class\": \"kprC_InitialStep\"", "\"class\": \"kprC_Step\"",
       "steps / steps[0] / procedure / class: expected a class that can be made"},
      {"{\"stepName\": \"Initial\"", "{\"stepName\": \"First\"", "steps / steps: expected \"Initial\" as the first step"},
  };
  ExpectRefused(Dump(SmallModel()), rows);
}

TEST(DamagedTextOfTheFirstVersion, IsRefusedWhereItsRecordsDoNotFollow) {
  DamageRow const rows[] = {
      {"\"u1\": 0.1,", "\"u1\": 0.2,",
       "boundaryConditions / Move / states: expected in step \"Step-2\" the status and the state that follow"},
      {"\"status\": \"MODIFIED\"", "\"status\": \"CHANGED\"",
       "boundaryConditions / Move / states[3] / status: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: CHANGED"},
      {"\"status\": \"MODIFIED\"", "\"status\": \"PROPAGATED\"", "boundaryConditions / Move / states: expected in step \"Step-3\""},
      {"\"state\": null, ", "", "boundaryConditions / Clamp / states[0] / state: expected a value, found nothing"},
      {"\"state\": \"same\"", "\"state\": \"Same\"",
       "boundaryConditions / Clamp / states[3] / state: expected an object or the name of a step, found \"Same\""},
      {"\"state\": \"same\"", "\"state\": \"Step-1\"",
       "boundaryConditions / Clamp / states[3] / state: expected the step that the record belongs to, found \"Step-1\""},
      {"\"state\": \"same\"", "\"state\": 1", "boundaryConditions / Clamp / states[3] / state: expected an object, found 1"},
      {"\"procedure\": \"Step-1\"", "\"procedure\": \"Step-2\"",
       "boundaryConditions / Clamp / states[1] / procedure: expected the step that the record belongs to, found \"Step-2\""},
      {"\"procedure\": \"Step-1\"", "\"procedure\": \"Step-9\"",
       "boundaryConditions / Clamp / states[1] / procedure: expected an object or the name of a step, found \"Step-9\""},
      {"\"suppress\": false,", "", "boundaryConditions / Fix / suppress: expected true or false, found nothing"},
      {"\"region\": {\"name\": \"Set-1\", ", "\"region\": {", "boundaryConditions / Fix / region / name: expected a text, found nothing"},
  };
  ExpectRefused(FirstVersion(), rows);
}

TEST(DamagedText, IsRefusedInOnePassHoweverItIsNested) {
  struct Row {
    std::string text;
    char const* expected;
  };
  Row const rows[] = {
      {std::string(1000000, '['), "is no JSON at line 1, column 65: nested deeper than 64 levels"},
      {"{\"a\": \"" + std::string(3, '\\') + "\"}", "is no JSON at line 1, column 13: invalid string: missing closing quote"},
      {"{\"a\": \"\\ud800\"}",
       "is no JSON at line 1, column 14: invalid string: surrogate U+D800..U+DBFF must be followed by U+DC00..U+DFFF"},
      {"{\"a\": \"\xC0\x80\"}", "is no JSON at line 1, column 8: invalid string: ill-formed UTF-8 byte"},
      {"{\"a\": 01}", "is no JSON at line 1, column 8: unexpected number literal; expected '}'"},
      {"{\"a\": 1.}", "is no JSON at line 1, column 9: invalid number; expected digit after '.'"},
      {"{\"a\": [1,]}", "is no JSON at line 1, column 10: unexpected ']'; expected '[', '{', or a literal"},
      {"{\"a\": 1,}", "is no JSON at line 1, column 9: unexpected '}'; expected string literal"},
      {"{\"a\" 1}", "is no JSON at line 1, column 6: unexpected number literal; expected ':'"},
      {"{}\n{}", "is no JSON at line 2, column 1: unexpected '{'; expected end of input"},
      {"{\"a\": \"\n\"}",
       "is no JSON at line 1, column 8: invalid string: control character U+000A (LF) must be escaped to \\u000A or \\n"},
  };
  for (Row const& row : rows) {
    EXPECT_EQ(Refusal([&] { Parse(row.text); }), std::string("Model.gattr.json: ") + row.expected) << row.text.substr(0, 40);
  }
}

TEST(DamagedText, IsNeverHalfRead) {
  std::string const text = Dump(SmallModel());
  for (std::size_t size = 0; size + 2 < text.size(); size += 97) {
    EXPECT_NE(Refusal([&] { Parse(text.substr(0, size)); }), "") << size;
  }
}

TEST(DamagedModelFile, IsRefusedOrHarmlessWhateverByteIsFlipped) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  ddr_Model const model = SmallModel();
  gattr::ModelFile(path).Save(model);
  std::string const bytes = BytesOf(path);
  std::string const dump = Dump(model);
  std::mt19937 random(4);
  std::size_t refused = 0, tried = 0;
  for (std::size_t at = 0; at < bytes.size(); at += 1 + random() % 20) {
    if (at > 100 && bytes[at] == 0 && random() % 8 != 0) { continue; }  // mostly free space
    std::string damaged = bytes;
    damaged[at] = static_cast<char>(damaged[at] ^ 1 << random() % 8);
    PutBytes(path, damaged);
    std::string const refusal = Refusal([&] { EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), dump) << at; });
    EXPECT_TRUE(refusal.empty() || refusal.starts_with(path.string() + ": ")) << refusal;
    refused += refusal.empty() ? 0 : 1;
    ++tried;
  }
  EXPECT_GT(refused, tried / 2);
  for (std::size_t size = 0; size < bytes.size(); size += 512) {
    PutBytes(path, bytes.substr(0, size));
    EXPECT_NE(OpenRefusal(kModelFile, path), "") << size;
  }
}

TEST(DamagedModelFile, IsRefusedWhenRowsWereEditedByHand) {
  struct Row {
    char const* sql;
    char const* expected;
  };
  Row const rows[] = {
      {"UPDATE attributes SET name = 'Fix-2' WHERE name = 'Fix'",
       "is damaged: attributes: \"boundaryConditions / Fix-2\" does not fit its checksum"},
      {"UPDATE attributes SET data = replace(data, ':', ': ') WHERE name = 'Fix'", "does not fit its checksum"},
      {"UPDATE steps SET position = 9 WHERE position = 5", "is damaged: steps: \"Step-5\" does not fit its checksum"},
      {"UPDATE steps SET data = 'null' WHERE position = 2", "is damaged: steps: \"Step-2\" does not fit its checksum"},
      {"UPDATE classes SET name = 'Region' WHERE name = 'rgnC_Region'", "is damaged: classes: \"Region\" does not fit its checksum"},
      {"DELETE FROM attributes WHERE name = 'Fix'", "rows as they were written, found"},
      {"DELETE FROM steps WHERE position = 5", "rows as they were written, found"},
      {"DELETE FROM extensions WHERE name = 'fields'", "rows as they were written, found"},
      {"DELETE FROM meta WHERE key = 'mark'", "is damaged: meta: expected \"mark\""},
      {"UPDATE meta SET value = value + 1 WHERE key = 'rows'", "is damaged: meta does not fit its checksum"},
      {"ALTER TABLE steps ADD COLUMN more INTEGER", "is damaged: expected the tables of a model"},
      {"CREATE TABLE more(x)", "is damaged: expected the tables of a model"},
      {"DROP TABLE objects", "is damaged: expected the tables of a model"},
      {"PRAGMA user_version = 3", "is of the later version 3; expected version 2"},
      {"PRAGMA user_version = 1", "is damaged: expected the tables of a model"},
      {"PRAGMA user_version = 0", "is damaged: expected version 2"},
      {"PRAGMA application_id = 1", "is no model file, but a database of another program"},
  };
  for (Row const& row : rows) {
    ScratchFolder folder;
    auto const path = folder / "Model.gadb";
    gattr::ModelFile(path).Save(SmallModel());
    RunSql(path, row.sql);
    std::string const refusal = OpenRefusal(kModelFile, path);
    EXPECT_TRUE(refusal.starts_with(path.string() + ": ")) << refusal;
    EXPECT_NE(refusal.find(row.expected), std::string::npos) << row.sql << "\n" << refusal;
  }
}

TEST(DamagedModelFile, IsRefusedWhenARowOfAnEarlierSaveWasPutBack) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb", earlier = folder / "Earlier.gadb";
  ddr_Model model = SmallModel();
  gattr::ModelFile file(path);
  file.Save(model);
  std::filesystem::copy_file(path, earlier);
  SetInStep(model, "Fix", "Step-2", {{"u2", 3.0}});
  file.Save(model);
  RunSql(path, "ATTACH '" + earlier.string() + "' AS earlier; REPLACE INTO attributes SELECT * FROM earlier.attributes WHERE name = 'Fix'");
  EXPECT_NE(OpenRefusal(kModelFile, path).find("rows as they were written"), std::string::npos);
}

/// A model file in which somebody has put other content and made all sums fit.
class CraftedFile {
public:
  explicit CraftedFile(ddr_Model const& model) { gattr::ModelFile(path).Save(model); }

  /// Runs \p sql and brings the sums in line with the rows.
  void Run(std::string const& sql) {
    RunSql(path, sql);
    std::int64_t rows = 0, sum = 0;
    std::string updates;
    struct Table {
      char const* name;
      char const* key;
      char const* fields;  ///< position, owner, name and data
    };
    Table const tables[] = {{"classes", "number", "number, '', name, members"},
                            {"extensions", "name", "0, '', name, data"},
                            {"steps", "position", "position, '', name, data"},
                            {"attributes", "repository || char(0) || name", "0, repository, name, data"},
                            {"objects", "extension || char(0) || name", "0, extension, name, data"}};
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
    sqlite3_exec(handle, "PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr);
    for (std::size_t number = 0; number < std::size(tables); ++number) {
      auto const& [name, key, fields] = tables[number];
      sqlite3_stmt* select = nullptr;
      sqlite3_stmt* update = nullptr;
      std::string const all = std::string("SELECT ") + key + ", " + fields + " FROM " + name;
      std::string const one = std::string("UPDATE ") + name + " SET checksum = ? WHERE " + key + " = ?";
      ASSERT_EQ(sqlite3_prepare_v2(handle, all.c_str(), -1, &select, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
      ASSERT_EQ(sqlite3_prepare_v2(handle, one.c_str(), -1, &update, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
      std::vector<std::pair<sqlite3_value*, std::int64_t>> sums;
      while (sqlite3_step(select) == SQLITE_ROW) {
        auto const text = [&](int column) {
          return std::string_view(reinterpret_cast<char const*>(sqlite3_column_text(select, column)),
                                  static_cast<std::size_t>(sqlite3_column_bytes(select, column)));
        };
        gattr::Checksum checksum;
        checksum.Add(number).Add(static_cast<std::uint64_t>(sqlite3_column_int64(select, 1)));
        checksum.Add(text(2)).Add(text(3)).Add(std::string_view()).Add(text(4));
        sums.emplace_back(sqlite3_value_dup(sqlite3_column_value(select, 0)), checksum.Value());
        sum += checksum.Value();
        ++rows;
      }
      for (auto const& [value, checksum] : sums) {
        sqlite3_bind_int64(update, 1, checksum);
        sqlite3_bind_value(update, 2, value);
        ASSERT_EQ(sqlite3_step(update), SQLITE_DONE);
        sqlite3_reset(update);
        sqlite3_value_free(value);
      }
      sqlite3_finalize(select);
      sqlite3_finalize(update);
    }
    sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(handle);
    gattr::Checksum const checksum = gattr::Checksum()
                                         .Add(std::uint64_t{1})
                                         .Add(std::uint64_t{2})
                                         .Add(static_cast<std::uint64_t>(rows))
                                         .Add(static_cast<std::uint64_t>(sum));
    for (auto const& [key, value] : std::initializer_list<std::pair<char const*, std::int64_t>>{
             {"generation", 1}, {"mark", 2}, {"rows", rows}, {"sum", sum}, {"checksum", checksum.Value()}}) {
      updates += "UPDATE meta SET value = " + std::to_string(value) + " WHERE key = '" + key + "';";
    }
    RunSql(path, updates);
  }
  std::string Refused() const {
    std::string const refusal = OpenRefusal(kModelFile, path);
    EXPECT_TRUE(refusal.empty() || refusal.starts_with(path.string() + ": ")) << refusal;
    return refusal.empty() ? "" : refusal.substr(path.string().size() + 2);
  }

  ScratchFolder folder;
  std::filesystem::path path = folder / "Model.gadb";
};

std::string Repeated(std::string const& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) { all += text; }
  return all;
}

TEST(CraftedModelFile, IsRefusedByWhatItHoldsWithThePlace) {
  struct Row {
    std::string sql;
    char const* expected;
  };
  auto const inData = [](char const* was, std::string const& is, char const* where) {
    return "UPDATE attributes SET data = replace(data, '" + std::string(was) + "', '" + is + "') WHERE name = '" + where + "'";
  };
  std::string const bad = "CAST(x'53FF' AS TEXT)";
  Row const rows[] = {
      {"SELECT 1", ""},  // and content that is right is taken
      {inData("0.1,1", "1e999,1", "Move"), "boundaryConditions / Move / states[0] / state / u1: expected a finite number, found 1e999"},
      {inData("0.1,1", "null,1", "Move"), "boundaryConditions / Move / states[0] / state / u1: expected a finite number, found null"},
      {inData("0.1,1", "0.1,9", "Move"), "boundaryConditions / Move / states[0] / state / u1State: omu_PrimEnum"},
      {inData("0.1,1", "0.1, 1", "Move"), "boundaryConditions / Move / states[0] / state / u1State: expected a text, found  1"},
      {inData("\"Step-1\",1", "\"Step-1\",77", "Move"), "boundaryConditions / Move / states[0] / status: omu_PrimEnum"},
      {inData("\"Step-1\",1", "\"Step-9\",1", "Move"), "boundaryConditions / Move / states: expected one record for each step"},
      {inData("\"Step-3\",3", "\"Step-1\",3", "Move"), "boundaryConditions / Move / states: expected one record for each step"},
      {inData("\"Step-3\",3", "\"Step-3\",2", "Move"), "boundaryConditions / Move / states: expected in step \"Step-3\" the status"},
      {inData("\"Set-1\"", "\"Set-1\",\"more\"", "Move"), "boundaryConditions / Move / region / "},
      {inData("\"Set-1\",", "", "Move"), "boundaryConditions / Move / region / "},
      {"UPDATE attributes SET data = '' WHERE name = 'Fix'", "boundaryConditions / Fix: is damaged: the row ends too early"},
      {"UPDATE steps SET data = '' WHERE position = 0", "is damaged: the row ends too early"},
      {"UPDATE attributes SET data = '{\"99\":[]}' WHERE name = 'Fix'",
       "boundaryConditions / Fix: is damaged: the row refers to a class that is not there"},
      {"UPDATE attributes SET data = data || ',1' WHERE name = 'Fix'",
       "boundaryConditions / Fix: is damaged: the row goes on behind its end"},
      {"UPDATE attributes SET data = '" + Repeated("[", 100) + Repeated("]", 100) + "' WHERE name = 'Fix'",
       "boundaryConditions / Fix: is damaged: the row nests deeper than 64 objects and lists"},
      {"UPDATE attributes SET data = CAST(replace(CAST(data AS BLOB), 'Set-1', x'53FF') AS TEXT) WHERE name = 'Move'",
       "boundaryConditions / Move / region / name: expected a text in UTF-8"},
      {"UPDATE attributes SET name = " + bad + " WHERE name = 'Move'", "boundaryConditions / \"S\\u00ff\": expected a name in UTF-8"},
      {"UPDATE steps SET name = " + bad + " WHERE name = 'Step-5'", "steps / steps[5] / stepName: expected a text in UTF-8"},
      {"UPDATE classes SET members = '[\"u\"]' WHERE name = 'rgnC_Region'", "name: expected a text, found nothing"},
      {"UPDATE classes SET members = replace(members, '\"kind\"', '\"name\"') WHERE name = 'rgnC_Region'", "name: stands twice"},
      {"UPDATE attributes SET repository = 'nowhere'", "nowhere: is damaged: holds objects, but is not there"},
      {"DELETE FROM extensions WHERE name = 'steps'", "steps: expected an object of class kprC_StepContainer"},
      {"DELETE FROM steps WHERE position = 3", "steps: is damaged: expected positions from 0 on"},
  };
  for (Row const& row : rows) {
    CraftedFile file(SmallModel());
    file.Run(row.sql);
    std::string const refusal = file.Refused();
    EXPECT_NE(refusal.find(row.expected), std::string::npos) << row.sql << "\n" << refusal;
    EXPECT_EQ(refusal.empty(), row.expected == std::string_view()) << refusal;
  }
}

TEST(CraftedModelFile, IsReadWhereAClassHasItsMembersInAnotherOrder) {
  CraftedFile file(SmallModel());
  std::string const members = R"(["name","kind","dimension","mixed","empty","instanceKind"])";
  std::string const turned = R"(["kind","name","dimension","empty","mixed","instanceKind"])";
  file.Run("UPDATE classes SET members = '" + turned + "' WHERE members = '" + members + "';" +
           "UPDATE objects SET data = replace(data, '\"Set-1\",\"SET\"', '\"SET\",\"Set-1\"');" +
           "UPDATE objects SET data = replace(data, '\"Surf-1\",\"SURFACE\"', '\"SURFACE\",\"Surf-1\"');" +
           "UPDATE attributes SET data = replace(data, '\"Set-1\",\"SET\"', '\"SET\",\"Set-1\"');" +
           "UPDATE attributes SET data = replace(data, '\"Surf-1\",\"SET\"', '\"SET\",\"Surf-1\"');" +
           "UPDATE attributes SET data = replace(data, '\"Surf-1\",\"SURFACE\"', '\"SURFACE\",\"Surf-1\"');" +
           "UPDATE attributes SET data = replace(data, '\"\",\"SET\"', '\"SET\",\"\"')");
  EXPECT_EQ(file.Refused(), "");
  EXPECT_EQ(Dump(gattr::ModelFile(file.path).Open()), Dump(SmallModel()));
}

}  // namespace
