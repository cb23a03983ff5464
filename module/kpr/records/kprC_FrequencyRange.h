#pragma once

#include "module/kpr/Types.h"
#include "platform/BasicUtils/cls_Persistent.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"

/// How the points of a range of frequency lie between its ends.
enum class kprC_FrequencyScaleEnm { LOGARITHMIC, LINEAR };
template <> struct omu_EnumTable<kprC_FrequencyScaleEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"LOGARITHMIC", 0}, {"LINEAR", 1}, {nullptr, 0}};
};

/// A range of frequency and the points in it; what its number of points is called differs from step to step.
struct kprC_FrequencyBounds {
  double lower = cls_unsetReal, upper = cls_unsetReal;
  double bias = 1.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("lower", &kprC_FrequencyBounds::lower, cls_MemberText{"lower end", "cycles/time"});
    visit("upper", &kprC_FrequencyBounds::upper, cls_MemberText{"upper end", "cycles/time"});
    visit("bias", &kprC_FrequencyBounds::bias,
          cls_MemberText{"how the points crowd: above 1 towards the ends, below 1 towards the middle"});
  }

protected:
  bool IsBiased() const { return bias > 0.0 && bias != cls_unsetReal; }
};

/// A range of frequency of a steady-state step. It may be a single frequency, and begin at zero, where the response is static.
template <class Derived> class kprC_SteadyStateFrequency : public cls_Persistent<Derived, cls_Object>, public kprC_FrequencyBounds {
public:
  int nPoints = 20;

  /// Refuses: 40 unless 0 <= lower <= upper; 39 no point; 41 a bias that is not above 0.
  DDB_API void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_FrequencyBounds::VisitMembers(visit);
    visit("nPoints", &kprC_SteadyStateFrequency::nPoints, cls_MemberText{"number of points, the ends included; 1 for the lower end alone"});
  }
};

class DDB_API kprC_SteadyStateDirectFrequency final : public kprC_SteadyStateFrequency<kprC_SteadyStateDirectFrequency> {
public:
  kprC_SteadyStateDirectFrequency();
  explicit kprC_SteadyStateDirectFrequency(cls_ReadVisitor const& in);
};

class DDB_API kprC_SteadyStateModalFrequency final : public kprC_SteadyStateFrequency<kprC_SteadyStateModalFrequency> {
public:
  kprC_SteadyStateModalFrequency();
  explicit kprC_SteadyStateModalFrequency(cls_ReadVisitor const& in);
};

class DDB_API kprC_SteadyStateSubspaceFrequency final : public kprC_SteadyStateFrequency<kprC_SteadyStateSubspaceFrequency> {
public:
  kprC_SteadyStateSubspaceFrequency();
  explicit kprC_SteadyStateSubspaceFrequency(cls_ReadVisitor const& in);
};

/// A range of frequency of a random response step: what is random is spread over a range.
class DDB_API kprC_RandomResponseFrequency final : public cls_Persistent<kprC_RandomResponseFrequency, cls_Object>,
                                                   public kprC_FrequencyBounds {
public:
  int nCalcs = 20;

  kprC_RandomResponseFrequency();
  explicit kprC_RandomResponseFrequency(cls_ReadVisitor const& in);

  /// Refuses: 34 unless 0 < lower < upper; 33 fewer than two points; 41 a bias that is not above 0.
  void AssertValid() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    kprC_FrequencyBounds::VisitMembers(visit);
    visit("nCalcs", &kprC_RandomResponseFrequency::nCalcs, cls_MemberText{"number of points between neighbouring eigenfrequencies"});
  }
};
