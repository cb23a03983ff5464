#include <fstream>
#include <memory>
#include <sstream>

#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/klo/kloC_ConcentratedLoads.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "tests/support/Library.h"
#include "tests/support/StepLetters.h"

namespace {

/// A history that is edited by words.
class Script {
public:
  virtual ~Script() = default;
  /// "modify S3", "insert S1" (values with a clear flag), "deactivate S4", "reset S4", "remove S3", "move S1 S3",
  /// "insertStep P S1" (behind S1), "removeStep S2". Answers "refused CODE" where the operation is refused.
  virtual std::string Do(std::string const& edit) = 0;
  virtual std::string History() const = 0;
};

/// That of one attribute "A", the only one of its repository.
/// \tparam Attribute the family's base class
template <class Attribute> class ScriptOf final : public Script {
public:
  /// \p members are given a value: the first one by the creation, the second one by later edits.
  ScriptOf(std::string_view steps, std::string const& createStep, Attribute& attribute, std::pair<char const*, char const*> members,
           double created)
      : edited_(members.second) {
    repository_.UpdateSteps(kprC_StepTable(test::StepsOf(steps)));
    auto const state = attribute.NewState();
    state->SetMember(members.first, created);
    attribute.Insert(cow_String(createStep), *state);
    repository_.Insert("A", attribute);
  }

  std::string Do(std::string const& edit) override {
    std::istringstream words(edit);
    std::string what, one, two;
    words >> what >> one >> two;
    auto const before = repository_;
    int const code = test::CodeOf([&] {
      if (what == "insertStep") {
        InsertStep(one[0], two);
      } else if (what == "removeStep") {
        kprC_StepTable const& steps = repository_.Steps();
        repository_.UpdateSteps(steps.WithRemoved(steps.Find(one)));
      } else {
        Edit(repository_.Get("A"), what, cow_String(one), cow_String(two));
      }
    });
    if (code < 0) { return History(); }
    repository_ = before;
    return "refused " + std::to_string(code);
  }
  std::string History() const override {
    std::string statuses;
    if (!repository_.IsMember("A")) { return "gone"; }
    for (auto const status : repository_.ConstGet("A").History()) {
      statuses += (statuses.empty() ? "" : " ") + std::to_string(static_cast<int>(status));
    }
    return statuses;
  }

private:
  void Edit(Attribute& attribute, std::string const& what, cow_String const& step, cow_String const& toStep) const {
    if (what == "modify" || what == "insert") {
      auto const state = attribute.NewState();
      state->SetMember(edited_, what == "modify" ? 0.5 : 0.0);
      attribute.Insert(step, *state);
    } else if (what == "deactivate") {
      attribute.Deactivate(step);
    } else if (what == "reset") {
      attribute.Reset(step);
    } else if (what == "remove") {
      attribute.Remove(step);
    } else if (what == "move") {
      attribute.Move(step, toStep);
    } else {
      throw std::invalid_argument(what);
    }
  }
  void InsertStep(char letter, std::string const& after) {
    kprC_StepTable const& steps = repository_.Steps();
    std::string const name = "N" + std::to_string(++inserted_);
    repository_.UpdateSteps(steps.WithInserted(steps.Find(after) + 1, kprC_StepNameProcedurePair(cow_String(name), test::StepOf(letter))));
  }

  kprC_PropagatingContainer<Attribute> repository_;
  char const* edited_;
  int inserted_ = 0;
};

std::unique_ptr<Script> OfDisplacement(std::string_view steps, std::string const& createStep) {
  kbcC_DisplacementBC condition;
  return std::make_unique<ScriptOf<kbcC_BC>>(steps, createStep, condition, std::pair{"u1", "u2"}, 0.0);
}
std::unique_ptr<Script> OfForce(std::string_view steps, std::string const& createStep) {
  kloC_ConcentratedForce force;
  return std::make_unique<ScriptOf<kloC_Load>>(steps, createStep, force, std::pair{"cf1", "cf2"}, 1.0);
}

class History : public test::WithLibrary {};

struct Row {
  char const* steps;
  char const* created;
  std::vector<std::pair<char const*, char const*>> edits;  // edit: history after it; the first edit "" is the creation
};

TEST_F(History, FollowsTheEditsOfADisplacementCondition) {
  // the common cases are told by docs/histories.md, below
  std::vector<Row> const rows = {
      {"IGFMCG", "S1", {{"deactivate S3", "refused 9"}, {"reset S3", "0 1 9 12 12 2"}, {"modify S3", "0 1 9 12 12 2"}}},
      {"IGPPG", "S2", {{"", "0 0 1 7 7"}, {"deactivate S3", "refused 9"}}},
      {"IGG", "S1", {{"deactivate S1", "0 4 5"}, {"reset S1", "refused 19"}, {"insert S1", "0 1 2"}}},
      {"IGGGG",
       "S2",
       {{"modify S4", "0 0 1 2 3"},
        {"move S4 S1", "refused 27"},
        {"move S2 S1", "0 1 2 2 3"},
        {"move S1 S1", "0 1 2 2 3"},
        {"move S1 S9", "refused 3"},
        {"move S9 S1", "refused 3"},
        {"move S3 S2", "refused 18"},
        {"deactivate S9", "refused 3"}}},
      {"IGGGG", "S3", {{"modify S4", "0 0 0 1 3"}, {"move S4 S2", "refused 27"}, {"move S4 S3", "refused 28"}}},
      {"IGGG", "S2", {{"modify S3", "0 0 1 3"}, {"remove S2", "0 0 0 1"}, {"remove S3", "0 0 0 0"}}},
      {"IGHG", "S1", {{"", "0 1 6 2"}, {"modify S2", "refused 45"}, {"move S1 S2", "refused 44"}}},
      {"IGPG", "S1", {{"move S1 S2", "refused 39"}, {"modify S2", "0 1 10 2"}, {"move S2 S3", "refused 38"}}},
      {"IGAG", "S1", {{"move S1 S2", "refused 29"}, {"move S1 S3", "0 0 0 1"}}},
  };
  for (Row const& row : rows) {
    auto const script = OfDisplacement(row.steps, row.created);
    std::string told = std::string(row.steps) + " [" + row.created + "]";
    for (auto const& [edit, history] : row.edits) {
      told += std::string("; ") + edit;
      EXPECT_EQ(*edit == '\0' ? script->History() : script->Do(edit), history) << told;
    }
  }
}

/// docs/histories.md tells analysts what to expect: blocks "IGG [S1]", then an edit and the history after it per line; of a
/// displacement condition, or of a force where the block says so.
TEST_F(History, IsWhatTheDocumentationSays) {
  std::ifstream page(GATTR_SOURCE_DIR "/docs/histories.md");
  ASSERT_TRUE(page);
  std::unique_ptr<Script> script;
  std::string line, told;
  int blocks = 0, edits = 0;
  decltype(&OfForce) make = nullptr;
  while (std::getline(page, line)) {
    if (line.starts_with("```")) {
      make = line == "```history" ? &OfDisplacement : line == "```history force" ? &OfForce : nullptr;
      script.reset();
    } else if (make != nullptr && !script) {
      std::size_t const bracket = line.find(" [");
      script = make(line.substr(0, bracket), line.substr(bracket + 2, line.size() - bracket - 3));
      told = line;
      ++blocks;
    } else if (make != nullptr) {
      std::size_t const gap = line.find("  ");
      std::string const edit = line.substr(0, gap);
      told += "; " + edit;
      EXPECT_EQ(edit == "created" ? script->History() : script->Do(edit), line.substr(line.find_first_not_of(' ', gap))) << told;
      ++edits;
    }
  }
  EXPECT_GE(blocks, 12);
  EXPECT_GE(edits, 40);
}

}  // namespace
