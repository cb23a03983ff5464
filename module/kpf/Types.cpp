#include "module/kpf/Types.h"

#include "module/kpf/kpfC_Fields.h"
#include "module/kpf/kpfC_module.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kprC_LoadCase;

using Set = kprC_ProcedureSet;

// Sets of procedures of the types that live beyond the initial step.
constexpr Set kTemperature = Initial | Static | StaticRiks | Visco | ImplicitDynamics | ExplicitDynamics | Geostatic | Soils |
                             StaticLinearPerturbation | MassDiffusion;
constexpr Set kGeneralField = Initial | Static | StaticRiks | Visco | ImplicitDynamics | ExplicitDynamics | Geostatic | Soils |
                              StaticLinearPerturbation | MassDiffusion | HeatTransfer | CoupledTempDisplacement | CoupledThermalElectric |
                              TempDisplacementDynamics | SubspaceDynamics | UsaAddedMassGeneration | SubstructureGenerate;

// Distributions that types take, a bit each.
constexpr unsigned Bit(kpfC_DistribTypeEnum distribution) { return 1U << static_cast<unsigned>(distribution); }
constexpr unsigned kUniform = Bit(kpfC_DistribTypeEnum::UNIFORM), kUser = Bit(kpfC_DistribTypeEnum::USER_DEFINED),
                   kGeostatic = Bit(kpfC_DistribTypeEnum::GEOSTATIC), kLinear = Bit(kpfC_DistribTypeEnum::LINEAR),
                   kByField = Bit(kpfC_DistribTypeEnum::FIELD);
constexpr unsigned kFromFile = Bit(kpfC_DistribTypeEnum::FROM_FILE) | Bit(kpfC_DistribTypeEnum::FROM_FILE_AND_USER_DEFINED);
constexpr unsigned kRead = kUniform | kUser | kByField | kFromFile;
constexpr unsigned kNotByField = (kRead | kGeostatic | kLinear) & ~kByField;

constexpr kpfC_TypeRow Row(kprC_TypeRow row, kprC_LoadCase loadCase, unsigned distributions, kpfC_ErrorEnm refusal) {
  row.actsOn = kprC_ActsOn::Regions;
  return {row, loadCase, distributions, refusal};
}
constexpr kpfC_TypeRow kTypes[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, procedures, loadCase, distributions, refusal) \
  Row(kprC_RowOf<Class, State>(command, label, procedures), loadCase, distributions, refusal),
#include "module/kpf/Types.def"
};

constexpr kprC_Constructor<kpfC_Field> kConstructors[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, ...) {command, label, &cls_Make<Class>},
#include "module/kpf/Types.def"
};
}  // namespace

std::span<kpfC_TypeRow const> kpfC_Types() { return kTypes; }

std::span<kprC_Constructor<kpfC_Field> const> kpfC_Field::Constructors() { return kConstructors; }

std::string_view kpfC_FieldTypeLabelMap::Label(unsigned typeId) const {
  auto const* row = kprC_FindType(kpfC_Types(), typeId);
  return row == nullptr ? std::string_view() : row->label;
}

void kpfC_DescribeTypes() {
#define DDB_INSTANCE(number, Class)  // those are described by the module
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kpf/Types.def"
}
