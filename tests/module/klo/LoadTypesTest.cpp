#include "module/klo/kloC_Loads.h"
#include "module/klo/kloC_module.h"
#include "tests/support/OneAttribute.h"

namespace {

kprC_Arguments const kAlongX = {{"cf1", 1.0}};

using test::CodeOf;

class LoadTypes : public test::OneAttribute<kloC_Load> {};

using Point = cls_Value::List;
cls_Value const kVector = Point{Point{0.0, 0.0, 0.0}, Point{0.0, 0.0, 2.0}};
cls_Value const kNoVector = Point{Point{1.0, 2.0, 3.0}, Point{1.0, 2.0, 3.0}};

TEST_F(LoadTypes, RefuseValuesThatTheyCannotHave) {
  struct {
    char const* command;
    kprC_Arguments members;
    int code;
    char const* steps = "IG";
    char const* fieldName = "";
  } const rows[] = {
      {"ConcentratedForce", {{"cf1", 0.0}, {"cf2", "UNSET"}}, 41},
      {"ConcentratedForce", {{"cf3", -1e-30}}, -1},
      {"ConcentratedForce", {{"cf1", 1.0}, {"useComplex", true}}, 41},
      {"ConcentratedForce", {{"useComplex", true}, {"complexC2Imag", 1.0}}, -1},
      {"ConcentratedForce", {{"complexC2Imag", 1.0}}, 41},
      {"Pressure", {{"magnitude", 0.0}}, 41},
      {"Pressure", {{"useComplex", true}, {"complexMagReal", 0.0}, {"complexMagImag", 2.0}}, -1},
      {"Pressure", {{"useComplex", true}, {"complexMagReal", 0.0}, {"complexMagImag", 0.0}}, 41},
      {"Pressure", {{"magnitude", 0.0}, {"distType", "USER_DEFINED"}}, -1},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "ROUND"}}, 21},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "FIELD"}}, 70},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "FIELD"}}, -1, "IG", "Depth"},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"hZero", 3.0}, {"hReference", 3.0}}, 20},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"hZero", 0.3}, {"hReference", 0.1 + 0.2}}, -1},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"useHydrostatic", false}}, -1},
      {"Pressure", {{"magnitude", 1.0}, {"hZero", 3.0}, {"hReference", 3.0}}, -1},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"hZero", 3.0}, {"hReference", 3.0}}, 19, "IX"},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"hZero", 1.0}, {"hReference", 3.0}}, 19, "IGGX"},
      {"Pressure", {{"magnitude", 1.0}, {"distType", "HYDROSTATIC"}, {"hZero", 1.0}, {"hReference", 3.0}}, -1, "IGGH"},
      {"SurfaceHeatFlux", {{"magnitude", 1.0}, {"distType", "FIELD"}}, 70, "IH"},
      {"BodyForce", {{"comp1", 1.0}, {"distType", "FIELD"}}, 69},
      {"BodyForce", {{"distType", "USER_DEFINED"}}, -1},
      {"LineLoad", {{"comp3", 1.0}, {"useC3", false}}, 41},
      {"LineLoad", {{"comp2", 1.0}, {"useC1", false}, {"useC3", false}}, -1},
      {"ConcentratedHeatFlux", {{"magnitude", 1.0}, {"dof", 10}}, 40, "IH"},
      {"ConcentratedHeatFlux", {{"dof", 10}}, 41, "IH"},
      {"ConcentratedHeatFlux", {{"magnitude", 1.0}, {"dof", 11}}, -1, "IH"},
      {"ConcentratedHeatFlux", {{"magnitude", 1.0}, {"dof", 31}}, -1, "IH"},
      {"ConcentratedHeatFlux", {{"magnitude", 1.0}, {"dof", 32}}, 40, "IH"},
      {"ConcentratedHeatFlux", {{"magnitude", 1.0}}, -1, "IH"},
      {"PipePressure", {{"magnitude", 1.0}, {"diameter", 0.0}}, 42},
      {"PipePressure", {{"magnitude", 1.0}}, 42},
      {"PipePressure", {{"magnitude", 1.0}, {"diameter", 1e-9}}, -1},
      {"RotationalBodyForce", {{"magnitude", 1.0}}, 43},
      {"RotationalBodyForce", {{"magnitude", 1.0}, {"centrifugal", true}}, -1},
      {"RotationalBodyForce", {{"magnitude", 1.0}, {"rotaryAcceleration", true}}, -1},
      {"RotationalBodyForce", {{"magnitude", 1.0}, {"centrifugal", true}, {"rotaryAcceleration", true}}, 43},
      {"CoriolisForce", {{"magnitude", 1.0}, {"coordAxisPt1", Point{0.0, 0.0, 1.0}}}, 57},
      {"CoriolisForce", {{"magnitude", 1.0}, {"coordAxisPt1", Point{1.0, 2.0}}, {"coordAxisPt2", Point{1.0, 2.0, 0.0}}}, 57},
      {"CoriolisForce", {{"magnitude", 1.0}, {"coordAxisPt1", Point{1.0}}}, 10},
      {"CoriolisForce",
       {{"magnitude", 1.0}, {"axisSelPoint1", "PICKED"}, {"axisSelPoint2", "PICKED"}, {"pickedAxisPt1", "P"}, {"pickedAxisPt2", "P"}},
       57},
      {"CoriolisForce",
       {{"magnitude", 1.0}, {"axisSelPoint1", "PICKED"}, {"axisSelPoint2", "PICKED"}, {"pickedAxisPt1", "P"}, {"pickedAxisPt2", "Q"}},
       -1},
      {"SurfaceTraction", {{"magnitude", 1.0}, {"directionVector", kVector}}, -1},
      {"SurfaceTraction", {{"magnitude", 1.0}, {"directionVector", kNoVector}}, 65},
      {"SurfaceTraction", {{"magnitude", 1.0}, {"follower", false}}, 67},
      {"SurfaceTraction", {{"magnitude", 1.0}, {"traction", "GENERAL"}, {"follower", false}}, -1},
      {"ShellEdgeLoad", {{"magnitude", 1.0}, {"direction", "GENERAL"}, {"traction", "MOMENT"}, {"follower", false}}, 67},
      {"ShellEdgeLoad", {{"magnitude", 1.0}, {"direction", "GENERAL"}, {"follower", false}}, -1},
      {"ShellEdgeLoad", {{"magnitude", 1.0}, {"csys", "Wheel"}, {"userCsys", "Mine"}}, 66},
      {"ShellEdgeLoad", {{"magnitude", 1.0}, {"csys", "(Global)"}, {"userCsys", "Mine"}}, -1},
      {"BoltLoad", {}, 41},
      {"InertiaRelief", {}, -1},
      {"InertiaRelief", {{"fixed", true}}, 52},
      {"InertiaRelief", {{"referencePoint", Point{1.0}}}, 10},
      {"SubmodelSB", {}, 72},
      {"SubmodelSB", {{"globalStep", 0}}, 72},
      {"SubmodelSB", {{"globalStep", "last"}}, 72},
      {"SubmodelSB", {{"globalStep", 1}}, -1},
      {"PressurePenetration", {{"interaction", "Contact"}}, 34},
  };
  for (auto const& row : rows) {
    auto const load = Made(row.command);
    load->SetMember("fieldName", row.fieldName);
    EXPECT_EQ(Create(row.steps, "S1", row.members, *load), row.code)
        << row.command << " in " << row.steps << ", line " << (&row - rows) << " of the table";
  }
}

TEST_F(LoadTypes, AreAskedForAMagnitudeWhereTheyAreCreatedOnly) {
  ASSERT_EQ(Create("ConcentratedForce", "IGG", "S1", kAlongX), -1);
  EXPECT_EQ(Edit("S2", {{"cf1", 0.0}}), -1);
  EXPECT_EQ(Edit("S1", {{"cf1", 0.0}}), 41);
  ASSERT_EQ(Create("InertiaRelief", "IGG", "S1", {}), -1);
  EXPECT_EQ(Edit("S2", {{"fixed", true}}), -1);
}

TEST_F(LoadTypes, FitTheSpaceOfTheModel) {
  constexpr auto kPlanar = ddr_Model::TWO_D_PLANAR, kAxi = ddr_Model::AXISYMMETRIC;
  kprC_Arguments const spin = {{"magnitude", 1.0}, {"centrifugal", true}};
  auto const with = [](kprC_Arguments members, kprC_Arguments const& more) {
    members.insert(members.end(), more.begin(), more.end());
    return members;
  };
  struct {
    char const* command;
    kprC_Arguments members;
    int planar, axisymmetric;
  } const rows[] = {
      {"ConcentratedForce", {{"cf1", 1.0}, {"cf3", 0.0}}, -1, -1},
      {"ConcentratedForce", {{"cf3", 1.0}}, 11, 11},
      {"ConcentratedForce", {{"useComplex", true}, {"complexC3Imag", 1.0}}, 11, 11},
      {"Moment", {{"cm3", 1.0}}, -1, -1},
      {"Moment", {{"cm1", 1.0}}, 11, 11},
      {"PEGLoad", {{"comp3", 1.0}}, -1, -1},
      {"Gravity", {{"comp2", -9.81}}, -1, -1},
      {"Gravity", {{"comp1", -9.81}}, -1, 47},
      {"Gravity", {{"comp3", -9.81}}, 11, 47},
      {"SurfaceTraction", {{"magnitude", 1.0}, {"directionVector", kVector}}, 11, 11},
      {"RotationalBodyForce", spin, -1, -1},
      {"RotationalBodyForce", with(spin, {{"coordAxisPt2", Point{0.0, 1.0, 0.0}}}), 45, -1},
      {"RotationalBodyForce", with(spin, {{"coordAxisPt2", Point{0.0, 2.0, 0.0}}}), 45, 44},
      {"RotationalBodyForce", with(spin, {{"coordAxisPt1", Point{3.0, 1.0}}, {"coordAxisPt2", Point{3.0, 1.0, -1.0}}}), -1, 44},
      {"RotationalBodyForce", {{"magnitude", 1.0}, {"rotaryAcceleration", true}}, -1, 46},
      {"InertiaRelief", {{"u1", true}, {"ur3", true}}, -1, 50},
      {"InertiaRelief", {{"u2", true}}, -1, -1},
      {"InertiaRelief", {{"u3", true}}, 49, 50},
      {"InertiaRelief", {{"localCsys", "Wheel"}, {"u1", true}, {"u2", true}, {"ur3", true}}, 51, 50},
      {"InertiaRelief", {{"localCsys", "Wheel"}, {"u1", true}}, -1, 50},
  };
  for (auto const& row : rows) {
    ASSERT_EQ(Create(row.command, "IG", "S1", row.members), -1) << row.command;
    ddr_Model model;
    auto const code = [&](ddr_Model::SpaceEnm space) {
      model.SetSpace(space);
      return CodeOf([&] { Item().AssertInModel(model); });
    };
    EXPECT_EQ(code(ddr_Model::THREE_D), -1) << row.command;
    EXPECT_EQ(code(kPlanar), row.planar) << row.command << ", line " << (&row - rows) << " of the table";
    EXPECT_EQ(code(kAxi), row.axisymmetric) << row.command << ", line " << (&row - rows) << " of the table";
  }
  ASSERT_EQ(Create("InertiaRelief", "IG", "S1", {{"localCsys", "Wheel"}}), -1);
  EXPECT_EQ(CodeOf([&] { Item().AssertInModel(ddr_Model()); }), 51) << "all directions, since none is named";
}

TEST_F(LoadTypes, OfBoltsNeedAnAxisInSolids) {
  auto const load = Made("BoltLoad");
  load->SetMember("region", cls_Value::Fields{{"name", "Shank"}, {"instanceKind", "SOLID"}});
  ASSERT_EQ(Create("IG", "S1", {{"magnitude", 1.0}}, *load), -1);
  EXPECT_EQ(CodeOf([&] { Item().AssertInModel(ddr_Model()); }), 39);
  ASSERT_EQ(Edit("S1", {{"dtmReference", "Axis-1"}}), -1);
  EXPECT_EQ(CodeOf([&] { Item().AssertInModel(ddr_Model()); }), -1);
}

TEST_F(LoadTypes, AreListedByCategoryAndProcedure) {
  auto const labels = kloC_getElectricalLoadTypesforStep(kprC_ProcedureType::CoupledThermalElectric);
  ASSERT_EQ(labels.Size(), 3U);
  EXPECT_EQ(labels[0].View(), "Concentrated current");
  EXPECT_TRUE(kloC_getOtherLoadTypesforStep(kprC_ProcedureType::Initial).IsEmpty());
  EXPECT_EQ(kloC_getOtherLoadTypesforStep(kprC_ProcedureType::Static).Size(), 1U) << "a type without a label is not listed";
}

}  // namespace
