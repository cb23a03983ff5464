#pragma once

#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "module/kpr/engine/kprC_StepTable.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "module/kpr/steps/kprC_Steps.h"

/// Short names of all procedures, for tables of tests: "INI STA GEO".
namespace test {

struct ProcedureName {
  std::string_view name;
  kprC_ProcedureType::Enm type;
};

inline constexpr ProcedureName kProcedureNames[] = {
    {"INI", kprC_ProcedureType::Initial},
    {"STA", kprC_ProcedureType::Static},
    {"RIK", kprC_ProcedureType::StaticRiks},
    {"VIS", kprC_ProcedureType::Visco},
    {"IMP", kprC_ProcedureType::ImplicitDynamics},
    {"SUB", kprC_ProcedureType::SubspaceDynamics},
    {"GEO", kprC_ProcedureType::Geostatic},
    {"SOI", kprC_ProcedureType::Soils},
    {"CTD", kprC_ProcedureType::CoupledTempDisplacement},
    {"CTE", kprC_ProcedureType::CoupledThermalElectric},
    {"HT", kprC_ProcedureType::HeatTransfer},
    {"MD", kprC_ProcedureType::MassDiffusion},
    {"EXP", kprC_ProcedureType::ExplicitDynamics},
    {"TDD", kprC_ProcedureType::TempDisplacementDynamics},
    {"ANN", kprC_ProcedureType::Anneal},
    {"USA", kprC_ProcedureType::UsaAddedMassGeneration},
    {"SGN", kprC_ProcedureType::SubstructureGenerate},
    {"SLP", kprC_ProcedureType::StaticLinearPerturbation},
    {"BUC", kprC_ProcedureType::Buckle},
    {"FRQ", kprC_ProcedureType::Frequency},
    {"CFQ", kprC_ProcedureType::ComplexFrequency},
    {"SSD", kprC_ProcedureType::SteadyStateDirect},
    {"SSM", kprC_ProcedureType::SteadyStateModal},
    {"SSS", kprC_ProcedureType::SteadyStateSubspace},
    {"MOD", kprC_ProcedureType::ModalDynamics},
    {"RAN", kprC_ProcedureType::RandomResponse},
    {"RSP", kprC_ProcedureType::ResponseSpectrum},
};
static_assert(std::size(kProcedureNames) == kprC_procedures.size() + 1, "each procedure and the initial step");

inline ProcedureName const& NamedProcedure(std::string_view name) {
  for (ProcedureName const& procedure : kProcedureNames) {
    if (procedure.name == name) { return procedure; }
  }
  throw std::invalid_argument("no procedure has the name " + std::string(name));
}
inline std::string_view NameOfProcedure(unsigned type) {
  for (ProcedureName const& procedure : kProcedureNames) {
    if (procedure.type == type) { return procedure.name; }
  }
  throw std::invalid_argument("no procedure has the type " + std::to_string(type));
}

/// Names separated by blanks.
inline std::vector<ProcedureName> NamedProcedures(std::string_view names) {
  std::vector<ProcedureName> procedures;
  std::istringstream in{std::string(names)};
  for (std::string name; in >> name;) { procedures.push_back(NamedProcedure(name)); }
  return procedures;
}
inline kprC_ProcedureSet SetOfProcedures(std::string_view names) {
  kprC_ProcedureSet set;
  for (ProcedureName const& procedure : NamedProcedures(names)) { set = set | kprC_ProcedureSet{procedure.type}; }
  return set;
}

inline kprC_StepNameProcedurePair NamedStep(std::string const& name, unsigned procedureType) {
  return {cow_String(name), kprC_MakeStep(procedureType == 0 ? kprC_InitialStep::TypeId() : procedureType)};
}
/// A step for each name, called Initial, S1, S2 and so on.
inline kprC_StepTable StepsNamed(std::string_view names) {
  kprC_StepSequence steps;
  for (ProcedureName const& procedure : NamedProcedures(names)) {
    steps.Append(NamedStep(steps.Size() == 0 ? "Initial" : "S" + std::to_string(steps.Size()), procedure.type));
  }
  return kprC_StepTable(std::move(steps));
}

}  // namespace test
