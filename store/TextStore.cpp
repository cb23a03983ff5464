#include "store/TextStore.h"

#include <cerrno>
#include <fstream>
#include <istream>
#include <string>
#include <system_error>

#include "store/Document.h"
#include "store/DocumentReader.h"
#include "store/ReplacingFile.h"
#include "store/StoreError.h"
#include "store/TextParser.h"
#include "store/TextWriter.h"

namespace gattr {

namespace {

/// The format's version. Refuses what is no model, and a model of a later version before anything of it is looked at.
long long VersionOf(Document const& document) {
  Document::At const format = document.Find(0, "format");
  if (format == Document::npos || document[format].kind != Document::Kind::Text ||
      document.View(document[format].text) != TextWriter::kFormat) {
    document.Refuse("format", "expected \"" + std::string(TextWriter::kFormat) + "\": this is no model");
  }
  Document::At const at = document.Find(0, "version");
  if (at == Document::npos || document[at].kind != Document::Kind::Integer || document[at].integer < 1) {
    document.Refuse("version", "expected a number from 1 on");
  }
  long long const version = document[at].integer;
  if (version > TextWriter::kVersion) {
    document.Refuse("version",
                    "expected " + std::to_string(TextWriter::kVersion) + " at most, found the later version " + std::to_string(version));
  }
  return version;
}

/// All that \p in gives, a pipe too; no more than a text may have.
std::string Content(std::istream& in, std::string_view fileName) {
  constexpr std::size_t kPiece = 1 << 20;
  std::string text;
  while (in && text.size() <= kLargestText) {
    std::size_t const size = text.size();
    text.resize(size + kPiece);
    errno = 0;
    in.read(text.data() + size, kPiece);
    text.resize(size + static_cast<std::size_t>(in.gcount()));
  }
  if (in.bad()) {
    throw StoreError(std::string(fileName) + ": cannot be read" + (errno == 0 ? "" : ": " + std::generic_category().message(errno)));
  }
  return text;
}

ddr_Model Parse(std::string_view text, std::string_view fileName, Progress const& progress) {
  if (text.empty()) { throw StoreError(std::string(fileName) + ": is empty"); }
  Ticker tick(progress);
  Document document = ParseText(text, fileName, tick);
  using enum DocumentReader::Histories;
  DocumentReader reader(document, VersionOf(document) == 1 ? Whole : Changes, tick);
  ddr_Model model = reader.ReadModel({"format", "version"});
  tick.Finish();
  return model;
}

}  // namespace

void WriteText(ddr_Model const& model, std::ostream& out, Progress const& progress) {
  ModelSteps const steps(model);
  Ticker tick(progress);
  TextWriter(steps, out, tick).WriteModel(model);
}

ddr_Model ReadText(std::istream& in, std::string_view fileName, Progress const& progress) {
  return Parse(Content(in, fileName), fileName, progress);
}

void TextFile::Save(ddr_Model const& model, Changed changed, Progress const& progress) {
  try {
    ReplacingFile file(path_);
    if (stamp_ && changed == Changed::Refuse && file.Present().value_or(*stamp_) != *stamp_) { throw StoreError(std::string(kWasChanged)); }
    try {
      WriteText(model, file.Stream(), progress);
    } catch (StoreError const& error) {
      if (file.Failure().empty()) { throw; }
      throw StoreError(std::string(error.what()) + ": " + file.Failure());
    }
    file.Commit();
    stamp_ = file.Written();
  } catch (StoreError const& error) { throw StoreError(path_.string() + ": " + error.what()); }
}

ddr_Model TextFile::Open(Progress const& progress) {
  std::error_code error;
  if (std::filesystem::is_directory(path_, error)) { throw StoreError(path_.string() + ": is a folder, not a file"); }
  std::ifstream in(path_, std::ios::binary);
  if (!in) { throw StoreError(path_.string() + ": cannot be read: " + std::generic_category().message(errno)); }
  std::string const text = Content(in, path_.string());
  ddr_Model model = Parse(text, path_.string(), progress);
  stamp_.emplace().Take(text);
  return model;
}

}  // namespace gattr
