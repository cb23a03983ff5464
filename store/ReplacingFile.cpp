#include "store/ReplacingFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "store/StoreError.h"

namespace gattr {

namespace {

constexpr mode_t kPermissions = 0666;  // less what the process masks

std::string SystemText(int error) { return std::generic_category().message(error); }

[[noreturn]] void Fail(int error) { throw StoreError("cannot be written: " + SystemText(error)); }

/// Makes the entry of a file that was renamed last through a crash.
void SyncFolder(std::filesystem::path const& file) {
  std::filesystem::path const folder = file.has_parent_path() ? file.parent_path() : ".";
  if (int const handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); handle >= 0) {
    ::fsync(handle);
    ::close(handle);
  }
}

}  // namespace

ReplacingFile::ReplacingFile(std::filesystem::path const& path) : path_(path) {
  std::error_code ignored;
  if (std::filesystem::is_symlink(path, ignored)) { path_ = std::filesystem::weakly_canonical(path, ignored); }
  struct stat present = {};
  bool const replaces = ::stat(path_.c_str(), &present) == 0;
  if (replaces && S_ISDIR(present.st_mode)) { throw StoreError("is a folder, not a file"); }
  if (replaces && ::access(path_.c_str(), W_OK) != 0) { Fail(errno); }
  temporary_ = path_;
  temporary_ += ".new-" + std::to_string(::getpid());
  file_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kPermissions);
  if (file_ < 0) { Fail(errno); }
  if (replaces) { static_cast<void>(::fchmod(file_, present.st_mode & 07777)); }
}

ReplacingFile::~ReplacingFile() {
  if (file_ >= 0) { ::close(file_); }
  if (!temporary_.empty()) { ::unlink(temporary_.c_str()); }
}

std::string ReplacingFile::Failure() const { return error_ != 0 ? SystemText(error_) : ""; }

void ReplacingFile::Commit() {
  if (::fsync(file_) != 0) { Fail(errno); }
  int const handle = std::exchange(file_, -1);
  if (::close(handle) != 0) { Fail(errno); }
  if (::rename(temporary_.c_str(), path_.c_str()) != 0) { Fail(errno); }
  temporary_.clear();
  SyncFolder(path_);
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
