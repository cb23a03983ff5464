#include "tests/cli/Program.h"

namespace {

using test::Ran;

class FindingsOf : public test::Program {
protected:
  /// Holds a SARIF text and a JUnit text against what their readers want.
  void ExpectForms(std::string const& sarif, std::string const& junit, std::string const& counts) const {
    Write("told.sarif", sarif);
    Write("told.xml", junit);
    std::string const forms = (std::filesystem::path(GATTR_SOURCE_DIR) / "tests/cli/findings.py").string();
    EXPECT_EQ(Shell("/usr/bin/python3 '" + forms + "' told.sarif told.xml " + counts + " >told 2>&1"), 0) << Read("told") << sarif << junit;
  }
};

constexpr std::string_view kDoubtful = R"(# two lines that are hardly meant, one that is refused
{"command": "StaticStep", "name": "Press <1>", "initialInc": 0.1}
{"command": "Set", "name": "Rim"}
{"command": "DisplacementBC", "name": "Fix & Co", "createStepName": "Press <1>", "region": "Rim", "u1": 0.0}
{"command": "XsymmBC", "name": "Sym", "createStepName": "Initial", "region": "Rim"}
{"command": "deactivate", "boundaryCondition": "Fix & Co", "stepName": "Initial"}
{"command": "deactivate", "boundaryCondition": "Fix & Co", "stepName": "Initial"}
{"command": "setValuesInStep", "boundaryCondition": "Fix & Co", "stepName": "Press <1>", "u1": "FREED"}
)";

TEST_F(FindingsOf, AJournalAreToldInEveryFormWithTheirLines) {
  Write("a journal.jsonl", kDoubtful);
  auto const told = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"replay", "a journal.jsonl", "--check", "--keep-going"});
    return Gattr(more);
  };
  Ran const json = told({"--format", "json"});
  EXPECT_EQ(json.status, 1) << json.err;
  std::vector<std::string> found;
  for (auto const& finding : nlohmann::json::parse(json.out)) {
    std::string code = finding["code"] == -1 ? "" : " " + finding["module"].get<std::string>() + finding["code"].dump();
    found.push_back(finding["id"].get<std::string>() + " " + finding["line"].dump() + code);
  }
  EXPECT_EQ(found, (std::vector<std::string>{"GA016 5", "GA021 6", "GA021 7", "GA023 8 kbc20"})) << json.out;
  ExpectForms(told({"--format", "sarif"}).out, told({"--format", "junit"}).out, "4 1 'a%20journal.jsonl'");
  ExpectForms(told({"--format", "sarif", "--only", "GA016"}).out, told({"--format", "junit", "--fail-on", "warning"}).out,
              "1 2 'a%20journal.jsonl'");
  EXPECT_NE(told({}).out.find("GA021"), std::string::npos);
  EXPECT_EQ(Gattr({"replay", "a journal.jsonl", "--check", "-o", "m.gadb", "--format", "json", "--only", "GA016"}).out, "[]\n")
      << "half a journal makes no model";
}

TEST_F(FindingsOf, AModelCanBeLeftOutAndDecideTheStatus) {
  ASSERT_EQ(Gattr({"replay", "-", "-o", "m.gadb"}, R"({"command": "StaticStep", "name": "S", "initialInc": 0.1})"
                                                   "\n{\"command\": \"Set\", \"name\": \"Rim\"}\n")
                .status,
            0);
  EXPECT_EQ(Gattr({"check", "m.gadb"}).status, 0);
  EXPECT_EQ(Gattr({"check", "m.gadb", "--fail-on", "warning"}).status, 1);
  EXPECT_EQ(Gattr({"check", "m.gadb", "--fail-on", "warning", "--disable", "GA017,GA018"}).out, "nothing found\n");
  EXPECT_EQ(Gattr({"check", "m.gadb", "--fail-on", "warning", "--disable", "GA017", "--disable", "GA018"}).status, 0);
  ExpectForms(Gattr({"check", "m.gadb", "--format", "sarif"}).out, Gattr({"check", "m.gadb", "--format", "junit"}).out, "2 0 m.gadb");
  for (char const* id : {"GA17", "GA001", "17"}) { EXPECT_EQ(Gattr({"check", "m.gadb", "--disable", id}).status, 2) << id; }
  EXPECT_EQ(Gattr({"check", "m.gadb", "--only", "GA099"}).status, 2);
  EXPECT_EQ(Gattr({"replay", "-", "--disable", "GA017"}).status, 2) << "without --check";
}

}  // namespace
