#include "module/kin/kinC_ContactControls.h"
#include "module/kin/kinC_ContactProperty.h"
#include "module/kin/kinC_IncidentWaveProperty.h"
#include "module/kin/kinC_SurfaceProperties.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "tests/module/kpr/kprTestMembers.h"

namespace {

using Numbers = std::vector<std::vector<double>>;

cls_Value Table(Numbers const& rows) {
  cls_Value::List table;
  for (auto const& row : rows) { table.emplace_back(cls_Value::List(row.begin(), row.end())); }
  return table;
}

/// What is refused of a default object with these members; -1 where nothing is.
struct Row {
  Edits edits;
  int code;
};

template <class T> int CodeOf(T const& object) {
  try {
    object.AssertValid();
  } catch (omu_ValueErrorException const& e) { return e.Code(); } catch (nex_TextException const& e) {
    return e.Code();
  }
  return -1;
}

template <class T> void ExpectRefused(std::string const& name, std::vector<Row> const& rows) {
  EXPECT_EQ(CodeOf(T()), -1) << name << " as it is made";
  for (Row const& row : rows) {
    T object;
    Apply(object, row.edits);
    EXPECT_EQ(CodeOf(object), row.code) << name << ", row " << &row - rows.data();
  }
}

TEST(ContactProperties, RefuseAPressureThatDoesNotFollowFromOverclosure) {
  auto const rows = [](char const* kind, Numbers const& table, Edits const& more = {}) {
    return Edits{{"pressureOverclosure", kind}, {"table", Table(table)}} + more;
  };
  auto const scaled = [](double measure, double factor, double scale, Edits const& more = {}) {
    return Edits{{"pressureOverclosure", "SCALE_FACTOR"},
                 {"overclosureMeasure", measure},
                 {"overclosureFactor", factor},
                 {"contactStiffnessScaleFactor", scale}} +
           more;
  };
  ExpectRefused<kinC_NormalBehavior>(
      "normal behaviour", {
                              {rows("EXPONENTIAL", {}), 71},
                              {rows("EXPONENTIAL", {{0.0, 1.0}, {1.0, 0.0}}), 71},
                              {rows("EXPONENTIAL", {{1.0, 1.0}, {1.0, 0.0}}), 72},
                              {rows("EXPONENTIAL", {{1.0}}), 72},
                              {rows("EXPONENTIAL", {{1.0, 0.0}, {0.0, 1.0}}, {{"maxStiffness", -1.0}}), 86},
                              {rows("EXPONENTIAL", {{1.0, 0.0}, {0.0, 1.0}}), -1},
                              {{{"pressureOverclosure", "LINEAR"}, {"contactStiffness", 0.0}}, 87},
                              {{{"pressureOverclosure", "LINEAR"}, {"contactStiffness", 1.0}}, -1},
                              {{{"contactStiffness", 0.0}}, -1},
                              {{{"contactStiffness", -1.0}}, 87},
                              {rows("TABULAR", {{0.0, 0.0}}), 23},
                              {rows("TABULAR", {{0.0}, {1.0}}), 23},
                              {rows("TABULAR", {{1.0, 0.0}, {1.0, 1.0}}), 24},
                              {rows("TABULAR", {{1e-12, 0.0}, {1.0, 1.0}}), 25},
                              {rows("TABULAR", {{0.0, 1.0}, {1.0, 0.0}}), -1},
                              {scaled(1.0, 1.0, 2.0), 161},
                              {scaled(0.0, 0.0, 2.0), 161},
                              {scaled(-1.0, 1.0, 2.0), 161},
                              {scaled(0.0, 1.0, 1.0), 162},
                              {scaled(1.0, 0.0, 1.5), -1},
                              {rows("EXPONENTIAL", {{1.0, 1.0}}, {{"constraintEnforcementMethod", "PENALTY"}}), 113},
                              {scaled(1.0, 0.0, 2.0, {{"constraintEnforcementMethod", "DIRECT"}}), 113},
                              {{{"constraintEnforcementMethod", "AUGMENTED_LAGRANGE"}, {"contactStiffnessScaleFactor", 0.0}}, 88},
                              {{{"constraintEnforcementMethod", "PENALTY"}, {"contactStiffnessScaleFactor", -1.0}}, 88},
                              {{{"constraintEnforcementMethod", "DIRECT"}, {"contactStiffnessScaleFactor", 0.0}}, -1},
                              {{{"contactStiffnessScaleFactor", -1.0}}, 165},
                              {{{"initialStiffnessScaleFactor", 0.0}}, 163},
                              {{{"overclosureFactor", -1.0}, {"contactStiffnessScaleFactor", -1.0}}, 166},
                              {{{"stiffnessRatio", 1.0}}, 190},
                              {{{"stiffnessRatio", 0.0}}, -1},
                              {{{"lowerQuadraticRatio", -0.1}}, 191},
                          });
}

TEST(ContactProperties, RefuseFrictionByItsFormulation) {
  auto const friction = [](Numbers const& table, Edits const& more = {}) {
    return Edits{{"formulation", "PENALTY"}, {"table", Table(table)}} + more;
  };
  auto const decay = [](char const* definition, Numbers const& table, Edits const& more = {}) {
    return Edits{{"formulation", "EXPONENTIAL_DECAY"}, {"exponentialDecayDefinition", definition}, {"table", Table(table)}} + more;
  };
  Edits const onRateAndPressure = {{"slipRateDependency", true}, {"pressureDependency", true}, {"dependencies", 1}};
  ExpectRefused<kinC_TangentialBehavior>(
      "tangential behaviour",
      {
          {friction({}, {{"shearStressLimit", 0.0}}), 16},
          {{{"formulation", "LAGRANGE"}, {"shearStressLimit", -1.0}}, 16},
          {{{"shearStressLimit", -1.0}}, -1},
          {friction({}), 68},
          {friction({{0.2}}), -1},
          {friction({{0.2}}, {{"directionality", "ANISOTROPIC"}}), 68},
          {friction({{0.2, -0.1}}, {{"directionality", "ANISOTROPIC"}}), 15},
          {friction({{0.2, 0.1, 20.0}}, {{"directionality", "ANISOTROPIC"}, {"temperatureDependency", true}}), -1},
          {friction({{0.2, 0.0, 0.0}}, onRateAndPressure), 69},
          {friction({{0.2, 0.0, 0.0, -5.0}}, onRateAndPressure), -1},
          {friction({{0.2, 0.0, 0.0, 0.0}, {-0.2, -1.0, 0.0, 0.0}}, onRateAndPressure), 15},
          {friction({{0.2, 0.0, 0.0, 0.0}, {0.2, -1.0, -1.0, 0.0}}, onRateAndPressure), 101},
          {friction({{0.2, 0.0, 0.0, 0.0}, {0.2, 1.0, -1.0, 0.0}}, onRateAndPressure), 102},
          {{{"formulation", "USER_DEFINED"}, {"nStateDependentVars", -1}}, 19},
          {decay("COEFFICIENTS", {{0.3, 0.2}}), 80},
          {decay("COEFFICIENTS", {{-0.1, -0.2, 1.0}}), 15},
          {decay("COEFFICIENTS", {{0.2, 0.3, -1.0}}), 81},
          {decay("COEFFICIENTS", {{0.3, 0.3, -1.0}}), 82},
          {decay("COEFFICIENTS", {{0.3, 0.3, 0.0}}), -1},
          {decay("TEST_DATA", {}), 68},
          {decay("TEST_DATA", {{0.3}}), 68},
          {decay("TEST_DATA", {{0.3, 0.2}}), 84},
          {decay("TEST_DATA", {{0.3, 0.2, 0.0}}), 85},
          {decay("TEST_DATA", {{0.3, 0.2, 1.0}}, {{"elasticSlipStiffness", -1.0}, {"fraction", 0.0}}), 79},
          {friction({{0.2}}, {{"fraction", 0.0}}), 17},
          {friction({{0.2}}, {{"fraction", 0.0}, {"maximumElasticSlip", "ABSOLUTE_DISTANCE"}, {"absoluteDistance", 0.0}}), 18},
          {friction({{0.2}}, {{"elasticSlipStiffness", -1.0}}), 79},
          {{{"directionality", "ORTHOTROPIC"}}, 111},
      });
}

TEST(ContactProperties, RefuseTheOtherBehaviors) {
  auto const damping = [](char const* dependence, Numbers const& table) {
    return Edits{{"clearanceDependence", dependence}, {"table", Table(table)}};
  };
  ExpectRefused<kinC_Damping>("damping", {
                                             {damping("STEP", {}), 91},
                                             {damping("STEP", {{-1.0}}), 90},
                                             {damping("LINEAR", {{1.0, 0.0}, {0.5, 1.0}, {0.0, 2.0}}), 40},
                                             {damping("LINEAR", {{1.0}, {0.0}}), 40},
                                             {damping("LINEAR", {{1.0, 0.1}, {0.0, 1.0}}), 40},
                                             {damping("LINEAR", {{1.0, 0.0}, {0.1, 1.0}}), 40},
                                             {damping("LINEAR", {{1.0, 0.0}, {0.0, -1.0}}), 92},
                                             {damping("LINEAR", {{-1.0, 0.0}, {0.0, 1.0}}), 90},
                                             {damping("LINEAR", {{1.0, 0.0}, {0.0, 1.0}}), -1},
                                             {damping("BILINEAR", {{1.0, 0.0}, {0.9, 1.0}, {0.0, 2.0}}), 40},
                                             {damping("BILINEAR", {{1.0, 0.0}, {1.0, -1.0}, {0.0, 2.0}}), 92},
                                             {damping("BILINEAR", {{1.0, 0.0}, {1.0, 2.0}, {0.0, 2.0}}), 40},
                                             {damping("BILINEAR", {{1.0, 0.0}, {1.0, 1.0}, {0.0, 2.0}}), -1},
                                             {{{"tangentFraction", -0.1}}, 89},
                                             {{{"tangentFraction", cls_Value()}}, -1},
                                             {{{"tangentFraction", -0.1}, {"tangentFraction", "DEFAULT"}}, -1},
                                         });
  auto const clearances = [](Numbers const& table, Edits const& more = {}) {
    return Edits{{"clearanceDependency", true}, {"clearanceDepTable", Table(table)}} + more;
  };
  std::vector<Row> const conductance = {
      {{{"clearanceDepTable", Table({{-1.0}})}}, -1},
      {clearances({{1.0, 0.0}}), 95},
      {clearances({{1.0}, {0.0}}), 95},
      {clearances({{-1.0, 1.0}, {0.0, 2.0}}), 94},
      {clearances({{1.0, 1e-12}, {1.0, 1.0}}), 105},
      {clearances({{1.0, 0.0}, {1e-12, 1.0}}), 106},
      {clearances({{1.0, 0.0}, {0.0, 1.0}}), -1},
      {clearances({{1.0, 0.5, 20.0}, {1.0, 1.0, 30.0}}, {{"temperatureDependencyC", true}}), -1},
      {{{"pressureDependency", true}, {"pressureDepTable", Table({{1.0, 0.0}})}}, 95},
      {{{"pressureDependency", true}, {"pressureDepTable", Table({{1.0, 5.0}, {-1.0, 6.0}})}}, 94},
      {{{"pressureDependency", true}, {"pressureDepTable", Table({{1.0, 5.0}, {2.0, 6.0}})}}, -1},
  };
  ExpectRefused<kinC_ThermalConductance>("thermal conductance", conductance);
  ExpectRefused<kinC_ThermalConductance>("thermal conductance",
                                         {{clearances({{1.0, 0.5, 1.0}, {1.0, 1.0, 2.0}}, {{"massFlowRateDependencyC", true}}), -1}});
  ExpectRefused<kinC_ElectricalConductance>("electrical conductance", conductance);
  ExpectRefused<kinC_HeatGeneration>(
      "heat generation",
      {{{{"conversionFraction", -0.1}}, 99}, {{{"slaveFraction", 1.1}}, 100}, {{{"slaveFraction", 0.0}, {"conversionFraction", 2.0}}, -1}});
  auto const gap = [](Numbers const& table) { return Edits{{"table", Table(table)}}; };
  ExpectRefused<kinC_Radiation>("radiation", {
                                                 {{{"masterEmissivity", 1.1}}, 54},
                                                 {{{"slaveEmissivity", -0.1}}, 54},
                                                 {gap({{1.0, 0.0}, {0.5, 0.0}}), 72},
                                                 {gap({{1.0, 0.0}, {0.5, 2.0}, {0.0, 1.0}}), 96},
                                                 {gap({{1.1, 0.0}, {0.0, 1.0}}), 74},
                                                 {gap({{1.0, 0.5}, {0.0, 1.0}}), 107},
                                                 {gap({{1.0}}), 107},
                                                 {gap({{1.0, 0.0}, {0.5, 1.0}}), 108},
                                                 {gap({{1.0, 0.0}, {0.0, 1.0}}), -1},
                                             });
  ExpectRefused<kinC_GeometricProperties>("geometric properties", {{{{"contactArea", 0.0}}, 159}});
}

TEST(ContactProperties, RefuseTheFirstBehaviorThatIsNotValid) {
  cls_Value::Fields const rough = {{"directionality", "ORTHOTROPIC"}}, flat = {{"contactArea", 0.0}}, hard = {{"stiffnessRatio", 2.0}};
  ExpectRefused<kinC_ContactProperty>("contact property", {{{{"geometricProperties", flat}}, 159},
                                                           {{{"geometricProperties", flat}, {"tangentialBehavior", rough}}, 111},
                                                           {{{"tangentialBehavior", rough}, {"normalBehavior", hard}}, 190},
                                                           {{{"tangentialBehavior", rough}, {"tangentialBehavior", cls_Value()}}, -1}});
}

TEST(IncidentWaveProperties, RefuseAChargeThatIsNotComplete) {
  Edits const charge = {{"mass", 50.0},         {"density", 1600.0},       {"pressureConstant", 5e7},
                        {"timeConstant", 9e-5}, {"pressureExponent", 0.1}, {"timeExponent", 0.2},
                        {"charge", 8e8}};
  auto const undex = [](Edits const& data) { return Edits{{"propagationModel", "UNDEX_CHARGE"}, {"undexCharge", data}}; };
  ExpectRefused<kinC_IncidentWaveProperty>("incident wave property", {
                                                                         {{{"propagationModel", "UNDEX_CHARGE"}}, 148},
                                                                         {undex({{"mass", 50.0}}), 148},
                                                                         {undex(charge + Edits{{"density", 0.0}}), 154},
                                                                         {undex(charge), -1},
                                                                         {{{"soundSpeed", 0.0}}, 149},
                                                                         {{{"specificHeatRatio", 0.99}}, 150},
                                                                         {{{"specificHeatRatio", 1.0}}, -1},
                                                                         {{{"fluidDragCoefficient", -1.0}}, 151},
                                                                         {{{"fluidDragExponent", -1.0}}, 152},
                                                                         {{{"controlExponent", 0.0}}, 153},
                                                                         {{{"controlExponent", 1.0}}, -1},
                                                                         {{{"controlExponent", 1.1}}, 153},
                                                                         {{{"fluidDensity", 0.0}}, 155},
                                                                         {{{"generalizedDecayA", -1.0}}, 185},
                                                                         {{{"generalizedDecayB", -1.0}}, 186},
                                                                         {{{"generalizedDecayC", -0.1}}, 187},
                                                                     });
}

TEST(ContactControls, RefuseWhatIsOutOfBounds) {
  ExpectRefused<kinC_StdContactControls>("standard controls",
                                         {
                                             {{{"stiffnessScaleFactor", 0.0}}, 125},
                                             {{{"absolutePenetrationTolerance", -1.0}}, 126},
                                             {{{"relativePenetrationTolerance", -1.0}}, 127},
                                             {{{"maxSlideDistance", -1.0}}, 128},
                                             {{{"maxViolatingPoints", -1}, {"maxTensileStress", -1.0}}, 132},
                                             {{{"maxTensileStress", -1.0}, {"maxOverclosure", -1.0}}, 133},
                                             {{{"maxOverclosure", -1.0}}, 134},
                                             {{{"maxOverclosure", 1.0}}, 129},
                                             {{{"maxViolatingPoints", 2}}, 130},
                                             {{{"maxViolatingPoints", 2}, {"maxTensileStress", 1.0}}, -1},
                                             {{{"stabilizationFactor", -1.0}}, 135},
                                             {{{"stabilizationCoefficient", -1.0}}, 136},
                                             {{{"tangentFraction", -1.0}}, 137},
                                             {{{"endOfStepFraction", -1.0}}, 138},
                                             {{{"zeroDamping", -1.0}}, 139},
                                             {{{"penetrationTolChoice", "ABSOLUTE"}}, 183},
                                             {{{"penetrationTolChoice", "ABSOLUTE"}, {"absolutePenetrationTolerance", 0.0}}, -1},
                                             {{{"zeroDampingChoice", "SPECIFY"}}, 184},
                                         });
  ExpectRefused<kinC_ExpContactControls>("explicit controls", {
                                                                  {{{"globTrkInc", 0}}, 121},
                                                                  {{{"warpCheckInc", 0}}, 122},
                                                                  {{{"highlyWarpedAngle", 0.0}}, 123},
                                                                  {{{"penaltyScaleFactor", 0.0}}, 124},
                                                                  {{{"globTrkChoice", "SPECIFY"}}, 182},
                                                                  {{{"globTrkChoice", "SPECIFY"}, {"globTrkInc", 4}}, -1},
                                                              });
}

}  // namespace
