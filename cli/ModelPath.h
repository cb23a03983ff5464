#pragma once

#include <optional>
#include <string>

#include "framework/ddr_Model.h"
#include "store/ModelFile.h"

namespace gattr::cli {

/// A model on disk, in the form that the end of its name tells: ".gadb" the model file, ".json" the text form. Any other
/// end is bad input. Reading and writing raise StoreError.
class ModelPath {
public:
  explicit ModelPath(std::string const& path);

  ddr_Model Open();
  /// Writes the model whole or leaves the file as it was. What was opened here is written faster: only what has changed.
  /// What somebody else has changed meanwhile is refused, or overwritten.
  void Save(ddr_Model const& model, ModelFile::Changed changed = ModelFile::Changed::Refuse);

private:
  std::string path_;
  std::optional<ModelFile> file_;  // none: the text form
};

}  // namespace gattr::cli
