#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

// What a family's table of types (Types.h) names and does not define.

class ddr_Model;
template <class T> class mdl_MapString2ObjCow;
template <class T> class mdl_PropAttr;
template <class T> class kprC_PropagatingContainer;
template <class S> class kprC_PropagatingState;
template <class Owner, class Member, int Dimension> class ddr_MemberShortcut;
