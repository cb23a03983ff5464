#include "module/kpr/model/kprC_StepTimes.h"

#include <algorithm>

kprC_StepTimes::kprC_StepTimes(kprC_StepContainer const& steps) {
  double clock = 0.0;
  steps_.reserve(steps.Size());
  for (std::size_t i = 0; i < steps.Size(); ++i) {
    kprC_Step const& step = steps.Step(i);
    steps_.push_back({clock, step.TimePeriod()});
    if (step.Perturbation() || !(step.TimePeriod() > 0.0)) { continue; }
    clock += step.TimePeriod();
    general_.push_back(i);
  }
}

std::pair<std::size_t, double> kprC_StepTimes::At(double total) const {
  if (general_.empty() || !(total >= 0.0)) { return {0, total}; }
  auto const endsBefore = [this](std::size_t step, double time) { return Total(step, Period(step)) < time; };
  auto const runs = std::lower_bound(general_.begin(), general_.end(), total, endsBefore);
  std::size_t const step = runs == general_.end() ? general_.back() : *runs;
  return {step, total - Start(step)};
}
