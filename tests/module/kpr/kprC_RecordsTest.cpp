#include <cmath>

#include "module/kpr/records/kprC_Damping.h"
#include "module/kpr/records/kprC_FrequencyRange.h"
#include "module/kpr/records/kprC_MassScaling.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "tests/module/kpr/kprTestMembers.h"

namespace {

template <class Record> int CodeOfRecord(Edits const& edits) {
  Record record;
  Apply(record, edits);
  return RefusalOf([&] { record.AssertValid(); });
}

TEST(Damping, RefusesEachComponentInTurn) {
  struct Row {
    Edits edits;
    int code;
  };
  Row const modes[] = {
      {{}, -1},
      {{{"start", 3}, {"end", 3}}, -1},
      {{{"start", 0}, {"end", 0}, {"fraction", -1.0}}, 18},
      {{{"start", cls_Value()}}, 18},
      {{{"start", 1}, {"end", 0}, {"fraction", -1.0}}, 19},
      {{{"start", 3}, {"end", 2}, {"fraction", -1.0}}, 20},
      {{{"fraction", -0.01}}, 21},
      {{{"fraction", cls_Value()}}, 21},
  };
  for (Row const& row : modes) { EXPECT_EQ(CodeOfRecord<kprC_DirectDampingComponent>(row.edits), row.code); }
  Row const frequencies[] = {
      {{}, -1},
      {{{"frequency", -1.0}, {"beta", -1.0}}, 159},
      {{{"frequency", 1.0}, {"alpha", -1.0}}, -1},
      {{{"frequency", 1.0}, {"beta", -1.0}}, 22},
  };
  for (Row const& row : frequencies) { EXPECT_EQ(CodeOfRecord<kprC_RayleighDampingByFrequencyComponent>(row.edits), row.code); }
  EXPECT_EQ(CodeOfRecord<kprC_StructuralDampingComponent>({{"factor", -0.1}}), 24);
  EXPECT_EQ(CodeOfRecord<kprC_CompositeDampingComponent>({{"end", 0}}), 19);
}

TEST(Damping, IsScriptedAsTheListOfItsComponents) {
  kprC_ModalDynamicsStep step;
  Apply(step, {{"directDamping", Many({{{"start", 1}, {"end", 4}, {"fraction", 0.02}}, {{"start", 5}, {"fraction", 0.05}}})}});
  ASSERT_EQ(step.directDamping.components.Size(), 2U);
  EXPECT_EQ(step.directDamping.components[1].fraction, 0.05);
  EXPECT_EQ(step.directDamping.components[1].end, 2147483647);
  EXPECT_EQ(step.Member("directDamping"),
            Many({{{"start", 1}, {"end", 4}, {"fraction", 0.02}}, {{"start", 5}, {"end", cls_Value()}, {"fraction", 0.05}}}));
}

/// The message with which a value is refused; empty when it is taken.
std::string MessageOf(std::string_view member, cls_Value const& value) {
  kprC_SteadyStateModalStep step;
  kprC_SteadyStateModalStep const before = step;
  try {
    step.SetMember(member, value);
  } catch (nex_TextException const& refusal) {
    EXPECT_TRUE(step.Equals(before));
    return std::string(refusal.Text().View());
  }
  return "";
}

TEST(Records, AreRefusedWithTheMemberAndWhatWasExpected) {
  EXPECT_EQ(MessageOf("directDamping", One({{"fraction", std::nan("")}})), "Invalid value for \"fraction\": expected a finite number.");
  EXPECT_EQ(MessageOf("frequencyRange", One({{"nPoints", 2.5}})), "Invalid value for \"nPoints\": expected an integer.");
  EXPECT_EQ(MessageOf("frequencyRange", 3), "Invalid value for \"frequencyRange\": expected a list.");
  EXPECT_EQ(MessageOf("frequencyRange", cls_Value::List{3}),
            "Invalid value for \"frequencyRange\": expected an object with named members.");
  EXPECT_EQ(MessageOf("compositeDamping", One({{"fraction", 1.0}})), "There is no member \"fraction\": expected one of start, end.");
}

TEST(MassScaling, RefusesByItsType) {
  using Type = char const*;
  struct Row {
    Type type;
    char const* occurs;
    Edits edits;
    int code;
  };
  Edits const rolled = {{"feedRate", 1.0}, {"extrudedLength", 0.1}, {"crossSection", 4}};
  Row const rows[] = {
      {"SEMI_AUTOMATIC", "AT_BEGINNING", {}, 56},
      {"SEMI_AUTOMATIC", "AT_BEGINNING", {{"factor", 0.0}, {"dt", -1.0}}, 56},
      {"SEMI_AUTOMATIC", "AT_BEGINNING", {{"dt", 0.001}}, -1},
      {"SEMI_AUTOMATIC", "AT_BEGINNING", {{"factor", 2.0}, {"dt", -1.0}}, -1},
      {"SEMI_AUTOMATIC", "THROUGHOUT_STEP", {{"factor", 2.0}}, 55},
      {"SEMI_AUTOMATIC", "THROUGHOUT_STEP", {{"dt", 0.001}}, 57},
      {"SEMI_AUTOMATIC", "THROUGHOUT_STEP", {{"dt", 0.001}, {"frequency", 0}, {"numberInterval", 0}}, 57},
      {"SEMI_AUTOMATIC", "THROUGHOUT_STEP", {{"dt", 0.001}, {"frequency", 10}}, -1},
      {"SEMI_AUTOMATIC", "THROUGHOUT_STEP", {{"dt", 0.001}, {"numberInterval", 10}}, -1},
      {"AUTOMATIC", "AT_BEGINNING", {}, 58},
      {"AUTOMATIC", "AT_BEGINNING", {{"feedRate", 1.0}}, 59},
      {"AUTOMATIC", "AT_BEGINNING", {{"feedRate", 1.0}, {"extrudedLength", 0.1}}, 60},
      {"AUTOMATIC", "AT_BEGINNING", {{"feedRate", 1.0}, {"extrudedLength", 0.1}, {"crossSection", 0}}, 60},
      {"AUTOMATIC", "AT_BEGINNING", rolled, 57},
      {"AUTOMATIC", "AT_BEGINNING", rolled + Edits{{"frequency", 1}}, -1},
      {"REINITIALIZE", "THROUGHOUT_STEP", {{"factor", -1.0}}, -1},
      {"DISABLE_THROUGHOUT_STEP", "AT_BEGINNING", {{"dt", -1.0}}, -1},
  };
  for (Row const& row : rows) {
    EXPECT_EQ(CodeOfRecord<kprC_MassScaling>(Edits{{"type", row.type}, {"occurs", row.occurs}} + row.edits), row.code) << row.type;
  }
}

TEST(MassScaling, VariesByTypeAndTime) {
  using enum kprC_MassScalingTypeEnm;
  using enum kprC_MassScalingOccursEnm;
  EXPECT_TRUE(kprC_MassScaling::IsVariable(SEMI_AUTOMATIC, THROUGHOUT_STEP));
  EXPECT_FALSE(kprC_MassScaling::IsVariable(SEMI_AUTOMATIC, AT_BEGINNING));
  for (auto const occurs : {AT_BEGINNING, THROUGHOUT_STEP}) {
    EXPECT_TRUE(kprC_MassScaling::IsVariable(AUTOMATIC, occurs));
    EXPECT_TRUE(kprC_MassScaling::IsVariable(DISABLE_THROUGHOUT_STEP, occurs));
    EXPECT_FALSE(kprC_MassScaling::IsVariable(REINITIALIZE, occurs));
  }
  try {
    kprC_MassScaling::IsVariable(static_cast<kprC_MassScalingTypeEnm>(4), AT_BEGINNING);
    FAIL();
  } catch (nex_TextException const& refusal) {
    EXPECT_EQ(refusal.Text(), "Invalid mass scaling type");
    EXPECT_EQ(refusal.Code(), -1);
  }
}

cls_Value Table(std::initializer_list<std::initializer_list<double>> rows) {
  cls_Value::List table;
  for (auto const& row : rows) {
    cls_Value::List values;
    for (double const value : row) { values.emplace_back(value); }
    table.emplace_back(std::move(values));
  }
  return table;
}

TEST(TimePoints, RefuseWhatIsNoSequence) {
  struct Row {
    cls_Value points;
    int code;
  };
  Row const rows[] = {
      {Table({}), 164},
      {Table({{}}), 164},
      {Table({{1.0, 2.0}}), 163},
      {Table({{1.0, 2.0, 0.1, 0.1}}), 163},
      {Table({{0.0, 1.0, 0.1}}), -1},
      {Table({{1.0, 0.0, 0.0}}), 168},
      {Table({{1.0, 0.0, 0.1}}), 167},
      {Table({{1.0, 1.0, 0.1}}), -1},
      {Table({{0.0, 2.0, 0.000001}}), 169},
      {Table({{0.0, 1.0, 0.000001}}), -1},
      {Table({{0.0, 0.1, 0.0000001}}), 169},  // the quotient of these two comes out a little above
      {Table({{0.0, 1.000001, 0.000001}}), 169},
      {Table({{0.0, 1.0, 0.000001}, {0.0, 1.0, 0.000001}}), -1},  // the limit is a row's own
      {Table({{5.0, 6.0, 0.1}, {0.0, 1.0, 0.5}}), -1},            // rows are in no order
      {Table({{5.0, 6.0, 0.1}, {0.0, 1.0, -0.5}}), 168},
      {Table({{0.4}}), -1},
      {Table({{0.4}, {0.5}}), -1},
      {Table({{0.4}, {0.4}}), 165},
      {Table({{0.4}, {0.5}, {0.3}}), 165},
  };
  for (Row const& row : rows) { EXPECT_EQ(CodeOfRecord<kprC_TimePoint>({{"points", row.points}}), row.code); }
}

TEST(TimePoints, RefuseRowsOfDifferentLengths) {
  kprC_TimePoint points;
  Apply(points, {{"points", Table({{0.4}, {0.5}})}});
  EXPECT_THROW(points.SetMember("points", Table({{0.4}, {0.5, 0.6, 0.1}})), nex_TextException);
  EXPECT_THROW(points.SetMember("points", cls_Value::List{0.4, 0.5}), nex_TextException);
  EXPECT_THROW(points.SetMember("points", Table({{std::nan("")}})), nex_TextException);
  EXPECT_EQ(points.Member("points"), Table({{0.4}, {0.5}}));
}

}  // namespace
