#include "command/Origins.h"

#include <gmock/gmock.h>

#include "command/Lookup.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "tests/support/AnyCommands.h"
#include "tests/support/MadeUpFamily.h"

namespace gattr {
namespace {

bool SaysMember(cls_MemberRow const& row, cls_Object const& state) {
  return row.ops->isModified != nullptr && row.ops->isModified(row.In(static_cast<void const*>(&state)));
}

/// A member in a step is what the state says, and comes from a step that says it, behind which no other says it that is carried on.
void ExpectTrue(kprC_StepAwareRepository const& family, kprC_StepDependent const& item, std::size_t at, Origin const& origin) {
  std::string const what = item.ConstructionName() + " in step " + std::to_string(at) + ", " + std::string(origin.Member());
  cls_Object const& state = *item.StateAt(at);
  cls_Value const told = origin.row->ToValue(&state);
  EXPECT_EQ(origin.Value(), origin.HasValue() ? told : cls_Value()) << what;
  if (origin.row->ops->propagate == nullptr) { return; }
  EXPECT_EQ(origin.own, SaysMember(*origin.row, state)) << what;
  auto const* const list = told.As<cls_Value::List>();
  if (list == nullptr) { EXPECT_EQ(origin.HasValue(), told != cls_Value("UNSET") && told != cls_Value("FREED")) << what; }
  EXPECT_EQ(origin.step == kNoStep, origin.standing == Standing::Unset) << what;
  auto const isCarriedOn = [&](std::size_t step) {
    bool const active = (family.Statuses()[static_cast<std::size_t>(item.StatusAt(step))] & kprC_Active) != 0;
    bool const creates = item.Steps().Name(step) == item.CreateStepName();
    return creates || (active && !kprC_perturbationProcedures.Contains(item.Steps().ProcedureType(step)));
  };
  std::size_t behind = 0;
  if (origin.step != kNoStep) {
    ASSERT_LE(origin.step, at) << what;
    cls_Object const& there = *item.StateAt(origin.step);
    EXPECT_TRUE(SaysMember(*origin.row, there)) << what;
    if (list == nullptr && origin.HasValue()) { EXPECT_EQ(origin.row->ToValue(&there), told) << what; }
    EXPECT_TRUE(origin.step == at || isCarriedOn(origin.step)) << what;
    behind = origin.step + 1;
  }
  for (std::size_t step = behind; step < at; ++step) {
    bool const says = item.StateAt(step) != nullptr && SaysMember(*origin.row, *item.StateAt(step));
    EXPECT_FALSE(says && isCarriedOn(step)) << what << ": rather from step " << step;
  }
}

class Origins : public test::madeup::WithMadeUpFamily {};

TEST_F(Origins, AreStepsThatSayItWhateverTheEdits) {
  std::set<int> statuses;
  for (unsigned seed = 1; seed <= 16; ++seed) {
    Session session;
    BeginAny(session, seed);
    AnyCommands commands(session, seed);
    for (int i = 1; i <= 300; ++i) {
      session.Execute(CommandOf(commands.Next()));
      if (i % 20 != 0) { continue; }
      ForEachRepository(session.Model(), [&](auto const&, kprC_StepAwareRepository const& family) {
        family.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
          std::size_t end = 0;
          ForEachOriginRun(family, item, [&](OriginRun const& run) {
            EXPECT_EQ(run.begin, end);
            end = run.end;
            statuses.insert(static_cast<int>(run.status));
            for (std::size_t at = run.begin; at < run.end; ++at) {
              EXPECT_EQ(run.status, item.StatusAt(at));
              EXPECT_EQ(run.members.empty(), item.StateAt(at) == nullptr);
              for (Origin const& origin : run.members) { ExpectTrue(family, item, at, origin); }
            }
          });
          EXPECT_EQ(end, item.Steps().Size());
        });
      });
      ASSERT_FALSE(HasFailure()) << "seed " << seed << ", " << i;
    }
  }
  EXPECT_THAT(statuses, ::testing::IsSupersetOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST_F(Origins, AreOfTheAttributeThatIsMeant) {
  Session session;
  AppendSteps(session, "IG");
  RunJournal(session, {R"({"command": "Set", "name": "Rim"})", R"({"command": "Surface", "name": "Top"})",
                       R"({"command": "DisplacementBC", "name": "Push", "createStepName": "S1", "region": "Rim", "u1": 0.0})",
                       R"({"command": "DisplacementBC", "name": "a:b", "createStepName": "S1", "region": "Rim", "u1": 0.0})",
                       R"({"command": "Pressure", "name": "Push", "createStepName": "S1", "region": "Top", "magnitude": 1.0})"});
  auto const command = [&](std::string_view name) { return FindAttribute(session.Model(), name).item->ConstructionName(); };
  auto const refusal = [&](std::string_view name) -> std::string {
    try {
      return command(name);
    } catch (UnknownName const& error) { return error.what(); }
  };
  EXPECT_EQ(command("load:Push"), "Pressure");
  EXPECT_EQ(command("boundaryCondition:Push"), "DisplacementBC");
  EXPECT_EQ(command("a:b"), "DisplacementBC");
  EXPECT_EQ(refusal("Push"), R"(2 attributes are called "Push": say which of "boundaryCondition:Push", "load:Push".)");
  EXPECT_EQ(refusal("load:Pusch"), R"(There is no load "Pusch". Did you mean "Push"?)");
  EXPECT_EQ(refusal("load:a:b"), R"(There is no load "a:b". "a:b" is a boundaryCondition.)");
  EXPECT_EQ(refusal("Pusch"), R"(There is no attribute "Pusch". Did you mean "Push"?)");
}

}  // namespace
}  // namespace gattr
