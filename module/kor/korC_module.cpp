#include "module/kor/korC_module.h"

#include "module/kor/korC_Filter.h"
#include "module/kor/korC_IntegratedOutputSection.h"
#include "module/kpr/family/ddb_FamilyModule.h"

void korC_initialize(int& count) {
  ddb_EnterFamily<korC_FieldOutput>(count, korC_moduleNumber, korC_FieldOutput::repositoryCmd(), korC_Errors(), [] {
    ddb_OfferRepository<korC_HistoryOutput>(korC_HistoryOutput::repositoryCmd());
    mdl_ExtensionSubject::RegisterExtension(korC_IntegratedOutputSection::repositoryCmd(),
                                            cow_Handle<korC_IntegratedOutputSectionCont>::Make());
    mdl_ExtensionSubject::RegisterExtension(korC_Filter::repositoryCmd(), cow_Handle<korC_FilterCont>::Make());
    korC_DescribeTypes();
  });
}

void korC_finalize(int& count) {
  ddb_LeaveFamily<korC_FieldOutput>(count, korC_moduleNumber, korC_FieldOutput::repositoryCmd(), korC_HistoryOutput::repositoryCmd(),
                                    korC_IntegratedOutputSection::repositoryCmd(), korC_Filter::repositoryCmd());
}
