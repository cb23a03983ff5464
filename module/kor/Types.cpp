#include "module/kor/Types.h"

#include "framework/ddr_Shortcut.h"
#include "module/kor/korC_Filter.h"
#include "module/kor/korC_IntegratedOutputSection.h"
#include "module/kor/korC_module.h"

namespace {
constexpr kprC_ProcedureSet kField = kprC_anyOutput;
constexpr kprC_ProcedureSet kHistory = kField - kprC_noHistoryOutput;

constexpr kprC_TypeRow kTypes[] = {
#define DDB_TYPE(number, Class, stateNumber, State, ...) kprC_RowOf<Class, State>(__VA_ARGS__),
#include "module/kor/Types.def"
};
/// The one construction command of a kind, by its row.
template <class Request> constexpr kprC_Constructor<Request> ConstructorOf() {
  kprC_TypeRow const& row = *kprC_FindType(std::span<kprC_TypeRow const>(kTypes), Request::TypeId());
  return {row.command, row.label, &cls_Make<Request>};
}
constexpr kprC_Constructor<korC_FieldOutput> kFieldConstructors[] = {ConstructorOf<korC_FieldOutput>()};
constexpr kprC_Constructor<korC_HistoryOutput> kHistoryConstructors[] = {ConstructorOf<korC_HistoryOutput>()};
}  // namespace

std::span<kprC_TypeRow const> korC_Types() { return kTypes; }
std::span<kprC_Constructor<korC_FieldOutput> const> korC_FieldOutput::Constructors() { return kFieldConstructors; }
std::span<kprC_Constructor<korC_HistoryOutput> const> korC_HistoryOutput::Constructors() { return kHistoryConstructors; }

void korC_DescribeTypes() {
#define DDB_CLASS(number, Class) cls_MetadataRegistrar::initClassMetadata(&Class::InitializeMetadata, ddb_metadataFlag);
#include "module/kor/Types.def"
}
