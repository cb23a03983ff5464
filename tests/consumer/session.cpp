// A program outside the project that has models under edit: commands as JSON text, undo, a model file, refusals.
#include <cstdio>
#include <filesystem>
#include <sstream>

#include "command/Check.h"
#include "command/Journal.h"
#include "command/Session.h"
#include "module/DDB_GeometricAttributes.h"
#include "store/ModelFile.h"
#include "store/StoreError.h"
#include "store/TextStore.h"
#include "text/JsonText.h"

namespace {

bool good = true;

void Expect(bool holds, char const* what) {
  if (!holds) { std::printf("session: not so: %s\n", what); }
  good = good && holds;
}

template <class Error, class Run> bool Raises(Run&& run) {
  try {
    run();
  } catch (Error const& error) { return *error.what() != '\0'; }
  return false;
}

void Edit(gattr::Session& session) {
  int told = 0;
  gattr::Subscription const listening =
      session.Subscribe([&told](gattr::ChangeEvent const& event) { told += event.objects.empty() ? 0 : 1; });
  for (char const* line :
       {R"({"command": "StaticStep", "name": "Press", "previous": "Initial", "initialInc": 0.1})", R"({"command": "Set", "name": "Top"})",
        R"({"command": "DisplacementBC", "name": "Punch", "createStepName": "Press", "region": "Top", "u2": -10.0})"}) {
    gattr::Outcome const outcome = session.Execute(gattr::ParseJson(line));
    Expect(outcome.ok, outcome.ok ? line : outcome.message.c_str());
  }
  gattr::Outcome const refused = session.Execute(
      gattr::ParseJson(R"({"command": "move", "boundaryCondition": "Punch", "fromStepName": "Press", "toStepName": "Initial"})"));
  Expect(!refused.ok && refused.refused.module == "kbc" && refused.refused.code >= 0, "a refusal tells its number");
  Expect(session.Undo() && session.Redo() && session.Journal().size() == 5, "undo and redo");
  Expect(told == 5, "listeners are told");
  Expect(gattr::Session::Commands().size() > 100, "commands are listed");
}

void Store(gattr::Session const& session) {
  std::filesystem::path const path = std::filesystem::current_path() / "consumer.gadb";
  gattr::ModelFile(path).Save(session.Model());
  ddr_Model const opened = gattr::ModelFile(path).Open();
  Expect(opened.Equals(session.Model()), "a model file holds the model");
  std::filesystem::remove(path);
  gattr::WriteTextFile(opened, "consumer.gattr.json");
  Expect(gattr::ReadTextFile("consumer.gattr.json").Equals(opened), "a text holds the model");
  std::filesystem::remove("consumer.gattr.json");
  for (gattr::Finding const& finding : gattr::Check(opened)) {
    Expect(finding.Row().severity != gattr::Severity::Error, "no error is found");
  }
}

}  // namespace

int main() {
  int count = 0;
  DDB_GeometricAttributes_initialize(count);
  {
    gattr::Session session;
    Edit(session);
    Store(session);
  }
  // What the shared library throws is what its headers declare.
  Expect(Raises<gattr::JsonError>([] { gattr::ParseJson("{"); }), "a broken text raises");
  Expect(Raises<gattr::StoreError>([] { gattr::ModelFile("no such folder/a.gadb").Open(); }), "a missing file raises");
  Expect(Raises<gattr::JournalError>([] {
           std::istringstream text("no command");
           gattr::JournalReader(text).Next();
         }),
         "a broken journal raises");
  DDB_GeometricAttributes_finalize(count);
  std::puts(good ? "session: good" : "session: bad");
  return good ? 0 : 1;
}
