#include <gmock/gmock.h>

#include "module/kor/korC_module.h"
#include "tests/support/OneAttribute.h"

namespace {

using Value = cls_Value;
using List = cls_Value::List;
using FieldRequest = test::OneAttribute<korC_FieldOutput>;
using HistoryRequest = test::OneAttribute<korC_HistoryOutput>;
constexpr char const *kField = "FieldOutputRequest", *kHistory = "HistoryOutputRequest";

struct Row {
  char const* steps;
  char const* step;
  kprC_Arguments members;
  int code;
  char const* history = "";
  kprC_Arguments own = {};
};
std::string Told(Row const& row) {
  std::string told = std::string(row.steps) + " " + row.step;
  for (auto const* members : {&row.members, &row.own}) {
    for (auto const& [name, value] : *members) { told += " " + name; }
  }
  return told + " " + std::to_string(row.code);
}
kprC_Arguments Of(char const* type, char const* member = nullptr, Value value = {}) {
  kprC_Arguments members = {{"type", type}};
  if (member != nullptr) { members.emplace_back(member, std::move(value)); }
  return members;
}
kprC_Arguments Keys(std::initializer_list<char const*> keys) {
  List list;
  for (char const* key : keys) { list.emplace_back(key); }
  return {{"variables", list}};
}
kprC_Arguments const kMarks = {{"timeMarks", true}};

TEST_F(FieldRequest, IsCreatedWhereTheStepTakesItAndRestsWhereItDoesNot) {
  for (Row const& row : {
           Row{"IG", "Initial", {}, 52},
           Row{"IGPGG", "S1", {}, -1, "0 1 7 2 2"},
           Row{"IGPPG", "S2", {}, -1, "0 0 1 7 7"},
           Row{"IXA", "S2", {}, 18},
           Row{"IXAX", "S1", Of("TIME_INTERVAL"), -1, "0 1 7 2"},
           Row{"IGF", "S2", Of("MODES"), -1, "0 0 1"},  // all of them
           Row{"IGF", "S2", Of("FREQUENCY", "frequency", 1), 43},
           Row{"IGF", "S1", Of("MODES"), 43},
           Row{"IX", "S1", Of("FREQUENCY", "frequency", 1), 43},
           Row{"IX", "S1", Of("TIME_POINT", "timePoint", "T"), -1, "0 1"},
           Row{"IX", "S1", {{"type", "TIME_INTERVAL"}, {"timeMarks", true}}, -1, "0 1"},
           Row{"IGU", "S1", Of("NUMBER_INTERVALS", "numIntervals", 4), -1, "0 1 7"},
           Row{"IFU", "S2", Of("TIME_INTERVAL", "timeInterval", 1.0), 43},
           Row{"IFU", "S2", kMarks, 43},
           Row{"IFSG", "S2", {}, -1, "0 0 1 2"},  // subspace dynamics is a general step
           Row{"IGTG", "S2", Keys({"NT", "HFL1"}), -1, "0 0 1 7"},
           Row{"IGTG", "S1", Keys({"U1", "MISES"}), -1, "0 1 2 2"},
           Row{"IHH", "S1", Keys({"S"}), 46},
           Row{"IG", "S1", Keys({"ALLEN"}), 46},
           Row{"IG", "S1", Keys({"INFC"}), 46},
           Row{"IG", "S1", Keys({"Stress"}), 12},
           Row{"IG", "S1", Keys({"S", "S77"}), 13},
           Row{"IG", "S1", {{"variables", "PRESELECTED"}}, 12},
           Row{"IG", "S1", {{"variables", "NO_OUTPUT_VARIABLES"}}, 54},
           Row{"IG", "S1", {{"variables", List{}}}, 54},
           Row{"IG", "S1", {{"variables", "ENERGY_ALL"}}, 57},
           Row{"IG", "S1", {{"variables", "CONTACT_PRESELECT"}}, -1, "0 1"},
           Row{"IG", "S1", {{"frequency", 0}}, 49},
           Row{"IG", "S1", {{"frequency", "PROPAGATED"}}, 36},
           Row{"IG", "S1", Of("NUMBER_INTERVALS"), 3},
           Row{"IG", "S1", Of("TIME_INTERVAL", "timeInterval", 0.0), -1, "0 1"},
           Row{"IG", "S1", Of("TIME_INTERVAL", "timeInterval", -0.5), 50},
           Row{"IG", "S1", Of("TIME_INTERVAL", "timeInterval", "soon"), 4},
           Row{"IGF", "S2", Of("MODES", "modes", List{1, 0}), 9},
           Row{"IGF", "S2", Of("MODES", "modes", "first"), 9},
           Row{"IGF", "S2", Of("MODES", "modes", List{1, 2}), -1, "0 0 1"},
           Row{"IG", "S1", Of("TIME_POINT"), 77},
           Row{"IG", "S1", Of("INVALID"), 11},
           Row{"IG", "S1", Of("SOMETIMES"), 11},
           Row{"IG", "S1", {}, 72, "", {{"connectors", List{"Hinge"}}}},
           Row{"IG", "S1", {}, 63, "", {{"boltLoad", "Bolt"}, {"rebar", "INCLUDE"}}},
           Row{"IG", "S1", {}, 62, "", {{"rebar", "ONLY"}, {"sectionPoints", List{1}}}},
           Row{"IG", "S1", {}, 10, "", {{"sectionPoints", List{0}}}},
           Row{"IG", "S1", Keys({"U"}), 64, "", {{"rebar", "ONLY"}}},
           Row{"IG", "S1", Keys({"S"}), -1, "0 1", {{"rebar", "ONLY"}}},
           Row{"IG", "S1", Keys({"U"}), 46, "", {{"layupNames", List{"Skin"}}}},
       }) {
    SCOPED_TRACE(Told(row));
    ASSERT_EQ(Create(kField, row.steps, row.step, row.members, row.own), row.code);
    if (row.code < 0) { EXPECT_EQ(History(), row.history); }
  }
  EXPECT_EQ(test::CodeOf([this] { Made(kField)->SetMember("layupLocationMethod", "SOMEWHERE"); }), 80);
  EXPECT_EQ(test::CodeOf([this] { Made(kField)->SetMember("sectionPoints", "top"); }), 10);
}

TEST_F(HistoryRequest, IsCreatedWhereTheStepTakesItAndRestsWhereItDoesNot) {
  cls_Value const surface = cls_Value::Fields{{"name", "Skin"}, {"kind", "SURFACE"}};
  for (Row const& row : {
           Row{"IGFG", "S2", {}, 19},
           Row{"IGFG", "S1", {}, -1, "0 1 7 2"},
           Row{"IXA", "S2", {}, 43},
           Row{"IFC", "S2", Of("MODES"), -1, "0 0 1"},
           Row{"IX", "S1", Of("FREQUENCY", "frequency", 1), -1, "0 1"},
           Row{"IX", "S1", Of("TIME_POINT", "timePoint", "T"), 43},
           Row{"IX", "S1", kMarks, 43},
           Row{"IG", "S1", kMarks, -1, "0 1"},
           Row{"IG", "S1", Keys({"S"}), 17},
           Row{"IG", "S1", Keys({"ALLEN", "U1"}), 17},
           Row{"IG", "S1", Keys({"ALLIE", "DT"}), -1, "0 1"},
           Row{"IG", "S1", Keys({"S"}), -1, "0 1", {{"region", "Rim"}}},
           Row{"IG", "S1", Keys({"CTF", "S"}), 65, "", {{"connectors", List{"Hinge"}}}},
           Row{"IG", "S1", Keys({"CTF1"}), -1, "0 1", {{"connectors", List{"Hinge"}}}},
           Row{"IX", "S1", Keys({"ALLEN"}), 66, "", {{"integratedOutputSection", "Cut"}}},
           Row{"IX", "S1", Keys({"SOF1"}), -1, "0 1", {{"integratedOutputSection", "Cut"}}},
           Row{"IX", "S1", Keys({"SOF1"}), 46},
           Row{"IX", "S1", Keys({"CFN"}), -1, "0 1", {{"region", surface}}},
           Row{"IG", "S1", Keys({"CFN"}), 43, "", {{"region", surface}}},
           Row{"IG", "S1", Keys({"CFN"}), -1, "0 1", {{"interactions", List{"Pair"}}}},
           Row{"IG", "S1", Keys({"U"}), 46, "", {{"interactions", List{"Pair"}}, {"region", "Rim"}}},
           Row{"IG", "S1", {}, 71, "", {{"numberOfContours", 0}}},
       }) {
    SCOPED_TRACE(Told(row));
    ASSERT_EQ(Create(kHistory, row.steps, row.step, row.members, row.own), row.code);
    if (row.code < 0) { EXPECT_EQ(History(), row.history); }
  }
  auto const field = std::make_unique<korC_FieldOutput>();
  field->SetMember("region", surface);
  std::string unknown;
  field->SetInStep("S1", {}, &unknown);
  kprC_PropagatingContainer<korC_FieldOutput> fields;
  fields.UpdateSteps(kprC_StepTable(test::StepsOf("IX")));
  EXPECT_EQ(test::CodeOf([&] { fields.Insert("A", *field); }), 73);
}

TEST_F(FieldRequest, IsChangedSwitchedOffResetAndMovedInThisOrderOfRefusals) {
  ASSERT_EQ(Create(kField, "IGPGGH", "S1", Keys({"S"})), -1);
  ASSERT_EQ(Edit("S3", {{"frequency", 5}}), -1);
  EXPECT_EQ(History(), "0 1 7 3 2 7");
  EXPECT_EQ(Edit("S3", Keys({"CONC"})), 45);
  EXPECT_EQ(Edit("S3", Of("MODES")), 43);
  EXPECT_EQ(Edit("S5", Keys({"HFL"})), -1) << "a change is asked for itself";
  EXPECT_EQ(History(), "0 1 7 3 2 3");
  ASSERT_TRUE(Item().Remove("S5"));
  for (auto const& [step, code] : {std::pair{"Nowhere", 40}, {"Initial", 40}, {"S2", 29}, {"S5", 30}, {"S4", -1}, {"S4", -1}}) {
    EXPECT_EQ(Deactivate(step), code) << step;
  }
  EXPECT_EQ(History(), "0 1 7 3 4 7");
  for (auto const& [step, code] : {std::pair{"Nowhere", 40}, {"Initial", 40}, {"S1", 34}, {"S3", 76}, {"S2", 76}, {"S5", 76}, {"S4", -1}}) {
    EXPECT_EQ(Reset(step), code) << step;
  }
  EXPECT_EQ(History(), "0 1 7 3 2 7");
  struct {
    char const *from, *to;
    int code;
  } const moves[] = {{"S1", "Nowhere", 40}, {"S1", "Initial", 40}, {"S1", "S1", -1}, {"S1", "S4", 37}, {"S1", "S3", 38}, {"S4", "S2", 37},
                     {"S5", "S4", 32},      {"S4", "S5", 33},      {"S3", "S2", 44}, {"S3", "S5", 42}, {"S3", "S4", -1}};
  for (auto const& [from, to, code] : moves) {
    auto const before = Item().Copy();
    EXPECT_EQ(Move(from, to), code) << from << " to " << to;
    if (code >= 0) { EXPECT_TRUE(Item().Equals(*before)) << from << " to " << to; }
  }
  EXPECT_EQ(History(), "0 1 7 2 3 7");
  ASSERT_EQ(Create(kField, "IGPPG", "S2"), -1);
  EXPECT_EQ(Move("S2", "S4"), 39);
}

TEST_F(HistoryRequest, KnowsNoBaseState) {
  using Status = mdl_PropagationStatusEnm;
  auto const refused = [](Status status) {
    return test::CodeOf([&] { korC_Output::IsActive(status); }) == 55 && test::CodeOf([&] { korC_Output::IsIllegalMove(status); }) == 55;
  };
  for (int status = 0; status < 16; ++status) { EXPECT_EQ(refused(static_cast<Status>(status)), status == 6 || status > 7) << status; }
  ASSERT_EQ(Create(kHistory, "IGGP", "S2"), -1);
  for (auto const& [step, code] : {std::pair{"S1", 41}, {"S2", -1}, {"S3", 41}, {"Nowhere", 41}}) {
    EXPECT_EQ(test::CodeOf([&] { Item().CheckStep(step); }), code) << step;
  }
  EXPECT_NO_THROW(Item().SetStateStatusChecks());
}

TEST_F(HistoryRequest, TakesHowOftenFromANewOneWhereTheProcedureChanges) {
  auto const adapted = [this](char const* steps, kprC_Arguments const& members, char then) {
    EXPECT_EQ(Create(kHistory, steps, "S1", members), -1);
    bool const changed = Item().ChangeProcedureType(*test::StepOf(then), "S1");
    auto const& state = *Item().ConstGetState("S1");
    return std::make_tuple(changed, std::string(state.type.ConstGet().View()), state.frequency.HasValue(), state.numIntervals.ConstGet(),
                           state.timeMarks.ConstGet());
  };
  kprC_Arguments timed = Of("TIME_POINT", "timePoint", "T");
  timed.emplace_back("timeMarks", true);
  kprC_Arguments intervals = Of("NUMBER_INTERVALS", "numIntervals", 7);
  EXPECT_EQ(adapted("IG", timed, 'X'), std::tuple(true, "NUMBER_INTERVALS", false, 200, false));
  EXPECT_EQ(adapted("IG", intervals, 'X'), std::tuple(false, "NUMBER_INTERVALS", true, 7, false));
  intervals.emplace_back("timeMarks", true);
  EXPECT_EQ(adapted("IG", intervals, 'X'), std::tuple(true, "NUMBER_INTERVALS", true, 7, false)) << "the marks alone";
  EXPECT_EQ(adapted("IX", Of("TIME_INTERVAL"), 'P'), std::tuple(true, "FREQUENCY", true, 0, false));
  EXPECT_EQ(adapted("IG", {}, 'A'), std::tuple(false, "FREQUENCY", true, 0, false)) << "nothing goes there";

  ASSERT_EQ(Create(kHistory, "IG", "S1"), -1);
  Item().Suppress();
  ASSERT_EQ(Edit("S1", Of("MODES")), -1);
  EXPECT_TRUE(Item().UpdateRecurranceType());
  EXPECT_FALSE(Item().UpdateRecurranceType());
  EXPECT_EQ(test::CodeOf([this] { Item().Resume(); }), -1);

  ASSERT_EQ(Create(kHistory, "IG", "S1", Keys({"ALLIE", "ALLEE", "DT"})), -1);
  EXPECT_TRUE(Item().ChangeProcedureType(*test::StepOf('X'), "S1"));
  EXPECT_EQ(Item().StateAt(1)->Member("variables"), Value(List{"ALLIE", "DT"}));
}

}  // namespace
