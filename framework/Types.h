#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

class ampC_Amplitude;
class conC_Connector;
class cow_String;
class ddr_Model;
class dtmC_Datum;
class dtmC_DatumRef;
class lcsC_LoadCase;
class rgnC_Region;
template <class T> class cow_1DArrayList;
template <class T> class cow_2DArray;
template <class T> class cow_List;
template <class T> class mdl_MapString2ObjCow;
template <class T> class mdl_PropAttr;

inline constexpr unsigned mdl_moduleNumber = 0x213;  ///< 531

#define DDB_CLASS(number, Class) CLS_TYPE_ID(mdl_moduleNumber, number, Class)
#define DDB_MEMBER(number, Value) CLS_TYPE_ID(mdl_moduleNumber, number, mdl_PropAttr<Value>)
#include "framework/Types.def"
