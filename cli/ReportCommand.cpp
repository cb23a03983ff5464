#include <fmt/core.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Program.h"
#include "cli/ResultsFiles.h"
#include "report/Display.h"
#include "report/HtmlReport.h"
#include "store/ModelPath.h"
#include "text/Text.h"

namespace gattr::cli {
namespace {

struct ReportOptions {
  std::string model, output, results;
};

/// "forming" of "models/forming.gattr.json".
std::string StemOf(std::string const& model) {
  std::string name = std::filesystem::path(model).filename();
  for (std::string_view const end : {".gattr.json", ".json", ".gadb"}) {
    if (name.size() > end.size() && name.ends_with(end)) {
      name.resize(name.size() - end.size());
      break;
    }
  }
  return name;
}

/// Whether \p path holds a report, or nothing yet.
bool MayReplace(std::string const& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) { return true; }
  std::string begin(std::char_traits<char>::length(kHtmlReportMark), '\0');
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  return in && begin == kHtmlReportMark;
}

void WriteReport(ddr_Model const& model, std::string const& path) {
  Progress line;
  auto const progress = [&line](std::size_t done, std::size_t total) {
    line.Show(done, total == 0 ? -1.0 : static_cast<double>(done) / static_cast<double>(total));
    return true;
  };
  WriteHtmlReportFile(model, path, progress);
}

int Report(ReportOptions const& options) {
  UseResults(options.results);
  ddr_Model const model = ModelPath(options.model).Open();
  if (options.output == "-") {
    WriteHtmlReport(std::cout, model);
    return kDone;
  }
  std::string output = options.output;
  if (output.empty()) {
    output = std::filesystem::path(options.model).replace_filename(StemOf(options.model) + ".html");
    if (!MayReplace(output)) {
      throw BadInput(Quoted(output) + " is there and is no report of gattr; -o " + Shown(output) + " replaces it");
    }
  }
  std::error_code isNotThere;
  if (std::filesystem::equivalent(output, options.model, isNotThere)) {
    throw BadInput("the page of " + Quoted(output) + " cannot replace it");
  }
  WriteReport(model, output);
  std::cout << Shown(output) << '\n';
  return kDone;
}

/// A place for pages that are made to be looked at: the user's cache, else a new folder among the temporary ones.
std::filesystem::path CacheFolder() {
  std::filesystem::path folder;
  if (char const* const cache = std::getenv("XDG_CACHE_HOME"); cache != nullptr && *cache == '/') {
    folder = cache;
  } else if (char const* const home = std::getenv("HOME"); home != nullptr && *home == '/') {
    folder = std::filesystem::path(home) / ".cache";
  }
  std::error_code failed;
  if (!folder.empty()) {
    folder /= "gattr";
    std::filesystem::create_directories(folder, failed);
    if (!failed && ::access(folder.c_str(), W_OK) == 0) { return folder; }
  }
  std::string name = std::filesystem::temp_directory_path(failed) / "gattr-XXXXXX";
  if (failed || ::mkdtemp(name.data()) == nullptr) { throw BadInput("there is no place for the page: set XDG_CACHE_HOME"); }
  return name;
}

/// Runs a program with the page as its argument, or in place of %s, and waits for it: it may take over the terminal. Nothing where there
/// is no such program, else its exit status.
std::optional<int> RunBrowser(std::string const& command, std::string const& page) {
  std::vector<std::string> words;
  bool isGiven = false;
  for (std::size_t begin = 0; begin < command.size();) {
    std::size_t const end = std::min(command.find(' ', begin), command.size());
    if (end > begin) {
      std::string word = command.substr(begin, end - begin);
      if (std::size_t const at = word.find("%s"); at != std::string::npos) {
        word.replace(at, 2, page);
        isGiven = true;
      }
      words.push_back(std::move(word));
    }
    begin = end + 1;
  }
  if (words.empty()) { return std::nullopt; }
  if (!isGiven) { words.push_back(page); }
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) { arguments.push_back(word.data()); }
  arguments.push_back(nullptr);
  pid_t process = 0;
  if (::posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) { return std::nullopt; }
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {}
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
}

int View(ReportOptions const& options) {
  UseResults(options.results);
  ddr_Model const model = ModelPath(options.model).Open();
  std::error_code failed;
  std::string const whole = std::filesystem::weakly_canonical(options.model, failed);
  std::string const page =
      CacheFolder() / fmt::format("{}-{:016x}.html", StemOf(options.model), std::hash<std::string>()(failed ? options.model : whole));
  WriteReport(model, page);
  char const* const wish = std::getenv("BROWSER");
  std::string const browsers = wish == nullptr || *wish == '\0' ? "xdg-open" : wish;
  for (std::size_t begin = 0; begin <= browsers.size();) {
    std::size_t const end = std::min(browsers.find(':', begin), browsers.size());
    if (auto const status = RunBrowser(browsers.substr(begin, end - begin), page); status == 0) {
      std::cout << Shown(page) << '\n';
      return kDone;
    }
    begin = end + 1;
  }
  throw BadInput("no browser could be started: set BROWSER to one, or open " + Quoted(page) + " yourself");
}

}  // namespace

void AddReport(CLI::App& program, Action& action) {
  auto const options = std::make_shared<ReportOptions>();
  CLI::App& report = *program.add_subcommand("report", "Write a model as a page for a browser: histories, values, steps, findings");
  CLI::App& view = *program.add_subcommand("view", "Open that page in a browser");
  for (CLI::App* command : {&report, &view}) {
    command->add_option("MODEL", options->model, kModelHelp)->required()->type_name("");
    command->add_option("--results", options->results, kResultsHelp)->type_name("FOLDER");
  }
  report.add_option("-o,--output", options->output, "file to write, - is standard output (default: MODEL's name with .html, beside it)")
      ->type_name("FILE");
  report.footer(
      R"(One file that stands alone and asks nothing of any network. Its table of histories has filters by name, kind, type, status and
steps; a cell opens its values, the steps that set them and their plot. Without script it shows steps, findings and a sign per step.

Example: gattr report forming.gadb -o forming.html)");
  report.callback([options, &action] { action = [options] { return Report(*options); }; });
  view.footer(
      R"(The page is kept in the user's cache folder, one for each model, and opened with $BROWSER, or with xdg-open.

Example: BROWSER=chromium gattr view forming.gadb)");
  view.callback([options, &action] { action = [options] { return View(*options); }; });
}

}  // namespace gattr::cli
