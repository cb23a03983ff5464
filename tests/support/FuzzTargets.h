#pragma once

#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "command/Journal.h"
#include "command/Session.h"
#include "module/DDB_GeometricAttributes.h"
#include "store/Database.h"
#include "store/ModelFile.h"
#include "store/ModelTables.h"
#include "store/StoreError.h"
#include "store/TextStore.h"

/// What is done with bytes of any kind; each must end, refuse or make a model, and a model must survive being written. What does not
/// hold ends the program.
namespace fuzz {

inline void Require(bool holds, char const* what) {
  if (holds) { return; }
  std::cerr << what << '\n';
  std::abort();
}

/// Runs the library as long as the program.
inline void StartLibrary() {
  static int count = 0;
  if (count == 0) { DDB_GeometricAttributes_initialize(count); }
}

inline std::string TextOf(ddr_Model const& model) {
  std::ostringstream text;
  gattr::WriteText(model, text);
  return text.str();
}

/// A model that was taken is the same when it has been written and read.
inline void RequireStable(ddr_Model const& model) {
  std::string const text = TextOf(model);
  std::istringstream in(text);
  Require(TextOf(gattr::ReadText(in, "again")) == text, "what was written reads as another model");
}

/// A journal, on a session.
inline void Journal(std::string_view bytes) {
  StartLibrary();
  std::istringstream in{std::string(bytes)};
  gattr::JournalReader reader(in);
  gattr::Session session;
  for (;;) {
    try {
      auto const command = reader.Next();
      if (!command) { break; }
      std::string const before = TextOf(session.Model());
      if (!session.Execute(*command).ok) { Require(TextOf(session.Model()) == before, "a refused command has changed the model"); }
    } catch (gattr::JournalError const&) { continue; }
  }
  RequireStable(session.Model());
}

/// The text form.
inline void Text(std::string_view bytes) {
  StartLibrary();
  std::istringstream in{std::string(bytes)};
  try {
    RequireStable(gattr::ReadText(in, "fuzz"));
  } catch (gattr::StoreError const&) { return; }
}

/// The bytes of a small model's file.
inline std::string SmallModelFile(std::string const& path) {
  std::istringstream in(R"({"command": "StaticStep", "name": "S"}
{"command": "StaticStep", "name": "T"}
{"command": "Set", "name": "A"}
{"command": "Surface", "name": "U"}
{"command": "Amplitude", "name": "R"}
{"command": "DisplacementBC", "name": "B", "createStepName": "S", "region": "A", "u1": 1e-3}
{"command": "setValuesInStep", "boundaryCondition": "B", "stepName": "T", "u1": "FREED", "u2": 2.5}
{"command": "Pressure", "name": "P", "createStepName": "S", "region": "U", "magnitude": 2, "amplitude": "R"}
{"command": "deactivate", "load": "P", "stepName": "T"}
)");
  gattr::JournalReader reader(in);
  gattr::Session session;
  while (auto const command = reader.Next()) { Require(session.Execute(*command).ok, "the small model is refused"); }
  gattr::ModelFile(path).Save(session.Model());
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

/// A model file: the bytes as they are, or, behind an r, rows put into the file of a small model with sums that fit. A row is a line of
/// the table's number, its owner or position, its name and its data, with tabs between.
inline void ModelFile(std::string_view bytes) {
  StartLibrary();
  static auto const folder = std::filesystem::temp_directory_path() / ("gattr-fuzz-" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  std::string const path = (folder / "Model.gadb").string();
  try {
    bool const holdsRows = bytes.starts_with('r');
    if (holdsRows) {
      static std::string const small = SmallModelFile(path);
      std::ofstream(path, std::ios::binary) << small;
      gattr::Database database(path);
      database.Run("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; BEGIN");
      gattr::ModelTables tables(database);
      std::istringstream lines{std::string(bytes.substr(1))};
      for (std::string line; std::getline(lines, line);) {
        auto const field = [&line] {
          std::string const first = line.substr(0, line.find('\t'));
          line.erase(0, first.size() + 1);
          return first;
        };
        std::string const table = field(), owner = field(), name = field();
        auto const number = static_cast<unsigned char>(table.empty() ? '0' : table.front()) % gattr::kTables.size();
        tables.Put(gattr::kTables[number], {std::atoi(owner.c_str()), owner, name, line});
      }
      tables.Finish();
      database.Run("COMMIT");
    } else {
      std::ofstream(path, std::ios::binary) << bytes;
    }
    RequireStable(gattr::ModelFile(path).Open());
  } catch (gattr::StoreError const&) { static_cast<void>(0); }
  std::filesystem::remove_all(folder);
}

}  // namespace fuzz
