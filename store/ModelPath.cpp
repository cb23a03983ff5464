#include "store/ModelPath.h"

#include <string_view>

#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

std::variant<ModelFile, TextFile> ModelPath::FileOf(std::string const& path) {
  std::string_view const name = path;
  if (name.ends_with(".gadb")) { return ModelFile(path); }
  if (name.ends_with(".json")) { return TextFile(path); }
  throw StoreError(Quoted(path) + " names no model: expected a name that ends in .gadb or .gattr.json");
}

ddr_Model ModelPath::Open(Progress const& progress) {
  return std::visit([&progress](auto& file) { return file.Open(progress); }, file_);
}

void ModelPath::Save(ddr_Model const& model, Changed changed, Progress const& progress) {
  std::visit([&](auto& file) { file.Save(model, changed, progress); }, file_);
}

}  // namespace gattr
