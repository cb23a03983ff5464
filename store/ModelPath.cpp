#include "store/ModelPath.h"

#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>

#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

std::variant<ModelFile, TextFile> ModelPath::FileOf(std::string const& path) {
  std::string_view const name = path;
  if (name.ends_with(".gadb")) { return ModelFile(path); }
  if (name.ends_with(".json")) { return TextFile(path); }
  throw StoreError(Quoted(path) + " names no model: expected a name that ends in .gadb or .gattr.json");
}

std::optional<ModelPath> ModelPath::ByContent(std::string const& path) {
  constexpr std::string_view kDatabase = "SQLite format 3";
  std::ifstream in(path, std::ios::binary);
  if (!in) { throw StoreError(path + ": cannot be read: " + std::generic_category().message(errno)); }
  std::string begin(kDatabase.size(), '\0');
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  if (in.bad()) { throw StoreError(path + ": cannot be read: " + std::generic_category().message(errno)); }
  if (in.gcount() == 0) { return std::nullopt; }
  if (begin == kDatabase) { return ModelPath(ModelFile(path)); }
  return ModelPath(TextFile(path));
}

ddr_Model ModelPath::Open(Progress const& progress) {
  return std::visit([&progress](auto& file) { return file.Open(progress); }, file_);
}

void ModelPath::Save(ddr_Model const& model, Changed changed, Progress const& progress) {
  std::visit([&](auto& file) { file.Save(model, changed, progress); }, file_);
}

}  // namespace gattr
