#pragma once

#include <concepts>

#include "module/kpr/Types.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/CoreUtils/omn_FixedString.h"

// Damping of modes: four kinds, each a list of components that say what holds for a range of modes; three of them have a
// twin whose components say what holds at a frequency, and between two by interpolation.

/// A range of modes, the first and the last one included; modes count from 1.
struct kprC_ModeRange {
  int start = 1;
  int end = cls_unsetInteger;  ///< the last mode that there is, where not given

  /// Refuses: 18 first mode below 1; 19 last mode below 1, 20 below the first one.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("start", &kprC_ModeRange::start, cls_MemberText{"first mode"});
    visit("end", &kprC_ModeRange::end, cls_MemberText{"last mode; the last one that there is where not given"});
  }
};

/// A frequency.
struct kprC_DampingFrequency {
  double frequency = 0.0;

  /// Refuses: 159 a frequency that is negative or not given.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("frequency", &kprC_DampingFrequency::frequency, cls_MemberText{"where the values hold", "cycles/time"});
  }
};

struct kprC_CriticalFraction {
  double fraction = 0.0;

  /// Refuses: 21 a fraction that is negative or not given.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("fraction", &kprC_CriticalFraction::fraction, cls_MemberText{"fraction of critical damping"});
  }
};

struct kprC_RayleighFactors {
  double alpha = 0.0, beta = 0.0;

  /// Refuses: 22 a beta that is negative or not given. Alpha may have either sign.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("alpha", &kprC_RayleighFactors::alpha, cls_MemberText{"mass proportional damping", "1/time"});
    visit("beta", &kprC_RayleighFactors::beta, cls_MemberText{"stiffness proportional damping", "time"});
  }
};

struct kprC_StructuralFactor {
  double factor = 0.0;

  /// Refuses: 24 a factor that is negative or not given.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("factor", &kprC_StructuralFactor::factor, cls_MemberText{"ratio of the damping force to the stiffness force"});
  }
};

/// Nothing: what a component of composite damping says beside its modes.
struct kprC_MaterialsOwn {
  void AssertValid() const {}
  template <class V> static constexpr void VisitMembers(V&&) {}
};

/// A component of damping: \p Where it holds, then \p What.
template <class Derived, class Where, class What>
class kprC_DampingComponent : public cls_Persistent<Derived, cls_Object>, public Where, public What {
public:
  /// Refuses what the place refuses, then what the values refuse.
  void AssertValid() const {
    Where::AssertValid();
    What::AssertValid();
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    Where::VisitMembers(visit);
    What::VisitMembers(visit);
  }
};

/// Damping of one kind: its components in order. Scripted as their list.
template <class Derived, class C> class kprC_DampingRecord : public cls_Persistent<Derived, cls_Object> {
public:
  using Component = C;

  static constexpr omn_FixedString componentsCmd() { return "components"; }

  cls_xo1DArrayList<Component> components;

  bool IsEmpty() const { return components.IsEmpty(); }
  /// Raises the first refusal of a component, in their order.
  void AssertValid() const {
    for (Component const& component : components) { component.AssertValid(); }
  }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit(componentsCmd(), &kprC_DampingRecord::components, cls_MemberText{"what holds where"});
  }
};

#define KPR_DAMPING(Record, Where, What)                                                                 \
  class DDB_API Record##Component final : public kprC_DampingComponent<Record##Component, Where, What> { \
  public:                                                                                                \
    Record##Component();                                                                                 \
    explicit Record##Component(cls_ReadVisitor const& in);                                               \
  };                                                                                                     \
  class DDB_API Record final : public kprC_DampingRecord<Record, Record##Component> {                    \
  public:                                                                                                \
    Record();                                                                                            \
    explicit Record(cls_ReadVisitor const& in);                                                          \
  };
#include "module/kpr/records/kprC_Damping.def"
#undef KPR_DAMPING

/// A record of damping is stored whole and scripted as the list of its components.
template <class M>
  requires(std::derived_from<M, cls_Object>&& requires { typename M::Component; })
struct cls_MemberTraits<M> : cls_ObjectTraits<M> {
  using List = cls_MemberTraits<decltype(M::components)>;

  static void Describe(cls_MemberInfo& info) { List::Describe(info); }
  static cls_Value ToValue(M const& record) { return List::ToValue(record.components); }
  static std::string_view FromValue(M& record, cls_Value const& from) { return List::FromValue(record.components, from); }
};
