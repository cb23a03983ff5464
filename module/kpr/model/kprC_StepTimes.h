#pragma once

#include <utility>
#include <vector>

#include "module/kpr/model/kprC_StepContainer.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"

/// When the steps of a model run. A step lasts its TimePeriod: what its "timePeriod" says, 1 for a geostatic and a Riks step, whose time
/// is the part of the load, 0 for one that takes no time (anneal, generation of added masses). The total time is that of the general
/// steps: a linear perturbation step looks at the state at the end of the step before and leaves the clock where it is, also where it
/// has a time of its own (modal dynamics). The initial step is at 0 and takes no time.
class DDB_API kprC_StepTimes {
public:
  /// Linear in the steps.
  explicit kprC_StepTimes(kprC_StepContainer const& steps);

  /// How long the step at \p step lasts; steps by their position.
  double Period(std::size_t step) const { return steps_[step].period; }
  /// The total time at its beginning.
  double Start(std::size_t step) const { return steps_[step].start; }
  /// The total time in the step, \p stepTime after its beginning.
  double Total(std::size_t step, double stepTime) const { return Start(step) + stepTime; }
  /// The general step that runs at \p total, and the time in it; of two that meet there, the earlier one, at its end. What lies before 0
  /// is in the initial step, what lies behind the end in the last general step. Costs the logarithm of the steps.
  std::pair<std::size_t, double> At(double total) const;
  /// The value of \p curve in the step, \p stepTime after its beginning, whatever its time counts from.
  double ValueAt(ampC_Curve const& curve, std::size_t step, double stepTime) const {
    return curve.ValueAt(curve.timeSpan == ampC_TimeSpanEnm::TOTAL ? Total(step, stepTime) : stepTime);
  }

private:
  struct Times {
    double start, period;
  };
  std::vector<Times> steps_;
  std::vector<std::size_t> general_;  // those that move the clock on
};
