#include <csignal>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#include <sqlite3.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store/ReplacingFile.h"

#include "tests/store/Models.h"

namespace {

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
    auto const path = folder / store.fileName;
    store.write(ddr_Model(), path);
    constexpr auto kReadOnly =
        std::filesystem::perms::owner_read | std::filesystem::perms::group_read | std::filesystem::perms::others_read;
    std::filesystem::permissions(path, kReadOnly);
    std::filesystem::permissions(folder / "", std::filesystem::perms::all);
    int const status = InAnotherProcess([&] {
      constexpr uid_t kNobody = 65534;
      if (geteuid() == 0 && setuid(kNobody) != 0) { return 1; }  // root may write anything
      bool const isRefused = Refusal([&] { store.write(SmallModel(), path); }) ==
                             path.string() + ": " + (IsText(store) ? "cannot be written: Permission denied" : "may not be written");
      return isRefused && store.read(path).Equals(ddr_Model()) ? 0 : 1;
    });
    EXPECT_EQ(status, 0) << store.fileName;
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
      "SELECT 'attribute ' || name, data FROM attributes UNION ALL SELECT 'object ' || name, data FROM objects UNION ALL "
      "SELECT 'extension ' || name, data FROM extensions UNION ALL SELECT 'step ' || position, name || data FROM steps UNION ALL "
      "SELECT 'class ' || number, name || members FROM classes UNION ALL "
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

template <class File> class EitherFileByItsClass : public testing::Test {};
using FileClasses = testing::Types<gattr::ModelFile, gattr::TextFile>;
TYPED_TEST_SUITE(EitherFileByItsClass, FileClasses);

TYPED_TEST(EitherFileByItsClass, IsNotOverwrittenUnaskedWhereSomebodyElseHasChangedIt) {
  ScratchFolder folder;
  auto const path = folder / "Model";
  ddr_Model model = SmallModel();
  TypeParam mine(path), late(path);
  mine.Save(model);
  ddr_Model other = model;
  GetBCs(other).Remove("Fix");
  TypeParam theirs(path);
  theirs.Open();
  theirs.Save(other);
  SetInStep(model, "Move", "Step-3", {{"u2", 8.0}});
  EXPECT_EQ(Refusal([&] { mine.Save(model); }),
            path.string() + ": was changed by another program since it was opened: open it again, or overwrite it (--force)");
  EXPECT_EQ(Dump(TypeParam(path).Open()), Dump(other));
  mine.Save(model, gattr::Changed::Overwrite);
  EXPECT_EQ(Dump(TypeParam(path).Open()), Dump(model));
  mine.Save(model);  // is its own
  late.Save(other);  // has opened nothing that could have changed
  EXPECT_EQ(Dump(TypeParam(path).Open()), Dump(other));

  mine.Save(model, gattr::Changed::Overwrite);
  SetInStep(model, "Move", "Step-3", {{"u2", 9.0}});
  mine.Save(model);
  TypeParam(folder / "Copy").Save(other);
  std::filesystem::copy_file(folder / "Copy", path, std::filesystem::copy_options::overwrite_existing);  // byte by byte
  SetInStep(model, "Move", "Step-3", {{"u2", 10.0}});
  EXPECT_TRUE(Refusal([&] { mine.Save(model); }).ends_with("(--force)"));
  EXPECT_EQ(Dump(TypeParam(path).Open()), Dump(other));

  std::filesystem::remove(path);  // gone altogether
  mine.Save(model);
  EXPECT_EQ(Dump(TypeParam(path).Open()), Dump(model));
}

// Each adds a step to what is there, as two people would; what is told as saved stays.
TYPED_TEST(EitherFileByItsClass, LosesNothingThatManySaveIntoItInTurn) {
  constexpr int kWriters = 4, kSaves = 12;
  ScratchFolder folder;
  auto const path = folder / "Model";
  TypeParam(path).Save(SmallModel());
  std::vector<pid_t> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.push_back(fork());
    if (writers.back() != 0) { continue; }
    for (int saved = 0; saved < kSaves;) {
      std::string const refusal = Refusal([&] {
        TypeParam file(path);
        ddr_Model model = file.Open();
        model.Get<ddr_RegionMap>(ddr_Model::regionsCmd())
            .Insert("Set-" + std::to_string(writer) + "-" + std::to_string(saved), cow_Handle<rgnC_Region>::Make("Set"));
        file.Save(model);
        ++saved;
      });
      if (!refusal.empty() && !refusal.ends_with("(--force)") && !refusal.ends_with("is in use by another program")) { _exit(1); }
    }
    _exit(0);
  }
  for (pid_t const writer : writers) {
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
  }
  ddr_Model const model = TypeParam(path).Open();
  for (int i = 0; i < kWriters * kSaves; ++i) {
    std::string const name = "Set-" + std::to_string(i / kSaves) + "-" + std::to_string(i % kSaves);
    EXPECT_TRUE(model.ConstGet<ddr_RegionMap>(ddr_Model::regionsCmd()).IsMember(name)) << name;
  }
}

TEST(ModelFile, ThatManyMakeAtOnceHoldsOneOfTheirModels) {
  constexpr int kWriters = 8;
  for (int round = 0; round < 5; ++round) {
    ScratchFolder folder;
    auto const path = folder / "Model.gadb";
    std::vector<pid_t> children;
    for (int writer = 0; writer < kWriters; ++writer) {
      pid_t const child = fork();
      if (child == 0) {
        ddr_Model model = SmallModel();
        model.SetName("Model-" + std::to_string(writer));
        std::string const refusal = Refusal([&] { gattr::ModelFile(path).Save(model); });
        _exit(refusal.empty() || refusal.ends_with("is in use by another program") ? 0 : 1);
      }
      children.push_back(child);
    }
    for (pid_t const child : children) {
      int status = 0;
      waitpid(child, &status, 0);
      EXPECT_EQ(status, 0);
    }
    EXPECT_TRUE(gattr::ModelFile(path).Open().Name().View().starts_with("Model-"));
    EXPECT_EQ(NamesIn(path.parent_path()), std::set<std::string>{"Model.gadb"});
  }
}

TEST(ModelFile, LeavesAloneWhatItCannotKnow) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  std::string const tooLong(300, 'x');
  EXPECT_NE(Refusal([&] { gattr::ModelFile(folder / tooLong).Save(SmallModel()); }).find("cannot be examined: File name too long"),
            std::string::npos);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_NE(Refusal([&] { gattr::ModelFile(folder / "pipe").Save(SmallModel()); }).find("is no file, but a device or a pipe"),
            std::string::npos);
  // a journal would be played back into the new model
  PutBytes(folder / "Model.gadb-journal", "of another model");
  EXPECT_NE(Refusal([&] { gattr::ModelFile(path).Save(SmallModel()); }).find("is left of another model that had this name"),
            std::string::npos);
  EXPECT_EQ(BytesOf(folder / "Model.gadb-journal"), "of another model");
  EXPECT_FALSE(std::filesystem::exists(path));
  // but an empty file has had none
  PutBytes(path, "");
  gattr::ModelFile(path).Save(SmallModel());
  EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(SmallModel()));
  EXPECT_FALSE(std::filesystem::exists(folder / "Model.gadb-journal"));
}

TEST(ModelFile, IsSavedThroughALink) {
  ScratchFolder folder;
  std::filesystem::create_symlink("Real.gadb", folder / "Link.gadb");
  gattr::ModelFile file(folder / "Link.gadb");
  for (ddr_Model const& model : {ddr_Model(), SmallModel()}) {
    file.Save(model);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "Link.gadb"));
    EXPECT_EQ(Dump(gattr::ModelFile(folder / "Real.gadb").Open()), Dump(model));
  }
}

TEST(ModelFile, OfTheFirstVersionOpensAndIsSavedInThePresentOne) {
  std::filesystem::path const stored = std::filesystem::path(GATTR_SOURCE_DIR) / "tests/store/FirstVersion.gadb";
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  std::filesystem::copy_file(stored, path);
  gattr::ModelFile file(path);
  ddr_Model model = file.Open();
  EXPECT_EQ(Dump(model), Dump(SmallModel()));
  SetInStep(model, "Move", "Step-3", {{"u2", 8.0}});
  file.Save(model);
  EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(model));
  EXPECT_FALSE(RowsOf(path).empty());
}

TEST(EitherFile, OfAmplitudesWithoutCurvesIsWrittenAsItWasBeforeThereWereCurves) {
  std::filesystem::path const stored = std::filesystem::path(GATTR_SOURCE_DIR) / "tests/store/data";
  ddr_Model const model = gattr::ReadTextFile(stored / "plain_amplitude.gattr.json");
  EXPECT_EQ(Dump(model), BytesOf(stored / "plain_amplitude.gattr.json"));
  ScratchFolder folder;
  std::filesystem::copy_file(stored / "plain_amplitude.gadb", folder / "Old.gadb");
  EXPECT_TRUE(gattr::ModelFile(folder / "Old.gadb").Open().Equals(model));
  gattr::ModelFile(folder / "New.gadb").Save(model);
  EXPECT_EQ(RowsOf(folder / "New.gadb"), RowsOf(folder / "Old.gadb"));
}

TEST(ModelFile, CanBeLookedAtByViews) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  gattr::ModelFile(path).Save(SmallModel());
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  auto const ask = [&](char const* sql) {
    std::string answer;
    auto const take = [](void* into, int, char** values, char**) {
      *static_cast<std::string*>(into) += values[0] != nullptr ? values[0] : "null";
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(handle, sql, take, &answer, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
    return answer;
  };
  EXPECT_EQ(ask("SELECT value FROM step_members WHERE step = 'Step-2' AND member = 'initialInc'"), "0.1");
  EXPECT_EQ(ask("SELECT value FROM attribute_members WHERE attribute = 'Hold' AND member = 'distribution'"), "UNIFORM");
  EXPECT_EQ(ask("SELECT value FROM history_members WHERE attribute = 'Move' AND step = 'Step-1' AND member = 'u1'"), "0.1");
  EXPECT_EQ(ask("SELECT DISTINCT step || ' ' || status || ';' FROM history_members WHERE attribute = 'Hold'"), "Step-2 1;Step-4 4;");
  EXPECT_EQ(ask("SELECT value FROM object_members WHERE object = 'Surf-1' AND member = 'kind'"), "SURFACE");
  sqlite3_close(handle);
}

/// The engine's way to files, where what is removed may come back with a loss of power.
class FailingFiles {
public:
  FailingFiles() {
    made = *real;
    made.zName = "failing";
    made.xDelete = [](sqlite3_vfs*, char const* name, int sync) {
      int const code = real->xDelete(real, name, 0);
      return code == SQLITE_OK && sync != 0 && fails ? SQLITE_IOERR_DIR_FSYNC : code;
    };
    sqlite3_vfs_register(&made, 1);
  }
  FailingFiles(FailingFiles const&) = delete;
  FailingFiles& operator=(FailingFiles const&) = delete;
  ~FailingFiles() { sqlite3_vfs_unregister(&made); }

  static inline bool fails = true;

private:
  static inline sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
  static inline sqlite3_vfs made;
};

TEST(ModelFile, IsToldAsSavedWhereWhatFailedCameBehindTheSave) {
  ScratchFolder folder;
  auto const path = folder / "Model.gadb";
  gattr::ModelFile file(path);
  ddr_Model model = SmallModel();
  file.Save(model);
  FailingFiles const files;
  SetInStep(model, "Move", "Step-3", {{"u2", 8.0}});
  EXPECT_EQ(Refusal([&] { file.Save(model); }), "");
  FailingFiles::fails = false;
  EXPECT_EQ(Dump(gattr::ModelFile(path).Open()), Dump(model));
  SetInStep(model, "Move", "Step-3", {{"u2", 9.0}});
  EXPECT_EQ(Refusal([&] { file.Save(model); }), "") << "it knows what it has saved";
}

}  // namespace
