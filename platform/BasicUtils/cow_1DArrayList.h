#pragma once

#include "platform/BasicUtils/cow_List.h"

/// A list used as a one-dimensional array: its places have a meaning of their own (components, axes, columns).
template <class T> class cow_1DArrayList : public cow_Sequence<T> {
public:
  using cow_Sequence<T>::cow_Sequence;
};
