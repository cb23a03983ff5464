#pragma once

#include "platform/BasicUtils/cow_List.h"

/// A list of records that are changed in place, one or a few at a time, while others hold the array as it was.
template <class T> class cow_ArrayCOW : public cow_Sequence<T> {
public:
  using cow_Sequence<T>::cow_Sequence;
};
