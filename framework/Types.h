#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

class ampC_Amplitude;
class conC_Connector;
class ddr_Model;
class dtmC_Datum;
class rgnC_Region;
template <class T> class mdl_MapString2ObjCow;

inline constexpr unsigned mdl_moduleNumber = 0x213;  ///< 531

#define DDB_CLASS(number, Class)                                         \
  template <> struct cls_TypeIdOf<Class> {                               \
    static constexpr unsigned value = mdl_moduleNumber << 16 | (number); \
    static constexpr char const* kName = #Class;                         \
  };
#include "framework/Types.def"
