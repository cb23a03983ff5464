#pragma once

#include <atomic>
#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

/// Base of objects that are shared through cow_Handle: the number of handles that hold the object, kept inside it so
/// that a handle is one pointer. Threads may copy and drop handles to one object at the same time; while the program has one
/// thread, counting is a plain addition. The count belongs to the object's place, not to its value: copying or assigning an
/// object leaves both counts as they are.
class mem_Counted {
public:
  void Retain() const noexcept {
    if (IsOneThread()) {
      count_.store(count_.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    } else {
      count_.fetch_add(1, std::memory_order_relaxed);
    }
  }

  /// True when the caller held the last share and now owns the object alone.
  [[nodiscard]] bool Release() const noexcept {
    // A sole owner need not write: nobody else can raise the count. What the others did with the object before they
    // let go of it is ordered before what happens next by the acquire, here as below.
    unsigned const count = count_.load(std::memory_order_acquire);
    if (count == 1) { return true; }
    if (!IsOneThread()) { return count_.fetch_sub(1, std::memory_order_acq_rel) == 1; }
    count_.store(count - 1, std::memory_order_relaxed);
    return false;
  }

  /// False means that the calling thread's share is the only one, and that changing the object disturbs nobody.
  bool IsShared() const noexcept { return count_.load(std::memory_order_acquire) > 1; }

  /// For tests and statistics: another thread may change it before the caller looks at it.
  unsigned ShareCount() const noexcept { return count_.load(std::memory_order_relaxed); }

protected:
  mem_Counted() noexcept = default;
  mem_Counted(mem_Counted const& /*other*/) noexcept {}
  mem_Counted& operator=(mem_Counted const& /*other*/) noexcept { return *this; }
  ~mem_Counted() = default;

private:
  /// Whether no other thread can be counting: none was started, as far as the C library tells.
  static bool IsOneThread() noexcept {
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded != 0;
#else
    return false;
#endif
  }

  mutable std::atomic<unsigned> count_{0};
};
