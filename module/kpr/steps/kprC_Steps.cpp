#include "module/kpr/steps/kprC_Steps.h"

#include <algorithm>

kprC_StepHandle kprC_MakeStep(unsigned procedureType) {
  switch (procedureType) {
    case kprC_initialStepType: return cow_Handle<kprC_InitialStep>::Make();
#define KPR_PROCEDURE(number, name, ...) \
  case kprC_ProcedureType::name:         \
    return cow_Handle<kprC_##name##Step>::Make();
#include "module/kpr/procedures/kprC_ProcedureTable.def"
#undef KPR_PROCEDURE
    default: return nullptr;
  }
}

kprC_StepHandle kprC_ConstructStep(std::string_view constructorCmd) {
  auto const at = std::ranges::find_if(
      kprC_procedures, [&](kprC_ProcedureRow const& row) { return row.label.Size() != 0 && row.command == constructorCmd; });
  return at != kprC_procedures.end() ? kprC_MakeStep(at->type) : nullptr;
}

void kprC_DescribeSteps() {
#define KPR_PROCEDURE(number, name, ...) cls_MetadataRegistrar::initClassMetadata(&kprC_##name##Step::InitializeMetadata, ddb_metadataFlag);
#include "module/kpr/procedures/kprC_ProcedureTable.def"
#undef KPR_PROCEDURE
}
