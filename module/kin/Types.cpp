#include "module/kin/Types.h"

#include "module/kin/kinC_Interactions.h"
#include "module/kin/kinC_Properties.h"
#include "module/kin/kinC_module.h"

namespace {
using enum kprC_ProcedureType::Enm;
using enum kprC_InInitial;

using Set = kprC_ProcedureSet;

/// How a type stands in steps: the words of the table.
enum Manner { Refused, Resting, Momentary };

// Sets of procedures that several rows share. The linear ones are those in which what works on the base state's contact goes on,
// which is not the same as all perturbation procedures.
constexpr Set kNone = {};
constexpr Set kExplicit = ExplicitDynamics | TempDisplacementDynamics;
constexpr Set kStandardContact =
    Static | StaticRiks | Geostatic | Soils | Visco | ImplicitDynamics | HeatTransfer | CoupledTempDisplacement | CoupledThermalElectric;
constexpr Set kHeat = HeatTransfer | CoupledTempDisplacement | CoupledThermalElectric | TempDisplacementDynamics;
constexpr Set kAcoustic = Static | ImplicitDynamics | ExplicitDynamics | Frequency | ComplexFrequency | ModalDynamics | SubspaceDynamics |
                          SteadyStateDirect | SteadyStateModal | SteadyStateSubspace | Visco;
constexpr Set kSolid = Static | StaticRiks | Geostatic | Soils | Visco | ImplicitDynamics | CoupledTempDisplacement;
constexpr Set kLinear = Buckle | Frequency | ModalDynamics | RandomResponse | ResponseSpectrum | StaticLinearPerturbation |
                        SteadyStateDirect | SteadyStateModal | ComplexFrequency;

template <class T, class State>
constexpr kinC_TypeRow RowOf(std::string_view command, std::string_view label, Set procedures, kprC_InInitial initial, Manner manner,
                             Set also, Set alsoCarried) {
  kinC_TypeRow row{kprC_RowOf<T, State>(command, label, procedures), also, alsoCarried};
  row.inInitial = initial;
  row.propagates = manner != Momentary;
  row.refused = manner == Refused;
  return row;
}

constexpr kinC_TypeRow kTypes[] = {
#define DDB_TYPE(number, Class, stateNumber, State, ...) RowOf<Class, State>(__VA_ARGS__),
#include "module/kin/Types.def"
};

constexpr kprC_Constructor<kinC_Interaction> kConstructors[] = {
#define DDB_TYPE(number, Class, stateNumber, State, command, label, ...) {command, label, &cls_Make<Class>},
#include "module/kin/Types.def"
};

// The order of the lists of types that a step admits, which is not that of the table.
constexpr unsigned kOrder[] = {
    kinC_ContactExp::TypeId(),
    kinC_SurfaceToSurfaceContactStd::TypeId(),
    kinC_SurfaceToSurfaceContactXpl::TypeId(),
    kinC_SelfContactStd::TypeId(),
    kinC_SelfContactXpl::TypeId(),
    kinC_FilmCondition::TypeId(),
    kinC_RadiationToAmbient::TypeId(),
    kinC_ConcFilmCondition::TypeId(),
    kinC_ConcRadiationToAmbient::TypeId(),
    kinC_IncidentWave::TypeId(),
    kinC_AcousticImpedance::TypeId(),
};
constexpr unsigned kInitialOrder[] = {
    kinC_ContactExp::TypeId(),     kinC_SurfaceToSurfaceContactXpl::TypeId(),
    kinC_SelfContactXpl::TypeId(), kinC_SurfaceToSurfaceContactStd::TypeId(),
    kinC_SelfContactStd::TypeId(), kinC_ElasticFoundation::TypeId(),
    kinC_ActuatorSensor::TypeId(), kinC_AcousticImpedance::TypeId(),
};
}  // namespace

std::span<kinC_TypeRow const> kinC_Types() { return kTypes; }

std::span<kprC_Constructor<kinC_Interaction> const> kinC_Interaction::Constructors() { return kConstructors; }

std::string_view kinC_TypeText(unsigned typeId) {
  auto const* row = kprC_FindType(kinC_Types(), typeId);
  return row == nullptr ? std::string_view() : row->label;
}

bool kinC_isValidInteractionTypeforStep(unsigned typeId, unsigned procedureType, bool initialRelaxed, bool explicitOnly) {
  auto const* row = kprC_FindType(kinC_Types(), typeId);
  return row != nullptr && row->Grants(procedureType, initialRelaxed, explicitOnly);
}

cow_List<cow_String> kinC_ValidInteractions(unsigned procedureType, bool initialRelaxed, bool explicitOnly) {
  cow_List<cow_String> names;
  for (unsigned const typeId : procedureType == 0 ? std::span<unsigned const>(kInitialOrder) : kOrder) {
    kinC_TypeRow const& row = *kprC_FindType(kinC_Types(), typeId);
    if (row.Grants(procedureType, initialRelaxed, explicitOnly)) { names.Append(cow_String(row.label)); }
  }
  return names;
}

void kinC_DescribeTypes() {
#define DDB_INSTANCE(number, Class)  // those are described by the module
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kin/Types.def"
}
