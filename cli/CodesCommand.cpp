#include <CLI/App.hpp>
#include <algorithm>
#include <iostream>
#include <memory>

#include "cli/Console.h"
#include "cli/Program.h"
#include "platform/BasicUtils/nex_ErrorTable.h"
#include "platform/CoreUtils/thr_Singleton.h"
#include "report/TextTable.h"

namespace gattr::cli {
namespace {

struct CodesOptions {
  std::string module;
  Format format = Format::Text;
  std::string color;
};

int Codes(CodesOptions const& options) {
  std::vector<nex_Catalogue> const catalogues = thr_GlobalSingleton<nex_Catalogues>::Instance().All();
  if (!options.module.empty()) {
    std::vector<std::string> modules(catalogues.size());
    std::ranges::transform(catalogues, modules.begin(), &nex_Catalogue::module);
    AssertKnown("module", options.module, modules);
  }
  TextTable table({"module", "code", "exception", "text", "raised by"});
  Json list = Json::array();
  for (auto const& catalogue : catalogues) {
    if (!options.module.empty() && options.module != catalogue.module) { continue; }
    for (nex_ErrorRow const& row : catalogue.rows) {
      char const* const exception = row.valueError ? "omu_ValueErrorException" : "nex_TextException";
      list.push_back({{"module", catalogue.module},
                      {"code", row.code},
                      {"name", row.name},
                      {"exception", exception},
                      {"text", row.text},
                      {"reserved", row.IsReserved()},
                      {"raisedBy", row.raisedBy}});
      table.Add({{catalogue.module, Style::Faint},
                 {std::to_string(row.code), Style::Strong},
                 {exception, Style::Faint},
                 row.IsReserved() ? "(reserved)" : row.text,
                 {row.raisedBy, Style::Faint}});
    }
  }
  if (options.format == Format::Json) {
    std::cout << JsonPage(list) << '\n';
  } else {
    table.Print(std::cout, TerminalWidth(), UseColor(options.color));
  }
  return kDone;
}

}  // namespace

void AddCodes(CLI::App& program, Action& action) {
  auto const options = std::make_shared<CodesOptions>();
  CLI::App& command = *program.add_subcommand("codes", "The catalogue of refusals: what can be refused, with its number and text");
  command.add_option("MODULE", options->module, "prefix of a module, kbc for instance (default: all)")->type_name("");
  AddFormat(command, options->format, {"text", "json"});
  AddColor(command, options->color);
  command.footer("Example: gattr codes kbc");
  command.callback([options, &action] { action = [options] { return Codes(*options); }; });
}

}  // namespace gattr::cli
