#pragma once

#include <filesystem>
#include <memory>

#include "framework/ddr_Model.h"
#include "platform/CoreUtils/ddb_Export.h"
#include "store/Changed.h"
#include "text/Progress.h"

namespace gattr {

/// A model file (`.gadb`): a database of the embedded engine, described in README.md.
///
/// The object stands for one path and remembers, as a snapshot, the model that it last opened or saved there, so that
/// saving again writes only what differs: an edit of one attribute costs one row, whatever the number of attributes. The
/// file is open only during a call.
///
/// Both calls raise a StoreError. Progress counts rows, of a number that is known when a file is opened; where it does not want to go on,
/// Cancelled is raised. The library must have been started (DDB_GeometricAttributes_initialize).
class DDB_API ModelFile {
public:
  explicit ModelFile(std::filesystem::path path);
  ModelFile(ModelFile&&) noexcept;
  ModelFile& operator=(ModelFile&&) noexcept;
  ~ModelFile();

  std::filesystem::path const& Path() const { return path_; }

  /// The model in the file. Linear in the steps, the attributes and the changes that they make.
  ddr_Model Open(Progress const& progress = {});
  /// Puts \p model in the place of what the file holds: after a crash at any moment the file holds the old model or the new one,
  /// and a first one is there whole or not at all. A file that is there and is no model file is refused, not overwritten.
  void Save(ddr_Model const& model, Changed changed = Changed::Refuse, Progress const& progress = {});

private:
  struct Saved;  // what the file held when this object last touched it

  /// Makes the file. False where there is one now.
  DDB_LOCAL bool SaveFirst(std::filesystem::path const& path, ddr_Model const& model, bool replaces, Progress const& progress);
  DDB_LOCAL void SaveAgain(std::filesystem::path const& path, ddr_Model const& model, Changed changed, Progress const& progress);

  std::filesystem::path path_;
  std::unique_ptr<Saved> saved_;
};

}  // namespace gattr
