#pragma once

#include "module/kpr/Types.h"
#include "module/kpr/engine/kprC_Declarations.h"

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kpr/mesh/Types.def"

/// The way to the adaptive mesh constraints of a model.
using kprC_AdptMeshConsContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kprC_AdptMeshCons>, 1>;

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kprC_moduleNumber, number, Class)
#include "module/kpr/mesh/Types.def"
