#include "cli/ModelPath.h"

#include <string_view>

#include "cli/Program.h"
#include "store/TextStore.h"
#include "text/Text.h"

namespace gattr::cli {

ModelPath::ModelPath(std::string const& path) : path_(path) {
  std::string_view const name = path_;
  if (name.ends_with(".gadb")) {
    file_.emplace(path_);
  } else if (!name.ends_with(".json")) {
    throw BadInput(Quoted(path_) + " names no model: expected a name that ends in .gadb or .gattr.json");
  }
}

ddr_Model ModelPath::Open() { return file_ ? file_->Open() : ReadTextFile(path_); }

void ModelPath::Save(ddr_Model const& model, ModelFile::Changed changed) {
  file_ ? file_->Save(model, changed) : WriteTextFile(model, path_);
}

}  // namespace gattr::cli
