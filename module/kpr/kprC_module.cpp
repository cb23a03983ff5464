#include "module/kpr/kprC_module.h"

#include "framework/ddb_Module.h"
#include "framework/ddr_Model.h"
#include "framework/ddr_Shortcut.h"
#include "module/kpr/family/ddb_FamilyModule.h"
#include "module/kpr/kprC_assert.h"
#include "module/kpr/mesh/kprC_AdptMeshCons.h"
#include "module/kpr/model/kprC_StepContainer.h"
#include "module/kpr/procedures/kprC_ProcedureTypeLabelMap.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "module/kpr/steps/kprC_Steps.h"

namespace {

constexpr char const* kModule = "kpr";

struct Module;

}  // namespace

void kprC_initialize(int& count) {
  ddb_EnterModule<Module>(count, kprC_moduleNumber, kModule, [] {
    mdl_ExtensionSubject::RegisterExtension(ddr_Model::stepsCmd(), cow_Handle<kprC_StepContainer>::Make());
    mdl_ExtensionSubject::RegisterExtension(kprC_TimePoint::repositoryCmd(), cow_Handle<kprC_TimePointMap>::Make());
    ddb_OfferRepository<kprC_AdptMeshCons>(kprC_AdptMeshCons::adptMeshConsRepositoryCmd());
    thr_GlobalSingleton<nex_Catalogues>::Instance().Register(kprC_Errors());
    kprC_DescribeSteps();
    thr_ThreadSingleton<kprC_LabelsBitMap>::Instance();  // as the C library would end the program over it where memory runs out
#define DDB_STEP(number, Class)
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kpr/Types.def"
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kpr/mesh/Types.def"
  });
}

void kprC_finalize(int& count) {
  ddb_LeaveModule<Module>(count, kprC_moduleNumber, [] {
    thr_ThreadSingleton<kprC_LabelsBitMap>::Finalize();
    thr_GlobalSingleton<kprC_ProcedureTypeLabelMap>::Finalize();
    thr_GlobalSingleton<nex_Catalogues>::Instance().Withdraw(kModule);
    thr_GlobalSingleton<kprC_AdptMeshConsTypeLabelMap>::Finalize();
    mdl_ExtensionSubject::UnregisterExtension(kprC_AdptMeshCons::adptMeshConsRepositoryCmd());
    mdl_ExtensionSubject::UnregisterExtension(kprC_TimePoint::repositoryCmd());
    mdl_ExtensionSubject::UnregisterExtension(ddr_Model::stepsCmd());
  });
}
