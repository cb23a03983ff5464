#pragma once

#include <memory>
#include <string_view>

/// A construction command of a family and what it makes.
template <class Attribute> struct kprC_Constructor {
  std::string_view command;  ///< "DisplacementBC"
  std::string_view label;    ///< the type's label
  std::unique_ptr<Attribute> (*make)();
};

/// The command that makes a \p T.
template <class Attribute, class T> constexpr kprC_Constructor<Attribute> kprC_ConstructorOf() {
  return {T::constructorCmd(), T::label(), []() -> std::unique_ptr<Attribute> { return std::make_unique<T>(); }};
}
