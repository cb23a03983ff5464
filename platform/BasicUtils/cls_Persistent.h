#pragma once

#include <memory>
#include <type_traits>

#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "platform/BasicUtils/cls_Members.h"

/// Type identity and name of a class: value and kName; one specialisation per row of a module's type table.
template <class T> struct cls_TypeIdOf;

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

  static void InitializeMetadata(cls_ClassRegistrar& registrar) {
    if constexpr (requires { &Base::template VisitMembers<cls_NullVisitor const&>; }) {
      static_assert(cls_ListOf<Derived> != cls_ListOf<Base>, "declare VisitMembers in this class too, even with no member of its own");
    }
    cls_ClassMetadata& info = registrar.AddClass(cls_TypeIdOf<Derived>::kName, TypeId());
    Derived::VisitMembers([&]<class C, class M>(std::string_view name, M C::*, cls_MemberText const& text) {
      cls_MemberTraits<M>::Describe(info.AddMember(name, text));
    });
    if constexpr (!std::is_abstract_v<Derived>) {
      info.read = [](cls_ReadVisitor const& in) {
        auto object = std::make_unique<Derived>(in);
        object->Restored(in);
        return cow_Handle<cls_Object>(std::move(object));
      };
      if constexpr (std::is_default_constructible_v<Derived>) {
        info.make = [] { return cow_Handle<cls_Object>(std::make_unique<Derived>()); };
      }
    }
  }

  unsigned DynTypeId() const override { return TypeId(); }

  void DBWrite(cls_WriteVisitor const& out) const override {
    if (!out.StartWrite(TypeId(), this->uid_)) { return; }  // written already
    cls_ForEachMember(Self(), [&]<class M>(std::string_view name, cls_MemberText const&, M const& value) {
      cls_MemberTraits<M>::Write(out, name, value);
    });
  }

  std::unique_ptr<cls_Object> Copy() const override {
    if constexpr (std::is_abstract_v<Derived>) {
      return nullptr;
    } else {
      return std::make_unique<Derived>(Self());
    }
  }

  void NewUid() override {
    this->uid_ = cls_Uid::AllocateUid();
    cls_ForEachMember(static_cast<Derived&>(*this),
                      []<class M>(std::string_view, cls_MemberText const&, M& value) { cls_MemberTraits<M>::NewUid(value); });
  }

  bool Equals(cls_Object const& other) const override {
    if (this == &other) { return true; }
    if (other.DynTypeId() != this->DynTypeId()) { return false; }
    auto const& that = static_cast<Derived const&>(other);
    bool equal = true;
    Derived::VisitMembers([&]<class C, class M>(std::string_view, M C::*field, cls_MemberText const&) {
      equal = equal && cls_MemberTraits<M>::Equal(Self().*field, that.*field);
    });
    return equal;
  }

  cls_Value Member(std::string_view name) const override {
    cls_Value result;
    name = this->MemberName(name);
    cls_ForEachMember(Self(), [&]<class M>(std::string_view own, cls_MemberText const&, M const& value) {
      if (own == name) { result = cls_MemberTraits<M>::ToValue(value); }
    });
    return result;
  }

  bool SetMember(std::string_view name, cls_Value const& from) override {
    bool found = false;
    name = this->MemberName(name);
    cls_ForEachMember(static_cast<Derived&>(*this), [&]<class M>(std::string_view own, cls_MemberText const& text, M& value) {
      if (own != name) { return; }
      found = true;
      std::string_view const expected = cls_MemberTraits<M>::FromValue(value, from);
      if (expected != "") { this->RefuseValue(name, text, expected); }
    });
    return found;
  }

protected:
  Derived const& Self() const { return static_cast<Derived const&>(*this); }
};
