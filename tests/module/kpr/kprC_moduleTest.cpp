#include "module/kpr/kprC_module.h"

#include "framework/ddr_Model.h"
#include "module/kpr/model/kprC_StepContainer.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "tests/module/kpr/kprTestSteps.h"

namespace {

TEST(StepModule, IsStartedByItsFirstCallAndStoppedByTheLast) {
  bool const before = cls_ComponentTable::IsEntered(0x23C);
  int count = 0;
  kprC_initialize(count);
  kprC_initialize(count);
  EXPECT_EQ(count, before ? 0 : 1);
  EXPECT_EQ(ddr_Model().ConstGet<kprC_StepContainer>("steps").Name(0), "Initial");
  kprC_finalize(count);
  EXPECT_TRUE(cls_ComponentTable::IsEntered(0x23C));
  kprC_finalize(count);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(cls_ComponentTable::IsEntered(0x23C), before);
}

TEST(StepModule, DescribesItsClasses) {
  int count = 0;
  kprC_initialize(count);
  cls_ClassRegistrar const& registrar = cls_MetadataRegistrar::Registrar();
  for (unsigned const fixed : {0x023C0002U, 0x023C002CU, 0x023C002DU, 0x023C002EU}) { EXPECT_NE(registrar.Find(fixed), nullptr); }
  for (kprC_ProcedureRow const& row : kprC_procedures) {
    cls_ClassMetadata const* const info = registrar.Find(row.type);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->name, "kprC_" + std::string(row.command.View()));
    EXPECT_EQ(info->make()->DynTypeId(), row.type);
    for (cls_MemberInfo const& member : info->members) { EXPECT_NE(member.meaning, "") << member.name; }
  }
  kprC_finalize(count);
}

}  // namespace
