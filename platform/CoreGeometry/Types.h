#pragma once

#include "platform/BasicUtils/cls_Persistent.h"

#define DDB_CLASS(number, Class) \
  class Class;                   \
  CLS_TYPE_ID(0U, number, Class)
#include "platform/CoreGeometry/Types.def"
