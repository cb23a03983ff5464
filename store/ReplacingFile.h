#pragma once

#include <filesystem>
#include <ostream>
#include <streambuf>
#include <string>

namespace gattr {

/// A stream into a new file that takes the place of \p path in one step, on Commit; without that the old file stays. After
/// a crash at any moment one of both is there whole. Raises a StoreError without the file's name.
class ReplacingFile final : private std::streambuf {
public:
  /// Refuses a directory and a file that may not be written.
  explicit ReplacingFile(std::filesystem::path const& path);
  ReplacingFile(ReplacingFile const&) = delete;
  ReplacingFile& operator=(ReplacingFile const&) = delete;
  ~ReplacingFile() override;

  std::ostream& Stream() { return stream_; }
  /// Why the stream failed, in the system's words.
  std::string Failure() const;
  void Commit();

private:
  std::streamsize xsputn(char const* bytes, std::streamsize size) override;
  int_type overflow(int_type byte) override;

  std::filesystem::path path_, temporary_;
  int file_ = -1;
  int error_ = 0;
  std::ostream stream_{this};
};

}  // namespace gattr
