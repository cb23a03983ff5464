#pragma once

#include "module/DDB_GeometricAttributes.h"

namespace gattr {

/// Keeps the library started as long as it lives. Several may live at once: the last one stops it.
class Library {
public:
  Library() { DDB_GeometricAttributes_initialize(count_); }
  ~Library() { DDB_GeometricAttributes_finalize(count_); }
  Library(Library const&) = delete;
  Library& operator=(Library const&) = delete;

private:
  int count_ = 0;
};

}  // namespace gattr
