#include "module/kin/kinC_AcousticInteractions.h"

namespace {
bool HasLength(double c1, double c2, double c3) { return c1 != 0.0 || c2 != 0.0 || c3 != 0.0; }
}  // namespace

void kinC_AcousticImpedance::AssertWhole() const {
  kinC_Assert(radius_ > 0.0, kinC_ErrorEnm::Radius);
  kinC_Assert(semimajorAxis_ > 0.0, kinC_ErrorEnm::SemimajorAxis);
  kinC_Assert(eccentricity_ >= 0.0, kinC_ErrorEnm::Eccentricity);
  kinC_Assert(HasLength(cosine1_, cosine2_, cosine3_), kinC_ErrorEnm::DirectionCosine);
  bool const hasFirst = Steps().Size() > kFirstAnalysisStep;
  bool const offThere =
      hasFirst && States().HasOwn(kFirstAnalysisStep) && States().Status(kFirstAnalysisStep) == mdl_PropagationStatusEnm::Deactivated;
  kinC_Assert(!offThere, kinC_ErrorEnm::ImpedanceDeactivated);
}

void kinC_IncidentWaveState::AssertValid() const {
  bool const byAmplitude = definition == WaveEnm::PRESSURE || definition == WaveEnm::ACCELERATION;
  bool const named = amplitude.HasValue() && !amplitude.ConstGet().IsEmpty();
  kinC_Assert(!byAmplitude || named, kinC_ErrorEnm::AmplitudeName);
  kinC_Assert(!referenceMagnitude.HasValue() || referenceMagnitude.ConstGet() != 0.0, kinC_ErrorEnm::ReferenceMagnitude);
}

void kinC_IncidentWave::AssertWhole() const {
  kinC_Assert(HasLength(normal1_, normal2_, normal3_), kinC_ErrorEnm::SurfaceNormal);
  kinC_Assert(initialDepth_ > 0.0, kinC_ErrorEnm::InitialDepth);
}
