#pragma once

#include <filesystem>
#include <iosfwd>
#include <string_view>

#include "framework/ddr_Model.h"

namespace gattr {

/// The text form of a model (`.gattr.json`), for version control and exchange: canonical JSON, described in README.md.
/// Equal models give byte-equal texts, whatever they share and however they were made.
///
/// All four raise a StoreError. Writing is linear in the records (steps times attributes), and so is reading.
/// The library must have been started (DDB_GeometricAttributes_initialize).

/// Refuses a number that is not finite and a text that is not UTF-8; \p out then holds a part.
void WriteText(ddr_Model const& model, std::ostream& out);
/// \p fileName stands in the messages.
ddr_Model ReadText(std::istream& in, std::string_view fileName);

/// Puts a new file in the place of the old one in one step: after a crash at any moment one of them is there whole.
void WriteTextFile(ddr_Model const& model, std::filesystem::path const& path);
ddr_Model ReadTextFile(std::filesystem::path const& path);

}  // namespace gattr
