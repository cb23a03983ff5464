#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

template <class T> class mdl_MapString2ObjCow;

inline constexpr unsigned kprC_moduleNumber = 0x23C;  ///< 572

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kpr/Types.def"

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kprC_moduleNumber, number, Class)
#include "module/kpr/Types.def"
