#pragma once

#include "platform/BasicUtils/cls_2DArrayTraits.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"
#include "platform/NonGeometricAttributes/ampC_Amplitude.h"

/// From when on the time of a curve counts.
enum class ampC_TimeSpanEnm { STEP, TOTAL };
template <> struct omu_EnumTable<ampC_TimeSpanEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"STEP", 0}, {"TOTAL", 1}, {nullptr, 0}};
};

/// An amplitude that knows its curve: the factor on a value, over time.
class DDB_API ampC_Curve : public cls_Persistent<ampC_Curve, ampC_Amplitude> {
public:
  omu_PrimEnum<ampC_TimeSpanEnm> timeSpan = ampC_TimeSpanEnm::STEP;

  /// The factor at \p time of the curve's span. Means something of a valid curve only.
  virtual double ValueAt(double time) const = 0;
  void AssertValid() const override = 0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    ampC_Amplitude::VisitMembers(visit);
    visit("timeSpan", &ampC_Curve::timeSpan, cls_MemberText{"whether time counts from the beginning of the step or of the analysis"});
  }
};

/// A curve through points: the first value before the first of them, the last one behind the last. A look-up costs the logarithm of
/// their number.
class DDB_API ampC_PointCurve : public cls_Persistent<ampC_PointCurve, ampC_Curve> {
public:
  cow_2DArray<double> points;

  double ValueAt(double time) const final;
  /// Refuses points that are no rows of a time and a value, none, and times that do not rise.
  void AssertValid() const final;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    ampC_Curve::VisitMembers(visit);
    visit("points", &ampC_PointCurve::points, cls_MemberText{"rows of a time and a value; the times rise from row to row", "time, -"});
  }

private:
  /// How much of the way from one point to the next is gone where \p part of the time between them, from 0 to 1, is.
  virtual double Gone(double part) const = 0;
};

/// Straight lines from point to point.
class DDB_API ampC_TabularAmplitude final : public cls_Persistent<ampC_TabularAmplitude, ampC_PointCurve> {
public:
  static constexpr omn_FixedString constructorCmd() { return "TabularAmplitude"; }

  ampC_TabularAmplitude();
  explicit ampC_TabularAmplitude(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) { ampC_PointCurve::VisitMembers(visit); }

private:
  double Gone(double part) const override { return part; }
};

/// From point to point with neither speed nor acceleration at either: a0 + (a1 - a0) x^3 (10 - 15 x + 6 x^2).
class DDB_API ampC_SmoothStepAmplitude final : public cls_Persistent<ampC_SmoothStepAmplitude, ampC_PointCurve> {
public:
  static constexpr omn_FixedString constructorCmd() { return "SmoothStepAmplitude"; }

  ampC_SmoothStepAmplitude();
  explicit ampC_SmoothStepAmplitude(cls_ReadVisitor const& in);

  template <class V> static constexpr void VisitMembers(V&& visit) { ampC_PointCurve::VisitMembers(visit); }

private:
  double Gone(double part) const override { return part * part * part * (10.0 + part * (6.0 * part - 15.0)); }
};

/// A Fourier series from a time on: A0 + sum over n of (An cos(n w (t - t0)) + Bn sin(n w (t - t0))), and A0 before t0.
class DDB_API ampC_PeriodicAmplitude final : public cls_Persistent<ampC_PeriodicAmplitude, ampC_Curve> {
public:
  static constexpr omn_FixedString constructorCmd() { return "PeriodicAmplitude"; }

  double frequency = 0.0;
  double start = 0.0;
  double initial = 0.0;
  cow_2DArray<double> coefficients;

  ampC_PeriodicAmplitude();
  explicit ampC_PeriodicAmplitude(cls_ReadVisitor const& in);

  double ValueAt(double time) const override;
  /// Refuses a frequency that is not above 0, a start or initial value that is no number, and coefficients that are no rows of two.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = ampC_PeriodicAmplitude;
    ampC_Curve::VisitMembers(visit);
    visit("frequency", &Self::frequency, cls_MemberText{"w: circular frequency of the first row", "radians/time"});
    visit("start", &Self::start, cls_MemberText{"t0: when it begins to swing", "time"});
    visit("initial", &Self::initial, cls_MemberText{"A0: the value before, and the mean of what follows"});
    visit("coefficients", &Self::coefficients,
          cls_MemberText{"a row of An and Bn for n = 1, 2, ...: factors of the cosine and the sine of n times the frequency"});
  }
};

/// A jump at a time, and its decay: A0 + A exp(-(t - t0) / td), and A0 before t0.
class DDB_API ampC_DecayAmplitude final : public cls_Persistent<ampC_DecayAmplitude, ampC_Curve> {
public:
  static constexpr omn_FixedString constructorCmd() { return "DecayAmplitude"; }

  double initial = 0.0;
  double jump = 1.0;
  double start = 0.0;
  double decayTime = 0.0;

  ampC_DecayAmplitude();
  explicit ampC_DecayAmplitude(cls_ReadVisitor const& in);

  double ValueAt(double time) const override;
  /// Refuses a decay time that is not above 0, and what else is no number.
  void AssertValid() const override;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = ampC_DecayAmplitude;
    ampC_Curve::VisitMembers(visit);
    visit("initial", &Self::initial, cls_MemberText{"A0: the value before, and in the end"});
    visit("jump", &Self::jump, cls_MemberText{"A: by how much it jumps at the start"});
    visit("start", &Self::start, cls_MemberText{"t0: when it jumps", "time"});
    visit("decayTime", &Self::decayTime, cls_MemberText{"td: how long it takes to fall to 1/e of the jump", "time"});
  }
};
