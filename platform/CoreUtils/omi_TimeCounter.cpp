#include "platform/CoreUtils/omi_TimeCounter.h"

#include <atomic>

unsigned long long omi_gettimecounter() {
  static constinit std::atomic<unsigned long long> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}
