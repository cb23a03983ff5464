#pragma once

#include "module/kin/Types.h"
#include "module/kin/kinC_assert.h"
#include "module/kpr/engine/kprC_State.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// What an interaction sets in a step: base of the types' states. Whether the interaction is switched off there is the record's to
/// say and no member of the state.
class DDB_API kinC_InteractionState : public kprC_StateOf<kinC_InteractionState, kprC_State> {
public:
  static constexpr omn_FixedString interactionStateCmd() { return "interactionState"; }

  kinC_InteractionState() = default;
  explicit kinC_InteractionState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  /// The name of the interaction property in force; empty where the type has none.
  virtual cow_String InteractionProperty() const { return {}; }

  template <class V> static constexpr void VisitMembers(V&&) {}
};

/// Base of the states that refer to an interaction property.
template <class Derived> class kinC_WithProperty : public kprC_StateOf<Derived, kinC_InteractionState> {
public:
  static constexpr omn_FixedString interactionPropertyCmd() { return "interactionProperty"; }

  mdl_PropAttr<cow_String> interactionProperty;

  cow_String InteractionProperty() const override { return interactionProperty.HasValue() ? interactionProperty.ConstGet() : cow_String(); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kinC_InteractionState::VisitMembers(visit);
    visit(interactionPropertyCmd(), &kinC_WithProperty::interactionProperty,
          cls_MemberText{"name of the interaction property"}.RefersTo(cls_Reference::Property));
  }
};

/// The line of a list for an amplitude.
constexpr cls_MemberText kinC_AmplitudeText(std::string_view meaning) { return cls_MemberText{meaning}.RefersTo(cls_Reference::Amplitude); }
