#pragma once

#include <cassert>
#include <concepts>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "platform/BasicUtils/mem_Counted.h"

/// A class whose handles convert to handles of its base. The class itself is left out first, as it may still be incomplete.
template <class Derived, class Base>
concept cow_DerivedFrom = !std::same_as<Derived, Base> && std::derived_from<Derived, Base>;

/// A shared handle to a \p T that is copied only when it is to be changed: reading goes through * and ->, which are
/// const; Get() is the one way to change, and first makes the object the handle's own. Copying a handle is therefore
/// as good as copying the object, and costs one count.
///
/// \p T derives from mem_Counted. One pointer wide; may be null, and reading or changing a null handle is an error of
/// the program. Different handles to one object may be used by different threads at once; one handle may not.
template <class T> class cow_Handle {
public:
  cow_Handle() noexcept = default;
  cow_Handle(std::nullptr_t) noexcept {}
  explicit cow_Handle(std::unique_ptr<T> object) noexcept : object_(object.release()) { Retain(); }
  template <class... Args> [[nodiscard]] static cow_Handle Make(Args&&... args) {
    return cow_Handle(std::make_unique<T>(std::forward<Args>(args)...));
  }

  /// A further handle to an object that handles hold already.
  [[nodiscard]] static cow_Handle Sharing(T const& object) noexcept {
    cow_Handle handle;
    handle.object_ = const_cast<T*>(&object);  // changed through Get() only, which copies what is shared
    handle.Retain();
    return handle;
  }

  cow_Handle(cow_Handle const& other) noexcept : object_(other.object_) { Retain(); }
  cow_Handle(cow_Handle&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <cow_DerivedFrom<T> Derived> cow_Handle(cow_Handle<Derived> const& other) noexcept : cow_Handle(cow_Handle<Derived>(other)) {}
  template <cow_DerivedFrom<T> Derived> cow_Handle(cow_Handle<Derived>&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {
    static_assert(std::has_virtual_destructor_v<T>, "the handle to the base destroys the object");
  }
  // By value: right for a handle to itself, and for one that lives inside the object that is let go.
  cow_Handle& operator=(cow_Handle other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~cow_Handle() {
    if (object_ != nullptr && object_->Release()) { delete object_; }
  }

  explicit operator bool() const noexcept { return object_ != nullptr; }
  T const& operator*() const noexcept {
    assert(object_ != nullptr);
    return *object_;
  }
  T const* operator->() const noexcept {
    assert(object_ != nullptr);
    return object_;
  }
  /// Null for a null handle.
  T const* ConstGet() const noexcept { return object_; }

  /// The object, to be changed. Shared with other handles it is copied first: by its own Copy(), which keeps the class
  /// of the object, or where \p T has none by its copy constructor. The reference is good until this handle is
  /// copied or assigned: a change made later through it would show in the copy.
  T& Get() {
    assert(object_ != nullptr);
    if (object_->IsShared()) { *this = cow_Handle(Separate(*object_)); }
    return *object_;
  }

  void Reset() noexcept { *this = cow_Handle(); }

  /// Whether both hold the same object, or both none. A handle compares by this, never by value.
  bool Same(cow_Handle const& other) const noexcept { return object_ == other.object_; }
  friend bool operator==(cow_Handle const& left, cow_Handle const& right) noexcept { return left.Same(right); }
  friend bool operator==(cow_Handle const& left, std::nullptr_t) noexcept { return left.object_ == nullptr; }

  /// A handle to the same object as a \p To, null when it is none.
  template <class To> [[nodiscard]] cow_Handle<To> As() const noexcept {
    cow_Handle<To> result;
    result.object_ = Cast<To>(object_);
    result.Retain();
    return result;
  }

private:
  template <class Other> friend class cow_Handle;

  void Retain() const noexcept {
    if (object_ != nullptr) { object_->Retain(); }
  }

  /// As dynamic_cast, which walks the bases by name: an object that is a To and nothing else, as most are, needs no walk.
  template <class To> static To* Cast(T* object) noexcept {
    if constexpr (requires { static_cast<To*>(object); }) {
      if (object != nullptr && typeid(*object) == typeid(To)) { return static_cast<To*>(object); }
    }
    return dynamic_cast<To*>(object);
  }

  static std::unique_ptr<T> Separate(T const& object) {
    if constexpr (requires { object.Copy().release(); }) {
      return std::unique_ptr<T>(static_cast<T*>(object.Copy().release()));  // Copy() gives the hierarchy's root
    } else {
      static_assert(!std::is_polymorphic_v<T> || std::is_final_v<T>, "give the class a Copy(), or copies are sliced");
      return std::make_unique<T>(object);
    }
  }

  T* object_ = nullptr;  // one share of it is ours
};
