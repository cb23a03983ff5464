#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string_view>
#include <utility>

#include "framework/ddr_Model.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "store/Changed.h"
#include "store/Checksum.h"
#include "text/Progress.h"

namespace gattr {

/// The text form of a model (`.gattr.json`), for version control and exchange: canonical JSON, described in README.md.
/// Equal models give byte-equal texts, whatever they share and however they were made.
///
/// All raise a StoreError. Writing is linear in the records (steps times attributes), and so is reading.
/// Progress counts objects, of a number that is not known before; where it does not want to go on, Cancelled is raised.
/// The library must have been started (DDB_GeometricAttributes_initialize).

/// Refuses a number that is not finite and a text that is not UTF-8; \p out then holds a part.
DDB_API void WriteText(ddr_Model const& model, std::ostream& out, Progress const& progress = {});
/// \p fileName stands in the messages.
DDB_API ddr_Model ReadText(std::istream& in, std::string_view fileName, Progress const& progress = {});

/// A file of the text form. The object stands for one path and remembers by its checksum what it last opened or saved there, so that
/// what somebody else has written meanwhile is not lost.
class DDB_API TextFile {
public:
  explicit TextFile(std::filesystem::path path) : path_(std::move(path)) {}

  ddr_Model Open(Progress const& progress = {});
  /// Puts a new file in the place of the old one in one step: after a crash at any moment one of them is there whole.
  void Save(ddr_Model const& model, Changed changed = Changed::Refuse, Progress const& progress = {});

private:
  std::filesystem::path path_;
  std::optional<ContentStamp> stamp_;
};

/// The same for once: whatever model stands there is replaced.
inline void WriteTextFile(ddr_Model const& model, std::filesystem::path const& path) { TextFile(path).Save(model); }
inline ddr_Model ReadTextFile(std::filesystem::path const& path) { return TextFile(path).Open(); }

}  // namespace gattr
