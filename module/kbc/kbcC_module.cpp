#include "module/kbc/kbcC_module.h"

#include "framework/ddb_Module.h"
#include "framework/ddr_Shortcut.h"
#include "framework/kprC_PropagatingContainer.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_TypeBC.h"

namespace {
struct Module;

template <class T> std::unique_ptr<kbcC_BC> Make() { return std::make_unique<T>(); }
template <std::size_t Kind> std::unique_ptr<kbcC_BC> MakeKind() { return std::make_unique<kbcC_TypeBC>(kbcC_TypeBC::kKinds[Kind].kind); }

template <class T> constexpr kbcC_Constructor Row() { return {T::constructorCmd(), T::label(), &Make<T>}; }
template <std::size_t Kind> constexpr kbcC_Constructor KindRow() {
  return {kbcC_TypeBC::kKinds[Kind].constructorCmd, kbcC_TypeBC::label(), &MakeKind<Kind>};
}

constexpr kbcC_Constructor kConstructors[] = {
    Row<kbcC_DisplacementBC>(),
    KindRow<0>(),
    KindRow<1>(),
    KindRow<2>(),
    KindRow<3>(),
    KindRow<4>(),
    KindRow<5>(),
    KindRow<6>(),
    KindRow<7>(),
};
static_assert(std::size(kConstructors) == 1 + std::size(kbcC_TypeBC::kKinds), "a row for each kind");
}  // namespace

std::span<kbcC_Constructor const> kbcC_Constructors() { return kConstructors; }

void kbcC_initialize(int& count) {
  ddb_EnterModule<Module>(count, kbcC_moduleNumber, kbcC_BC::kModule, [] {
    mdl_ExtensionSubject::RegisterExtension(ddr_Model::bcCmd(), cow_Handle<kprC_PropagatingContainer<kbcC_BC>>::Make());
    thr_GlobalSingleton<nex_Catalogues>::Instance().Register({kbcC_BC::kModule, kbcC_Errors()});
#define KBC_TYPE(number, Class, name) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kbc/kbcC_TypeTable.def"
#undef KBC_TYPE
  });
}

void kbcC_finalize(int& count) {
  ddb_LeaveModule<Module>(count, kbcC_moduleNumber, [] {
    thr_GlobalSingleton<nex_Catalogues>::Instance().Withdraw(kbcC_BC::kModule);
    mdl_ExtensionSubject::UnregisterExtension(ddr_Model::bcCmd());
  });
}
