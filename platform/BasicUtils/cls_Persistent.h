#pragma once

#include <memory>
#include <type_traits>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/BasicUtils/cls_Members.h"

/// Type identity and name of a class: value and kName; one specialisation per row of a module's type table.
template <class T> struct cls_TypeIdOf;
/// That specialisation. \p module is the module's number, \p number the row's within the module's range.
#define CLS_TYPE_ID(module, number, Class)                       \
  template <> struct cls_TypeIdOf<Class> {                       \
    static constexpr unsigned value = (module) << 16 | (number); \
    static constexpr char const* kName = #Class;                 \
  };

/// A default object of the class.
template <class T> std::unique_ptr<cls_Object> cls_Make() { return std::make_unique<T>(); }

/// The overrides that every persistent class needs, from its list of members:
/// \code
///   template <class V> static constexpr void VisitMembers(V&& visit) {
///     Base::VisitMembers(visit);  // base first: the order of writing
///     visit(nameCmd(), &Derived::name_, cls_MemberText{"what it is", "unit"});
///   }
/// \endcode
/// \p Derived keeps its fields, its list and its rules, and offers a constructor from a cls_ReadVisitor unless abstract.
template <class Derived, class Base> class cls_Persistent : public Base {
public:
  using Base::Base;

  static constexpr unsigned TypeId() { return cls_TypeIdOf<Derived>::value; }

  /// Whether an object is read as a default one whose rows are filled, with nothing that its constructor adds.
  static constexpr bool kReadByRows = false;

  static void InitializeMetadata(cls_ClassRegistrar& registrar) {
    if constexpr (requires { &Base::template VisitMembers<cls_NullVisitor const&>; }) {
      static_assert(cls_ListOf<Derived> != cls_ListOf<Base>, "declare VisitMembers in this class too, even with no member of its own");
    }
    cls_ClassMetadata& info = registrar.AddClass(cls_TypeIdOf<Derived>::kName, TypeId(), cls_RowsOf<Derived>());
    if constexpr (requires { Base::TypeId(); }) { info.baseId = Base::TypeId(); }  // through what is no class of its own, too
    if constexpr (!std::is_abstract_v<Derived>) {
      if constexpr (std::is_default_constructible_v<Derived>) { info.make = &cls_Make<Derived>; }
      if constexpr (!Derived::kReadByRows) {
        info.construct = [](cls_ReadVisitor const& in) -> std::unique_ptr<cls_Object> { return std::make_unique<Derived>(in); };
      }
    }
  }

  unsigned DynTypeId() const override { return TypeId(); }
  cls_MemberRows MemberRows() const override { return cls_RowsOf<Derived>(); }

  std::unique_ptr<cls_Object> Copy() const override {
    if constexpr (std::is_abstract_v<Derived>) {
      return nullptr;
    } else {
      return std::make_unique<Derived>(Self());
    }
  }

protected:
  Derived const& Self() const { return static_cast<Derived const&>(*this); }
};
