#include "module/kpr/procedures/kprC_Procedures.h"

#include <algorithm>
#include <functional>

#include "module/kpr/steps/kprC_Steps.h"
#include "tests/module/kpr/kprTestSteps.h"

namespace {

using Query = std::function<bool(kprC_Step const&)>;

TEST(Procedures, ReturnWhatTheirStepsStore) {
  struct Stored {
    char const* member;
    cls_Value value;
    Query answer;
    char const* classes;  ///< with this member
  };
  Stored const rows[] = {
      {"nlgeom", "ON", [](auto& step) { return step.Nlgeom() == kprC_Step::NlgeomEnm::ON; },
       "COUPLED_TEMP_DISPLACEMENT DYNAMIC_EXPLICIT GEOSTATIC DYNAMIC_IMPLICIT SOILS STATIC_GENERAL STATIC_RIKS DYNAMIC_SUBSPACE VISCO "
       "DYNAMIC_TEMP_DISPLACEMENT"},
      {"adiabatic", true, [](auto& step) { return step.IsAdiabatic(); }, "DYNAMIC_EXPLICIT DYNAMIC_IMPLICIT STATIC_GENERAL STATIC_RIKS"},
      {"response", "STEADY_STATE", [](auto& step) { return step.Response() == kprC_Step::ResponseEnm::STEADY_STATE; },
       "COUPLED_TEMP_DISPLACEMENT COUPLED_THERMAL_ELECTRIC HEAT_TRANSFER MASS_DIFFUSION SOILS"},
      {"timePeriod", 2.5, [](auto& step) { return step.TimePeriod() == 2.5; },
       "COUPLED_TEMP_DISPLACEMENT COUPLED_THERMAL_ELECTRIC DYNAMIC_EXPLICIT HEAT_TRANSFER DYNAMIC_IMPLICIT MASS_DIFFUSION "
       "MODAL_DYNAMICS SOILS STATIC_GENERAL DYNAMIC_SUBSPACE VISCO DYNAMIC_TEMP_DISPLACEMENT"},
  };
  for (Stored const& row : rows) {
    std::vector<unsigned> const classes = Procedures(row.classes);
    for (kprC_ProcedureRow const& procedure : kprC_procedures) {
      kprC_StepHandle step = kprC_MakeStep(procedure.type);
      EXPECT_FALSE(row.answer(*step));
      bool const stored = step.Get().SetMember(row.member, row.value);
      EXPECT_EQ(stored, std::ranges::count(classes, procedure.type) == 1) << row.member << " of " << procedure.command.View();
      EXPECT_EQ(row.answer(*step), stored) << row.member << " of " << procedure.command.View();
    }
  }
}

TEST(Procedures, HaveOneBitEach) {
  kprC_LabelsBitMap const bits;
  unsigned all = 0;
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    unsigned const bit = bits.Value(row.type);
    EXPECT_EQ(bit & (bit - 1), 0U);
    EXPECT_EQ(all & bit, 0U);
    if (row.label.Size() != 0) { EXPECT_EQ(bits.Value(row.label.View()), bit); }
    all |= bit;
  }
  EXPECT_EQ(all, (1U << 26) - 1);
}

TEST(StepCommands, MakeStepsOfTheirClasses) {
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    kprC_StepHandle const made = kprC_ConstructStep(row.command);
    EXPECT_EQ(made ? made->DynTypeId() : 0, row.label.Size() != 0 ? row.type : 0);
  }
  EXPECT_EQ(kprC_UsaAddedMassGenerationStep::constructorCmd(), "UsaAddedMassGenerationStep");
  EXPECT_FALSE(kprC_ConstructStep("staticStep"));
}

}  // namespace
