#include "store/ReplacingFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <chrono>
#include <string>
#include <system_error>
#include <thread>

#include "store/StoreError.h"

namespace gattr {

namespace {

constexpr std::chrono::seconds kLongestWait{5};  // to wait for other programs that replace the same file

std::string SystemText(int error) { return std::generic_category().message(error); }

[[noreturn]] void Fail(int error) { throw StoreError("cannot be written: " + SystemText(error)); }

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
  if (exists) { LockPresent(); }
  constexpr mode_t kPrivate = 0600;  // what was not for all to read is not meanwhile either
  beside_.emplace(path_, exists ? kPrivate : TemporaryFile::kForAll);
  file_ = beside_->Handle();
  if (!exists) { return; }
  if (::fchown(file_, present.st_uid, present.st_gid) != 0) { static_cast<void>(::fchown(file_, static_cast<uid_t>(-1), present.st_gid)); }
  static_cast<void>(::fchmod(file_, present.st_mode & 07777));
}

void ReplacingFile::LockPresent() {
  auto const until = std::chrono::steady_clock::now() + kLongestWait;
  for (;;) {
    present_ = FileHandle(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!present_ && errno == ENOENT) { return; }
    if (!present_) { throw StoreError("cannot be read: " + SystemText(errno)); }
    while (::flock(present_.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {  // elsewhere locks may not work
      if (std::chrono::steady_clock::now() > until) { throw StoreError("is in use by another program"); }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    struct stat locked = {}, named = {};
    bool const isNamed = ::fstat(present_.Number(), &locked) == 0 && ::stat(path_.c_str(), &named) == 0 && locked.st_ino == named.st_ino &&
                         locked.st_dev == named.st_dev;
    if (isNamed || std::chrono::steady_clock::now() > until) { return; }
  }
}

std::optional<ContentStamp> ReplacingFile::Present() const {
  if (!present_) { return std::nullopt; }
  ContentStamp stamp;
  std::array<char, 1 << 16> piece{};
  for (off_t at = 0;;) {
    ssize_t const size = ::pread(present_.Number(), piece.data(), piece.size(), at);
    if (size < 0 && errno == EINTR) { continue; }
    if (size < 0) { throw StoreError("cannot be read: " + SystemText(errno)); }
    if (size == 0) { return stamp; }
    stamp.Take({piece.data(), static_cast<std::size_t>(size)});
    at += size;
  }
}

void ReplacingFile::OpenInPlace(bool isSocket) {
  inPlace_ =
      FileHandle(isSocket ? ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0) : ::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
  if (!inPlace_) { Fail(errno); }
  file_ = inPlace_.Number();
  if (!isSocket) { return; }
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::string const name = path_.string();
  bool const fits = name.size() < sizeof address.sun_path;
  if (fits) { name.copy(address.sun_path, name.size()); }
  if (fits && ::connect(file_, reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0) { return; }
  Fail(fits ? errno : ENAMETOOLONG);
}

std::string ReplacingFile::Failure() const { return error_ != 0 ? SystemText(error_) : ""; }

void ReplacingFile::Commit() {
  file_ = -1;
  if (beside_) {
    beside_->Place(true);
    beside_.reset();
    present_ = FileHandle();
  } else {
    static_cast<void>(::fsync(inPlace_.Number()));  // a pipe has nothing to sync
    if (::close(inPlace_.Release()) != 0) { Fail(errno); }
  }
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
    written_.Take({bytes + done, static_cast<std::size_t>(written)});
    done += written;
  }
  return done;
}

ReplacingFile::int_type ReplacingFile::overflow(int_type byte) {
  char const one = traits_type::to_char_type(byte);
  return xsputn(&one, 1) == 1 ? byte : traits_type::eof();
}

}  // namespace gattr
