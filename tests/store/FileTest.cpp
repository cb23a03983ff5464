#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <thread>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store/ReplacingFile.h"

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

std::set<std::string> NamesIn(std::filesystem::path const& folder) {
  std::set<std::string> names;
  for (auto const& entry : std::filesystem::directory_iterator(folder)) { names.insert(entry.path().filename().string()); }
  return names;
}

TEST(TextFile, ClearsWhatAKilledSaveHasLeftAndNothingElse) {
  ScratchFolder folder;
  auto const path = folder / "Model.gattr.json";
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  pid_t const child = fork();
  if (child == 0) {
    gattr::ReplacingFile file(path);
    file.Stream() << "half a model";
    static_cast<void>(::write(ready[1], "x", 1));
    pause();
    _exit(1);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(NamesIn(folder / "").size(), 1U);
  for (char const* other :
       {"Model.gattr.json.new-", "Model.gattr.json.new-abcde", "Model.gattr.json.new-ABCDEF", "Other.gattr.json.new-abcdef"}) {
    PutBytes(folder / other, "of somebody else");
  }
  gattr::WriteTextFile(SmallModel(), path);
  EXPECT_EQ(NamesIn(folder / "").size(), 6U) << "a save that goes on is left alone";
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  gattr::WriteTextFile(SmallModel(), path);
  EXPECT_EQ(NamesIn(folder / ""), (std::set<std::string>{"Model.gattr.json", "Model.gattr.json.new-", "Model.gattr.json.new-abcde",
                                                         "Model.gattr.json.new-ABCDEF", "Other.gattr.json.new-abcdef"}));
  EXPECT_TRUE(gattr::ReadTextFile(path).Equals(SmallModel()));
}

TEST(TextFile, HoldsOneOfTheModelsThatManyWriteAtOnce) {
  ScratchFolder folder;
  auto const path = folder / "Model.gattr.json";
  ddr_Model models[2] = {SmallModel(), ddr_Model()};
  AppendSteps(models[1], 200);
  std::vector<pid_t> writers;
  for (int writer = 0; writer < 4; ++writer) {
    writers.push_back(fork());
    if (writers.back() != 0) { continue; }
    std::vector<std::thread> threads;  // of one process, so that its number tells nothing
    int failures = 0;
    std::mutex lock;
    for (int thread = 0; thread < 2; ++thread) {
      threads.emplace_back([&, thread] {
        for (int round = 0; round < 20; ++round) {
          bool const failed = !Refusal([&] { gattr::WriteTextFile(models[(round + thread) % 2], path); }).empty();
          std::lock_guard const locked(lock);
          failures += failed ? 1 : 0;
        }
      });
    }
    for (std::thread& thread : threads) { thread.join(); }
    _exit(failures);
  }
  int status = 0;
  for (pid_t const writer : writers) {
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
  }
  ddr_Model const read = gattr::ReadTextFile(path);
  EXPECT_TRUE(read.Equals(models[0]) || read.Equals(models[1]));
  EXPECT_EQ(NamesIn(folder / ""), std::set<std::string>{"Model.gattr.json"});
}

TEST(TextFile, TakesOverThePermissionsAndTheOwnerOfTheOneThatItReplaces) {
  ScratchFolder folder;
  auto const path = folder / "Model.gattr.json";
  constexpr mode_t kModes[] = {0600, 0664, 0640};
  gattr::WriteTextFile(SmallModel(), path);
  bool const isRoot = geteuid() == 0;
  if (isRoot) { ASSERT_EQ(chown(path.c_str(), 12345, 23456), 0); }
  for (mode_t const mode : kModes) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    gattr::WriteTextFile(SmallModel(), path);
    struct stat now = {};
    ASSERT_EQ(stat(path.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777U, mode);
    EXPECT_EQ(now.st_uid, isRoot ? 12345U : geteuid());
    EXPECT_EQ(now.st_gid, isRoot ? 23456U : getegid());
  }
}

TEST(TextFile, GoesIntoAPipeASocketOrADeviceAndComesOutOfAPipe) {
  ScratchFolder folder;
  ddr_Model const model = SmallModel();
  auto const pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { gattr::WriteTextFile(model, pipe); });
  EXPECT_TRUE(gattr::ReadTextFile(pipe).Equals(model));
  writer.join();
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));

  gattr::WriteTextFile(model, "/dev/null");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));

  auto const path = folder / "socket";
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  path.string().copy(address.sun_path, sizeof address.sun_path - 1);
  int const listener = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(listener, 1), 0);
  std::thread sender([&] { gattr::WriteTextFile(model, path); });
  int const taken = accept(listener, nullptr, nullptr);
  std::string text;
  char piece[4096];
  for (ssize_t size = 0; (size = ::read(taken, piece, sizeof piece)) > 0;) { text.append(piece, static_cast<std::size_t>(size)); }
  sender.join();
  close(taken);
  close(listener);
  EXPECT_EQ(text, Dump(model));
  EXPECT_TRUE(std::filesystem::is_socket(path));
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
