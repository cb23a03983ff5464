#include "module/kin/kinC_ActuatorSensor.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::string_view kBlank = " \t";

std::string_view Trimmed(std::string_view text) {
  std::size_t const first = text.find_first_not_of(kBlank);
  if (first == std::string_view::npos) { return {}; }
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

bool IsInteger(std::string_view text) {
  int value = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

/// Whether \p text is a list of integers with commas between them.
bool AreIntegers(std::string_view text) {
  for (;;) {
    std::size_t const comma = text.find(',');
    if (!IsInteger(Trimmed(text.substr(0, comma)))) { return false; }
    if (comma == std::string_view::npos) { return true; }
    text.remove_prefix(comma + 1);
  }
}

/// Whether \p text is U or u and one to five digits.
bool IsUserElement(std::string_view text) {
  auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return text.size() >= 2 && text.size() <= 6 && (text[0] == 'U' || text[0] == 'u') && std::ranges::all_of(text.substr(1), isDigit);
}

}  // namespace

void kinC_ActuatorSensor::AssertCreateStep(std::size_t index) const {
  kinC_Assert(Steps().IsInitial(index), kinC_ErrorEnm::SensorNotInInitialStep);
}

void kinC_ActuatorSensor::AssertWhole() const {
  AssertNoOwn(mdl_PropagationStatusEnm::Deactivated, kinC_ErrorEnm::SensorDeactivated);
  kinC_Assert(degreesOfFreedom_.IsEmpty() || AreIntegers(degreesOfFreedom_.View()), kinC_ErrorEnm::DegreesOfFreedom);
  kinC_Assert(userElementType_.IsEmpty() || IsUserElement(userElementType_.View()), kinC_ErrorEnm::UserElementType);
}

void kinC_ActuatorSensor::AssertInModel(ddr_Model const& /*model*/) const {
  kinC_Assert(!IsInExplicitAnalysis(), kinC_ErrorEnm::SensorInExplicit);
}
