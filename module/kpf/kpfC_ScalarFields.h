#pragma once

#include "module/kpf/kpfC_Field.h"
#include "module/kpf/kpfC_FromFileState.h"

// Fields that are one value, and their states.

/// Per-step state of a field that may vary linearly along the vertical coordinate, between two points.
class DDB_API kpfC_1DLinearDistrib : public kprC_StateOf<kpfC_1DLinearDistrib, kpfC_FieldState> {
public:
  kpfC_1DLinearDistrib() = default;
  explicit kpfC_1DLinearDistrib(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<double> mag1, vCoord1, mag2, vCoord2;

  /// Whether it gives one of both magnitudes; whether both.
  bool HasMagnitudes() const { return mag1.HasValue() || mag2.HasValue(); }
  bool HasBothMagnitudes() const { return mag1.HasValue() && mag2.HasValue(); }
  /// The same of the coordinates.
  bool HasCoords() const { return vCoord1.HasValue() || vCoord2.HasValue(); }
  bool HasBothCoords() const { return vCoord1.HasValue() && vCoord2.HasValue(); }
  /// Refuses, in this order: 45 a magnitude, 46 a coordinate without the distribution LINEAR; with it, 47 a magnitude, 48 a coordinate
  /// that is missing.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kpfC_1DLinearDistrib;
    kpfC_FieldState::VisitMembers(visit);
    visit("mag1", &Self::mag1, cls_MemberText{"the value at the first point", "of the quantity"});
    visit("vCoord1", &Self::vCoord1, cls_MemberText{"vertical coordinate of the first point", "length"});
    visit("mag2", &Self::mag2, cls_MemberText{"the value at the second point", "of the quantity"});
    visit("vCoord2", &Self::vCoord2, cls_MemberText{"vertical coordinate of the second point", "length"});
  }
};

/// A class of states over \p Base with one magnitude; \p Derived gives its meaning and unit as value().
///
/// AssertValid refuses 62 that it is missing, unless a subroutine or a file gives the values.
template <class Derived, class Base> class kpfC_OneValue : public kprC_StateOf<Derived, Base> {
public:
  static constexpr omn_FixedString magnitudeCmd() { return "magnitude"; }

  mdl_PropAttr<double> magnitude;

  std::optional<double> Magnitude() const override { return magnitude.HasValue() ? std::optional(magnitude.ConstGet()) : std::nullopt; }
  void AssertValid() const override {
    Base::AssertValid();
    kpfC_Assert(!this->TakesMagnitude() || magnitude.HasValue(), kpfC_ErrorEnm::MagnitudeMissing);
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Base::VisitMembers(visit);
    visit(magnitudeCmd(), &Derived::magnitude, Derived::value());
  }
};

// The classes of the types that are one value: a state and a field for each such row of the table.
#define DDB_ONE_VALUE(number, Class, stateNumber, State, command, label, procedures, loadCase, distributions, refusal, Base, meaning, \
                      unit)                                                                                                           \
  class DDB_API State final : public kpfC_OneValue<State, Base> {                                                                     \
  public:                                                                                                                             \
    State() = default;                                                                                                                \
    explicit State(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }                                                         \
    static constexpr cls_MemberText value() { return {meaning, unit}; }                                                               \
  };                                                                                                                                  \
  class DDB_API Class final : public kprC_TypeOf<Class, kpfC_Field> {                                                                 \
  public:                                                                                                                             \
    using kprC_TypeOf::kprC_TypeOf;                                                                                                   \
  };
#include "module/kpf/Types.def"
