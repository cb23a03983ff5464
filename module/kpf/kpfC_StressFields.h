#pragma once

#include "module/kpf/kpfC_ScalarFields.h"

/// What the region of a stress is made of, which says how many components the stress has.
enum class kpfC_SectionTypeEnm {
  SOLID = 0,
  REGULAR_SHELL = 1,
  GENERALIZED_SHELL = 2,
  MEMBRANE = 3,
  REGULAR_BEAM = 4,
  GENERALIZED_BEAM = 5,
  TRUSS = 6,
};
template <> struct omu_EnumTable<kpfC_SectionTypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"SOLID", 0},    {"REGULAR_SHELL", 1}, {"GENERALIZED_SHELL", 2},
                                                               {"MEMBRANE", 3}, {"REGULAR_BEAM", 4},  {"GENERALIZED_BEAM", 5},
                                                               {"TRUSS", 6},    {nullptr, 0}};
};

/// The components of stress that a section has in a space; 0 where there is no such section.
DDB_API std::size_t kpfC_StressComponents(kpfC_SectionTypeEnm section, ddr_Model::SpaceEnm space);

/// A class of states over \p Base with a uniform stress tensor.
template <class Derived, class Base> class kpfC_WithTensor : public kprC_StateOf<Derived, Base> {
public:
  using SectionTypeEnm = kpfC_SectionTypeEnm;

  mdl_PropAttr<omu_PrimEnum<SectionTypeEnm, 1>> sectionType;
  mdl_PropAttr<cow_1DArrayList<double>> stressTensor;

  /// Refuses 61 a number of components that the section does not have in that space.
  void AssertInSpace(ddr_Model::SpaceEnm space) const override {
    Base::AssertInSpace(space);
    bool const isGiven = sectionType.HasValue() && stressTensor.HasValue();
    std::size_t const count = isGiven ? kpfC_StressComponents(sectionType.ConstGet(), space) : 0;
    kpfC_Assert(!isGiven || (count != 0 && stressTensor.ConstGet().Size() == count), kpfC_ErrorEnm::StressComponentCount);
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Base::VisitMembers(visit);
    visit("sectionType", &Derived::sectionType, cls_MemberText{"what the region is made of"});
    visit("stressTensor", &Derived::stressTensor,
          cls_MemberText{"components of the stress: normal ones first, then shear; of a generalized section its forces, then its moments",
                         "force/length^2"});
  }

protected:
  /// Refuses, unless uniform, \p superfluous a tensor and 54 a section.
  void AssertNoTensor(kpfC_ErrorEnm superfluous) const {
    kpfC_Assert(this->IsUniform() || !stressTensor.HasValue(), superfluous);
    kpfC_Assert(this->IsUniform() || !sectionType.HasValue(), kpfC_ErrorEnm::SectionTypeSuperfluous);
  }
  /// Refuses, where uniform, 58 no tensor and 59 no section.
  void AssertTensor() const {
    kpfC_Assert(!this->IsUniform() || stressTensor.HasValue(), kpfC_ErrorEnm::StressTensorMissing);
    kpfC_Assert(!this->IsUniform() || sectionType.HasValue(), kpfC_ErrorEnm::SectionTypeMissing);
  }
};

/// Per-step state of an initial stress: a uniform tensor; or a vertical stress that varies linearly between two heights, and what share of
/// it acts sideways.
class DDB_API kpfC_StressState final : public kpfC_WithTensor<kpfC_StressState, kpfC_1DLinearDistrib> {
public:
  kpfC_StressState() = default;
  explicit kpfC_StressState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> lateralCoeff1, lateralCoeff2;

  /// Refuses, in this order: without the distribution GEOSTATIC 50 a magnitude, 51 a coordinate, 52 a lateral coefficient; unless uniform
  /// 53 a tensor, 54 a section; with GEOSTATIC 55, 56, 57 the same where it is missing; where uniform 58 and 59.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kpfC_WithTensor::VisitMembers(visit);
    visit("lateralCoeff1", &kpfC_StressState::lateralCoeff1, cls_MemberText{"stress along axis 1 to the vertical one"});
    visit("lateralCoeff2", &kpfC_StressState::lateralCoeff2,
          cls_MemberText{"stress along the other horizontal axis to the vertical one; that of axis 1 where it is left out"});
  }
};

/// The stress that a region is under from the beginning.
class DDB_API kpfC_Stress final : public kprC_TypeOf<kpfC_Stress, kpfC_Field> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};

/// Per-step state of a stress tensor.
class DDB_API kpfC_StressTensorState final : public kpfC_WithTensor<kpfC_StressTensorState, kpfC_FieldState> {
public:
  kpfC_StressTensorState() = default;
  explicit kpfC_StressTensorState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  /// Refuses 60 a tensor and 54 a section unless uniform, then 58 and 59 that they are missing.
  void AssertValid() const override;
};

/// The same as a tensor alone.
class DDB_API kpfC_StressTensor final : public kprC_TypeOf<kpfC_StressTensor, kpfC_Field> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
