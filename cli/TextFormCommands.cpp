#include <CLI/App.hpp>
#include <iostream>
#include <memory>
#include <sstream>

#include "cli/Console.h"
#include "cli/Program.h"
#include "report/Display.h"
#include "store/ModelPath.h"
#include "store/StoreError.h"
#include "store/TextStore.h"

namespace gattr::cli {
namespace {

struct Paths {
  std::string from, to;
};

int Dump(Paths const& paths) {
  ddr_Model const model = ModelPath(paths.from).Open();
  if (!paths.to.empty() && paths.to != "-") {
    WriteTextFile(model, paths.to);
    return kDone;
  }
  try {
    if (TerminalWidth() > 0) {  // names may hold what steers a terminal
      std::ostringstream text;
      WriteText(model, text);
      std::cout << JsonEscaped(text.view());
    } else {
      WriteText(model, std::cout);
    }
  } catch (StoreError const&) {
    if (std::cout) { throw; }
    throw BadInput("cannot write to standard output");
  }
  return kDone;
}

int Load(Paths const& paths) {
  ModelPath to(paths.to);
  to.Save(paths.from == "-" ? ReadText(std::cin, "standard input") : ReadTextFile(paths.from));
  return kDone;
}

}  // namespace

void AddDump(CLI::App& program, Action& action) {
  auto const paths = std::make_shared<Paths>();
  CLI::App& command = *program.add_subcommand("dump", "Write a model as text, for version control and exchange");
  command.add_option("MODEL", paths->from, kModelHelp)->required()->type_name("");
  command.add_option("-o,--output", paths->to, "file to write (default: standard output)")->type_name("FILE");
  command.footer("Equal models give equal texts, byte for byte.\n\nExample: gattr dump forming.gadb -o forming.gattr.json");
  command.callback([paths, &action] { action = [paths] { return Dump(*paths); }; });
}

void AddLoad(CLI::App& program, Action& action) {
  auto const paths = std::make_shared<Paths>();
  CLI::App& command = *program.add_subcommand("load", "Make a model of its text");
  command.add_option("TEXT", paths->from, "what dump wrote; - is standard input")->required()->type_name("");
  command.add_option("-o,--output", paths->to, kModelHelp)->required()->type_name("MODEL");
  command.footer("Example: gattr load forming.gattr.json -o forming.gadb");
  command.callback([paths, &action] { action = [paths] { return Load(*paths); }; });
}

}  // namespace gattr::cli
