#include <CLI/App.hpp>
#include <iostream>
#include <memory>

#include "cli/Program.h"
#include "command/Schema.h"
#include "report/Display.h"
#include "text/Json.h"

namespace gattr::cli {

void AddSchema(CLI::App& program, Action& action) {
  auto const of = std::make_shared<std::string>();
  CLI::App& command = *program.add_subcommand("schema", "Print the JSON Schema of journals or of models as text");
  AddChoice(*command.add_option("OF", *of, "journal or model")->required()->type_name(""), {"journal", "model"});
  command.footer(R"(Draft-07. That of journals is for a document, {"commands": [...]}, and for one line of any other journal.

Example: gattr schema journal > journal.schema.json)");
  command.callback([of, &action] {
    action = [of] {
      std::cout << JsonPage(gattr::ToJson(*of == "journal" ? JournalSchema() : ModelSchema())) << '\n';
      return kDone;
    };
  });
}

}  // namespace gattr::cli
