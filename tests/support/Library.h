#pragma once

#include <gtest/gtest.h>

#include "module/DDB_GeometricAttributes.h"
#include "platform/BasicUtils/nex_Exception.h"
#include "platform/CaeUtils/omu_ValueErrorException.h"

namespace test {

/// The code of the refusal that \p work raises; -1 when it raises none.
template <class Work> int CodeOf(Work&& work) {
  try {
    work();
  } catch (nex_TextException const& refusal) { return refusal.Code(); } catch (omu_ValueErrorException const& refusal) {
    return refusal.Code();
  }
  return -1;
}

/// A test that runs with the library started.
class WithLibrary : public ::testing::Test {
protected:
  WithLibrary() { DDB_GeometricAttributes_initialize(count_); }
  ~WithLibrary() override { DDB_GeometricAttributes_finalize(count_); }

private:
  int count_ = 0;
};

}  // namespace test
