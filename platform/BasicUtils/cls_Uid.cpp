#include "platform/BasicUtils/cls_Uid.h"

#include <atomic>

cls_Uid cls_Uid::AllocateUid() {
  static std::atomic<std::uint64_t> last{0};
  return {last.fetch_add(1, std::memory_order_relaxed) + 1, 0};
}
