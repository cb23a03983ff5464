#include "module/kpr/steps/kprC_UsaAddedMassGenerationStep.h"

kprC_UsaAddedMassGenerationStep::kprC_UsaAddedMassGenerationStep() = default;
kprC_UsaAddedMassGenerationStep::kprC_UsaAddedMassGenerationStep(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
