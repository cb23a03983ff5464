#include "module/kpr/records/kprC_TimePoint.h"

#include "module/kpr/kprC_assert.h"

namespace {

constexpr double kMostIncrements = 1e6;

void AssertRow(double start, double end, double increment) {
  kprC_Assert(increment > 0.0, kprC_ErrorEnm::TimePointIncrement);
  kprC_Assert(end >= start, kprC_ErrorEnm::TimePointStartAboveEnd);
  kprC_Assert((end - start) / increment <= kMostIncrements, kprC_ErrorEnm::TooManyTimePoints);
}

}  // namespace

kprC_TimePoint::kprC_TimePoint() = default;
kprC_TimePoint::kprC_TimePoint(cow_String nameGiven) : name(std::move(nameGiven)) {}
kprC_TimePoint::kprC_TimePoint(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

void kprC_TimePoint::AssertValid() const {
  kprC_Assert(points.Rows() >= 1 && points.Columns() >= 1, kprC_ErrorEnm::TimePointsEmpty);
  kprC_Assert(points.Columns() == 1 || points.Columns() == 3, kprC_ErrorEnm::TimePointEntries);
  for (std::size_t row = 0; row < points.Rows(); ++row) {
    if (points.Columns() == 3) {
      AssertRow(points.ConstGet(row, 0), points.ConstGet(row, 1), points.ConstGet(row, 2));
    } else if (row > 0) {
      kprC_Assert(points.ConstGet(row, 0) > points.ConstGet(row - 1, 0), kprC_ErrorEnm::TimePointsOrder);
    }
  }
}
