#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <thread>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/store/Models.h"

namespace {

void PutBytes(std::filesystem::path const& path, std::string_view bytes) { std::ofstream(path, std::ios::binary) << bytes; }
std::string BytesOf(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Runs \p work in a process of its own and returns how it ended.
template <class Work> int InAnotherProcess(Work&& work) {
  pid_t const child = fork();
  if (child == 0) { _exit(work()); }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST(EitherFile, IsRefusedWhereThereIsNoModel) {
  struct Row {
    char const* name;
    char const* expected;  ///< by the text form, then by the model file
    char const* expectedOfModelFile;
  };
  ScratchFolder folder;
  std::filesystem::create_directory(folder / "folder");
  PutBytes(folder / "empty", "");
  PutBytes(folder / "picture", std::string("\x89PNG\r\n\x1a\n", 8) + std::string(4096, 'x'));
  PutBytes(folder / "list", "[1, 2]");
  gattr::WriteTextFile(SmallModel(), folder / "text");
  gattr::ModelFile(folder / "database").Save(SmallModel());
  Row const rows[] = {
      {"missing", "cannot be read: No such file or directory", "cannot be opened: No such file or directory"},
      {"folder", "is a folder, not a file", "is a folder, not a file"},
      {"empty", "is empty", "is empty"},
      {"picture", "is no JSON at line 1, column 1", "is no model file"},
      {"list", "format: expected \"gattr model\": this is no model", "is no model file"},
      {"text", "", "is no model file"},
      {"database", "is no JSON at line 1, column 1", ""},
  };
  for (Row const& row : rows) {
    for (Store const& store : kStores) {
      std::string const path = (folder / row.name).string();
      std::string const refusal = Refusal([&] { store.read(path); });
      std::string const expected = IsText(store) ? row.expected : row.expectedOfModelFile;
      if (expected.empty()) {
        EXPECT_EQ(refusal, "");
      } else {
        EXPECT_TRUE(refusal.starts_with(path + ": " + expected)) << refusal;
      }
    }
  }
}

TEST(EitherFile, IsRefusedWhereItCannotBeWritten) {
  ScratchFolder folder;
  std::filesystem::create_directory(folder / "folder");
  for (Store const& store : kStores) {
    EXPECT_NE(Refusal([&] { store.write(SmallModel(), folder / "folder"); }).find("is a folder, not a file"), std::string::npos);
    std::string const refusal = Refusal([&] { store.write(SmallModel(), folder / "nowhere/model"); });
    EXPECT_NE(refusal.find("No such file or directory"), std::string::npos) << refusal;
    if (geteuid() != 0) {  // root may write anything
      auto const path = folder / store.fileName;
      store.write(ddr_Model(), path);
      std::filesystem::permissions(path, std::filesystem::perms::owner_read);
      EXPECT_NE(Refusal([&] { store.write(SmallModel(), path); }), "");
      EXPECT_TRUE(store.read(path).Equals(ddr_Model()));
    }
  }
}

TEST(EitherFile, StaysAsItWasWhenTheDiskIsFull) {
  for (Store const& store : kStores) {
    ScratchFolder folder;
    auto const path = folder / store.fileName;
    store.write(ddr_Model(), path);
    ddr_Model large = SmallModel();
    AppendSteps(large = ddr_Model(), 3000);
    int const status = InAnotherProcess([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      rlimit const limit{100000, 100000};
      setrlimit(RLIMIT_FSIZE, &limit);
      std::string const refusal = Refusal([&] { store.write(large, path); });
      return refusal.find("cannot be") != std::string::npos ? 0 : 1;
    });
    EXPECT_EQ(status, 0) << store.fileName;
    EXPECT_TRUE(store.read(path).Equals(ddr_Model()));
    auto const left = std::distance(std::filesystem::directory_iterator(path.parent_path()), {});
    EXPECT_EQ(left, 1) << "nothing else is left in the folder";
  }
}

TEST(EitherFile, HoldsTheOldModelOrTheNewOneAfterACrashAtAnyMoment) {
  ddr_Model models[2] = {SmallModel(), ddr_Model()};
  AppendSteps(models[1], 200);
  std::mt19937 random(11);
  for (Store const& store : kStores) {
    ScratchFolder folder;
    auto const path = folder / store.fileName;
    store.write(models[0], path);
    for (int round = 0; round < 25; ++round) {
      pid_t const child = fork();
      if (child == 0) {
        Refusal([&] {
          gattr::ModelFile file(path);
          for (std::size_t i = 0;; ++i) { IsText(store) ? store.write(models[i % 2], path) : file.Save(models[i % 2]); }
        });
        _exit(1);
      }
      std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 40000));
      kill(child, SIGKILL);
      int status = 0;
      waitpid(child, &status, 0);
      EXPECT_TRUE(WIFSIGNALED(status)) << "it was still saving";
      ddr_Model const read = store.read(path);
      EXPECT_TRUE(read.Equals(models[0]) || read.Equals(models[1]));
    }
  }
}

TEST(ModelFile, IsNotOverwrittenWhenItIsAnotherProgramsFile) {
  ScratchFolder folder;
  for (std::string const& content : {std::string("some notes"), std::string(2000, 'x')}) {
    PutBytes(folder / "notes", content);
    EXPECT_NE(Refusal([&] { gattr::ModelFile(folder / "notes").Save(SmallModel()); }).find("is no model file"), std::string::npos);
    EXPECT_EQ(BytesOf(folder / "notes"), content);
  }
}

TEST(ModelFile, IsRefusedWhileAnotherProgramHasIt) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  ddr_Model const model = SmallModel();
  gattr::ModelFile file(path);
  file.Save(model);
  int status = 0;
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  // locks hold between processes; inside one, too
  status = InAnotherProcess([&] {
    std::string const opened = Refusal([&] { gattr::ModelFile(path).Open(); });
    std::string const saved = Refusal([&] { gattr::ModelFile(path).Save(model); });
    return opened == path.string() + ": is in use by another program" && saved == opened ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Refusal([&] { file.Save(ddr_Model()); }), path.string() + ": is in use by another program");
  sqlite3_close(other);
  EXPECT_TRUE(file.Open().Equals(model));
  file.Save(ddr_Model());
  EXPECT_TRUE(file.Open().Equals(ddr_Model()));
}

/// All rows of a model file by table and key, and the count of saves.
std::map<std::string, std::string> RowsOf(std::filesystem::path const& path) {
  std::map<std::string, std::string> rows;
  sqlite3* handle = nullptr;
  EXPECT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  char const* const sql =
      "SELECT 'attribute ' || name, hex(data) FROM attributes UNION ALL SELECT 'object ' || name, hex(data) FROM objects UNION ALL "
      "SELECT 'extension ' || name, hex(data) FROM extensions UNION ALL SELECT 'step ' || position, name || hex(data) FROM steps UNION ALL "
      "SELECT 'saves', value FROM meta WHERE key = 'generation'";
  auto const take = [](void* into, int, char** values, char**) {
    (*static_cast<std::map<std::string, std::string>*>(into))[values[0]] = values[1];
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(handle, sql, take, &rows, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
  sqlite3_close(handle);
  return rows;
}

std::vector<std::string> Changed(std::map<std::string, std::string> const& before, std::map<std::string, std::string> const& after) {
  std::vector<std::string> changed;
  for (auto const& [key, value] : after) {
    auto const was = before.find(key);
    if (key != "saves" && (was == before.end() || was->second != value)) { changed.push_back(key); }
  }
  for (auto const& [key, value] : before) {
    if (!after.contains(key)) { changed.push_back("no " + key); }
  }
  return changed;
}

TEST(ModelFile, WritesOnlyTheRowsOfWhatChanged) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  ddr_Model model = SmallModel();
  gattr::ModelFile file(path);
  file.Save(model);
  struct Row {
    void (*edit)(ddr_Model&);
    std::vector<std::string> changed;
  };
  Row const rows[] = {
      {[](ddr_Model&) {}, {}},
      {[](ddr_Model& m) {
         SetInStep(m, "Move", "Step-3", {{"u2", 8.0}});
       },
       {"attribute Move"}},
      {[](ddr_Model& m) { GetBCs(m).RenameItem("Fix", "Held"); }, {"attribute Held", "no attribute Fix"}},
      {[](ddr_Model& m) { m.SetName("New"); }, {"extension "}},
      {[](ddr_Model& m) { m.Get<ddr_RegionMap>(ddr_Model::regionsCmd()).Remove("Surf-1"); }, {"no object Surf-1"}},
      {[](ddr_Model& m) { kprC_ReplaceStep(m, "Step-4", StaticStep(0.7)); }, {"step 4"}},
      {[](ddr_Model& m) { kprC_RenameStep(m, "Step-5", "Last"); }, {"step 5"}},
      {[](ddr_Model& m) { kprC_RemoveStep(m, "Last"); }, {"no step 5"}},
      {[](ddr_Model& m) { kprC_RenameStep(m, "Step-2", "Second"); }, {"attribute Hold", "step 2"}},
  };
  for (Row const& row : rows) {
    auto const before = RowsOf(path);
    row.edit(model);
    file.Save(model);
    auto const after = RowsOf(path);
    EXPECT_EQ(Changed(before, after), row.changed);
    EXPECT_EQ(after.at("saves") != before.at("saves"), !row.changed.empty());
    EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(model));
  }
}

TEST(ModelFile, WritesEverythingWhereSomebodyElseHasWrittenTheFile) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  ddr_Model model = SmallModel();
  gattr::ModelFile mine(path);
  mine.Save(model);
  ddr_Model other = model;
  GetBCs(other).Remove("Fix");
  gattr::ModelFile(path).Save(other);
  SetInStep(model, "Move", "Step-3", {{"u2", 8.0}});
  mine.Save(model);
  EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(model));

  std::filesystem::remove(path);  // gone altogether
  mine.Save(model);
  EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(model));
}

}  // namespace
