#pragma once

#include <optional>

#include "framework/ddr_Model.h"
#include "module/kpf/Types.h"
#include "module/kpf/kpfC_Names.h"
#include "module/kpf/kpfC_assert.h"
#include "module/kpr/family/kprC_AmplitudeState.h"

/// How the values of a field vary over its region, or where they come from.
enum class kpfC_DistribTypeEnum {
  UNIFORM = 0,
  USER_DEFINED = 1,                ///< a user subroutine gives them
  GEOSTATIC = 2,                   ///< they follow from the weight above
  FROM_FILE = 3,                   ///< a results file of an earlier analysis holds them
  FROM_FILE_AND_USER_DEFINED = 4,  ///< a subroutine changes what the file holds
  LINEAR = 5,                      ///< along the vertical coordinate
  FIELD = 6,                       ///< a named field scales them
};
template <> struct omu_EnumTable<kpfC_DistribTypeEnum> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"UNIFORM", 0}, {"USER_DEFINED", 1}, {"GEOSTATIC", 2}, {"FROM_FILE", 3}, {"FROM_FILE_AND_USER_DEFINED", 4},
      {"LINEAR", 5},  {"FIELD", 6},        {nullptr, 0}};
};

/// Whether values are read from a results file: the field's region is not used then.
constexpr bool kpfC_RegionIgnored(kpfC_DistribTypeEnum distribution) {
  return distribution == kpfC_DistribTypeEnum::FROM_FILE || distribution == kpfC_DistribTypeEnum::FROM_FILE_AND_USER_DEFINED;
}

/// What a field sets in a step: base of the types' states.
class DDB_API kpfC_FieldState : public kprC_StateOf<kpfC_FieldState, kprC_AmplitudeState<&kpfC_Assert>>, public kpfC_FieldStateNames {
public:
  using SpaceEnm = ddr_Model::SpaceEnm;
  using DistribTypeEnum = kpfC_DistribTypeEnum;

  static constexpr omn_FixedString resetToInitialCmd() { return "resetToInitial"; }
  static constexpr omn_FixedString distributionCmd() { return "distribution"; }
  static constexpr omn_FixedString distributionTypeCmd() { return "distributionType"; }

  kpfC_FieldState() = default;
  explicit kpfC_FieldState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<omu_PrimEnum<DistribTypeEnum, 1>> distribution;

  /// UNIFORM where nothing is said.
  DistribTypeEnum Distribution() const {
    DistribTypeEnum const said = distribution.ConstGet();
    return distribution.HasValue() ? said : DistribTypeEnum::UNIFORM;
  }
  bool IsUniform() const { return Distribution() == DistribTypeEnum::UNIFORM; }
  /// Whether its values are those of one magnitude, as it is or scaled by a named field.
  bool TakesMagnitude() const { return IsUniform() || Distribution() == DistribTypeEnum::FIELD; }
  /// The one magnitude, the first of a type with several; none where it has no value, or the type no such thing.
  virtual std::optional<double> Magnitude() const { return {}; }
  /// Refuses values that are missing with the distribution, and those that do not go with it.
  void AssertValid() const override {}
  /// Refuses what a model in that space cannot have.
  virtual void AssertInSpace(SpaceEnm /*space*/) const {}

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(resetToInitialCmd(), &kpfC_FieldState::switchedOff_,
          cls_MemberText{"whether the field is back at its initial value in the step"}.NotSettable());
    visit(amplitudeCmd(), &kpfC_FieldState::amplitude,
          cls_MemberText{"name of the amplitude that scales the field over the step; empty for the step's default"}
              .Refused(kpfC_ErrorEnm::AmplitudeName)
              .RefersTo(cls_Reference::Amplitude));
    visit(distributionCmd(), &kpfC_FieldState::distribution,
          cls_MemberText{"how the values vary over the region, or where they come from"}.Called(distributionTypeCmd()));
  }
};
