#include "platform/BasicUtils/cls_Uid.h"

#include <atomic>

constinit thread_local std::uint64_t cls_Uid::last_ = 0;

void cls_Uid::TakeBlock() {
  static std::atomic<std::uint64_t> taken{0};
  last_ = taken.fetch_add(kBlock, std::memory_order_relaxed);
}
