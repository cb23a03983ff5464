#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

inline constexpr unsigned kprC_moduleNumber = 0x23C;

#define KPR_TYPE(number, Class)                                           \
  class Class;                                                            \
  template <> struct cls_TypeIdOf<Class> {                                \
    static constexpr unsigned value = kprC_moduleNumber << 16 | (number); \
    static constexpr char const* kName = #Class;                          \
  };
#include "module/kpr/Types.def"
#undef KPR_TYPE
