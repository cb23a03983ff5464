#pragma once

#include <gtest/gtest.h>

#include "module/DDB_GeometricAttributes.h"

namespace test {

/// A test that runs with the library started.
class WithLibrary : public ::testing::Test {
protected:
  WithLibrary() { DDB_GeometricAttributes_initialize(count_); }
  ~WithLibrary() override { DDB_GeometricAttributes_finalize(count_); }

private:
  int count_ = 0;
};

}  // namespace test
