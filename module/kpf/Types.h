#pragma once

#include "module/kpr/engine/kprC_Declarations.h"

inline constexpr unsigned kpfC_moduleNumber = 0x2EC;  ///< 748

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kpf/Types.def"

/// The way to the predefined fields of a model.
using kpfC_FieldContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kpfC_Field>, 1>;

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kpfC_moduleNumber, number, Class)
#include "module/kpf/Types.def"

/// Hands the classes' metadata to the registrar.
void kpfC_DescribeTypes();
