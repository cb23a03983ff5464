#include "command/Warnings.h"

#include <algorithm>
#include <array>
#include <set>

#include "command/Command.h"
#include "command/Words.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// "degrees of freedom 1 and 3"; "value" where there are no components.
std::string ComponentsText(std::uint32_t components) {
  if (components == 1U << kprC_oneValue) { return "value"; }
  std::vector<std::string> numbers;
  for (unsigned number = 1; number < 32; ++number) {
    if ((components >> number & 1U) != 0) { numbers.push_back(std::to_string(number)); }
  }
  std::string text = numbers.size() == 1 ? "degree of freedom " : "degrees of freedom ";
  for (std::size_t i = 0; i < numbers.size(); ++i) { text += (i == 0 ? "" : i + 1 == numbers.size() ? " and " : ", ") + numbers[i]; }
  return text;
}

}  // namespace

void Warnings::Add(FindingKind found, kprC_StepDependent const& item, std::string step, std::string member, std::string text,
                   std::string hint) {
  Finding finding;
  finding.found = found;
  finding.kind = repository_.ItemCmd();
  finding.name = item.Name().View();
  finding.step = std::move(step);
  finding.member = std::move(member);
  finding.refusal.message = std::move(text);
  finding.hint = std::move(hint);
  findings_.push_back(std::move(finding));
}

void Warnings::LookAt(kprC_StepDependent const& item) {
  if (item.IsSuppressed() || item.CreateStepName().IsEmpty()) { return; }
  LookAtRegion(item);
  LookAtValues(item);
}

void Warnings::LookAtRegion(kprC_StepDependent const& item) {
  kprC_ActsOn const actsOn = item.ActsOn();
  bool const ofSurfaces = actsOn == kprC_ActsOn::Surfaces;
  bool acts = actsOn == kprC_ActsOn::Anything || actsOn == kprC_ActsOn::Model;
  std::string member = actsOn == kprC_ActsOn::Connectors ? "connectors" : "region";
  ForEachNamed(item, [&](cls_MemberRow const& row, cls_Reference kind, std::string_view name, cls_Object const* whole) {
    acts = acts || kind == cls_Reference::Region || kind == cls_Reference::Connector;
    auto const* const region = dynamic_cast<rgnC_Region const*>(whole);
    if (!row.text.settable || region == nullptr || (actsOn != kprC_ActsOn::Sets && !ofSurfaces)) { return; }
    if ((region->Type() == rgnC_Surface) == ofSurfaces) { return; }
    std::string const named = ofSurfaces ? " is a set, and the type acts on surfaces." : " is a surface, and the type acts on sets.";
    Add(FindingKind::OtherRegion, item, {}, std::string(ArgumentName(row)), Quoted(name) + named,
        ofSurfaces ? R"(Declare the faces with "Surface" and name that.)" : R"(Declare the nodes or elements with "Set" and name that.)");
  });
  if (acts) { return; }
  Add(FindingKind::ActsOnNothing, item, {}, member, "It acts on nothing.", R"("setValues" takes )" + Quoted(member) + ".");
}

void Warnings::LookAtValues(kprC_StepDependent const& item) {
  std::string csys;
  std::vector<std::pair<cls_Reference, std::string>> targets;
  ForEachNamed(item, [&](cls_MemberRow const& row, cls_Reference kind, std::string_view name, cls_Object const*) {
    if (!row.text.settable) { return; }  // the states, which may name as much
    if (kind == cls_Reference::CoordinateSystem) { csys = name; }
    if (kind == cls_Reference::Region || kind == cls_Reference::Connector) { targets.emplace_back(kind, name); }
  });
  bool could = false, does = false;
  std::set<std::string_view> open;
  item.ForEachRun([&](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const* state) {
    bool const active = (repository_.Statuses()[static_cast<std::size_t>(status)] & kprC_Active) != 0;
    kprC_Prescription const here = state == nullptr ? kprC_Prescription() : item.Prescribes(*state);
    if (active && state != nullptr) { LookAtOpen(item, begin, *state, open); }
    could = could || here.quantity != 0;
    does = does || here.components != 0;
    if (!active || here.components == 0) { return; }
    for (auto const& [kind, name] : targets) { spans_[{kind, name, csys, here.quantity}].push_back({begin, end, &item, here.components}); }
  });
  if (!could || does) { return; }
  std::string const step(item.CreateStepName().View());
  Add(FindingKind::PrescribesNothing, item, step, {}, "It prescribes nothing, in no step.",
      R"("setValuesInStep" gives it a value, or "delete" takes it away.)");
}

void Warnings::LookAtOpen(kprC_StepDependent const& item, std::size_t index, cls_Object const& state, std::set<std::string_view>& told) {
  std::string_view const member = item.Lacks(state);
  if (member.empty() || !told.insert(member).second) { return; }
  Add(FindingKind::LeftOpen, item, std::string(item.Steps().Name(index).View()), std::string(member),
      "It says nothing without " + Quoted(member) + ".", R"("setValues" or "setValuesInStep" takes )" + Quoted(member) + ".");
}

void Warnings::LookAtAll() {
  for (auto& [target, spans] : spans_) { LookAtSpans(target, spans); }
}

void Warnings::LookAtSpans(Target const& target, std::vector<Span>& spans) {
  std::ranges::stable_sort(spans, {}, &Span::begin);
  std::array<Span const*, 32> last{};  // by component, the one that lasts longest
  std::set<kprC_StepDependent const*> told;
  for (Span const& span : spans) {
    kprC_StepDependent const* other = nullptr;
    std::uint32_t shared = 0;
    for (unsigned component = 1; component < last.size(); ++component) {
      if ((span.components >> component & 1U) == 0) { continue; }
      Span const*& before = last[component];
      bool const meets = before != nullptr && before->end > span.begin && before->item != span.item;
      if (meets && other == nullptr) { other = before->item; }
      if (meets && other == before->item) { shared |= 1U << component; }
      if (before == nullptr || before->end < span.end) { before = &span; }
    }
    if (other == nullptr || !told.insert(span.item).second) { continue; }
    std::string const step(span.item->Steps().Name(span.begin).View());
    Add(FindingKind::PrescribedTwice, *span.item, step, {},
        "It prescribes the " + ComponentsText(shared) + " of " + Quoted(target.name) + ", and so does " +
            ObjectText(repository_.ItemCmd(), other->Name()) + ".",
        "Deactivate one of them in " + Quoted(step) + R"(, or give the value up there with "FREED".)");
  }
}

}  // namespace gattr
