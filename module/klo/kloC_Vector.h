#pragma once

#include <array>

#include "module/klo/kloC_Scalar.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"

/// What a component of a vector load is called and means in a type.
struct kloC_ComponentText {
  omn_FixedString name;
  std::string_view meaning;
  std::string_view unit;
  bool inPlane;  ///< exists in two dimensions too
};
using kloC_ComponentTexts = std::array<kloC_ComponentText, 3>;

/// Per-step state of a load with three components, real or complex. Types say what they are as components().
class DDB_API kloC_VectorState : public kprC_StateOf<kloC_VectorState, kloC_LoadState> {
public:
  kloC_VectorState() = default;
  explicit kloC_VectorState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }
  static constexpr kloC_ComponentTexts components() {
    return {{{"comp1", "component 1", "of the quantity", true},
             {"comp2", "component 2", "of the quantity", true},
             {"comp3", "component 3", "of the quantity", true}}};
  }

  mdl_PropAttr<double> c1, c2, c3;
  mdl_PropAttr<bool> useComplex;  ///< the complex components are taken
  mdl_PropAttr<double> complexC1Real, complexC1Imag, complexC2Real, complexC2Imag, complexC3Real, complexC3Imag;

  bool IsNonZero() const override { return HasComponent(0) || HasComponent(1) || HasComponent(2); }
  /// Refuses 11 a component that does not exist in two dimensions and is not zero.
  void AssertInSpace(SpaceEnm space) const override;

  template <class Type, class V> static constexpr void VisitFor(V&& visit) {
    using Self = kloC_VectorState;
    constexpr auto texts = Type::components();
    kloC_LoadState::VisitMembers(visit);
    visit(texts[0].name, &Self::c1, kloC_Value(texts[0].meaning, texts[0].unit));
    visit(texts[1].name, &Self::c2, kloC_Value(texts[1].meaning, texts[1].unit));
    visit(texts[2].name, &Self::c3, kloC_Value(texts[2].meaning, texts[2].unit));
    visit("useComplex", &Self::useComplex, kloC_Value("whether the complex components are taken in place of the real ones"));
    visit("complexC1Real", &Self::complexC1Real, kloC_Value("real part of the complex component 1", texts[0].unit));
    visit("complexC1Imag", &Self::complexC1Imag, kloC_Value("imaginary part of the complex component 1", texts[0].unit));
    visit("complexC2Real", &Self::complexC2Real, kloC_Value("real part of the complex component 2", texts[1].unit));
    visit("complexC2Imag", &Self::complexC2Imag, kloC_Value("imaginary part of the complex component 2", texts[1].unit));
    visit("complexC3Real", &Self::complexC3Real, kloC_Value("real part of the complex component 3", texts[2].unit));
    visit("complexC3Imag", &Self::complexC3Imag, kloC_Value("imaginary part of the complex component 3", texts[2].unit));
  }
  template <class V> static constexpr void VisitMembers(V&& visit) { VisitFor<kloC_VectorState>(visit); }

protected:
  /// Whether the component of that index is not zero.
  bool HasComponent(std::size_t index) const;

private:
  /// Whether the type has the component of that index in two dimensions.
  virtual bool IsInPlane(std::size_t index) const { return components()[index].inPlane; }
};

/// Base of the loads with three components.
class DDB_API kloC_Vector : public cls_Persistent<kloC_Vector, kloC_Load> {
public:
  template <class V> static constexpr void VisitMembers(V&& visit) { kloC_Load::VisitMembers(visit); }
};

/// A class of states with three components, by \p Derived's words for them.
template <class Derived, class Base = kloC_VectorState> class kloC_VectorOf : public kprC_StateOf<Derived, Base> {
public:
  using kprC_StateOf<Derived, Base>::kprC_StateOf;

private:
  bool IsInPlane(std::size_t index) const override { return Derived::components()[index].inPlane; }
};
