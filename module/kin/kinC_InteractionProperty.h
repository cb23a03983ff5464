#pragma once

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kin/Types.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// What an interaction property is about.
enum class kinC_CategoryEnm { MECHANICAL, THERMAL, OTHER };
template <> struct omu_EnumTable<kinC_CategoryEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MECHANICAL", 0}, {"THERMAL", 1}, {"OTHER", 2}, {nullptr, 0}};
};

/// The interaction properties of a model by name: its extension "interactionProperties".
using kinC_InteractionPropertyMap = mdl_MapString2ObjCow<kinC_InteractionProperty>;

/// What interactions refer to by name: a definition that is the same in every step.
class DDB_API kinC_InteractionProperty : public cls_Persistent<kinC_InteractionProperty, cls_Object> {
public:
  using CategoryEnm = kinC_CategoryEnm;

  static constexpr omn_FixedString nameCmd() { return "name"; }
  static constexpr omn_FixedString categoryCmd() { return "category"; }
  static constexpr omn_FixedString copyConstructorCmd() { return "InteractionProperty"; }
  static constexpr omn_FixedString interactionPropertyCmd() { return "interactionProperty"; }
  static constexpr omn_FixedString interactionPropertiesCmd() { return "interactionProperties"; }

  cow_String name;

  /// A class's answer, and no member.
  virtual CategoryEnm Category() const = 0;
  /// Raises the first rule that the property breaks as a whole.
  virtual void AssertValid() const = 0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(nameCmd(), &kinC_InteractionProperty::name, cls_MemberText{"the property's name"}.NotSettable());
  }
};

// The properties of each category.

class DDB_API kinC_MechanicalIP : public cls_Persistent<kinC_MechanicalIP, kinC_InteractionProperty> {
public:
  CategoryEnm Category() const override { return CategoryEnm::MECHANICAL; }
  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_InteractionProperty::VisitMembers(visit); }
};

class DDB_API kinC_ThermalIP : public cls_Persistent<kinC_ThermalIP, kinC_InteractionProperty> {
public:
  CategoryEnm Category() const override { return CategoryEnm::THERMAL; }
  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_InteractionProperty::VisitMembers(visit); }
};

class DDB_API kinC_OtherIP : public cls_Persistent<kinC_OtherIP, kinC_InteractionProperty> {
public:
  CategoryEnm Category() const override { return CategoryEnm::OTHER; }
  template <class V> static constexpr void VisitMembers(V&& visit) { kinC_InteractionProperty::VisitMembers(visit); }
};
