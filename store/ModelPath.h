#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "framework/ddr_Model.h"
#include "store/ModelFile.h"
#include "store/TextStore.h"

namespace gattr {

/// A model on disk, in the form that the end of its name tells: ".gadb" the model file, ".json" the text form. All raise a StoreError, of
/// any other end too.
class ModelPath {
public:
  explicit ModelPath(std::string const& path) : file_(FileOf(path)) {}
  /// One whose form its content tells, whatever it is called, as those that another program has put aside. Nothing where it is empty.
  static std::optional<ModelPath> ByContent(std::string const& path);

  ddr_Model Open(Progress const& progress = {});
  /// Writes the model whole or leaves the file as it was. What was opened here is written faster: only what has changed.
  /// What somebody else has changed meanwhile is refused, or overwritten.
  void Save(ddr_Model const& model, Changed changed = Changed::Refuse, Progress const& progress = {});

private:
  explicit ModelPath(std::variant<ModelFile, TextFile> file) : file_(std::move(file)) {}
  static std::variant<ModelFile, TextFile> FileOf(std::string const& path);

  std::variant<ModelFile, TextFile> file_;
};

}  // namespace gattr
