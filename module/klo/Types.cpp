#include "module/klo/Types.h"

#include "module/klo/kloC_Loads.h"
#include "module/klo/kloC_module.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kloC_CategoryEnm;
using enum kprC_LoadCase;
using enum kprC_ActsOn;

using Set = kprC_ProcedureSet;

// Sets of procedures that several rows share. The perturbation procedures here are those in which loads may be created, which
// is neither all of them nor only them.
constexpr Set kNone = {};
constexpr Set kPerturbation =
    Buckle | ModalDynamics | StaticLinearPerturbation | SteadyStateDirect | SteadyStateModal | SubspaceDynamics | SteadyStateSubspace;
constexpr Set kGeneral = Static | StaticRiks | Visco | ImplicitDynamics | Geostatic | Soils | CoupledTempDisplacement;
constexpr Set kExplicit = ExplicitDynamics | TempDisplacementDynamics;
constexpr Set kStress = kPerturbation | kGeneral | kExplicit;
constexpr Set kPlaneStrain = kPerturbation | Static | StaticRiks | Visco | ImplicitDynamics;
constexpr Set kConnector = kPlaneStrain | kExplicit;
constexpr Set kCoriolis = Static | Visco | ImplicitDynamics | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace;
constexpr Set kInertia = Static | StaticRiks | ImplicitDynamics | StaticLinearPerturbation | Buckle;
constexpr Set kHeat = CoupledTempDisplacement | CoupledThermalElectric | HeatTransfer | TempDisplacementDynamics;
constexpr Set kPores = Geostatic | Soils;
constexpr Set kCharge = Static | ImplicitDynamics | StaticLinearPerturbation | SteadyStateDirect;
constexpr Set kAcoustic = kPerturbation | kExplicit | ImplicitDynamics;

constexpr kloC_TypeRow kTypes[] = {
#define DDB_TYPE(number, Class, stateNumber, State, ...) kprC_RowOf<Class, State>(__VA_ARGS__),
#include "module/klo/Types.def"
};

constexpr kprC_Constructor<kloC_Load> kConstructors[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, ...) {command, label, &cls_Make<Class>},
#include "module/klo/Types.def"
};

cow_List<atr_String> TypesOf(kloC_CategoryEnm category, unsigned procedureType) {
  cow_List<atr_String> types;
  for (kloC_TypeRow const& row : kTypes) {
    bool const listed = !row.label.empty() && row.category == category;
    if (listed && row.procedures.Contains(procedureType)) { types.Append(atr_String(row.label)); }
  }
  return types;
}
}  // namespace

std::span<kloC_TypeRow const> kloC_Types() { return kTypes; }

std::span<kprC_Constructor<kloC_Load> const> kloC_Load::Constructors() { return kConstructors; }

std::string_view kloC_TypeText(unsigned typeId) {
  auto const* row = kprC_FindType(kloC_Types(), typeId);
  return row == nullptr ? std::string_view() : row->label;
}

cow_List<atr_String> kloC_getMechanicalLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::MECHANICAL, procedureType);
}
cow_List<atr_String> kloC_getThermalLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::THERMAL, procedureType); }
cow_List<atr_String> kloC_getFluidLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::FLUID, procedureType); }
cow_List<atr_String> kloC_getElectricalLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::ELECTRICAL, procedureType);
}
cow_List<atr_String> kloC_getMassDiffusionLoadTypesforStep(unsigned procedureType) {
  return TypesOf(kloC_CategoryEnm::MASS_DIFFUSION, procedureType);
}
cow_List<atr_String> kloC_getAcousticLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::ACOUSTIC, procedureType); }
cow_List<atr_String> kloC_getOtherLoadTypesforStep(unsigned procedureType) { return TypesOf(kloC_CategoryEnm::OTHER_LOAD, procedureType); }

void kloC_DescribeTypes() {
#define DDB_INSTANCE(number, Class)  // those are described by the module
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/klo/Types.def"
}
