#include "module/kpr/steps/kprC_AnalysisStep.h"

namespace {
/// \p stored where the class holds the value, else \p fixed.
template <class E> E Stored(kprC_Answer answer, E stored, E fixed) { return answer == kprC_Answer::Member ? stored : fixed; }
}  // namespace

// A class that holds the value answers it, whatever was stored: what others answer instead would get it around rules.
kprC_Step::ResponseEnm kprC_AnalysisStep::Response() const {
  if (Row().response != kprC_Answer::Member) { return ResponseEnm::NOT_APPLICABLE; }
  return response == ResponseEnm::STEADY_STATE ? ResponseEnm::STEADY_STATE : ResponseEnm::TRANSIENT;
}

double kprC_AnalysisStep::TimePeriod() const { return Stored(Row().period, timePeriod, Row().period == kprC_Answer::Yes ? 1.0 : 0.0); }

kprC_Step::NlgeomEnm kprC_AnalysisStep::Nlgeom() const {
  if (Row().nlgeom != kprC_Answer::Member) { return NlgeomEnm::NOT_AVAILABLE; }
  return nlgeom == NlgeomEnm::ON ? NlgeomEnm::ON : NlgeomEnm::OFF;
}

kprC_Step::ConvertSDIEnm kprC_AnalysisStep::ConvertSDI() const {
  return Stored<ConvertSDIEnm>(Row().convertSDI, convertSDI, ConvertSDIEnm::CONVERT_SDI_OFF);
}
