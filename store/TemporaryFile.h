#pragma once

#include <sys/types.h>
#include <filesystem>

namespace gattr {

/// A new file beside \p target, under a name that nobody else has, until it takes the target's place; without that it is removed.
/// What killed programs have left of that kind is cleared away. Failures are StoreErrors without a file's name.
class TemporaryFile {
public:
  static constexpr mode_t kForAll = 0666;  ///< less what the process masks

  explicit TemporaryFile(std::filesystem::path target, mode_t permissions = kForAll);
  TemporaryFile(TemporaryFile const&) = delete;
  TemporaryFile& operator=(TemporaryFile const&) = delete;
  ~TemporaryFile();

  std::filesystem::path const& Path() const { return path_; }
  /// Of the open file.
  int Handle() const { return handle_; }

  /// Puts the file in the place of the target, once its bytes are on the disk. False, and nothing has changed, where there is a
  /// target and \p replaces is not set.
  bool Place(bool replaces);

private:
  void Create(mode_t permissions);
  void ClearStale() const;

  std::filesystem::path target_, path_;
  int handle_ = -1;
};

}  // namespace gattr
