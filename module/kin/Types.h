#pragma once

#include "module/kpr/engine/kprC_Declarations.h"

inline constexpr unsigned kinC_moduleNumber = 0x2A0;  ///< 672

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kin/Types.def"

/// The way to the interactions of a model.
using kinC_InteractionContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kinC_Interaction>, 1>;

#define DDB_MEMBER(number, Value) CLS_TYPE_ID(kinC_moduleNumber, number, mdl_PropAttr<Value>)
#define DDB_CLASS(number, Class) CLS_TYPE_ID(kinC_moduleNumber, number, Class)
#include "module/kin/Types.def"

/// Hands the classes' metadata to the registrar.
void kinC_DescribeTypes();
