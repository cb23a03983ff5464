#include "module/kbc/Types.h"

#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_DistributedBC.h"
#include "module/kbc/kbcC_MotionBC.h"
#include "module/kbc/kbcC_SubmodelBC.h"
#include "module/kbc/kbcC_TypeBC.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kbcC_CategoryEnm;
using enum kprC_LoadCase;
using enum kbcC_TypeNameEnm;

using Set = kprC_ProcedureSet;

// Sets of procedures that several rows share.
constexpr Set kConstraining = Initial | Static | StaticRiks | Visco | ImplicitDynamics | Geostatic | Soils | CoupledTempDisplacement |
                              ExplicitDynamics | TempDisplacementDynamics | Buckle | Frequency | StaticLinearPerturbation |
                              SteadyStateDirect | SteadyStateSubspace | SubstructureGenerate;
constexpr Set kInMotion = Initial | ImplicitDynamics | ExplicitDynamics | TempDisplacementDynamics;
constexpr Set kConnectorInTime = kInMotion | Static | Visco;
constexpr Set kStepwise = Buckle | Frequency | StaticLinearPerturbation | SteadyStateDirect | SteadyStateSubspace;

// Motion is prescribed of nodes, the one value of a quantity on surfaces too.
template <class T>
constexpr kprC_ActsOn kActsOn = std::derived_from<T, kbcC_ConnectorBC>     ? kprC_ActsOn::Connectors
                                : std::derived_from<T, kbcC_DistributedBC> ? kprC_ActsOn::Regions
                                                                           : kprC_ActsOn::Sets;

constexpr bool Stays = true, Rests = false;
constexpr kbcC_TypeRow kTypes[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, procedures, category, loadCase, carried) \
  {kprC_RowOf<Class, State>(command, label, procedures, category, loadCase, kActsOn<Class>), carried},
#include "module/kbc/Types.def"
};

constexpr std::string_view LabelOf(unsigned typeId) { return kprC_FindType<kbcC_TypeRow>(kTypes, typeId)->label; }

constexpr kprC_Constructor<kbcC_BC> kConstructors[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, ...) {command, label, &cls_Make<Class>},
#define DDB_KINDS(...)
#define DDB_KIND(Class, command, kind) \
  {command, LabelOf(Class::TypeId()), []() -> std::unique_ptr<cls_Object> { return std::make_unique<Class>(kind); }},
#include "module/kbc/Types.def"
};
}  // namespace

std::span<kbcC_TypeRow const> kbcC_Types() { return kTypes; }

std::span<kprC_Constructor<kbcC_BC> const> kbcC_BC::Constructors() { return kConstructors; }

bool kbcC_isValidBCTypeforStep(unsigned typeId, unsigned procedureType) {
  kbcC_TypeRow const* row = kprC_FindType(kbcC_Types(), typeId);
  return row != nullptr && row->procedures.Contains(procedureType);
}

void kbcC_DescribeTypes() {
#define DDB_INSTANCE(number, Class)  // those are described by the module
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kbc/Types.def"
}
