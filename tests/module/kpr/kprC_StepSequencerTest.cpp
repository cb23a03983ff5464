#include "module/kpr/procedures/kprC_StepSequencer.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <random>
#include <set>

#include "module/kpr/model/kprC_StepContainer.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "tests/module/kpr/kprTestSteps.h"
#include "tests/support/StepLetters.h"

namespace {

/// The rules as they are told, word by word, on lists of labels: slow and plain, to compare with.
class Reference {
public:
  using Sequence = std::vector<std::string>;

  static bool MayFollow(Sequence const& steps, std::string const& next, bool addedMassPermitted) {
    if (next == kAddedMass && !addedMassPermitted) { return false; }
    if (steps.empty()) { return first_.contains(next); }
    std::string const& last = steps.back();
    if (!(last == kAddedMass && !addedMassPermitted) && direct_.at(last).contains(next)) { return true; }
    if (perturbation_.contains(last) && !explicit_.contains(next)) {
      Sequence const shorter(steps.begin(), steps.end() - 1);
      if (!IsLegal(shorter, true)) { throw std::logic_error("an illegal sequence"); }
      if (MayFollow(shorter, next, true)) { return true; }
    }
    if (Set("COUPLED_THERMAL_ELECTRIC HEAT_TRANSFER MASS_DIFFUSION STATIC_RIKS").contains(last)) { return false; }
    return next == "COMPLEX_FREQUENCY" && std::ranges::count(steps, "FREQUENCY") > 0;
  }

  static bool IsLegal(Sequence const& steps, bool addedMassPermitted) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
      if (!MayFollow(Sequence(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(i)), steps[i], addedMassPermitted)) {
        return false;
      }
    }
    return true;
  }

  static bool IsRemovable(Sequence steps, std::size_t index) {
    steps.erase(steps.begin() + static_cast<std::ptrdiff_t>(index));
    return IsLegal(steps, true);
  }

  static std::set<std::string> Set(std::string_view labels) {
    std::istringstream in{std::string(labels)};
    return {std::istream_iterator<std::string>(in), {}};
  }

private:
  static constexpr char const* kAddedMass = "USA_ADDED_MASS_GENERATION";

  static inline std::set<std::string> const explicit_ = Set("ANNEAL DYNAMIC_EXPLICIT DYNAMIC_TEMP_DISPLACEMENT");
  static inline std::set<std::string> const perturbation_ =
      Set("BUCKLE FREQUENCY MODAL_DYNAMICS RANDOM_RESPONSE RESPONSE_SPECTRUM STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT "
          "STEADY_STATE_MODAL COMPLEX_FREQUENCY STEADY_STATE_SUBSPACE");
  static inline std::set<std::string> const first_ =
      Set("BUCKLE COUPLED_TEMP_DISPLACEMENT COUPLED_THERMAL_ELECTRIC DYNAMIC_EXPLICIT FREQUENCY GEOSTATIC HEAT_TRANSFER DYNAMIC_IMPLICIT "
          "MASS_DIFFUSION SOILS STATIC_GENERAL STATIC_RIKS STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT VISCO DYNAMIC_TEMP_DISPLACEMENT "
          "USA_ADDED_MASS_GENERATION");
  static inline std::map<std::string, std::set<std::string>> const direct_ = [] {
    std::map<std::string, std::set<std::string>> result;
    auto const rule = [&](std::string_view last, std::string_view next) {
      for (std::string const& label : Set(last)) { result[label] = Set(next); }
    };
    rule(
        "BUCKLE MODAL_DYNAMICS RANDOM_RESPONSE RESPONSE_SPECTRUM STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT STEADY_STATE_MODAL "
        "COMPLEX_FREQUENCY STEADY_STATE_SUBSPACE",
        "BUCKLE FREQUENCY STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT");
    rule("FREQUENCY",
         "BUCKLE FREQUENCY MODAL_DYNAMICS RANDOM_RESPONSE RESPONSE_SPECTRUM STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT "
         "STEADY_STATE_MODAL DYNAMIC_SUBSPACE COMPLEX_FREQUENCY STEADY_STATE_SUBSPACE");
    rule("DYNAMIC_SUBSPACE USA_ADDED_MASS_GENERATION", "DYNAMIC_IMPLICIT STATIC_GENERAL STATIC_RIKS VISCO USA_ADDED_MASS_GENERATION");
    rule("DYNAMIC_IMPLICIT", "DYNAMIC_IMPLICIT STATIC_GENERAL STATIC_RIKS VISCO DYNAMIC_SUBSPACE USA_ADDED_MASS_GENERATION");
    rule("STATIC_GENERAL VISCO",
         "BUCKLE COUPLED_TEMP_DISPLACEMENT FREQUENCY GEOSTATIC DYNAMIC_IMPLICIT SOILS STATIC_GENERAL STATIC_RIKS "
         "STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT VISCO");
    rule("GEOSTATIC SOILS",
         "BUCKLE FREQUENCY GEOSTATIC DYNAMIC_IMPLICIT SOILS STATIC_GENERAL STATIC_RIKS STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT "
         "VISCO");
    rule("MASS_DIFFUSION", "MASS_DIFFUSION");
    rule("COUPLED_THERMAL_ELECTRIC HEAT_TRANSFER", "COUPLED_THERMAL_ELECTRIC HEAT_TRANSFER");
    rule("COUPLED_TEMP_DISPLACEMENT",
         "BUCKLE COUPLED_TEMP_DISPLACEMENT FREQUENCY DYNAMIC_IMPLICIT STATIC_GENERAL STATIC_LINEAR_PERTURBATION STEADY_STATE_DIRECT VISCO");
    rule("ANNEAL DYNAMIC_EXPLICIT DYNAMIC_TEMP_DISPLACEMENT", "ANNEAL DYNAMIC_EXPLICIT DYNAMIC_TEMP_DISPLACEMENT");
    rule("STATIC_RIKS", "");
    return result;
  }();
};

kprC_StepSequencer Sequencer(std::string_view labels, bool addedMassPermitted = false) {
  return {cow_List<unsigned>(Procedures(labels)), addedMassPermitted};
}

kprC_StepContainer Container(std::string_view labels) {
  kprC_StepContainer steps;
  for (unsigned const type : Procedures(labels)) {
    steps.Insert(steps.Name(steps.Size() - 1), "Step-" + std::to_string(steps.Size()), kprC_MakeStep(type));
  }
  return steps;
}

// Sequences that grow by what is allowed, perturbation steps preferred so that long chains of them come up.
TEST(Sequencer, AgreesWithTheRulesTakenLiterally) {
  std::mt19937 random(11);
  kprC_ProcedureTypeLabelMap const labels;
  for (int run = 0; run < 120; ++run) {
    bool const permitted = run % 2 == 0;
    kprC_StepSequencer sequencer(permitted);
    Reference::Sequence reference;
    for (std::size_t length = 0; length <= 9; ++length) {
      std::vector<unsigned> allowed;
      for (auto const& [label, type] : labels.Entries()) {
        bool const expected = Reference::MayFollow(reference, std::string(label.View()), permitted);
        ASSERT_EQ(sequencer.MayFollow().Contains(type), expected) << Labels(sequencer.Sequence()) << " > " << label.View();
        ASSERT_EQ(sequencer.WhyNot(type).empty(), expected) << Labels(sequencer.Sequence()) << " > " << label.View();
        if (!expected) { continue; }
        allowed.insert(allowed.end(), kprC_Step::Perturbation(type) ? 3 : 1, type);
      }
      ASSERT_FALSE(sequencer.MayFollow().Contains(kprC_ProcedureType::SubstructureGenerate));
      ASSERT_EQ(sequencer.HasFrequency(), std::ranges::count(reference, "FREQUENCY") > 0);
      for (std::size_t i = 0; i < length; ++i) {
        bool const removable = Reference::IsRemovable(reference, i);
        ASSERT_EQ(sequencer.IsRemovable(static_cast<int>(i)), removable) << Labels(sequencer.Sequence()) << " - " << i;
        if (!removable) { continue; }
        kprC_StepSequencer shorter = sequencer;
        shorter.Remove(static_cast<int>(i));
        ASSERT_EQ(shorter.MayFollow(), kprC_StepSequencer(shorter.Sequence(), permitted).MayFollow());
      }
      kprC_StepSequence steps;
      steps.Append(test::NamedStep("Initial", 0));
      for (unsigned const type : sequencer.Sequence()) { steps.Append(test::NamedStep(std::to_string(steps.Size()), type)); }
      kprC_StepTable const table(steps);
      for (std::size_t i = 0; i <= length; ++i) {
        unsigned const type = kprC_procedures[random() % kprC_procedures.size()].type;
        Reference::Sequence longer = reference;
        longer.insert(longer.begin() + static_cast<std::ptrdiff_t>(i), std::string(labels.Label(type)));
        bool const expected = !longer[i].empty() && Reference::IsLegal(longer, permitted);
        ASSERT_EQ(kprC_StepSequencer::MayInsert(table, i + 1, type, permitted), expected) << Labels(sequencer.Sequence()) << " + " << i;
      }
      if (allowed.empty()) { break; }
      unsigned const next = allowed[random() % allowed.size()];
      sequencer.Append(next);
      reference.emplace_back(labels.Label(next));
    }
  }
}

TEST(Sequencer, ForgetsAFrequencyStepThatIsRemoved) {
  kprC_StepSequencer one = Sequencer("FREQUENCY STATIC_GENERAL");
  one.Remove(0);
  EXPECT_EQ(RefusalOf([&] { one.Append(kprC_ProcedureType::ComplexFrequency); }), 50);
  kprC_StepSequencer two = Sequencer("FREQUENCY FREQUENCY STATIC_GENERAL");
  two.Remove(0);
  EXPECT_EQ(RefusalOf([&] { two.Append(kprC_ProcedureType::ComplexFrequency); }), -1);
  kprC_StepSequencer needed = Sequencer("FREQUENCY MODAL_DYNAMICS");
  EXPECT_EQ(RefusalOf([&] { needed.Remove(0); }), 50);
  EXPECT_EQ(needed.Size(), 2U);
}

TEST(Sequencer, TakesItsSequenceFromTheContainer) {
  kprC_StepContainer const steps = Container("STATIC_GENERAL FREQUENCY MODAL_DYNAMICS");
  kprC_StepSequencer sequencer(steps, false);
  EXPECT_EQ(sequencer.Size(), 0U);
  sequencer.Run();
  EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL FREQUENCY MODAL_DYNAMICS");
  sequencer.Run("Step-2", true);
  EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL");
  sequencer.Run("Step-2", false);
  EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL FREQUENCY");
  for (bool const stopBefore : {false, true}) {
    sequencer.Run("Initial", stopBefore);
    EXPECT_EQ(sequencer.Size(), 0U);
  }
  sequencer.InsertAfter("Initial", kprC_ProcedureType::Geostatic);
  EXPECT_EQ(Labels(sequencer.Sequence()), "GEOSTATIC STATIC_GENERAL FREQUENCY MODAL_DYNAMICS");
  sequencer.InsertAfter("Step-3", kprC_ProcedureType::Visco);
  EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL FREQUENCY MODAL_DYNAMICS VISCO");
  sequencer.Replace("Step-3", kprC_ProcedureType::Buckle);
  EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL FREQUENCY BUCKLE");
}

TEST(Sequencer, RefusesWhatDoesNotFitAndKeepsItsSequence) {
  struct Row {
    int code;
    void (*edit)(kprC_StepSequencer&);
  };
  constexpr Row kRows[] = {
      {50, [](kprC_StepSequencer& s) { s.InsertAfter("Initial", kprC_ProcedureType::HeatTransfer); }},
      {50, [](kprC_StepSequencer& s) { s.InsertAfter("Step-2", kprC_ProcedureType::Visco); }},
      {50, [](kprC_StepSequencer& s) { s.Replace("Step-2", kprC_ProcedureType::Static); }},
      {50, [](kprC_StepSequencer& s) { s.Append(kprC_ProcedureTypeLabelMap::kNone); }},
      {50, [](kprC_StepSequencer& s) { s.Append(kprC_ProcedureType::SubstructureGenerate); }},
      {143, [](kprC_StepSequencer& s) { s.Replace("Initial", kprC_ProcedureType::Static); }},
      {81, [](kprC_StepSequencer& s) { s.Run("Step-9", true); }},
  };
  kprC_StepSequencer sequencer(Container("STATIC_GENERAL FREQUENCY MODAL_DYNAMICS"), false);
  sequencer.Run();
  for (Row const& row : kRows) {
    EXPECT_EQ(RefusalOf([&] { row.edit(sequencer); }), row.code);
    EXPECT_EQ(Labels(sequencer.Sequence()), "STATIC_GENERAL FREQUENCY MODAL_DYNAMICS");
  }
}

TEST(Sequencer, SaysWhyAProcedureMayNotFollow) {
  struct Row {
    char const* before;
    char const* next;
    char const* why;
  };
  constexpr Row kRows[] = {
      {"", "STATIC_GENERAL", ""},
      {"", "ANNEAL", "ANNEAL cannot be the first step."},
      {"", "MODAL_DYNAMICS", "MODAL_DYNAMICS needs a FREQUENCY step before it."},
      {"STATIC_RIKS", "STATIC_GENERAL", "Nothing may follow a STATIC_RIKS step."},
      {"HEAT_TRANSFER", "STATIC_GENERAL", "Only COUPLED_THERMAL_ELECTRIC, HEAT_TRANSFER may follow a HEAT_TRANSFER step."},
      {"STATIC_GENERAL", "DYNAMIC_EXPLICIT", "DYNAMIC_EXPLICIT may only be the first step or follow another explicit step."},
      {"STATIC_GENERAL", "MODAL_DYNAMICS", "MODAL_DYNAMICS must follow a FREQUENCY step, with none but perturbation steps between them."},
      {"STATIC_GENERAL", "COMPLEX_FREQUENCY", "COMPLEX_FREQUENCY needs a FREQUENCY step somewhere before it."},
      {"STATIC_GENERAL", "HEAT_TRANSFER", "HEAT_TRANSFER may not follow a STATIC_GENERAL step."},
      {"STATIC_GENERAL BUCKLE", "HEAT_TRANSFER",
       "HEAT_TRANSFER may not follow a STATIC_GENERAL step, also with perturbation steps between them."},
      {"STATIC_GENERAL", "USA_ADDED_MASS_GENERATION", "USA_ADDED_MASS_GENERATION is not permitted in this sequence."},
  };
  for (Row const& row : kRows) { EXPECT_EQ(Sequencer(row.before).WhyNot(Procedures(row.next).front()), row.why); }
  EXPECT_EQ(Sequencer("").WhyNot(kprC_ProcedureType::SubstructureGenerate), "A SUBSTRUCTURE_GENERATE step is never part of a sequence.");
  EXPECT_EQ(Sequencer("").WhyNot(kprC_ProcedureTypeLabelMap::kNone), "This is no procedure.");
}

}  // namespace
