#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

class ddr_Model;
template <class T> class mdl_PropAttr;
template <class T> class kprC_PropagatingContainer;
template <class T> class mdl_MapString2ObjCow;
template <class S> class kprC_PropagatingState;
template <class Owner, class Member, int Dimension> class ddr_MemberShortcut;

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
