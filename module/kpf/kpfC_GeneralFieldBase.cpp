#include "module/kpf/kpfC_GeneralFieldBase.h"

namespace {
/// Procedures that solve for the temperature.
constexpr kprC_ProcedureSet kThermal = {kprC_ProcedureType::HeatTransfer, kprC_ProcedureType::CoupledThermalElectric,
                                        kprC_ProcedureType::CoupledTempDisplacement, kprC_ProcedureType::TempDisplacementDynamics};
}  // namespace

std::optional<double> kpfC_GeneralFieldBaseState::Magnitude() const {
  return Count() == 0 ? std::nullopt : std::optional(magnitudes.ConstGet()[0]);
}

void kpfC_GeneralFieldBaseState::AssertValid() const {
  using enum kpfC_CrossSectionDistributionEnm;
  bool const constant = CrossSection() == CONSTANT_THROUGH_THICKNESS, overShell = CrossSection() == GRADIENTS_THROUGH_SHELL_CS;
  bool const overBeam = CrossSection() == GRADIENTS_THROUGH_BEAM_CS, atPoints = CrossSection() == POINTS_THROUGH_SECTION;
  kpfC_Assert(!IsUniform() || !constant || Count() == 1, kpfC_ErrorEnm::SingleValueRequired);
  kpfC_Assert(!IsUniform() || !overShell || Count() == 2, kpfC_ErrorEnm::ShellGradientRequired);
  kpfC_Assert(!IsUniform() || !overBeam || Count() == 2 || Count() == 3, kpfC_ErrorEnm::BeamGradientsRequired);
  bool const needsOne = Distribution() == DistribTypeEnum::FIELD || (IsUniform() && atPoints);
  kpfC_Assert(!needsOne || Count() >= 1, kpfC_ErrorEnm::MagnitudeRequired);
  kpfC_FromFileState::AssertValid();
}

void kpfC_GeneralFieldBaseState::AssertInSpace(SpaceEnm space) const {
  if (!IsUniform() || CrossSection() != CrossSectionDistributionEnm::GRADIENTS_THROUGH_BEAM_CS) { return; }
  kpfC_Assert(space != SpaceEnm::THREE_D || Count() == 3, kpfC_ErrorEnm::BeamGradientsRequired);
  kpfC_Assert(space != SpaceEnm::TWO_D_PLANAR || Count() == 2, kpfC_ErrorEnm::BeamGradientRequired);
  kpfC_Assert(space != SpaceEnm::AXISYMMETRIC, kpfC_ErrorEnm::BeamGradientsInAxisymmetric);
}

void kpfC_TemperatureState::AssertValid() const {
  kpfC_GeneralFieldBaseState::AssertValid();
  auto const isAboveZero = [](mdl_PropAttr<double> const& tolerance) { return !tolerance.HasValue() || tolerance.ConstGet() > 0.0; };
  kpfC_Assert(isAboveZero(exteriorTolerance) && isAboveZero(absoluteExteriorTolerance), kpfC_ErrorEnm::ToleranceValue);
  kpfC_Assert(!IsResultsFile() || !(exteriorTolerance.HasValue() || absoluteExteriorTolerance.HasValue()),
              kpfC_ErrorEnm::ToleranceWithResultsFile);
}

std::optional<int> kpfC_Temperature::RefusedIn(kprC_StepFacts step) const {
  if (step.Has(kprC_StepFacts::Adiabatic)) { return static_cast<int>(kpfC_ErrorEnm::AdiabaticStep); }
  if (kThermal.Contains(step.procedureType)) { return static_cast<int>(kpfC_ErrorEnm::ThermallyCoupledStep); }
  return {};
}

bool kpfC_Temperature::Admits(kprC_StepFacts step, bool carried) const {
  return !RefusedIn(step) && kprC_TypedAttribute::Admits(step, carried);
}

void kpfC_Temperature::AssertState(kpfC_FieldState const& state, std::size_t index) const {
  bool const inInitial = Steps().IsInitial(index);
  kpfC_Assert(!inInitial || state.Distribution() != USER_DEFINED, kpfC_ErrorEnm::UserDefinedInInitialStep);
  kpfC_Field::AssertState(state, index);
}
