#pragma once

#include "module/kpr/engine/kprC_Declarations.h"

class korC_Variables;
enum class korC_TypeEnm;
template <class E, int Dimension> class omu_PrimEnum;

inline constexpr unsigned korC_moduleNumber = 0x240;  ///< 576

using korC_FrequencyType = omu_PrimEnum<korC_TypeEnm, 1>;

class korC_FieldOutput;
class korC_HistoryOutput;
class korC_IntegratedOutputSection;
class korC_Filter;
/// The ways to the requests of a model.
using korC_FieldOutputContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<korC_FieldOutput>, 1>;
using korC_HistoryOutputContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<korC_HistoryOutput>, 1>;
/// The integrated output sections of a model by name, its extension "integratedOutputSections", and its filters, "filters".
using korC_IntegratedOutputSectionCont = mdl_MapString2ObjCow<korC_IntegratedOutputSection>;
using korC_FilterCont = mdl_MapString2ObjCow<korC_Filter>;

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kor/Types.def"

#define DDB_MEMBER(number, Value) CLS_TYPE_ID(korC_moduleNumber, number, mdl_PropAttr<Value>)
#define DDB_CLASS(number, Class) CLS_TYPE_ID(korC_moduleNumber, number, Class)
#include "module/kor/Types.def"

/// Hands the classes' metadata to the registrar.
void korC_DescribeTypes();
