#include <algorithm>

#include "framework/ddr_Model.h"
#include "module/kpr/kprC_module.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "tests/module/kpr/kprTestMembers.h"

namespace {

class StepMembers : public ::testing::Test {
protected:
  StepMembers() { kprC_initialize(count_); }
  ~StepMembers() override { kprC_finalize(count_); }

  /// Every class of the module that can be made.
  template <class Fn> static void ForEachClass(Fn&& fn) {
    for (auto const& [type, info] : cls_MetadataRegistrar::Registrar().Classes()) {
      if (type >> 16 == kprC_moduleNumber && info.make != nullptr) { fn(info); }
    }
  }

private:
  int count_ = 0;
};

cls_Value OffDefault(cls_MemberInfo const& info, cls_Value const& now);

/// An object of the class with every member off its default.
cls_Value::Fields FieldsOffDefault(cls_ClassMetadata const& type) {
  auto const object = type.make();
  cls_Value::Fields fields;
  for (cls_MemberInfo const& info : type.members) { fields.emplace_back(info.name, OffDefault(info, object->Member(info.name))); }
  return fields;
}

cls_Value OneOffDefault(cls_MemberInfo const& info, cls_Value const& now) {
  switch (info.kind) {
    case cls_MemberKind::Boolean: return !*now.As<bool>();
    case cls_MemberKind::Integer: return 41;
    case cls_MemberKind::Real: return 0.4375;
    case cls_MemberKind::String: return "another text";
    case cls_MemberKind::Enumerated: return info.permissible.at(now == cls_Value(info.permissible.at(0)) ? 1 : 0);
    case cls_MemberKind::Object: break;
  }
  if (info.typeId == rgnC_Region::TypeId()) { return "Set-9"; }
  return FieldsOffDefault(*cls_MetadataRegistrar::Registrar().Find(info.typeId));
}

/// A value for a member that differs from \p now, its default.
cls_Value OffDefault(cls_MemberInfo const& info, cls_Value const& now) {
  cls_Value const one = OneOffDefault(info, now);
  if (info.name == kprC_TimePoint::pointsCmd().View()) { return cls_Value::List{cls_Value::List{one}, cls_Value::List{one}}; }
  return info.many ? cls_Value::List{one, one} : one;
}

/// Whether scripts cannot set the member: the map of a repository, the container's sequence.
bool IsSettable(cls_ClassMetadata const& type) {
  return type.typeId != kprC_TimePointMap::TypeId() && type.name != "kprC_StepContainer" && type.name != "kprC_StepNameProcedurePair";
}

TEST_F(StepMembers, SurviveBeingSetCopiedAndReadAsValues) {
  std::size_t members = 0;
  ForEachClass([&](cls_ClassMetadata const& type) {
    if (!IsSettable(type)) { return; }
    auto const fresh = type.make();
    auto all = type.make();
    for (cls_MemberInfo const& info : type.members) {
      cls_Value const before = fresh->Member(info.name);
      cls_Value const value = OffDefault(info, before);
      auto changed = type.make();
      ASSERT_TRUE(changed.Get().SetMember(info.name, value)) << type.name << "." << info.name;
      EXPECT_NE(changed->Member(info.name), before) << type.name << "." << info.name;
      EXPECT_FALSE(changed->Equals(*fresh)) << type.name << "." << info.name << " is not compared";
      EXPECT_TRUE(changed->Equals(*changed->Copy())) << type.name << "." << info.name << " is not copied";
      auto again = type.make();
      again.Get().SetMember(info.name, changed->Member(info.name));
      EXPECT_TRUE(again->Equals(*changed)) << type.name << "." << info.name << " is not told whole";
      all.Get().SetMember(info.name, value);
      ++members;
    }
    auto const copy = all->Copy();
    for (cls_MemberInfo const& info : type.members) {
      EXPECT_EQ(copy->Member(info.name), all->Member(info.name)) << type.name << "." << info.name;
    }
  });
  EXPECT_GT(members, 300U);
}

TEST_F(StepMembers, AreDescribed) {
  ForEachClass([&](cls_ClassMetadata const& type) {
    for (cls_MemberInfo const& info : type.members) { EXPECT_NE(info.meaning, "") << type.name << "." << info.name; }
  });
}

// Names of members beside those of the base class, in the order of the names.
TEST_F(StepMembers, AreThoseOfTheirClasses) {
  struct Row {
    char const* type;
    char const* members;
  };
  constexpr Row kRows[] = {
      {"kprC_AnnealStep", "refTemp"},
      {"kprC_BuckleStep", "blockSize eigensolver maxBlocks maxEigen maxIterations minEigen numEigen vectors"},
      {"kprC_ComplexFrequencyStep", "frictionDamping maxEigen minEigen numEigen propertyEvaluationFrequency shift"},
      {"kprC_CoupledTempDisplacementStep",
       "adaptiveDampingRatio amplitude cetol contactIterations contactSolutions continueDampingFactors creepIntegration deltmx "
       "extrapolation "
       "initialInc maxInc maxNumInc minInc response solutionTechnique stabilizationMagnitude stabilizationMethod timeIncrementationMethod "
       "timePeriod"},
      {"kprC_CoupledThermalElectricStep",
       "amplitude deltmx end extrapolation initialInc maxInc maxNumInc minInc mxdem response solutionTechnique timeIncrementationMethod "
       "timePeriod"},
      {"kprC_ExplicitDynamicsStep",
       "adiabatic linearBulkViscosity massScaling maxIncrement quadBulkViscosity scaleFactor timeIncrementationMethod timePeriod "
       "userDefinedInc"},
      {"kprC_FrequencyStep",
       "acousticCoupling acousticRangeFactor blockSize eigensolver firstCutoffMultiplier intervalBias intervalBoundaries "
       "limitSavedEigenvectorRegion maxBlocks maxEigen maxIterations minEigen normalization numEigen numberInterval projectDamping "
       "propertyEvaluationFrequency residualModeDof residualModeRegion residualModes secondCutoffMultiplier shift simLinearDynamics "
       "substructureCutoffMultiplier vectors"},
      {"kprC_GeostaticStep", "applyContactIterations contactIterations contactSolutions reformKernel solutionTechnique"},
      {"kprC_HeatTransferStep",
       "amplitude deltmx end extrapolation initialInc maxInc maxNumInc minInc mxdem reformKernel response solutionTechnique "
       "timeIncrementationMethod timePeriod"},
      {"kprC_ImplicitDynamicsStep",
       "adiabatic alpha amplitude extrapolation haftol initialConditions initialInc maxInc maxNumInc minInc noStop nohaf reformKernel "
       "solutionTechnique timeIncrementationMethod timePeriod"},
      {"kprC_MassDiffusionStep",
       "amplitude dcmax end extrapolation initialInc maxInc maxNumInc minInc response timeIncrementationMethod timePeriod"},
      {"kprC_ModalDynamicsStep",
       "amplitude compositeDamping continueAnalysis directDamping directDampingByFrequency incSize rayleighDamping "
       "rayleighDampingByFrequency "
       "timePeriod"},
      {"kprC_RandomResponseStep",
       "compositeDamping directDamping directDampingByFrequency freq rayleighDamping rayleighDampingByFrequency scale structuralDamping "
       "structuralDampingByFrequency"},
      {"kprC_ResponseSpectrumStep",
       "comp components compositeDamping directDamping directDampingByFrequency rayleighDamping rayleighDampingByFrequency sum"},
      {"kprC_SoilsStep",
       "adaptiveDampingRatio amplitude applyContactIterations cetol contactIterations contactSolutions continueDampingFactors creep end "
       "extrapolation initialInc maxInc maxNumInc minInc reformKernel response solutionTechnique stabilization stabilizationMagnitude "
       "stabilizationMethod timeIncrementationMethod timePeriod utol"},
      {"kprC_StaticStep",
       "adaptiveDampingRatio adiabatic amplitude applyContactIterations contactIterations contactSolutions continueDampingFactors "
       "extrapolation "
       "fullyPlastic initialInc maxInc maxNumInc minInc noStop reformKernel solutionTechnique stabilization stabilizationMagnitude "
       "stabilizationMethod timeIncrementationMethod timePeriod useLongTermSolution"},
      {"kprC_StaticLinearPerturbationStep", ""},
      {"kprC_StaticRiksStep",
       "adiabatic applyContactIterations contactIterations contactSolutions dof extrapolation fullyPlastic initialArcInc maxArcInc maxLPF "
       "maxNumInc maximumDisplacement minArcInc noStop nodeOn region timeIncrementationMethod totalArcLength useLongTermSolution"},
      {"kprC_SteadyStateDirectStep", "factorization frequencyRange frictionDamping scale subdivideUsingEigenfrequencies"},
      {"kprC_SteadyStateModalStep",
       "compositeDamping directDamping directDampingByFrequency frequencyRange rayleighDamping rayleighDampingByFrequency scale "
       "structuralDamping structuralDampingByFrequency subdivideUsingEigenfrequencies"},
      {"kprC_SteadyStateSubspaceStep",
       "factorization frequencyRange frictionDamping maxDampingChange maxStiffnessChange projection scale subdivideUsingEigenfrequencies"},
      {"kprC_SubspaceDynamicsStep", "amplitude incSize maxNumInc timePeriod vectors"},
      {"kprC_SubstructureGenerateStep", "retainedDofs"},
      {"kprC_TempDisplacementDynamicsStep",
       "linearBulkViscosity massScaling maxIncrement quadBulkViscosity scaleFactor timeIncrementationMethod timePeriod userDefinedInc"},
      {"kprC_UsaAddedMassGenerationStep", ""},
      {"kprC_ViscoStep",
       "adaptiveDampingRatio amplitude applyContactIterations cetol contactIterations contactSolutions continueDampingFactors "
       "extrapolation "
       "initialInc integration maxInc maxNumInc minInc reformKernel solutionTechnique stabilization stabilizationMagnitude "
       "stabilizationMethod "
       "timeIncrementationMethod timePeriod"},
      {"kprC_TimePoint", "name points"},
      {"kprC_MassScaling",
       "crossSection direction dt extrudedLength factor feedRate frequency numberInterval objective occurs region type"},
      {"kprC_DirectDampingComponent", "end fraction start"},
      {"kprC_DirectDampingByFrequencyComponent", "fraction frequency"},
      {"kprC_RayleighDampingComponent", "alpha beta end start"},
      {"kprC_RayleighDampingByFrequencyComponent", "alpha beta frequency"},
      {"kprC_StructuralDampingComponent", "end factor start"},
      {"kprC_StructuralDampingByFrequencyComponent", "factor frequency"},
      {"kprC_CompositeDampingComponent", "end start"},
      {"kprC_CompositeDamping", "components"},
      {"kprC_SteadyStateDirectFrequency", "bias lower nPoints upper"},
      {"kprC_SteadyStateModalFrequency", "bias lower nPoints upper"},
      {"kprC_SteadyStateSubspaceFrequency", "bias lower nPoints upper"},
      {"kprC_RandomResponseFrequency", "bias lower nCalcs upper"},
      {"kprC_ResponseSpectrumComponent", "respSpectrum scale x y z"},
  };
  constexpr std::string_view kOfTheBase[] = {"convertSDI", "description", "matrixSolver", "nlgeom"};
  for (Row const& row : kRows) {
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(row.type);
    ASSERT_NE(type, nullptr) << row.type;
    std::vector<std::string> names;
    for (cls_MemberInfo const& info : type->members) {
      if (std::ranges::find(kOfTheBase, info.name) == std::end(kOfTheBase)) { names.push_back(info.name); }
    }
    std::ranges::sort(names);
    std::string told;
    for (std::string const& name : names) { told += (told.empty() ? "" : " ") + name; }
    EXPECT_EQ(told, row.members) << row.type;
  }
}

TEST_F(StepMembers, StartFromTheirDefaults) {
  cls_Value const unset;
  struct Row {
    unsigned type;
    Edits defaults;
  };
  using enum kprC_ProcedureType::Enm;
  Row const rows[] = {
      {Static,
       {{"nlgeom", "OFF"},
        {"adiabatic", false},
        {"timePeriod", 1.0},
        {"stabilizationMethod", "NONE"},
        {"stabilizationMagnitude", unset},
        {"timeIncrementationMethod", "AUTOMATIC"},
        {"maxNumInc", 100},
        {"initialInc", 0.0},
        {"minInc", 0.0},
        {"maxInc", 0.0},
        {"amplitude", "RAMP"},
        {"extrapolation", "LINEAR"},
        {"applyContactIterations", false},
        {"solutionTechnique", "FULL_NEWTON"},
        {"continueDampingFactors", false},
        {"adaptiveDampingRatio", unset},
        {"contactIterations", 30},
        {"reformKernel", 8},
        {"contactSolutions", 1.0},
        {"fullyPlastic", ""},
        {"noStop", false},
        {"stabilization", false},
        {"useLongTermSolution", false}}},
      {Frequency,
       {{"matrixSolver", "DIRECT_SYMMETRIC"},
        {"numEigen", "ALL"},
        {"maxEigen", unset},
        {"minEigen", unset},
        {"shift", unset},
        {"vectors", 0},
        {"maxIterations", 30},
        {"eigensolver", "LANCZOS"},
        {"blockSize", unset},
        {"maxBlocks", unset},
        {"normalization", "DISPLACEMENT"},
        {"propertyEvaluationFrequency", unset},
        {"acousticCoupling", "AC_ON"},
        {"numberInterval", 1},
        {"intervalBias", 1.0},
        {"intervalBoundaries", cls_Value::List{}},
        {"residualModes", false},
        {"residualModeRegion", cls_Value::List{}},
        {"residualModeDof", cls_Value::List{}},
        {"substructureCutoffMultiplier", 5.0},
        {"firstCutoffMultiplier", 1.6},
        {"secondCutoffMultiplier", 1.3},
        {"acousticRangeFactor", 1.0},
        {"limitSavedEigenvectorRegion", ""},
        {"projectDamping", false},
        {"simLinearDynamics", false}}},
      {Soils, {{"response", "TRANSIENT"}, {"creep", false}, {"utol", unset}, {"contactIterations", 30}, {"contactSolutions", 1.0}}},
      {ExplicitDynamics, {{"massScaling", cls_Value::List{}}, {"scaleFactor", unset}, {"userDefinedInc", unset}}},
      {ImplicitDynamics, {{"alpha", unset}, {"haftol", unset}, {"nohaf", false}, {"reformKernel", 8}}},
  };
  for (Row const& row : rows) {
    kprC_StepHandle const step = kprC_MakeStep(row.type);
    for (auto const& [member, value] : row.defaults) {
      EXPECT_EQ(step->Member(member), value) << kprC_FindProcedure(row.type)->command.View() << "." << member;
    }
  }
  kprC_MassScaling const scaling;
  EXPECT_EQ(scaling.Member("type"), cls_Value("SEMI_AUTOMATIC"));
  EXPECT_EQ(scaling.Member("occurs"), cls_Value("AT_BEGINNING"));
  EXPECT_EQ(scaling.Member("objective"), cls_Value("UNIFORM"));
}

TEST_F(StepMembers, AreNeverNotANumber) {
  ForEachClass([&](cls_ClassMetadata const& type) {
    if (!IsSettable(type)) { return; }
    for (cls_MemberInfo const& info : type.members) {
      if (info.kind != cls_MemberKind::Real) { continue; }
      auto object = type.make();
      cls_Value const nan = std::numeric_limits<double>::quiet_NaN();
      try {
        object.Get().SetMember(info.name, info.many ? cls_Value::List{nan} : nan);
        ADD_FAILURE() << type.name << "." << info.name;
      } catch (nex_TextException const& refusal) {
        EXPECT_NE(refusal.Text().View().find("\"" + info.name + "\""), std::string_view::npos) << refusal.Text().View();
        EXPECT_EQ(refusal.Code(), -1);
      }
      EXPECT_TRUE(object->Equals(*type.make())) << type.name << "." << info.name;
    }
  });
}

TEST_F(StepMembers, OfATimePointSequenceAreFoundByItsName) {
  ddr_Model model;
  auto& sequences = model.Get<kprC_TimePointMap>(kprC_TimePoint::repositoryCmd());
  sequences.Insert("Frames", cow_Handle<kprC_TimePoint>::Make("Frames"));
  sequences.Get("Frames")->points = cow_2DArray<double>(3, 1, 0.5);
  EXPECT_EQ(model.ConstGet<kprC_TimePointMap>("timePoints").ConstGet("Frames")->points.Rows(), 3U);
  EXPECT_EQ(ddr_Model().ConstGet<kprC_TimePointMap>("timePoints").Size(), 0U);
}

}  // namespace
