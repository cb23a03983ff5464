#include "store/TextStore.h"

#include <cerrno>
#include <fstream>
#include <istream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "store/Document.h"
#include "store/DocumentReader.h"
#include "store/ReplacingFile.h"
#include "store/StoreError.h"
#include "store/TextParser.h"
#include "store/TextWriter.h"

namespace gattr {

namespace {

/// Refuses what is no model, and a model of a later version before anything of it is looked at.
void CheckHeader(Document& document) {
  auto const member = [&](std::string_view name) -> Document::Node* {
    if (document[0].kind != Document::Kind::Object) { return nullptr; }
    for (Document::At at = 1; at != document[0].end; at = document[at].end) {
      if (document.NameOf(at) == name) { return &document[at]; }
    }
    return nullptr;
  };
  Document::Node* const format = member("format");
  if (format == nullptr || format->kind != Document::Kind::Text || document.View(format->text) != TextWriter::kFormat) {
    document.Refuse("format", "expected \"" + std::string(TextWriter::kFormat) + "\": this is no model");
  }
  Document::Node* const version = member("version");
  if (version == nullptr || version->kind != Document::Kind::Integer || version->integer < 1) {
    document.Refuse("version", "expected a number from 1 on");
  }
  if (version->integer > TextWriter::kVersion) {
    document.Refuse("version",
                    "expected " + std::to_string(TextWriter::kVersion) + ", found the later version " + std::to_string(version->integer));
  }
}

ddr_Model Parse(std::string_view text, std::string_view fileName) {
  if (text.empty()) { throw StoreError(std::string(fileName) + ": is empty"); }
  Document document = ParseText(text, fileName);
  CheckHeader(document);
  DocumentReader reader(document, false);
  return reader.ReadModel({"format", "version"});
}

}  // namespace

void WriteText(ddr_Model const& model, std::ostream& out) {
  ModelSteps const steps(model);
  TextWriter(steps, out).WriteModel(model);
}

ddr_Model ReadText(std::istream& in, std::string_view fileName) {
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) { throw StoreError(std::string(fileName) + ": cannot be read"); }
  return Parse(text.view(), fileName);
}

void WriteTextFile(ddr_Model const& model, std::filesystem::path const& path) {
  try {
    ReplacingFile file(path);
    try {
      WriteText(model, file.Stream());
    } catch (StoreError const& error) {
      if (file.Failure().empty()) { throw; }
      throw StoreError(std::string(error.what()) + ": " + file.Failure());
    }
    file.Commit();
  } catch (StoreError const& error) { throw StoreError(path.string() + ": " + error.what()); }
}

ddr_Model ReadTextFile(std::filesystem::path const& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) { throw StoreError(path.string() + ": is a folder, not a file"); }
  std::ifstream in(path, std::ios::binary);
  if (!in) { throw StoreError(path.string() + ": cannot be read: " + std::generic_category().message(errno)); }
  std::string text;
  in.seekg(0, std::ios::end);
  auto const size = in.tellg();
  if (size > 0) { text.resize(static_cast<std::size_t>(size)); }
  in.seekg(0);
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (!in) { throw StoreError(path.string() + ": cannot be read"); }
  return Parse(text, path.string());
}

}  // namespace gattr
