#include "store/ReplacingFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <cerrno>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "store/StoreError.h"

namespace gattr {

namespace {

constexpr mode_t kPermissions = 0666, kPrivate = 0600;  // less what the process masks
constexpr std::string_view kMark = ".new-";             // between the file's name and what makes the temporary one its own
constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::size_t kLetterCount = 6;

std::string SystemText(int error) { return std::generic_category().message(error); }

[[noreturn]] void Fail(int error) { throw StoreError("cannot be written: " + SystemText(error)); }

std::filesystem::path FolderOf(std::filesystem::path const& file) { return file.has_parent_path() ? file.parent_path() : "."; }

/// Makes the entry of a file that was renamed last through a crash.
void SyncFolder(std::filesystem::path const& file) {
  if (int const handle = ::open(FolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); handle >= 0) {
    ::fsync(handle);
    ::close(handle);
  }
}

std::string RandomLetters() {
  std::random_device random;
  std::string letters(kLetterCount, ' ');
  for (char& letter : letters) { letter = kLetters[random() % kLetters.size()]; }
  return letters;
}

}  // namespace

ReplacingFile::ReplacingFile(std::filesystem::path const& path) : path_(path) {
  std::error_code ignored;
  if (std::filesystem::is_symlink(path, ignored)) { path_ = std::filesystem::weakly_canonical(path, ignored); }
  struct stat present = {};
  bool const exists = ::stat(path_.c_str(), &present) == 0;
  if (exists && S_ISDIR(present.st_mode)) { throw StoreError("is a folder, not a file"); }
  if (exists && ::access(path_.c_str(), W_OK) != 0) { Fail(errno); }
  if (exists && !S_ISREG(present.st_mode)) {
    OpenInPlace(S_ISSOCK(present.st_mode));
    return;
  }
  ClearLeftovers();
  OpenBeside(exists);  // what was not for all to read is not meanwhile either
  if (!exists) { return; }
  if (::fchown(file_, present.st_uid, present.st_gid) != 0) { static_cast<void>(::fchown(file_, static_cast<uid_t>(-1), present.st_gid)); }
  static_cast<void>(::fchmod(file_, present.st_mode & 07777));
}

void ReplacingFile::OpenInPlace(bool isSocket) {
  file_ = isSocket ? ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0) : ::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (file_ < 0) { Fail(errno); }
  if (!isSocket) { return; }
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::string const name = path_.string();
  bool const fits = name.size() < sizeof address.sun_path;
  if (fits) { name.copy(address.sun_path, name.size()); }
  if (fits && ::connect(file_, reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0) { return; }
  int const error = fits ? errno : ENAMETOOLONG;
  ::close(file_);
  Fail(error);
}

void ReplacingFile::OpenBeside(bool isPrivate) {
  for (;;) {
    temporary_ = path_;
    temporary_ += std::string(kMark) + RandomLetters();
    file_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isPrivate ? kPrivate : kPermissions);
    if (file_ < 0 && errno == EEXIST) { continue; }
    if (file_ < 0) {
      int const error = errno;
      temporary_.clear();
      Fail(error);
    }
    struct stat made = {};
    static_cast<void>(::flock(file_, LOCK_EX));  // not everywhere; without it nobody takes the file for a leftover either
    if (::fstat(file_, &made) == 0 && made.st_nlink > 0) { return; }
    ::close(file_);  // another program was clearing up and took it for one
  }
}

void ReplacingFile::ClearLeftovers() const {
  std::string const begin = path_.filename().string() + std::string(kMark);
  std::error_code ignored;
  for (auto const& entry : std::filesystem::directory_iterator(FolderOf(path_), ignored)) {
    std::string const name = entry.path().filename().string();
    bool const isOurs = name.size() == begin.size() + kLetterCount && name.starts_with(begin) &&
                        name.find_first_not_of(kLetters, begin.size()) == std::string::npos;
    if (!isOurs) { continue; }
    int const file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) { continue; }
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) { ::unlink(entry.path().c_str()); }
    ::close(file);
  }
}

ReplacingFile::~ReplacingFile() {
  if (file_ >= 0) { ::close(file_); }
  if (!temporary_.empty()) { ::unlink(temporary_.c_str()); }
}

std::string ReplacingFile::Failure() const { return error_ != 0 ? SystemText(error_) : ""; }

void ReplacingFile::Commit() {
  bool const isFile = !temporary_.empty();
  if (::fsync(file_) != 0 && isFile) { Fail(errno); }  // the others have nothing to sync
  // the lock goes with the file: it holds until the file is in its place
  if (isFile && ::rename(temporary_.c_str(), path_.c_str()) != 0) { Fail(errno); }
  temporary_.clear();
  int const handle = std::exchange(file_, -1);
  if (::close(handle) != 0 && !isFile) { Fail(errno); }
  if (isFile) { SyncFolder(path_); }
}

std::streamsize ReplacingFile::xsputn(char const* bytes, std::streamsize size) {
  std::streamsize done = 0;
  while (done < size) {
    ssize_t const written = ::write(file_, bytes + done, static_cast<std::size_t>(size - done));
    if (written < 0 && errno == EINTR) { continue; }
    if (written <= 0) {
      error_ = errno;
      break;
    }
    done += written;
  }
  return done;
}

ReplacingFile::int_type ReplacingFile::overflow(int_type byte) {
  char const one = traits_type::to_char_type(byte);
  return xsputn(&one, 1) == 1 ? byte : traits_type::eof();
}

}  // namespace gattr
