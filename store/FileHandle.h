#pragma once

#include <unistd.h>
#include <utility>

namespace gattr {

/// An open file, closed when it is let go of.
class FileHandle {
public:
  FileHandle() = default;
  /// \p number as the system's calls give it: negative for none.
  explicit FileHandle(int number) : number_(number) {}
  FileHandle(FileHandle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileHandle() {
    if (number_ >= 0) { ::close(number_); }
  }

  explicit operator bool() const { return number_ >= 0; }
  int Number() const { return number_; }
  /// For who closes it and looks whether that fails.
  int Release() { return std::exchange(number_, -1); }

private:
  int number_ = -1;
};

}  // namespace gattr
