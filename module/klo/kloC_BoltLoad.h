#pragma once

#include "module/klo/kloC_Scalar.h"

/// What a bolt load prescribes: the force in the bolt, the change of its length, or its present length.
enum class kloC_BoltMethodEnm { FORCE, LENGTH, FIXED };
template <> struct omu_EnumTable<kloC_BoltMethodEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"FORCE", 0}, {"LENGTH", 1}, {"FIXED", 2}, {nullptr, 0}};
};

/// Per-step state of a bolt load.
class DDB_API kloC_BoltLoadState final : public kprC_StateOf<kloC_BoltLoadState, kloC_ScalarState> {
public:
  kloC_BoltLoadState() = default;
  explicit kloC_BoltLoadState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr cls_MemberText value() { return kloC_Value("force in the bolt, or change of its length", "force, length"); }

  mdl_PropAttr<omu_PrimEnum<kloC_BoltMethodEnm, 1>> boltMethod;
  mdl_PropAttr<cow_String> dtmReference;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_StateOf::VisitMembers(visit);
    visit("boltMethod", &kloC_BoltLoadState::boltMethod, kloC_Value("whether a force is applied, the length adjusted, or fixed as it is"));
    visit("dtmReference", &kloC_BoltLoadState::dtmReference,
          cls_MemberText{"name of the datum axis along the bolt; solids need one"}.RefersTo(cls_Reference::Axis));
  }
};

/// Pre-tension of bolts. It is never switched off, and its creation is never moved.
///
/// Refuses in addition: 37 a creation in any step but the first analysis step, which must be a general one; 38 a fixed
/// length in the create step; 39 a region of solids without a datum axis.
class DDB_API kloC_BoltLoad final : public kprC_TypeOf<kloC_BoltLoad, kloC_Scalar> {
public:
  using kprC_TypeOf::kprC_TypeOf;
  using BoltMethodEnm = kloC_BoltMethodEnm;

  /// Refuses, whatever the steps, 35 to switch it off and 36 to move it.
  void Perform(kprC_Operation const& operation, cow_String const& step, cow_String const& toStep) override;
  void AssertInModel(ddr_Model const& model) const override;

protected:
  void AssertWhole() const override;
  /// It has to be created in the first analysis step.
  bool LooksAtSteps() const override { return true; }
  void AssertState(kloC_LoadState const& state, std::size_t index) const override;
};
