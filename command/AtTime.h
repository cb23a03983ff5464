#pragma once

#include <optional>
#include <span>

#include "command/Origins.h"
#include "framework/ddr_Model.h"
#include "module/kpr/model/kprC_StepTimes.h"
#include "platform/CoreUtils/ddb_Export.h"

namespace gattr {

/// Whether \p amplitude, a member of the same attribute that names one, varies \p origin.
DDB_API bool Varies(Origin const& amplitude, Origin const& origin);

/// What members are at a time in their steps: value times the curve of the amplitude that varies it. Components and magnitudes are varied
/// by "amplitude", a member by the one that is called after it ("filmCoefficientAmplitude"). A value without an amplitude, or of one whose
/// curve the model does not know, is as it is said.
class DDB_API AtTime {
public:
  /// \p stepTime counts from the beginning of each step; of a shorter step the end is meant. Linear in the steps.
  AtTime(ddr_Model const& model, double stepTime);

  /// The value of \p origin, one of \p members, in the step at that position; null where there is none.
  cls_Value Of(Origin const& origin, std::span<Origin const> members, std::size_t step) const;
  /// The factor of the curve that varies it; none where none is known.
  std::optional<double> Factor(Origin const& origin, std::span<Origin const> members, std::size_t step) const;

private:
  ddr_Model model_;
  kprC_StepTimes times_;
  double stepTime_;
};

}  // namespace gattr
