#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <streambuf>
#include <string>

#include "store/Checksum.h"
#include "store/FileHandle.h"
#include "store/TemporaryFile.h"

namespace gattr {

/// A stream into a new file that takes the place of \p path in one step, on Commit; without that the old file stays. After
/// a crash at any moment one of both is there whole. The new file has a name of its own beside \p path, which it is locked
/// under: what others write there stays apart, and what a killed program left is found unlocked and cleared by the next. It takes
/// over the old one's permissions, and its owner as far as the system allows. The old one is locked meanwhile, so that of many who
/// replace a file each sees what the one before has written. What is no file, a device, a pipe or a socket, is written into. Raises
/// a StoreError without the file's name.
class ReplacingFile final : private std::streambuf {
public:
  /// Refuses a directory, a file that may not be read or written, and one that others keep replacing for seconds.
  explicit ReplacingFile(std::filesystem::path const& path);
  ReplacingFile(ReplacingFile const&) = delete;
  ReplacingFile& operator=(ReplacingFile const&) = delete;
  ~ReplacingFile() override = default;

  std::ostream& Stream() { return stream_; }
  /// Why the stream failed, in the system's words.
  std::string Failure() const;
  void Commit();

  /// What the old file holds; nothing where there is none.
  std::optional<ContentStamp> Present() const;
  ContentStamp const& Written() const { return written_; }

private:
  void LockPresent();
  void OpenInPlace(bool isSocket);
  std::streamsize xsputn(char const* bytes, std::streamsize size) override;
  int_type overflow(int_type byte) override;

  std::filesystem::path path_;
  std::optional<TemporaryFile> beside_;  // none where it is written in place
  FileHandle present_;                   // the old file, locked
  FileHandle inPlace_;
  int file_ = -1;  // of what is written
  ContentStamp written_;
  int error_ = 0;
  std::ostream stream_{this};
};

}  // namespace gattr
