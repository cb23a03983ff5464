// One target for clang's libFuzzer, which makes inputs that reach what others did not: cmake/fuzz.sh.
#include <cstddef>
#include <cstdint>

#include "tests/support/FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* bytes, std::size_t size) {
  fuzz::GATTR_FUZZ_TARGET({reinterpret_cast<char const*>(bytes), size});
  return 0;
}
