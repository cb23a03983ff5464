#pragma once

#include <memory>

#include "platform/BasicUtils/cls_Persistent.h"

/// A concrete type of a family whose stored members are those of \p Base. One that has more lists them and reads them itself.
template <class Derived, class Base> class kprC_TypeOf : public cls_Persistent<Derived, Base> {
public:
  static constexpr bool kReadByRows = true;

  kprC_TypeOf() = default;
  explicit kprC_TypeOf(cls_ReadVisitor const& in) { cls_ReadMembers(static_cast<Base&>(*this), in); }

  std::unique_ptr<typename Base::State> NewStateFor(unsigned procedureType) const override { return this->DefaultState(procedureType); }

  template <class V> static constexpr void VisitMembers(V&& visit) { Base::VisitMembers(visit); }
};
