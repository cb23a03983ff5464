#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "platform/CoreUtils/ddb_Export.h"

/// The one \p T of the process, made when first asked for. \p T must be exported (DDB_API): then every shared library
/// gets the same object.
template <class T> class DDB_API thr_GlobalSingleton {
public:
  /// May be called from several threads at once; using the object is \p T's own affair. Costs an atomic load.
  static T& Instance() {
    Slot& slot = TheSlot();
    if (T* const existing = slot.current.load(std::memory_order_acquire)) { return *existing; }
    std::lock_guard const lock(slot.mutex);
    if (!slot.owner) {
      slot.owner = std::make_unique<T>();
      slot.current.store(slot.owner.get(), std::memory_order_release);
    }
    return *slot.owner;
  }

  /// Destroys the object; the next Instance() makes a new one. No other thread may still be using it.
  static void Finalize() {
    Slot& slot = TheSlot();
    std::unique_ptr<T> last;  // destroyed after the lock is released: T's destructor may ask for other singletons
    std::lock_guard const lock(slot.mutex);
    slot.current.store(nullptr, std::memory_order_release);
    last = std::move(slot.owner);
  }

private:
  struct Slot {
    std::atomic<T*> current{nullptr};
    std::mutex mutex;
    std::unique_ptr<T> owner;
  };
  static Slot& TheSlot() {
    static Slot slot;
    return slot;
  }
};

/// The one \p T of each thread, made when the thread first asks for it and destroyed with the thread.
template <class T> class DDB_API thr_ThreadSingleton {
public:
  static T& Instance() {
    std::unique_ptr<T>& owner = TheSlot();
    if (!owner) { owner = std::make_unique<T>(); }
    return *owner;
  }

  /// Destroys this thread's object; its next Instance() makes a new one.
  static void Finalize() { TheSlot().reset(); }

private:
  static std::unique_ptr<T>& TheSlot() {
    thread_local std::unique_ptr<T> slot;
    return slot;
  }
};
