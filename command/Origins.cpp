#include "command/Origins.h"

#include <algorithm>

#include "command/Members.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

/// How a member stands that steps do not say, beside one of a new object.
Standing PlainStanding(cls_MemberRow const& row, cls_Object const& object, cls_Object const* fresh) {
  if (row.IsUnset(&object)) { return Standing::Unset; }
  if (row.text.refers != cls_Reference::None) {  // an empty name names nothing
    bool names = false;
    cls_ForEachReference({&row, 1}, &object, [&names](cls_Reference, std::string_view, cls_Object const*) { names = true; });
    if (!names) { return Standing::Unset; }
  }
  void const* const member = row.In(static_cast<void const*>(&object));
  if (fresh != nullptr && row.ops->equal(member, row.In(static_cast<void const*>(fresh)))) { return Standing::Default; }
  return Standing::Set;
}

std::unique_ptr<cls_Object> FreshOf(cls_Object const& object) {
  cls_ClassMetadata const& type = ClassOf(object);
  return type.make == nullptr ? nullptr : type.make();
}

/// How a member stands in a step that says it.
Standing SaidStanding(cls_MemberRow const& row, cls_Object const& state) {
  if (!row.ops->isConditionModified(row.In(static_cast<void const*>(&state)))) { return Standing::Set; }
  cls_Value const value = row.ToValue(&state);
  auto const isWord = [](cls_Value const& element) {
    auto const* const text = element.As<std::string>();
    return text != nullptr && IsStateWord(*text);
  };
  auto const* const list = value.As<cls_Value::List>();  // of which elements may be freed and others not
  return list == nullptr || std::ranges::all_of(*list, isWord) ? Standing::Freed : Standing::Set;
}

}  // namespace

std::string_view StandingText(Standing standing) {
  constexpr std::string_view kTexts[] = {"unset", "set", "freed", "default"};
  return kTexts[static_cast<std::size_t>(standing)];
}

std::string ValueText(cls_Value const& value) {
  if (auto const* const text = value.As<std::string>()) { return *text; }
  auto const* const real = value.As<double>();
  if (real == nullptr) { return JsonText(value); }
  char digits[32];
  return std::string(Digits(*real, digits));
}

bool IsTold(cls_MemberRow const& row) {
  if (row.again) { return false; }
  if (row.text.settable || row.ops->propagate != nullptr) { return true; }
  cls_MemberInfo info;
  row.ops->describe(info);
  return info.many ? row.name != "states" : info.kind != cls_MemberKind::Boolean;  // else whether it is off, or suppressed
}

void OriginTracker::Begin(std::size_t step, cls_Object const& state) {
  std::unique_ptr<cls_Object> fresh;
  for (cls_MemberRow const& row : state.MemberRows()) {
    if (!IsTold(row)) { continue; }
    Origin origin{&row, &state};
    if (row.ops->propagate == nullptr) {
      if (!fresh) { fresh = FreshOf(state); }
      origin.standing = PlainStanding(row, state, fresh.get());
      if (origin.standing == Standing::Set) { origin.step = step; }
    }
    members_.push_back(origin);
  }
  carried_ = members_;
}

void OriginTracker::Take(std::size_t begin, mdl_PropagationStatusEnm status, cls_Object const* state) {
  differing_.clear();
  if (state == state_) { return; }
  bool const isCreation = state_ == nullptr;
  state_ = state;
  if (isCreation) { Begin(begin, *state); }
  for (std::size_t i = 0; i < members_.size(); ++i) {
    Origin const& carried = carried_[i];
    cls_MemberRow const& row = *carried.row;
    Origin now = carried;
    now.holder = state;
    if (row.ops->propagate == nullptr) {
      now.own = isCreation && now.standing == Standing::Set;
    } else if (row.ops->isModified(row.In(static_cast<void const*>(state)))) {
      now = {&row, state, SaidStanding(row, *state), true, begin};
    }
    Origin const& before = members_[i];
    if (isCreation || now.own != before.own || now.step != before.step || now.standing != before.standing) {
      differing_.push_back(static_cast<std::uint32_t>(i));
    }
    members_[i] = now;
  }
  constexpr unsigned kSays = kprC_Active | kprC_Changed;
  bool const isChange = (family_->Statuses()[static_cast<std::size_t>(status)] & kSays) == kSays;
  if (!isCreation && (!isChange || kprC_perturbationProcedures.Contains(item_->Steps().ProcedureType(begin)))) { return; }
  carried_ = members_;
  for (Origin& origin : carried_) { origin.own = false; }
}

void ForEachOriginRun(kprC_StepAwareRepository const& family, kprC_StepDependent const& item,
                      std::function<void(OriginRun const& run)> const& visit) {
  OriginTracker tracker(family, item);
  bool const suppressed = item.IsSuppressed();
  item.ForEachRun([&](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const* state) {
    tracker.Take(begin, status, state);
    visit({begin, end, status, !suppressed && IsInForce(family, status), tracker.Members(), tracker.Differing()});
  });
}

std::vector<Origin> OwnMembers(kprC_StepDependent const& item) {
  std::unique_ptr<cls_Object> const fresh = FreshOf(item);
  std::vector<Origin> members;
  for (cls_MemberRow const& row : item.MemberRows()) {
    if (IsTold(row)) { members.push_back({&row, &item, PlainStanding(row, item, fresh.get()), false, kNoStep}); }
  }
  return members;
}

}  // namespace gattr
