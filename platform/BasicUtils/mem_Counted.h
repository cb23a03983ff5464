#pragma once

#include <atomic>

/// Base of objects that are shared through cow_Handle: the number of handles that hold the object, kept inside it so
/// that a handle is one pointer. Threads may copy and drop handles to one object at the same time. The count belongs
/// to the object's place, not to its value: copying or assigning an object leaves both counts as they are.
class mem_Counted {
public:
  void Retain() const noexcept { count_.fetch_add(1, std::memory_order_relaxed); }

  /// True when the caller held the last share and now owns the object alone.
  [[nodiscard]] bool Release() const noexcept {
    // A sole owner need not write: nobody else can raise the count. What the others did with the object before they
    // let go of it is ordered before what happens next by the acquire, here as below.
    return count_.load(std::memory_order_acquire) == 1 || count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
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
  mutable std::atomic<unsigned> count_{0};
};
