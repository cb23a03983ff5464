#include "module/kpr/steps/kprC_StepChecks.h"

#include <algorithm>

#include "tests/module/kpr/kprTestMembers.h"

namespace {

using enum kprC_ProcedureType::Enm;

struct Fault {
  int code;
  Edits edits;
};
using Faults = std::vector<Fault>;

Faults operator+(Faults first, Faults const& then) {
  first.insert(first.end(), then.begin(), then.end());
  return first;
}

/// What makes a step of a class valid, and its faults in the order of the checks.
struct Checks {
  unsigned type;
  Edits valid;
  Faults faults;
};

Edits const kIncrements = {{"initialInc", 0.1}, {"minInc", 0.01}, {"maxInc", 0.5}};
/// The three increments, which bound each other.
Edits Increments(double minInc, double initialInc, double maxInc) {
  return {{"initialInc", initialInc}, {"minInc", minInc}, {"maxInc", maxInc}};
}
Faults const kBadIncrements = {
    {74, {{"timePeriod", 0.0}}},     {71, {{"initialInc", 0.0}}},       {75, {{"initialInc", 1.5}}},
    {5, {{"maxNumInc", 0}}},         {72, Increments(0.0, 0.1, -1.0)},  // also 79
    {79, Increments(0.4, 0.1, 0.2)},                                    // also 80
    {80, Increments(0.2, 0.1, 0.2)}, {78, Increments(0.01, 0.1, 0.05)}, {77, Increments(0.01, 0.1, 1.01)},
};
Faults const kBadStabilization = {{151, {{"stabilizationMethod", "DAMPING_FACTOR"}, {"matrixSolver", "DDM_ITERATIVE"}}}};
Faults const kBadContact = {
    {161, {{"applyContactIterations", true}, {"matrixSolver", "DDM_ITERATIVE"}}},
    {161, {{"applyContactIterations", true}, {"matrixSolver", "SYMMETRIC"}}},
    {236, {{"applyContactIterations", true}, {"solutionTechnique", "QUASI_NEWTON"}}},
};
Faults const kBadTechnique = {{140, {{"solutionTechnique", "QUASI_NEWTON"}, {"matrixSolver", "DIRECT_UNSYMMETRIC"}}}};
Faults const kBadDamping = {{249, {{"adaptiveDampingRatio", -0.05}}}, {250, {{"continueDampingFactors", true}}}};
Faults const kBadThermal = {{8, {{"deltmx", 0.0}}}, {11, {{"mxdem", -0.1}}}, {0, {{"end", 0.0}}}};
Faults const kBadExplicit = {
    {74, {{"timePeriod", -1.0}}},
    {12, {{"scaleFactor", 0.0}}},
    {13, {{"linearBulkViscosity", -0.1}}},
    {14, {{"quadBulkViscosity", -0.1}}},
    {6, {{"timeIncrementationMethod", "FIXED"}}},
    {6, {{"timeIncrementationMethod", "FIXED"}, {"userDefinedInc", 0.0}}},
    {73, {{"maxIncrement", 0.0}}},
    {56, {{"massScaling", One({})}}},
    {55, {{"massScaling", Many({{{"factor", 2.0}}, {{"occurs", "THROUGHOUT_STEP"}}})}}},
};
Faults const kBadRanges = {
    {42, {{"frequencyRange", cls_Value::List{}}}},
    {40, {{"frequencyRange", One({{"lower", 2.0}, {"upper", 1.0}, {"nPoints", 0}})}}},
    {40, {{"frequencyRange", One({{"lower", -1.0}, {"upper", 1.0}, {"nPoints", 1}})}}},
    {39, {{"frequencyRange", One({{"lower", 0.0}, {"upper", 0.0}, {"nPoints", 0}, {"bias", 0.0}})}}},
    {41, {{"frequencyRange", One({{"lower", 1.0}, {"upper", 2.0}, {"bias", 0.0}})}}},
};
Edits const kRange = {{"frequencyRange", Many({{{"lower", 0.0}, {"upper", 2.0}}, {{"lower", 5.0}, {"upper", 5.0}, {"nPoints", 1}}})}};
Faults const kBadModalDamping = {
    {18, {{"directDamping", One({{"start", 0}, {"end", 0}})}}},
    {159, {{"directDampingByFrequency", One({{"frequency", -1.0}})}}},
    {22, {{"rayleighDamping", One({{"beta", -0.1}})}}},
    {20, {{"compositeDamping", One({{"start", 3}, {"end", 2}})}}},
    {23, {{"compositeDamping", Many({{{"start", 4}, {"end", 5}}, {{"start", 1}, {"end", 4}}})}}},
    {160, {{"rayleighDamping", One({})}, {"rayleighDampingByFrequency", One({})}}},
};
Faults const kBadHarmonicDamping =
    kBadModalDamping + Faults{
                           {24, {{"structuralDamping", One({{"factor", -0.1}})}}},
                           {160, {{"structuralDamping", One({})}, {"structuralDampingByFrequency", One({})}}},
                       };
Edits const kWatched = {{"nodeOn", true}, {"region", "Tip"}, {"dof", 2}, {"maximumDisplacement", 0.1}};

std::vector<Checks> const kChecks = {
    {Static, kIncrements, kBadStabilization + kBadIncrements + kBadContact + kBadTechnique + kBadDamping},
    {Visco, kIncrements + Edits{{"cetol", 1e-3}},
     kBadIncrements + kBadStabilization + kBadContact + kBadTechnique + kBadDamping +
         Faults{{32, {{"cetol", cls_Value()}}}, {32, {{"cetol", 0.0}}}}},
    {CoupledTempDisplacement, kIncrements + Edits{{"deltmx", 5.0}},
     kBadIncrements + kBadStabilization + kBadTechnique + kBadDamping + Faults{{10, {{"deltmx", cls_Value()}}}, {10, {{"cetol", -1.0}}}}},
    {HeatTransfer, kIncrements + Edits{{"deltmx", 5.0}},
     kBadIncrements + kBadTechnique + Faults{{8, {{"deltmx", cls_Value()}}}} + kBadThermal +
         Faults{{152, {{"matrixSolver", "DDM_ITERATIVE"}}}}},
    {CoupledThermalElectric, kIncrements + Edits{{"matrixSolver", "DDM_ITERATIVE"}}, kBadIncrements + kBadTechnique + kBadThermal},
    {MassDiffusion, kIncrements + Edits{{"dcmax", 0.1}},
     kBadIncrements + Faults{{16, {{"dcmax", cls_Value()}}}, {15, {{"dcmax", 0.0}}}, {17, {{"end", -1.0}}}}},
    {Soils, kIncrements + Edits{{"utol", 100.0}},
     kBadIncrements + kBadStabilization + kBadContact + kBadTechnique + kBadDamping +
         Faults{{26, {{"utol", cls_Value()}, {"cetol", 1.0}}},
                {25, {{"creep", true}, {"utol", cls_Value()}}},
                {25, {{"creep", true}, {"cetol", 0.0}}},
                {0, {{"end", 0.0}}}}},
    {ImplicitDynamics, kIncrements + Edits{{"haftol", 10.0}},
     kBadIncrements + kBadTechnique +
         Faults{{90, {{"alpha", -0.334}}},
                {90, {{"alpha", 0.01}}},
                {38, {{"haftol", cls_Value()}}},
                {37, {{"haftol", 10.0}, {"nohaf", true}}}}},
    {StaticRiks, kWatched + Edits{{"initialArcInc", 0.1}, {"minArcInc", 0.01}, {"maxArcInc", 0.5}},
     Faults{{61, {{"initialArcInc", 0.0}}},
            {62, {{"minArcInc", -0.1}}},
            {63, {{"maxArcInc", -0.1}}},
            {64, {{"totalArcLength", 0.0}}},
            {65, {{"initialArcInc", 1.1}}},
            {66, {{"minArcInc", 1.1}}},
            {67, {{"maxArcInc", 1.1}}},
            {68, {{"maxArcInc", 0.05}}},
            {69, {{"minArcInc", 0.6}}},
            {70, {{"minArcInc", 0.2}}},
            {5, {{"maxNumInc", 0}}},
            {28, {{"maxLPF", 0.0}}},
            {88, {{"region", ""}}},
            {88, {{"region", Edits{{"name", "Top"}, {"dimension", 2}}}}},
            {30, {{"dof", cls_Value()}}},
            {30, {{"dof", 7}}},
            {31, {{"maximumDisplacement", 0.0}}},
            {31, {{"maximumDisplacement", cls_Value()}}},
            {27, {{"fullyPlastic", " "}}},
            {161, {{"applyContactIterations", true}, {"matrixSolver", "DDM_ITERATIVE"}}}}},
    {Geostatic, {}, kBadContact + kBadTechnique},
    {ExplicitDynamics, {}, kBadExplicit},
    {TempDisplacementDynamics, {}, kBadExplicit},
    {Buckle,
     {},
     {{2, {{"numEigen", 0}}},
      {1, {{"maxEigen", 0.0}}},
      {3, {{"vectors", 0}}},
      {4, {{"maxIterations", 0}}},
      {84, {{"blockSize", 0}}},
      {85, {{"maxBlocks", 0}}},
      {83, {{"minEigen", 0.0}}},
      {86, {{"eigensolver", "AMS"}}}}},
    {ComplexFrequency,
     {},
     {{2, {{"numEigen", 0}}}, {83, {{"minEigen", 0.0}}}, {1, {{"maxEigen", -1.0}}}, {91, {{"propertyEvaluationFrequency", -1.0}}}}},
    {ModalDynamics, {}, Faults{{74, {{"timePeriod", 0.0}}}, {6, {{"incSize", 0.0}}}} + kBadModalDamping},
    {SubspaceDynamics, {}, {{44, {{"vectors", 0}}}, {74, {{"timePeriod", 0.0}}}, {6, {{"incSize", -0.1}}}, {5, {{"maxNumInc", 0}}}}},
    {RandomResponse,
     {{"freq", One({{"lower", 1.0}, {"upper", 2.0}})}},
     Faults{{42, {{"freq", cls_Value::List{}}}},
            {34, {{"freq", One({{"lower", 0.0}, {"upper", 2.0}, {"nCalcs", 1}})}}},
            {33, {{"freq", One({{"lower", 1.0}, {"upper", 2.0}, {"nCalcs", 1}, {"bias", 0.0}})}}},
            {41, {{"freq", One({{"lower", 1.0}, {"upper", 2.0}, {"bias", -1.0}})}}}} +
         kBadHarmonicDamping},
    {ResponseSpectrum,
     {{"components", One({{"x", 1.0}, {"respSpectrum", "Ground"}})}},
     Faults{{42, {{"components", cls_Value::List{}}}},
            {36, {{"components", Many({{}, {}, {}, {}})}}},
            {35, {{"components", One({{"x", 1.0}})}}}} +
         kBadModalDamping},
    {SteadyStateDirect, kRange, kBadRanges},
    {SteadyStateModal, kRange, kBadRanges + kBadHarmonicDamping},
    {SteadyStateSubspace, kRange, kBadRanges + Faults{{157, {{"maxDampingChange", 0.0}}}, {158, {{"maxStiffnessChange", 0.0}}}}},
    {Anneal, {}, {}},
    {StaticLinearPerturbation, {}, {}},
    {UsaAddedMassGeneration, {}, {}},
    {SubstructureGenerate, {}, {}},
};

std::string Told(Checks const& checks) { return std::string(kprC_FindProcedure(checks.type)->command.View()); }

bool DoTheyMeet(Edits const& a, Edits const& b) {
  return std::ranges::any_of(a, [&](auto const& one) { return std::ranges::find(b, one.first, &Edits::value_type::first) != b.end(); });
}

TEST(StepChecks, RefuseEachFaultWithItsCode) {
  for (Checks const& checks : kChecks) {
    EXPECT_EQ(CodeOf(checks.type, checks.valid), -1) << Told(checks);
    for (Fault const& fault : checks.faults) {
      EXPECT_EQ(CodeOf(checks.type, checks.valid + fault.edits), fault.code) << Told(checks) << ": " << fault.edits.back().first;
    }
  }
}

TEST(StepChecks, ReportTheEarlierOfTwoFaults) {
  for (Checks const& checks : kChecks) {
    for (std::size_t later = 1; later < checks.faults.size(); ++later) {
      for (std::size_t earlier = 0; earlier < later; ++earlier) {
        Edits const& first = checks.faults[earlier].edits;
        Edits const& then = checks.faults[later].edits;
        if (DoTheyMeet(first, then)) { continue; }
        EXPECT_EQ(CodeOf(checks.type, checks.valid + then + first), checks.faults[earlier].code)
            << Told(checks) << ": with " << checks.faults[later].code;
      }
    }
  }
}

TEST(StepChecks, LeaveBoundsOfFixedIncrementsAlone) {
  Edits const fixed = {{"timeIncrementationMethod", "FIXED"}};
  for (unsigned const type :
       {Static, Visco, CoupledTempDisplacement, HeatTransfer, CoupledThermalElectric, MassDiffusion, Soils, ImplicitDynamics}) {
    EXPECT_EQ(CodeOf(type, fixed + Edits{{"initialInc", 0.1}}), -1) << kprC_FindProcedure(type)->command.View();
  }
  EXPECT_EQ(CodeOf(ImplicitDynamics, fixed + Edits{{"initialInc", 0.1}, {"nohaf", true}}), -1);
  EXPECT_EQ(CodeOf(StaticRiks, fixed + Edits{{"initialArcInc", 0.1}, {"maxArcInc", 0.05}, {"minArcInc", 0.2}}), -1);
}

TEST(StepChecks, AskNoToleranceOfASteadyState) {
  for (unsigned const type : {CoupledTempDisplacement, HeatTransfer, CoupledThermalElectric, MassDiffusion, Soils}) {
    Edits const steady = kIncrements + Edits{{"response", "STEADY_STATE"}, {"matrixSolver", "DDM_ITERATIVE"}};
    EXPECT_EQ(CodeOf(type, steady), -1) << kprC_FindProcedure(type)->command.View();
  }
}

TEST(StepChecks, TakeTheLargestNumberForNotSpecified) {
  double const unset = std::numeric_limits<double>::max();
  EXPECT_EQ(CodeOf(Visco, kIncrements + Edits{{"cetol", unset}}), 32);
  EXPECT_EQ(CodeOf(ImplicitDynamics, kIncrements + Edits{{"haftol", unset}}), 38);
  EXPECT_EQ(CodeOf(ImplicitDynamics, kIncrements + Edits{{"haftol", 1.0}, {"alpha", unset}}), -1);
  EXPECT_EQ(CodeOf(Buckle, {{"numEigen", std::numeric_limits<int>::max()}}), -1);
  EXPECT_EQ(CodeOf(Static, {{"timePeriod", cls_Value()}}), 74);
}

TEST(StepChecks, RefuseChoicesThatThereAreNotWhenTheyAreGiven) {
  kprC_CoupledTempDisplacementStep step;
  EXPECT_EQ(RefusalOf([&] { step.SetMember("creepIntegration", "SOMETIMES"); }), 89);
  EXPECT_EQ(step.creepIntegration, kprC_CoupledCreepIntegrationEnm::IMPLICIT);
  EXPECT_EQ(RefusalOf([] { kprC_FrequencyStep().SetMember("eigensolver", "QR"); }), 86);
  EXPECT_THROW(step.SetMember("nlgeom", "NOT_AVAILABLE"), nex_TextException);
  EXPECT_THROW(step.SetMember("response", "NOT_APPLICABLE"), nex_TextException);
  step.nlgeom = kprC_Step::NlgeomEnm::NOT_AVAILABLE;
  step.response = kprC_Step::ResponseEnm::NOT_APPLICABLE;
  EXPECT_EQ(step.Nlgeom(), kprC_Step::NlgeomEnm::OFF) << "an answer of steps without it";
  EXPECT_EQ(step.Response(), kprC_Step::ResponseEnm::TRANSIENT);
}

}  // namespace
