#include "module/kpr/mesh/kprC_AdptMeshCons.h"
#include "tests/support/ConstraintRules.h"
#include "tests/support/OneAttribute.h"
#include "tests/support/RandomEdits.h"

namespace {

class MeshConstraints : public test::OneAttribute<kprC_AdptMeshCons> {
protected:
  int Make(char const* steps, char const* step, kprC_Arguments const& members, char const* motion = "INDEPENDENT") {
    return Create("DisplacementAdaptiveMeshConstraint", steps, step, members, {{"motionType", motion}});
  }
};

TEST_F(MeshConstraints, HaveTheHistoriesThatAWalkOverEveryRecordGives) {
  test::ExpectPlainHistories(kprC_AdptMeshCons::Constructors(), test::kConstraintRules, 60);
}

TEST_F(MeshConstraints, RefuseWithTheNumbersOfSteps) {
  struct {
    char const* steps;
    char const* step;
    double u1;
    int code;
    char const* motion = "INDEPENDENT";
  } const rows[] = {
      {"IGG", "Initial", 1.0, 190},
      {"IGF", "S2", 0.0, 226},
      {"IH", "S1", 0.0, 226},
      {"IE", "S1", 0.0, 226},
      {"IXA", "S2", 0.0, 208},
      {"IX", "S1", 1.0, -1},
      {"IX", "S1", 1.0, -1, "FOLLOW"},
      {"IX", "S1", 1.0, 242, "USER_DEFINED"},
      {"IX", "Initial", 0.0, 242, "USER_DEFINED"},
      {"IG", "S1", 1.0, -1, "USER_DEFINED"},
      {"IO", "S1", 1.0, -1},
      {"IT", "S1", 1.0, -1},
  };
  for (auto const& row : rows) { EXPECT_EQ(Make(row.steps, row.step, {{"u1", row.u1}}, row.motion), row.code) << row.steps << row.motion; }
  ASSERT_EQ(Make("IGGGE", "S1", {{"u1", 1.0}}), -1);
  EXPECT_EQ(Move("S1", "Initial"), 210);
  EXPECT_EQ(Move("S1", "S4"), 225);
  EXPECT_EQ(Move("S1", "S9"), 187);
  EXPECT_EQ(Reset("S1"), 203);
  EXPECT_EQ(Deactivate("S4"), 193);
  EXPECT_EQ(Edit("S2", {{"u1", "UNSET"}}), 206);
  EXPECT_EQ(Edit("S4", {{"u1", "FREED"}}), 205);
  EXPECT_EQ(Edit("S1", {{"u1", "FREED"}}), 204);
  EXPECT_EQ(Edit("S2", {{"u1", "PROPAGATED"}}), 192);
  EXPECT_EQ(Edit("S2", {{"u1", "FREED"}}), -1);
  EXPECT_EQ(History(), "0 1 3 2 6");
}

TEST_F(MeshConstraints, AreListedByTheStepsThatTakeThem) {
  using enum kprC_ProcedureType::Enm;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    bool const takes = row.adaptiveMesh == kprC_Answer::Yes;
    EXPECT_EQ(kprC_isValidAdptMeshConsTypeforStep(kprC_VelAdptMeshCons::TypeId(), static_cast<int>(row.type)), takes) << row.label.View();
    EXPECT_EQ(kprC_getMechanicalAdptMeshConsTypesforStep(static_cast<int>(row.type)).Size(), takes ? 2U : 0U);
    EXPECT_TRUE(kprC_getOtherAdptMeshConsTypesforStep(static_cast<int>(row.type)).IsEmpty());
  }
  EXPECT_TRUE(kprC_getMechanicalAdptMeshConsTypesforStep(0).IsEmpty());
  EXPECT_FALSE(kprC_isValidAdptMeshConsTypeforStep(1, static_cast<int>(Static)));
}

}  // namespace
