#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

#define DDB_CLASS(number, Class)                 \
  class Class;                                   \
  template <> struct cls_TypeIdOf<Class> {       \
    static constexpr unsigned value = number;    \
    static constexpr char const* kName = #Class; \
  };
#include "platform/CoreGeometry/Types.def"
