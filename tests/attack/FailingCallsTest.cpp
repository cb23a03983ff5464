#ifdef GATTR_SHIM  // not where a sanitizer has its own calls

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "tests/store/Models.h"
#include "tests/support/SixFamilies.h"

namespace {

using Files = std::map<std::string, std::string>;  // contents by name

std::string BytesOf(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}
Files FilesIn(std::filesystem::path const& folder) {
  Files files;
  for (auto const& entry : std::filesystem::directory_iterator(folder)) { files[entry.path().filename().string()] = BytesOf(entry.path()); }
  return files;
}
void Fill(std::filesystem::path const& folder, Files const& files) {
  for (auto const& entry : std::filesystem::directory_iterator(folder)) { std::filesystem::remove(entry.path()); }
  for (auto const& [name, bytes] : files) { std::ofstream(folder / name, std::ios::binary) << bytes; }
}

/// How a run of the program ended.
struct Ran {
  int status = 0;
  bool struck = false;  ///< the call that was to fail has come
  bool Exited() const { return WIFEXITED(status); }
  int Code() const { return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status); }
};

/// Runs the program in \p folder, with its output in `out` and `err` beside it. The attack is what the shim takes.
Ran RunGattr(std::filesystem::path const& folder, std::string const& arguments, std::string const& attack) {
  std::string const beside = folder.parent_path().string();
  std::filesystem::path const struck = beside + "/struck";
  std::filesystem::remove(struck);
  std::fflush(stdout);  // or the child writes it once more
  pid_t const child = fork();
  if (child == 0) {
    std::vector<std::string> words{"gattr"};
    std::istringstream split(arguments);
    for (std::string word; split >> word;) { words.push_back(word); }
    std::vector<char*> argv;
    for (std::string& word : words) { argv.push_back(word.data()); }
    argv.push_back(nullptr);
    bool const ready = chdir(folder.c_str()) == 0 && std::freopen((beside + "/out").c_str(), "w", stdout) != nullptr &&
                       std::freopen((beside + "/err").c_str(), "w", stderr) != nullptr;
    if (!attack.empty()) {
      setenv("LD_PRELOAD", GATTR_SHIM, 1);
      setenv("GATTR_ATTACK", attack.c_str(), 1);
      setenv("GATTR_STRUCK", struck.c_str(), 1);
    }
    if (ready) { execv(GATTR_PROGRAM, argv.data()); }
    _exit(127);
  }
  Ran ran;
  waitpid(child, &ran.status, 0);
  ran.struck = std::filesystem::exists(struck);
  return ran;
}

/// The text of the model in a file; empty where there is none. A file that cannot be read is a failure.
std::string TextOf(std::filesystem::path const& path) {
  if (!std::filesystem::exists(path)) { return ""; }
  std::string text;
  std::string const refusal =
      Refusal([&] { text = Dump(path.string().ends_with("json") ? gattr::ReadTextFile(path) : gattr::ModelFile(path).Open()); });
  EXPECT_EQ(refusal, "");
  return text;
}

/// What the program is asked to do, and which file it writes.
struct Work {
  char const* name;
  char const* arguments;
  char const* target;    ///< empty: standard output
  bool isFirst = false;  ///< there is no target before
};
constexpr Work kWorks[] = {
    {"first save of a model file", "replay edit.jsonl --on base.gadb -o m.gadb", "m.gadb", true},
    {"first save of a text", "replay edit.jsonl --on base.gadb -o m.gattr.json", "m.gattr.json", true},
    {"save of a model file", "replay edit.jsonl --on m.gadb -o m.gadb", "m.gadb"},
    {"save of a text", "replay edit.jsonl --on m.gattr.json -o m.gattr.json", "m.gattr.json"},
    {"load over another model", "load new.gattr.json -o m.gadb", "m.gadb"},
    {"dump into a file", "dump new.gadb -o m.gattr.json", "m.gattr.json"},
    {"dump of a model file", "dump new.gadb", ""},
    {"dump of one that a killed save has left", "dump hot.gadb", ""},
    {"check of a text", "check new.gattr.json", ""},
};

/// What ends a run without a word: by its own name for it, the signal.
std::map<std::string_view, int> const kSignals = {{"kill", SIGKILL}, {"break", SIGINT}, {"terminate", SIGTERM}, {"pipe", SIGPIPE}};

struct Attack {
  char const* call;
  std::vector<char const*> hows;
};
Attack const kAttacks[] = {
    {"open", {"fail", "from", "interrupt", "kill"}},
    {"read", {"fail", "from", "short", "interrupt", "kill"}},
    {"write", {"fail", "from", "short", "interrupt", "kill", "break", "terminate", "pipe"}},
    {"sync", {"fail", "from", "kill"}},
    {"truncate", {"fail", "from", "kill"}},
    {"rename", {"fail", "from", "kill", "break", "terminate"}},
    {"unlink", {"fail", "from", "kill", "break", "terminate"}},
    {"stat", {"fail", "from", "kill"}},
    {"lock", {"fail", "from", "interrupt", "kill"}},
    {"memory", {"fail", "from"}},
};

/// GATTR_ATTACK: every how many calls one fails, of the system and of memory.
std::pair<int, int> Strides() {
  int system = 5, memory = 1201;
  if (char const* const asked = std::getenv("GATTR_ATTACK")) { std::sscanf(asked, "%d,%d", &system, &memory); }
  return {system, memory};
}

class FailingCalls : public testing::TestWithParam<Work> {
protected:
  FailingCalls() {
    std::filesystem::create_directory(folder_);
    std::ofstream(folder_ / "old.jsonl") << test::kSixFamilies;
    std::ofstream(folder_ / "edit.jsonl") << test::kSixFamiliesEdited;
    for (char const* arguments :
         {"replay old.jsonl -o base.gadb", "replay edit.jsonl --on base.gadb -o new.gadb", "dump new.gadb -o new.gattr.json"}) {
      EXPECT_EQ(RunGattr(folder_, arguments, "").Code(), 0) << arguments;
    }
    old_ = TextOf(folder_ / "base.gadb");
    new_ = TextOf(folder_ / "new.gadb");
    Work const& work = GetParam();
    if (!work.isFirst && *work.target != '\0') {
      EXPECT_EQ(RunGattr(folder_, std::string("dump base.gadb -o m.gattr.json"), "").Code(), 0);
      std::filesystem::copy_file(folder_ / "base.gadb", folder_ / "m.gadb");
      std::string const other = std::string(work.target) == "m.gadb" ? "m.gattr.json" : "m.gadb";
      std::filesystem::remove(folder_ / other);
    }
    if (std::string(work.arguments).find("hot.gadb") != std::string::npos) {
      std::filesystem::copy_file(folder_ / "base.gadb", folder_ / "hot.gadb");
      RunGattr(folder_, "replay edit.jsonl --on hot.gadb -o hot.gadb", "unlink kill 1");
      EXPECT_TRUE(std::filesystem::exists(folder_ / "hot.gadb-journal"));
    }
    before_ = FilesIn(folder_);
  }

  /// Holds what is there after a run against what may be.
  void Check(std::string const& how, Ran const& ran) {
    Work const& work = GetParam();
    std::string const said = BytesOf(scratch_ / "err");
    bool const isDump = std::string_view(work.arguments).starts_with("dump");
    bool const isHot = std::string_view(work.arguments).find("hot") != std::string::npos;  // the old one, unless locks fail half-way
    auto const signal = kSignals.find(how);
    bool const killed = signal != kSignals.end() && ran.Code() == -signal->second;
    // the C library's own ends, over the first object of a thread, or an exception that passes through what runs once
    if (said.starts_with("Fatal glibc error") || said.starts_with("libgcc_s.so.1 must be installed")) { return; }
    EXPECT_TRUE(ran.Exited() || killed) << "ended by the signal " << -ran.Code();
    if (ran.Exited()) {
      EXPECT_TRUE(ran.Code() == 0 || ran.Code() == 2) << said;
      EXPECT_EQ(said.starts_with("gattr: "), ran.Code() != 0) << said;
      EXPECT_EQ(said.find(": is damaged: "), std::string::npos) << "the file is good: " << said;
    }
    if (*work.target == '\0') {
      std::string const out = BytesOf(scratch_ / "out");
      if (ran.Code() == 0 && isDump) { EXPECT_TRUE(out == new_ || (isHot && out == old_)) << out; }
    } else {
      std::string const text = TextOf(folder_ / work.target);
      std::string const& before = work.isFirst ? std::string() : old_;
      EXPECT_TRUE(text == new_ || text == before) << "neither model";
      if (ran.Exited()) { EXPECT_EQ(text == new_, ran.Code() == 0) << "told otherwise: " << said; }
    }
    if (ran.Code() != 0) {  // and the next one does it
      EXPECT_EQ(Refusal([&] {
                  if (std::string(work.target).ends_with("json")) {
                    gattr::WriteTextFile(gattr::ReadTextFile(folder_ / "new.gattr.json"), folder_ / work.target);
                  } else if (*work.target != '\0') {
                    gattr::ModelFile(folder_ / work.target).Save(gattr::ReadTextFile(folder_ / "new.gattr.json"));
                  }
                }),
                "");
    }
    for (auto const& entry : std::filesystem::directory_iterator(folder_)) {
      std::string const name = entry.path().filename().string();
      EXPECT_TRUE(before_.contains(name) || name == work.target) << name << " is left";
    }
  }

  ScratchFolder root_;
  std::filesystem::path scratch_ = root_ / "";
  std::filesystem::path folder_ = root_ / "models";
  std::string old_, new_;
  Files before_;
};

TEST_P(FailingCalls, LeaveTheOldModelOrTheNewOneAndSayWhy) {
  auto const [system, memory] = Strides();
  Work const& work = GetParam();
  std::map<std::string, int> runs;
  for (Attack const& attack : kAttacks) {
    int const stride = std::string_view(attack.call) == "memory" ? memory : system;
    for (char const* const how : attack.hows) {
      for (int nth = 1;; nth += stride) {
        std::string const attacked = std::string(attack.call) + " " + how + " " + std::to_string(nth);
        SCOPED_TRACE(std::string(work.name) + ": " + attacked);
        Fill(folder_, before_);
        Ran const ran = RunGattr(folder_, work.arguments, attacked);
        if (!ran.struck) {
          EXPECT_EQ(ran.Code(), 0);
          break;
        }
        ++runs[kSignals.contains(how) ? "kills" : std::string_view(attack.call) == "memory" ? "memory" : "calls"];
        Check(how, ran);
      }
    }
  }
  EXPECT_GT(runs["calls"], 10);
  for (auto const& [what, count] : runs) { RecordProperty(what, count); }
  std::printf("%s: %d calls failed, %d kills and signals, %d times out of memory\n", work.name, runs["calls"], runs["kills"],
              runs["memory"]);
}

INSTANTIATE_TEST_SUITE_P(Works, FailingCalls, testing::ValuesIn(kWorks), [](auto const& work) {
  std::string name;
  for (char const c : std::string(work.param.name)) { name += c == ' ' ? '_' : c; }
  return name;
});

}  // namespace

#endif
