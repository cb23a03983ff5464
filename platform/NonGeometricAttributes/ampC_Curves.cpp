#include "platform/NonGeometricAttributes/ampC_Curves.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "platform/CaeUtils/omu_ValueErrorException.h"
#include "platform/CoreUtils/atr_String.h"

namespace {

[[noreturn]] void Refuse(char const* format, std::initializer_list<std::string_view> values, int line) {
  nex_Exception::Throw(omu_ValueErrorException(atr_SubstituteFormat(atr_translate(format), values)),
                       "platform/NonGeometricAttributes/ampC_Curves", line);
}

using Numbers = std::initializer_list<std::pair<std::string_view, double>>;

void AssertGiven(Numbers numbers) {
  for (auto const& [member, value] : numbers) {
    if (value == cls_unsetReal) { Refuse("\"%s\" of an amplitude is a number.", {member}, __LINE__); }
  }
}
/// Also where it is not given.
void AssertPositive(Numbers numbers) {
  AssertGiven(numbers);
  for (auto const& [member, value] : numbers) {
    if (!(value > 0.0)) { Refuse("\"%s\" of an amplitude is a number above 0.", {member}, __LINE__); }
  }
}
void AssertPairs(std::string_view member, cow_2DArray<double> const& rows) {
  if (rows.Rows() > 0 && rows.Columns() == 2) { return; }
  Refuse("\"%s\" of an amplitude is a list of rows of two numbers, at least one row.", {member}, __LINE__);
}

}  // namespace

double ampC_PointCurve::ValueAt(double time) const {
  if (points.Rows() == 0 || points.Columns() < 2) { return 0.0; }
  std::size_t low = 0, high = points.Rows();  // times before low are not above, those from high on are
  while (low < high) {
    std::size_t const middle = low + (high - low) / 2;
    if (points.ConstGet(middle, 0) <= time) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  if (low == 0 || low == points.Rows()) { return points.ConstGet(low == 0 ? 0 : low - 1, 1); }
  double const begin = points.ConstGet(low - 1, 0), end = points.ConstGet(low, 0);
  return std::lerp(points.ConstGet(low - 1, 1), points.ConstGet(low, 1), Gone((time - begin) / (end - begin)));
}

void ampC_PointCurve::AssertValid() const {
  AssertPairs("points", points);
  for (std::size_t row = 1; row < points.Rows(); ++row) {
    if (points.ConstGet(row, 0) > points.ConstGet(row - 1, 0)) { continue; }
    Refuse("The times of an amplitude rise from point to point: that of point %s is not above the one before.", {std::to_string(row + 1)},
           __LINE__);
  }
}

ampC_TabularAmplitude::ampC_TabularAmplitude() = default;
ampC_TabularAmplitude::ampC_TabularAmplitude(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

ampC_SmoothStepAmplitude::ampC_SmoothStepAmplitude() = default;
ampC_SmoothStepAmplitude::ampC_SmoothStepAmplitude(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

ampC_PeriodicAmplitude::ampC_PeriodicAmplitude() = default;
ampC_PeriodicAmplitude::ampC_PeriodicAmplitude(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

double ampC_PeriodicAmplitude::ValueAt(double time) const {
  double value = initial;
  if (!(time >= start) || coefficients.Columns() < 2) { return value; }
  for (std::size_t row = 0; row < coefficients.Rows(); ++row) {
    double const phase = static_cast<double>(row + 1) * frequency * (time - start);
    value += coefficients.ConstGet(row, 0) * std::cos(phase) + coefficients.ConstGet(row, 1) * std::sin(phase);
  }
  return value;
}

void ampC_PeriodicAmplitude::AssertValid() const {
  AssertPositive({{"frequency", frequency}});
  AssertGiven({{"start", start}, {"initial", initial}});
  AssertPairs("coefficients", coefficients);
}

ampC_DecayAmplitude::ampC_DecayAmplitude() = default;
ampC_DecayAmplitude::ampC_DecayAmplitude(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

double ampC_DecayAmplitude::ValueAt(double time) const {
  return time >= start ? initial + jump * std::exp((start - time) / decayTime) : initial;
}

void ampC_DecayAmplitude::AssertValid() const {
  AssertPositive({{"decayTime", decayTime}});
  AssertGiven({{"initial", initial}, {"jump", jump}, {"start", start}});
}
