#pragma once

#include <string>

#include "framework/ddr_Model.h"

namespace gattr::cli {

/// Whether an empty file is no model, or one that nobody has made as yet.
enum class Empty { Refuse, NewModel };

/// A model in any form: .gadb, .gattr.json, a journal in .jsonl, whose commands are run; a file of another name by what it holds.
ddr_Model OpenModel(std::string const& path, Empty empty = Empty::Refuse);

}  // namespace gattr::cli
