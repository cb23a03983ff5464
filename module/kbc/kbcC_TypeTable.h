#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

class ddr_Model;
template <class T> class kprC_PropagatingContainer;
template <class S> class kprC_PropagatingState;
template <class Owner, class Member, int Dimension> class ddr_MemberShortcut;

inline constexpr unsigned kbcC_moduleNumber = 0x298;  ///< 664

// the classes' names, then their identities
#define KBC_TYPE(number, Class, name) class Class;
#define KBC_TYPE_INSTANCE(number, Class, name)
#include "module/kbc/Types.def"
#undef KBC_TYPE

/// The way to the boundary conditions of a model.
using kbcC_BCContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kbcC_BC>, 1>;

#define KBC_TYPE(number, Class, name)                                     \
  template <> struct cls_TypeIdOf<Class> {                                \
    static constexpr unsigned value = kbcC_moduleNumber << 16 | (number); \
    static constexpr char const* kName = name;                            \
  };
#include "module/kbc/Types.def"
#undef KBC_TYPE
