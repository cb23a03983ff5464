#include "store/TemporaryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <random>
#include <string>
#include <system_error>
#include <utility>

#include "store/StoreError.h"

namespace gattr {

namespace {

constexpr std::string_view kMark = ".new-";  // between the file's name and what makes the temporary one its own
constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kLetterCount = 6;

[[noreturn]] void FailToWrite(int error) { throw StoreError("cannot be written: " + std::generic_category().message(error)); }

std::filesystem::path FolderOf(std::filesystem::path const& file) { return file.has_parent_path() ? file.parent_path() : "."; }

/// Makes the entry of a file in its folder last through a crash, as far as the system can.
void SyncFolderOf(std::filesystem::path const& file) {
  if (int const handle = ::open(FolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); handle >= 0) {
    ::fsync(handle);
    ::close(handle);
  }
}

}  // namespace

TemporaryFile::TemporaryFile(std::filesystem::path target, mode_t permissions) : target_(std::move(target)) {
  ClearStale();
  // One that clears up meanwhile may take the file, until it is locked, for one that nobody has.
  struct stat now = {};
  do { Create(permissions); } while (::fstat(handle_, &now) == 0 && now.st_nlink == 0);
}

TemporaryFile::~TemporaryFile() {
  if (!path_.empty()) { ::unlink(path_.c_str()); }
  if (handle_ >= 0) { ::close(handle_); }
}

void TemporaryFile::Create(mode_t permissions) {
  if (handle_ >= 0) { ::close(std::exchange(handle_, -1)); }
  std::random_device random;
  do {
    std::string name(kMark);
    for (std::size_t i = 0; i < kLetterCount; ++i) { name += kLetters[random() % kLetters.size()]; }
    std::filesystem::path path = target_;
    path += name;
    handle_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    if (handle_ >= 0) { path_ = std::move(path); }
  } while (handle_ < 0 && errno == EEXIST);
  if (handle_ < 0) { FailToWrite(errno); }
  ::flock(handle_, LOCK_EX);  // tells that somebody has it; where that does not work, nothing is cleared away
}

void TemporaryFile::ClearStale() const {
  std::string const begin = target_.filename().string().append(kMark);
  std::error_code ignored;
  for (auto entry = std::filesystem::directory_iterator(FolderOf(target_), ignored); entry != std::filesystem::directory_iterator();
       entry.increment(ignored)) {
    std::string const name = entry->path().filename().string();
    bool const isOurs = name.size() == begin.size() + kLetterCount && name.starts_with(begin) &&
                        name.find_first_not_of(kLetters, begin.size()) == std::string::npos;
    if (!isOurs) { continue; }
    int const handle = ::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) { continue; }
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0) { ::unlink(entry->path().c_str()); }
    ::close(handle);
  }
}

bool TemporaryFile::Place(bool replaces) {
  if (::fsync(handle_) != 0) { FailToWrite(errno); }
  int failed = ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), replaces ? 0 : RENAME_NOREPLACE);
  if (failed != 0 && errno == EINVAL && !replaces) {  // not every file system can tell
    struct stat present = {};
    if (::lstat(target_.c_str(), &present) == 0) { return false; }
    failed = ::rename(path_.c_str(), target_.c_str());
  }
  if (failed != 0 && errno == EEXIST) { return false; }
  if (failed != 0) { FailToWrite(errno); }
  path_.clear();
  SyncFolderOf(target_);
  return true;
}

}  // namespace gattr
