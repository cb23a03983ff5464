#include "command/AtTime.h"

#include <algorithm>

#include "command/Command.h"
#include "module/klo/kloC_Vector.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"

namespace gattr {

namespace {

/// Whether the member is one that "amplitude" varies.
bool IsVaried(Origin const& origin) {
  if (origin.row->text.component != 0) { return true; }
  std::string_view const name = origin.Member();
  if (name == "magnitude" || name == "magnitudes") { return true; }
  auto const* const vector = dynamic_cast<kloC_VectorState const*>(origin.holder);
  void const* const member = origin.row->In(static_cast<void const*>(origin.holder));
  return vector != nullptr && (member == &vector->c1 || member == &vector->c2 || member == &vector->c3);
}

cls_Value Times(cls_Value const& value, double factor) {
  if (auto const* const real = value.As<double>()) { return *real * factor; }
  auto const* const list = value.As<cls_Value::List>();
  if (list == nullptr) { return value; }
  cls_Value::List scaled;
  for (cls_Value const& element : *list) { scaled.push_back(Times(element, factor)); }
  return scaled;
}

}  // namespace

bool Varies(Origin const& amplitude, Origin const& origin) {
  constexpr std::string_view kAmplitude = "amplitude", kOfOne = "Amplitude";
  if (amplitude.row->text.refers != cls_Reference::Amplitude) { return false; }
  std::string_view const name = amplitude.Member();
  bool const isOfOne = name.size() == origin.Member().size() + kOfOne.size() && name.starts_with(origin.Member()) && name.ends_with(kOfOne);
  return isOfOne || (name == kAmplitude && IsVaried(origin));
}

AtTime::AtTime(ddr_Model const& model, double stepTime) : model_(model), times_(kprC_Steps(model)), stepTime_(stepTime) {}

std::optional<double> AtTime::Factor(Origin const& origin, std::span<Origin const> members, std::size_t step) const {
  auto const amplitude = std::ranges::find_if(members, [&](Origin const& other) { return other.HasValue() && Varies(other, origin); });
  if (amplitude == members.end()) { return std::nullopt; }
  cls_Value const named = amplitude->Value();
  auto const* const name = named.As<std::string>();
  ReferenceKind const* const kind = FindReferenceKind(cls_Reference::Amplitude);
  if (name == nullptr || kind == nullptr) { return std::nullopt; }
  auto const* const curve = dynamic_cast<ampC_Curve const*>(kind->In(model_).ConstObject(*name));
  if (curve == nullptr) { return std::nullopt; }
  return times_.ValueAt(*curve, step, std::min(stepTime_, times_.Period(step)));
}

cls_Value AtTime::Of(Origin const& origin, std::span<Origin const> members, std::size_t step) const {
  std::optional<double> const factor = origin.HasValue() ? Factor(origin, members, step) : std::nullopt;
  return factor ? Times(origin.Value(), *factor) : origin.Value();
}

}  // namespace gattr
