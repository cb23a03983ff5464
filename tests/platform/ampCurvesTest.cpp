#include "platform/NonGeometricAttributes/ampC_Curves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace {

using Members = std::vector<std::pair<std::string_view, cls_Value>>;

template <class Curve> std::unique_ptr<ampC_Curve> Make(Members const& members) {
  auto curve = std::make_unique<Curve>();
  for (auto const& [name, value] : members) { curve->SetMember(name, value); }
  curve->AssertValid();
  return curve;
}

cls_Value Rows(std::vector<std::pair<double, double>> const& rows) {
  cls_Value::List list;
  for (auto const& [first, second] : rows) { list.emplace_back(cls_Value::List{first, second}); }
  return list;
}

TEST(Curves, HaveTheValuesThatTheirFormulasGive) {
  cls_Value const points = Rows({{1, 2}, {3, -2}, {7, 10}});
  Members const swing = {
      {"frequency", std::numbers::pi}, {"start", 1.0}, {"initial", 5.0}, {"coefficients", Rows({{1, 2}, {0, 0}, {0, 4}})}};
  Members const decay = {{"initial", 1.0}, {"jump", 8.0}, {"start", 2.0}, {"decayTime", 3.0 / std::numbers::ln2}};
  struct Row {
    std::unique_ptr<ampC_Curve> curve;
    std::vector<std::pair<double, double>> values;  // by time
  };
  Row const rows[] = {
      {Make<ampC_TabularAmplitude>({{"points", points}}), {{-1, 2}, {1, 2}, {1.5, 1}, {3, -2}, {6, 7}, {7, 10}, {1e9, 10}}},
      {Make<ampC_TabularAmplitude>({{"points", Rows({{1, 2}})}}), {{0, 2}, {1, 2}, {2, 2}}},
      // x = 1/4: x^3 (10 - 15 x + 6 x^2) = 53/512; x = 1/2: 1/2
      {Make<ampC_SmoothStepAmplitude>({{"points", points}}),
       {{0, 2}, {1, 2}, {1.5, 2 - 4 * 53.0 / 512}, {2, 0}, {3, -2}, {4, -2 + 12 * 53.0 / 512}, {5, 4}, {6, 10 - 12 * 53.0 / 512}, {8, 10}}},
      // sin(pi/2) = 1, sin(3 pi/2) = -1; cos(0) = 1, cos(pi) = -1
      {Make<ampC_PeriodicAmplitude>(swing), {{0, 5}, {0.999, 5}, {1, 6}, {1.5, 3}, {2, 4}, {2.5, 7}, {3, 6}}},
      {Make<ampC_DecayAmplitude>(decay), {{0, 1}, {1.999, 1}, {2, 9}, {5, 5}, {8, 3}, {11, 2}}},
  };
  for (Row const& row : rows) {
    for (auto const& [time, value] : row.values) {
      EXPECT_NEAR(row.curve->ValueAt(time), value, 1e-12) << cls_TypeIdOf<ampC_Curve>::kName << row.curve->DynTypeId() << " at " << time;
    }
  }
}

}  // namespace
