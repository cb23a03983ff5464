#include "platform/BasicUtils/cls_Uid.h"

#include <atomic>

std::uint64_t cls_Uid::AllocateNumber() {
  constexpr std::uint64_t kBlock = 4096;
  static std::atomic<std::uint64_t> taken{0};
  // in the thread's own block of the program: a look at it is no call
  [[gnu::tls_model("initial-exec")]] thread_local std::uint64_t last = 0;
  if (last % kBlock == 0) { last = taken.fetch_add(kBlock, std::memory_order_relaxed); }
  return ++last;
}
