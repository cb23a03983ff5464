#include "module/kbc/kbcC_module.h"

#include "framework/ddr_Shortcut.h"
#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_MotionBC.h"
#include "module/kbc/kbcC_SubmodelBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/kpr/family/ddb_FamilyModule.h"

namespace {
template <class T> constexpr kbcC_Constructor Row() { return kprC_ConstructorOf<kbcC_BC, T>(); }
template <std::size_t Kind> constexpr kbcC_Constructor KindRow() {
  return {kbcC_TypeBC::kKinds[Kind].constructorCmd, kbcC_TypeBC::label(),
          []() -> std::unique_ptr<kbcC_BC> { return std::make_unique<kbcC_TypeBC>(kbcC_TypeBC::kKinds[Kind].kind); }};
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
    Row<kbcC_SymmBC>(),
    Row<kbcC_VelocityBC>(),
    Row<kbcC_AccelerationBC>(),
    Row<kbcC_ConnDisplacementBC>(),
    Row<kbcC_ConnVelocityBC>(),
    Row<kbcC_ConnAccelerationBC>(),
    Row<kbcC_MassFlowBC>(),
    Row<kbcC_TemperatureBC>(),
    Row<kbcC_PorePressureBC>(),
    Row<kbcC_AcousticPressureBC>(),
    Row<kbcC_FluidCavityPressureBC>(),
    Row<kbcC_ElectricPotentialBC>(),
    Row<kbcC_ConcentrationBC>(),
    Row<kbcC_SubmodelBC>(),
};
}  // namespace

std::span<kbcC_Constructor const> kbcC_Constructors() { return kConstructors; }

void kbcC_initialize(int& count) {
  ddb_EnterFamily<kbcC_BC>(count, kbcC_moduleNumber, ddr_Model::bcCmd(), kbcC_Errors(), [] {
#define KBC_TYPE(number, Class, name) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kbc/Types.def"
#undef KBC_TYPE
  });
}

void kbcC_finalize(int& count) { ddb_LeaveFamily<kbcC_BC>(count, kbcC_moduleNumber, ddr_Model::bcCmd()); }
