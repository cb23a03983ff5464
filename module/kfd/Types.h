#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

template <class T> class mdl_MapString2ObjCow;

inline constexpr unsigned kfdC_moduleNumber = 0x35A;  ///< 858

// the classes' names, then their identities
#define DDB_CLASS(number, Class) class Class;
#define DDB_INSTANCE(number, Class)
#include "module/kfd/Types.def"

#define DDB_CLASS(number, Class) CLS_TYPE_ID(kfdC_moduleNumber, number, Class)
#include "module/kfd/Types.def"
