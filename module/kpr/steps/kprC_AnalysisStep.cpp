#include "module/kpr/steps/kprC_AnalysisStep.h"

namespace {
/// \p stored where the class holds the value, else \p fixed.
template <class E> E Stored(kprC_Answer answer, E stored, E fixed) { return answer == kprC_Answer::Member ? stored : fixed; }
}  // namespace

kprC_Step::ResponseEnm kprC_AnalysisStep::Response() const {
  return Stored<ResponseEnm>(Row().response, response, ResponseEnm::NOT_APPLICABLE);
}

double kprC_AnalysisStep::TimePeriod() const { return Stored(Row().period, timePeriod, Row().period == kprC_Answer::Yes ? 1.0 : 0.0); }

kprC_Step::NlgeomEnm kprC_AnalysisStep::Nlgeom() const { return Stored<NlgeomEnm>(Row().nlgeom, nlgeom, NlgeomEnm::NOT_AVAILABLE); }

kprC_Step::ConvertSDIEnm kprC_AnalysisStep::ConvertSDI() const {
  return Stored<ConvertSDIEnm>(Row().convertSDI, convertSDI, ConvertSDIEnm::CONVERT_SDI_OFF);
}
