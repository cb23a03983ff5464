#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <span>

#include <sqlite3.h>

#include "store/Checksum.h"
#include "store/RowEncoding.h"
#include "tests/store/Models.h"

namespace {

std::string BytesOf(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
void PutBytes(std::filesystem::path const& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string OpenRefusal(Store const& store, std::filesystem::path const& path) {
  return Refusal([&] { store.read(path); });
}

/// Runs statements on a database, as another program would.
void RunSql(std::filesystem::path const& path, std::string const& sql) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
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
      {"0.1\n", "NaN\n", "is no JSON at line 91, column 7: expected a value"},
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
      {"\"procedures\":\n  \"steps\"", "\"procedures\": \"others\"", "boundaryConditions / procedures: expected a list, found \"others\""},
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
      {"{\"a\": \"" + std::string(3, '\\') + "\"}", "is no JSON at line 1, column 13: expected \""},
      {"{\"a\": \"\\ud800\"}", "is no JSON at line 1, column 8: expected an escape such as \\n or \\u00e9"},
      {"{\"a\": \"\xC0\x80\"}", "is no JSON at line 1, column 8: expected a text in UTF-8"},
      {"{\"a\": 01}", "is no JSON at line 1, column 8: expected , or }"},
      {"{\"a\": 1.}", "is no JSON at line 1, column 9: expected a digit"},
      {"{\"a\": [1,]}", "is no JSON at line 1, column 10: expected a value"},
      {"{\"a\": 1,}", "is no JSON at line 1, column 9: expected a name"},
      {"{\"a\" 1}", "is no JSON at line 1, column 6: expected :"},
      {"{}\n{}", "is no JSON at line 2, column 1: expected the end of the text"},
      {"{\"a\": \"\n\"}", "is no JSON at line 1, column 8: expected no control character in a text"},
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
  std::mt19937 random(3);
  for (int round = 0; round < 2000; ++round) {
    std::string damaged = text;
    char& byte = damaged[random() % damaged.size()];
    byte = static_cast<char>(byte ^ 1 << random() % 8);
    Refusal([&] {  // what is taken all the same is a model
      ddr_Model const read = Parse(damaged);
      EXPECT_TRUE(Parse(Dump(read)).Equals(read));
    });
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
      {"UPDATE attributes SET class = 'kbcC_TypeBC' WHERE name = 'Fix'", "does not fit its checksum"},
      {"UPDATE steps SET position = 9 WHERE position = 5", "is damaged: steps: \"Step-5\" does not fit its checksum"},
      {"UPDATE steps SET data = x'00' WHERE position = 2", "is damaged: steps: \"Step-2\" does not fit its checksum"},
      {"UPDATE names SET name = 'u7' WHERE name = 'u1'", "is damaged: names: \"u7\" does not fit its checksum"},
      {"DELETE FROM attributes WHERE name = 'Fix'", "rows as they were written, found"},
      {"DELETE FROM steps WHERE position = 5", "rows as they were written, found"},
      {"DELETE FROM extensions WHERE name = 'fields'", "rows as they were written, found"},
      {"DELETE FROM meta WHERE key = 'mark'", "is damaged: meta: expected \"mark\""},
      {"UPDATE meta SET value = value + 1 WHERE key = 'rows'", "is damaged: meta does not fit its checksum"},
      {"ALTER TABLE steps ADD COLUMN more INTEGER", "is damaged: expected the tables of a model"},
      {"CREATE TABLE more(x)", "is damaged: expected the tables of a model"},
      {"DROP TABLE objects", "is damaged: expected the tables of a model"},
      {"PRAGMA user_version = 2", "is of the later version 2; expected version 1"},
      {"PRAGMA user_version = 0", "is damaged: expected version 1"},
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

// Behind the checksums: bytes that no writer has written do no harm.
TEST(DamagedModelFile, TakesRowsApartOnlyAsFarAsTheyHoldTogether) {
  ddr_Model const model = SmallModel();
  gattr::ModelSteps const steps(model);
  gattr::RowNames names;
  std::string const row = gattr::RowWriter(steps, names, "", gattr::RowWriter::Row::Object).Encode(*ConstBCs(model).ConstItem("Move"));
  auto const decode = [&](std::string_view bytes) {
    return Refusal([&] {
      gattr::Document document("file");
      document.Open(gattr::Document::Kind::Object, 0);
      gattr::RowDecoder(document, names.Names()).Decode(bytes);
      document.Close();
    });
  };
  EXPECT_EQ(decode(row), "");
  EXPECT_NE(decode(row + '\0').find("goes on behind its end"), std::string::npos);
  for (std::size_t size = 0; size < row.size(); ++size) { EXPECT_NE(decode(std::string_view(row).substr(0, size)), "") << size; }
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    std::string damaged = row;
    for (auto flips = 1 + random() % 3; flips > 0; --flips) { damaged[random() % damaged.size()] = static_cast<char>(random()); }
    decode(damaged);
  }
}

}  // namespace
