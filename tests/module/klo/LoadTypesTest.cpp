#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>

#include "module/klo/kloC_Loads.h"
#include "tests/module/klo/kloTest.h"

namespace {

using test::CodeOf;
using ::testing::ElementsAre;

class LoadTypes : public test::OneLoad {};

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
      {"ShellEdgeLoad", {{"magnitude", 1.0}, {"traction", "MOMENT"}, {"follower", false}}, 67},
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
  ASSERT_EQ(Create("IGG", "S1"), -1);
  EXPECT_EQ(Edit("S2", {{"cf1", 0.0}}), -1);
  EXPECT_EQ(Edit("S1", {{"cf1", 0.0}}), 41);
  ASSERT_EQ(Create("IGG", "S1", {}, "InertiaRelief"), -1);
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
    ASSERT_EQ(Create("IG", "S1", row.members, row.command), -1) << row.command;
    ddr_Model model;
    auto const code = [&](ddr_Model::SpaceEnm space) {
      model.SetSpace(space);
      return CodeOf([&] { Load().AssertInModel(model); });
    };
    EXPECT_EQ(code(ddr_Model::THREE_D), -1) << row.command;
    EXPECT_EQ(code(kPlanar), row.planar) << row.command << ", line " << (&row - rows) << " of the table";
    EXPECT_EQ(code(kAxi), row.axisymmetric) << row.command << ", line " << (&row - rows) << " of the table";
  }
  ASSERT_EQ(Create("IG", "S1", {{"localCsys", "Wheel"}}, "InertiaRelief"), -1);
  EXPECT_EQ(CodeOf([&] { Load().AssertInModel(ddr_Model()); }), 51) << "all directions, since none is named";
}

TEST_F(LoadTypes, OfBoltsNeedAnAxisInSolids) {
  auto const load = Made("BoltLoad");
  load->SetMember("region", cls_Value::Fields{{"name", "Shank"}, {"instanceKind", "SOLID"}});
  ASSERT_EQ(Create("IG", "S1", {{"magnitude", 1.0}}, *load), -1);
  EXPECT_EQ(CodeOf([&] { Load().AssertInModel(ddr_Model()); }), 39);
  ASSERT_EQ(Edit("S1", {{"dtmReference", "Axis-1"}}), -1);
  EXPECT_EQ(CodeOf([&] { Load().AssertInModel(ddr_Model()); }), -1);
}

/// The procedures by the short names that analysts use.
std::map<std::string, unsigned> const kProcedures = {
    {"ANN", kprC_ProcedureType::Anneal},
    {"BUC", kprC_ProcedureType::Buckle},
    {"CTD", kprC_ProcedureType::CoupledTempDisplacement},
    {"CTE", kprC_ProcedureType::CoupledThermalElectric},
    {"EXP", kprC_ProcedureType::ExplicitDynamics},
    {"FRQ", kprC_ProcedureType::Frequency},
    {"GEO", kprC_ProcedureType::Geostatic},
    {"HT", kprC_ProcedureType::HeatTransfer},
    {"IMP", kprC_ProcedureType::ImplicitDynamics},
    {"MD", kprC_ProcedureType::MassDiffusion},
    {"MOD", kprC_ProcedureType::ModalDynamics},
    {"RAN", kprC_ProcedureType::RandomResponse},
    {"RSP", kprC_ProcedureType::ResponseSpectrum},
    {"SOI", kprC_ProcedureType::Soils},
    {"STA", kprC_ProcedureType::Static},
    {"RIK", kprC_ProcedureType::StaticRiks},
    {"SLP", kprC_ProcedureType::StaticLinearPerturbation},
    {"SSD", kprC_ProcedureType::SteadyStateDirect},
    {"SSM", kprC_ProcedureType::SteadyStateModal},
    {"SUB", kprC_ProcedureType::SubspaceDynamics},
    {"UAM", kprC_ProcedureType::UsaAddedMassGeneration},
    {"VIS", kprC_ProcedureType::Visco},
    {"TDD", kprC_ProcedureType::TempDisplacementDynamics},
    {"SGN", kprC_ProcedureType::SubstructureGenerate},
    {"CFQ", kprC_ProcedureType::ComplexFrequency},
    {"SSS", kprC_ProcedureType::SteadyStateSubspace},
    {"INI", kprC_ProcedureType::Initial},
};

std::set<std::string> Words(std::string const& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

TEST_F(LoadTypes, AreAdmittedByTheseProcedures) {
  std::string const all = "BUC MOD SLP SSD SSM SUB SSS STA RIK VIS IMP GEO SOI CTD EXP TDD";
  std::string const general = "STA RIK VIS IMP GEO SOI CTD";
  std::string const connectors = "BUC MOD SLP SSD SSM SUB SSS STA RIK VIS IMP EXP TDD";
  std::string const heat = "CTD CTE HT TDD", charge = "STA IMP SLP SSD";
  // by construction command: procedures, and the answer of load cases
  std::map<std::string, std::pair<std::string, int>> const rows = {
      {"ConcentratedForce", {all, -1}},
      {"Moment", {all, -1}},
      {"Pressure", {all, -1}},
      {"SurfaceTraction", {all, -1}},
      {"LineLoad", {all, -1}},
      {"BodyForce", {all, -1}},
      {"Gravity", {all, -1}},
      {"ShellEdgeLoad", {all, -1}},
      {"RotationalBodyForce", {all, -1}},
      {"CoriolisForce", {"STA VIS IMP SLP SSD SSS", -1}},
      {"PEGLoad", {"BUC MOD SLP SSD SSM SUB SSS STA RIK VIS IMP", -1}},
      {"ConnectorForce", {connectors, 55}},
      {"ConnectorMoment", {connectors, 55}},
      {"PipePressure", {general, -1}},
      {"BoltLoad", {general, -1}},
      {"InertiaRelief", {"STA RIK IMP SLP BUC", -1}},
      {"SurfaceHeatFlux", {heat, 54}},
      {"BodyHeatFlux", {heat, 54}},
      {"ConcentratedHeatFlux", {heat, 54}},
      {"ConcentratedPoreFluid", {"GEO SOI", 54}},
      {"SurfacePoreFluid", {"GEO SOI", 54}},
      {"HydroFluidFlow", {"STA SLP", 54}},
      {"ConcentratedConcentrationFlux", {"MD", 54}},
      {"SurfaceConcentrationFlux", {"MD", 54}},
      {"BodyConcentrationFlux", {"MD", 54}},
      {"ConcentratedCurrent", {"CTE", 54}},
      {"SurfaceCurrent", {"CTE", 54}},
      {"BodyCurrent", {"CTE", 54}},
      {"ConcentratedCharge", {charge, 54}},
      {"SurfaceCharge", {charge, 54}},
      {"BodyCharge", {charge, 54}},
      {"InwardVolAccel", {"BUC EXP IMP MOD SLP SSD SSM SUB TDD SSS", -1}},
      {"PressurePenetration", {"", -1}},
      {"SubmodelSB", {"STA SLP", -1}},
  };
  ASSERT_EQ(kProcedures.size(), kprC_procedures.size() + 1);
  ASSERT_EQ(kloC_Constructors().size(), rows.size());
  for (kloC_Constructor const& constructor : kloC_Constructors()) {
    SCOPED_TRACE(std::string(constructor.command));
    auto const load = constructor.make();
    auto const& [procedures, loadCase] = rows.at(std::string(constructor.command));
    for (auto const& [name, type] : kProcedures) {
      bool const admitted = Words(procedures).contains(name);
      EXPECT_EQ(load->Admits(type, false), admitted) << name;
      EXPECT_EQ(load->Admits(type, true), admitted) << name;
    }
    EXPECT_EQ(load->AllowedInALoadCase(), loadCase != 54);
    EXPECT_EQ(load->NYIForLoadCase(), loadCase == 55);
    EXPECT_EQ(load->Label(), kloC_TypeText(load->DynTypeId()));
    EXPECT_EQ(load->Label().empty(), constructor.command == "SubmodelSB") << "a load without an entry in the map of texts";
  }
}

TEST_F(LoadTypes, AreListedByCategoryInTheOrderOfTheirTable) {
  auto const text = [](cow_List<atr_String> const& types) {
    std::string list;
    for (atr_String const& type : types) { list += (list.empty() ? "" : ", ") + std::string(type.View()); }
    return list;
  };
  EXPECT_EQ(text(kloC_getMechanicalLoadTypesforStep(kprC_ProcedureType::Static)),
            "Concentrated force, Pressure, Rotational body force, Coriolis force, Connector force, Connector moment, Moment, Line load, "
            "Pipe pressure, Body force, Gravity, Generalized plane strain, Bolt load, Inertia relief, Shell edge load, Surface traction");
  EXPECT_EQ(text(kloC_getMechanicalLoadTypesforStep(kprC_ProcedureType::ExplicitDynamics)),
            "Concentrated force, Pressure, Rotational body force, Connector force, Connector moment, Moment, Line load, Body force, "
            "Gravity, Shell edge load, Surface traction");
  EXPECT_EQ(text(kloC_getMechanicalLoadTypesforStep(kprC_ProcedureType::Frequency)), "");
  EXPECT_EQ(text(kloC_getThermalLoadTypesforStep(kprC_ProcedureType::HeatTransfer)),
            "Surface heat flux, Concentrated heat flux, Body heat flux");
  EXPECT_EQ(text(kloC_getFluidLoadTypesforStep(kprC_ProcedureType::Soils)), "Concentrated pore fluid, Surface pore fluid");
  EXPECT_EQ(text(kloC_getElectricalLoadTypesforStep(kprC_ProcedureType::Static)), "Concentrated charge, Surface charge, Body charge");
  EXPECT_EQ(text(kloC_getElectricalLoadTypesforStep(kprC_ProcedureType::CoupledThermalElectric)),
            "Concentrated current, Surface current, Body current");
  EXPECT_EQ(text(kloC_getMassDiffusionLoadTypesforStep(kprC_ProcedureType::MassDiffusion)),
            "Concentrated concentration flux, Surface concentration flux, Body concentration flux");
  EXPECT_EQ(text(kloC_getAcousticLoadTypesforStep(kprC_ProcedureType::Buckle)), "Inward volume acceleration");
  EXPECT_EQ(text(kloC_getOtherLoadTypesforStep(kprC_ProcedureType::Static)), "Hydrostatic fluid flux");
  EXPECT_EQ(text(kloC_getOtherLoadTypesforStep(kprC_ProcedureType::Initial)), "");
}

TEST_F(LoadTypes, AreDescribedByTheirMetadata) {
  auto const names = [](unsigned typeId) {
    std::vector<std::string> members;
    for (cls_MemberInfo const& member : cls_MetadataRegistrar::Registrar().Find(typeId)->members) { members.push_back(member.name); }
    return members;
  };
  EXPECT_EQ(kloC_Load::TypeId(), 0x2880001U);
  EXPECT_THAT(names(kloC_Load::TypeId()), ElementsAre("region", "suppress", "states", "fieldName"));
  EXPECT_THAT(names(kloC_PressureState::TypeId()),
              ElementsAre("amplitude", "deactivate", "magnitude", "useComplex", "complexMagReal", "complexMagImag", "distType", "hZero",
                          "hReference", "useHydrostatic", "referencePoint"));
  EXPECT_THAT(names(kloC_MomentState::TypeId()),
              ElementsAre("amplitude", "deactivate", "cm1", "cm2", "cm3", "useComplex", "complexC1Real", "complexC1Imag", "complexC2Real",
                          "complexC2Imag", "complexC3Real", "complexC3Imag", "follower", "csys"));
  EXPECT_THAT(names(kloC_BodyCurrentState::TypeId()), ElementsAre("amplitude", "deactivate", "magnitude", "distType"));
  for (auto const& [typeId, type] : cls_MetadataRegistrar::Registrar().Classes()) {
    if (typeId >> 16 == kloC_moduleNumber) { EXPECT_LE(typeId & 0xFFFFU, 92U) << type.name; }
  }
}

}  // namespace
