#include "cli/ResultsFiles.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "cli/Program.h"
#include "module/kpf/kpfC_ResultsFiles.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "text/Json.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

/// Results files by what is written beside them: {"steps": [{"frames": 11}], "instances": [{"name": "Plate-1", "meshed": true}]}.
class DescribedResults final : public kpfC_ResultsFiles {
public:
  explicit DescribedResults(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::optional<kpfC_ResultsFile> Find(std::string_view fileName) const override {
    std::filesystem::path const file = folder_ / std::string(fileName);
    std::filesystem::path const description = file.string() + ".json";
    std::error_code error;
    if (!fileName.empty() && std::filesystem::is_regular_file(description, error)) { return Read(description); }
    if (fileName.empty() || !std::filesystem::is_regular_file(file, error)) { return {}; }
    kpfC_ResultsFile unknown;
    unknown.isTold = false;
    return unknown;
  }

private:
  static kpfC_ResultsFile Read(std::filesystem::path const& path) {
    kpfC_ResultsFile file;
    try {
      std::ifstream in(path);
      Json const told = Json::parse(in);
      for (Json const& step : told.at("steps")) { file.frames.push_back(step.value("frames", 1)); }
      for (Json const& instance : told.value("instances", Json::array())) {
        file.instances.push_back({instance.at("name").get<std::string>(), instance.value("meshed", true)});
      }
    } catch (Json::exception const&) {
      std::string const text = "The description " + Quoted(path.string()) +
                               R"( is not of the form {"steps": [{"frames": 11}], "instances": [{"name": "Plate-1", "meshed": true}]}.)";
      nex_Exception::Throw(nex_TextException(text), "cli/ResultsFiles", __LINE__);
    }
    return file;
  }

  std::filesystem::path folder_;
};

}  // namespace

void UseResults(std::string const& folder) {
  if (folder.empty()) { return; }
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error)) { throw BadInput(Quoted(folder) + " is no folder"); }
  kpfC_ResultsFiles::Set(std::make_shared<DescribedResults>(folder));
}

}  // namespace gattr::cli
