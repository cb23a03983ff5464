#pragma once

#include "module/kpr/engine/kprC_Declarations.h"

inline constexpr unsigned kloC_moduleNumber = 0x288;  ///< 648

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/klo/Types.def"

/// The way to the loads of a model.
using kloC_LoadContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kloC_Load>, 1>;

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kloC_moduleNumber, number, Class)
#include "module/klo/Types.def"

/// Hands the classes' metadata to the registrar.
void kloC_DescribeTypes();
