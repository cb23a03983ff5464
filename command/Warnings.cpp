#include "command/Warnings.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <tuple>

#include "command/Command.h"
#include "module/kbc/kbcC_BC.h"
#include "module/kin/kinC_ContactExp.h"
#include "module/kin/kinC_ContactPairs.h"
#include "module/kin/kinC_ElasticFoundation.h"
#include "module/klo/kloC_InertiaRelief.h"
#include "module/kpr/model/kprC_ModelSteps.h"
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

// What keeps a model from moving as a whole beside mechanical boundary conditions: contact may, a foundation does, inertia relief
// balances what would move it.
constexpr unsigned kHolding[] = {
    kinC_SurfaceToSurfaceContactStd::TypeId(),
    kinC_SurfaceToSurfaceContactXpl::TypeId(),
    kinC_SelfContactStd::TypeId(),
    kinC_SelfContactXpl::TypeId(),
    kinC_ContactExp::TypeId(),
    kinC_ElasticFoundation::TypeId(),
    kloC_InertiaRelief::TypeId(),
};
constexpr kprC_ProcedureSet kStaticProcedures = kprC_ProcedureType::Static | kprC_ProcedureType::StaticRiks |
                                                kprC_ProcedureType::StaticLinearPerturbation | kprC_ProcedureType::Geostatic;

/// \p here is what the attribute prescribes with its state.
bool Holds(kprC_StepDependent const& item, kprC_Prescription const& here) {
  bool const freed = here.quantity != 0 && here.components == 0;
  if (dynamic_cast<kbcC_BC const*>(&item) != nullptr) { return !freed && item.CategoryText() == "MECHANICAL"; }
  return std::ranges::find(kHolding, item.DynTypeId()) != std::end(kHolding);
}

cls_MemberRow const* RowOf(cls_Object const& object, int component) {
  auto const rows = object.MemberRows();
  auto const row = std::ranges::find_if(rows, [component](cls_MemberRow const& one) { return one.text.component == component; });
  return row == rows.end() ? nullptr : &*row;
}
/// The value that a state prescribes of a component: that of its member, 0 where the type holds it; null where it is held as it is, or
/// somebody else gives it.
std::optional<double> ValueOf(cls_Object const& state, int component) {
  cls_MemberRow const* const row = RowOf(state, component);
  if (row == nullptr) { return 0.0; }
  double const* const value = row->ops->realInForce == nullptr ? nullptr : row->ops->realInForce(row->In(static_cast<void const*>(&state)));
  return value == nullptr ? std::nullopt : std::optional(*value);
}

}  // namespace

Warnings::Warnings(ddr_Model const& model, std::vector<Finding>& findings)
    : model_(model), findings_(findings), holding_(kprC_Steps(model).Size() + 1) {}

void Warnings::Add(FindingKind found, kprC_StepDependent const& item, std::string step, std::string member, std::string text,
                   std::string hint) {
  Finding finding;
  finding.found = found;
  finding.kind = repository_->ItemCmd();
  finding.name = item.Name().View();
  finding.step = std::move(step);
  finding.member = std::move(member);
  finding.refusal.message = std::move(text);
  finding.hint = std::move(hint);
  findings_.push_back(std::move(finding));
}

void Warnings::LookAt(kprC_StepDependent const& item) {
  NoteNames(item);
  bool const isOfModel = item.Steps().Size() == kprC_Steps(model_).Size();  // an error tells of one that is not
  if (item.IsSuppressed() || item.CreateStepName().IsEmpty() || !isOfModel) { return; }
  LookAtRegion(item);
  LookAtValues(item);
}

void Warnings::NoteNames(cls_Object const& object) {
  cls_ForEachReference(object.MemberRows(), &object, [this](cls_Reference kind, std::string_view name, cls_Object const*) {
    if (kind != cls_Reference::None) { named_[kind].emplace(name); }
  });
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
  bool could = false, does = false, acts = item.Steps().Size() == 1;
  auto const* const contact = dynamic_cast<kinC_ContactExp const*>(&item);
  std::set<std::string_view> open;
  item.ForEachRun([&](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const* state) {
    std::uint8_t const traits = repository_->Statuses()[static_cast<std::size_t>(status)];
    bool const active = (traits & kprC_Active) != 0;
    acts = acts || (end > 1 && (traits & (kprC_Active | kprC_BuiltIn)) != 0);
    kprC_Prescription const here = state == nullptr ? kprC_Prescription() : item.Prescribes(*state);
    if (active && state != nullptr) { LookAtOpen(item, begin, *state, open); }
    could = could || here.quantity != 0;
    does = does || here.components != 0;
    if (active && Holds(item, here)) {
      ++holding_[begin];
      --holding_[end];
    }
    cow_String const& step = item.Steps().Name(begin);
    if (active && contact != nullptr && contact->InteractionProperty(step).IsEmpty() && open.insert("contactProperty").second) {
      Add(FindingKind::NoProperty, item, std::string(step.View()), {}, "Contact has no property.",
          R"("appendInStep" assigns one to the whole.)");
    }
    if (!active || here.components == 0) { return; }
    for (auto const& [kind, name] : targets) {
      spans_[{kind, name, csys, here.quantity}].push_back({begin, end, &item, state, here.components});
    }
  });
  if (!acts) {
    Add(FindingKind::InForceNowhere, item, std::string(item.CreateStepName().View()), {}, "It is in force in no step of the analysis.",
        R"("delete" takes it away.)");
  }
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

bool Warnings::PrescribeAlike(Span const& span, Span const& other, int component) {
  std::optional<double> const value = ValueOf(*span.state, component), before = ValueOf(*other.state, component);
  if (value != before) { return false; }
  if (value == 0.0) { return true; }
  if (span.state->DynTypeId() != other.state->DynTypeId() || span.item->DynTypeId() != other.item->DynTypeId()) { return false; }
  auto const areEqual = [](cls_Object const& one, cls_Object const& two, auto const& counts) {
    return std::ranges::all_of(one.MemberRows(), [&](cls_MemberRow const& row) {
      return !counts(row) || row.ops->equal(row.In(static_cast<void const*>(&one)), row.In(static_cast<void const*>(&two)));
    });
  };
  return areEqual(*span.item, *other.item, [](cls_MemberRow const& row) { return row.text.settable; }) &&
         RowOf(*span.state, component) != nullptr &&
         span.state->Member("amplitude") == other.state->Member("amplitude");  // both of one class: none where it has none
}

void Warnings::LookAtFamily() {
  for (auto& [target, spans] : spans_) { LookAtSpans(target, spans); }
  spans_.clear();
}

void Warnings::LookAtSpans(Target const& target, std::vector<Span>& spans) {
  if (spans.size() == 1) { return; }
  struct Met {
    kprC_StepDependent const* other = nullptr;
    std::uint32_t shared = 0;
  };
  std::ranges::stable_sort(spans, {}, &Span::begin);
  std::array<Span const*, 32> last{};  // by component, the one that lasts longest
  std::set<std::pair<kprC_StepDependent const*, bool>> told;
  std::set<std::tuple<kprC_StepDependent const*, kprC_StepDependent const*, bool>> pairs;  // from either side once
  for (Span const& span : spans) {
    Met met[2];  // with another value, and with the same
    for (unsigned component = 1; component < last.size(); ++component) {
      if ((span.components >> component & 1U) == 0) { continue; }
      Span const*& before = last[component];
      if (before != nullptr && before->end > span.begin && before->item != span.item) {
        Met& one = met[PrescribeAlike(span, *before, static_cast<int>(component)) ? 1 : 0];
        if (one.other == nullptr) { one.other = before->item; }
        if (one.other == before->item) { one.shared |= 1U << component; }
      }
      if (before == nullptr || before->end < span.end) { before = &span; }
    }
    for (bool const alike : {false, true}) {
      auto const& [other, shared] = met[alike ? 1 : 0];
      if (other == nullptr || pairs.contains({other, span.item, alike}) || !told.emplace(span.item, alike).second) { continue; }
      pairs.emplace(span.item, other, alike);
      std::string const step(span.item->Steps().Name(span.begin).View());
      Add(alike ? FindingKind::PrescribedAlike : FindingKind::PrescribedTwice, *span.item, step, {},
          "It prescribes the " + ComponentsText(shared) + " of " + Quoted(target.name) + ", and so does " +
              ObjectText(repository_->ItemCmd(), other->Name()) + (alike ? ", with the same value." : "."),
          "Deactivate one of them in " + Quoted(step) + R"(, or give the value up there with "FREED".)");
    }
  }
}

void Warnings::LookAtModel() {
  LookAtHold();
  LookAtUnused();
}

void Warnings::LookAtHold() {
  kprC_StepContainer const& steps = kprC_Steps(model_);
  int held = holding_[0];
  std::size_t others = 0;  // steps of which the last finding tells beside its own
  bool telling = false;
  for (std::size_t i = 1; i < steps.Size(); ++i) {
    held += holding_[i];
    bool const loose = held == 0 && kStaticProcedures.Contains(steps.Step(i).ProcedureType());
    if (!loose) {
      telling = false;
      continue;
    }
    if (telling) {
      ++others;
      findings_.back().detail = others == 1 ? "Nor in the next step." : "Nor in the next " + std::to_string(others) + " steps.";
      continue;
    }
    telling = true;
    others = 0;
    std::string const name(steps.Name(i).View());
    Finding& finding = findings_.emplace_back();
    finding.found = FindingKind::NothingHolds;
    finding.kind = kprC_Step::stepCmd().View();
    finding.name = finding.step = name;
    finding.refusal.message =
        "Nothing holds the model: no condition on motion, no contact, no foundation and no inertia relief is in force.";
    finding.hint = R"("DisplacementBC" or another condition on motion holds it.)";
  }
}

void Warnings::LookAtUnused() {
  kprC_StepContainer const& steps = kprC_Steps(model_);
  for (std::size_t i = 0; i < steps.Size(); ++i) { NoteNames(steps.Step(i)); }
  for (ReferenceKind const& kind : ReferenceKinds()) {
    for (cow_String const& name : kind.In(model_).Keys()) { NoteNames(*kind.In(model_).ConstObject(name)); }
  }
  ForEachRepository(model_, [this](auto const&, kprC_StepAwareRepository const& repository) {
    for (rgnC_Region const& region : repository.Dangling()) { named_[cls_Reference::Region].emplace(region.Name().View()); }  // told of
  });
  for (ReferenceKind const& kind : ReferenceKinds()) {
    if (kind.reference == cls_Reference::None) { continue; }
    std::unordered_set<std::string> const& named = named_[kind.reference];
    for (cow_String const& name : kind.In(model_).Keys()) {
      if (named.contains(std::string(name.View()))) { continue; }
      Finding& finding = findings_.emplace_back();
      finding.found = FindingKind::Unused;
      finding.kind = kind.kind;
      finding.name = name.View();
      finding.refusal.message = "Nothing uses it.";
      finding.hint = R"("delete" takes it away.)";
    }
  }
}

}  // namespace gattr
