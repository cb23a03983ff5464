#pragma once

#include <memory>
#include <string>

#include "platform/BasicUtils/cls_Persistent.h"

/// A concrete type of a family: everything that follows from its state's class, its construction name and its label.
/// \p Derived gives the two as static constructorCmd() and label(); one that several commands make answers itself. All its stored members
/// are those of \p Base; one that has more lists them and reads them itself.
template <class Derived, class StateClass, class Base> class kprC_TypeOf : public cls_Persistent<Derived, Base> {
public:
  kprC_TypeOf() = default;
  explicit kprC_TypeOf(cls_ReadVisitor const& in) { cls_ReadMembers(static_cast<Base&>(*this), in); }

  std::unique_ptr<typename Base::State> NewState() const override { return std::make_unique<StateClass>(); }
  std::string ConstructionName() const override {
    if constexpr (requires { Derived::constructorCmd(); }) { return std::string(Derived::constructorCmd().View()); }
    return {};
  }
  std::string Label() const override { return std::string(Derived::label().View()); }

  template <class V> static constexpr void VisitMembers(V&& visit) { Base::VisitMembers(visit); }
};
