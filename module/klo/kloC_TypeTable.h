#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

class ddr_Model;
template <class T> class kprC_PropagatingContainer;
template <class S> class kprC_PropagatingState;
template <class Owner, class Member, int Dimension> class ddr_MemberShortcut;

inline constexpr unsigned kloC_moduleNumber = 0x288;  ///< 648

// the classes' names, then their identities
#define KLO_TYPE(number, Class, name) class Class;
#define KLO_TYPE_INSTANCE(number, Class, name)
#include "module/klo/Types.def"

/// The way to the loads of a model.
using kloC_LoadContainerShortcut = ddr_MemberShortcut<ddr_Model, kprC_PropagatingContainer<kloC_Load>, 1>;

#define KLO_TYPE(number, Class, name)                                     \
  template <> struct cls_TypeIdOf<Class> {                                \
    static constexpr unsigned value = kloC_moduleNumber << 16 | (number); \
    static constexpr char const* kName = name;                            \
  };
#include "module/klo/Types.def"
