#pragma once

#include "module/kpr/engine/kprC_Declarations.h"

inline constexpr unsigned kbcC_moduleNumber = 0x298;  ///< 664

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kbc/Types.def"

/// The way to the boundary conditions of a model.
using kbcC_BCContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kbcC_BC>, 1>;

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kbcC_moduleNumber, number, Class)
#include "module/kbc/Types.def"

/// Hands the classes' metadata to the registrar.
void kbcC_DescribeTypes();
