#pragma once

#include <span>
#include <string>

#include "cli/Program.h"
#include "command/Check.h"
#include "report/RenderFindings.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace gattr::cli {

/// How findings are told, and which: the options that `check` and `replay --check` share.
struct FindingsOptions {
  Format format = Format::Text;
  FindingChoice choice;
  bool warningsFail = false;
  std::string color = "auto";
};
/// Adds --format, --disable, --only, --fail-on and --color; where \p needs is given, they want that one, too.
void AddFindings(CLI::App& command, FindingsOptions& options, CLI::Option* needs = nullptr);
/// Refuses, as bad use, identifiers that there are not, and errors that are to be left out.
void AssertChoice(FindingChoice const& choice);
/// Prints them; answers kRefused where one of them fails, else kDone. \p model and \p journal are the files that they are of.
int PrintFindings(std::span<Finding const> findings, FindingsOptions const& options, std::string const& model, std::string const& journal);

}  // namespace gattr::cli
