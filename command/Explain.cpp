#include "command/Explain.h"

#include <algorithm>

#include "command/Command.h"
#include "command/Words.h"
#include "module/kpr/family/kprC_Constraint.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "text/Text.h"

namespace gattr {

namespace {

using Status = mdl_PropagationStatusEnm;

struct LinkRow {
  std::string_view id;
  char const *sentence, *uncaused;
  bool breaks;
};
constexpr LinkRow kLinks[] = {
#define LINK(name, id, sentence, uncaused, breaks) {id, sentence, uncaused, breaks},
#include "command/Links.def"
};
LinkRow const& RowOf(LinkKind kind) { return kLinks[static_cast<std::size_t>(kind)]; }

bool IsPerturbation(kprC_StepTable const& steps, std::size_t step) {
  return kprC_perturbationProcedures.Contains(steps.ProcedureType(step));
}

/// Makes the links of an attribute run by run, of one member where that is given.
class Chain {
public:
  Chain(FoundAttribute const& attribute, std::size_t last, std::string_view member)
      : family_(*attribute.family), item_(*attribute.item), steps_(item_.Steps()), last_(last), member_(member) {
    create_ = steps_.Find(item_.CreateStepName().View());
  }

  std::vector<Link> Run() {
    ForEachOriginRun(family_, item_, [this](OriginRun const& run) { Take(run); });
    // what a member is before any step says something of it is no link of its own
    if (!member_.empty() && !said_ && (links_.empty() || links_.front().kind != LinkKind::NotYet)) {
      links_.insert(links_.begin(), {LinkKind::Unsaid, create_, create_ + 1});
    }
    if (item_.IsSuppressed()) { links_.push_back({LinkKind::Suppressed, last_, last_ + 1}); }
    return std::move(links_);
  }

private:
  void Add(LinkKind kind, OriginRun const& run, std::size_t cause = kNoStep, std::vector<Link::Said> said = {}) {
    std::size_t const end = std::min(run.end, last_ + 1);
    if (said.empty() && !links_.empty()) {
      Link& before = links_.back();
      if (before.kind == kind && before.cause == cause && before.said.empty() && before.end == run.begin) {
        before.end = end;
        return;
      }
    }
    links_.push_back({kind, run.begin, end, cause, {}, {}, std::move(said)});
  }
  /// Of steps that do not take the attribute: a link is of neighbours of one sort.
  void AddUntaken(LinkKind kind, OriginRun const& run, std::size_t cause) {
    kprC_StepFacts const step = steps_.Facts(run.begin);
    bool const isAdiabatic = step.Has(kprC_StepFacts::Adiabatic) && item_.Admits(step.procedureType, true);
    std::string sort = WithArticle((isAdiabatic ? "adiabatic " : "") + ProcedureWords(ProcedureText(step.procedureType)) + " step");
    bool const joins = !links_.empty() && links_.back().kind == kind && links_.back().sort == sort;
    if (!fresh_) { fresh_ = family_.Construct(item_.ConstructionName()); }
    bool const byType = kind == LinkKind::NotInPerturbation || !fresh_->Admits(step, true);
    if (!joins) { links_.push_back({kind, run.begin, run.begin, cause}); }
    Add(kind, run, cause);
    links_.back().sort = std::move(sort);
    links_.back().type = byType ? item_.ConstructionName() : "it";
  }

  void Take(OriginRun const& run) {
    if (run.begin > last_) { return; }
    std::size_t const at = run.begin;
    bool const perturbation = IsPerturbation(steps_, at);
    switch (run.status) {
      case Status::NotYetCreated:
        if (run.end > last_) { Add(LinkKind::NotYet, run, create_); }
        break;
      case Status::Created:
      case Status::Modified:
      case Status::ModifiedFromBaseState: AddSaid(run, perturbation && run.status != Status::Created); break;
      case Status::Propagated: AddCarried(run); break;
      case Status::PropagatedFromBaseState:
        if (!perturbation) {
          AddCarried(run);
        } else if (!IsBack(run)) {
          Add(LinkKind::BaseState, run, general_);
        }
        break;
      case Status::Status8: Add(LinkKind::BuiltIn, run, general_); break;
      case Status::Deactivated:
        if (at == create_) { AddSaid(run, false); }
        off_ = at;
        Add(LinkKind::Off, run, off_);
        break;
      case Status::Status15:
        if (at == create_) { AddSaid(run, false); }
        off_ = at;
        Add(LinkKind::Reset, run, off_);
        break;
      case Status::InactiveAfterDeactivation:
        AddForLater(run);
        off_ != kNoStep ? Add(LinkKind::Off, run, off_) : Add(LinkKind::OffInModes, run, Frequency(at));
        break;
      case Status::Reserved13:
        AddForLater(run);
        Add(LinkKind::Reset, run, off_);
        break;
      case Status::Inactive6: AddPassedOver(run); break;
      case Status::Inactive7: AddNotCarried(run, perturbation); break;
      case Status::Inactive11: Add(LinkKind::OffHere, run); break;
      case Status::BuiltIn: Add(LinkKind::Held, run, Frequency(at)); break;
      case Status::Status14: AddUntaken(LinkKind::KeptFromInitial, run, create_); break;
    }
    if (run.status == Status::Created || run.status == Status::Modified || run.status == Status::ModifiedFromBaseState) { saying_ = at; }
    for (std::size_t step = std::min(run.end, last_ + 1); step-- > at;) {
      if (!IsGeneral(step)) { continue; }
      general_ = step;
      break;
    }
  }

  /// Whether what the attribute says in the step is carried on.
  bool IsGeneral(std::size_t step) const {
    bool const holds = family_.Statuses()[static_cast<std::size_t>(Status::BuiltIn)] != 0;  // a family with steps that work on modes
    return !IsPerturbation(steps_, step) && !(holds && kprC_ConstraintRules::kModal.Contains(steps_.ProcedureType(step)));
  }

  Origin const* Find(OriginRun const& run) const {
    auto const found = std::ranges::find(run.members, member_, &Origin::Member);
    return found == run.members.end() ? nullptr : &*found;
  }
  static Link::Said SaidOf(Origin const& origin) { return {std::string(origin.Member()), origin.standing, origin.Value()}; }

  /// What the step says, for itself \p alone or for those behind it too.
  void AddSaid(OriginRun const& run, bool alone) {
    if (member_.empty()) {
      std::vector<Link::Said> said;
      for (Origin const& origin : run.members) {
        if (origin.own) { said.push_back(SaidOf(origin)); }
      }
      Add(run.begin == create_ ? LinkKind::Created : alone ? LinkKind::ChangedHere : LinkKind::Changed, run, kNoStep, std::move(said));
      return;
    }
    Origin const* const origin = Find(run);
    if (origin == nullptr || !origin->own) {
      if (run.begin != create_) { AddCarried(run); }
      return;
    }
    bool const freed = origin->standing == Standing::Freed;
    LinkKind const set = alone ? LinkKind::SetHere : said_ ? LinkKind::ChangedTo : LinkKind::Set;
    said_ = true;
    Add(freed ? (alone ? LinkKind::FreedHere : LinkKind::Freed) : set, run, kNoStep, {SaidOf(*origin)});
  }

  /// Behind a step that says something for itself alone the member is what it was. False where the step before is none.
  bool IsBack(OriginRun const& run) {
    if (member_.empty() || links_.empty()) { return false; }
    LinkKind const before = links_.back().kind;
    if (before != LinkKind::SetHere && before != LinkKind::FreedHere) { return false; }
    Origin const* const origin = Find(run);
    bool const has = origin != nullptr && origin->HasValue();
    Add(has ? LinkKind::BackTo : LinkKind::BackToNone, run, kNoStep,
        has ? std::vector<Link::Said>{SaidOf(*origin)} : std::vector<Link::Said>{});
    return true;
  }
  void AddCarried(OriginRun const& run) {
    if (!member_.empty() && !said_) { return; }
    if (IsBack(run)) { return; }
    bool const again = !links_.empty() && RowOf(links_.back().kind).breaks;
    Add(again ? LinkKind::Again : LinkKind::Carried, run);
  }
  /// What a step says while the attribute is off shows when that is taken back.
  void AddForLater(OriginRun const& run) {
    if (member_.empty()) { return; }
    Origin const* const origin = Find(run);
    if (origin == nullptr || !origin->own) { return; }
    said_ = true;
    Add(origin->standing == Standing::Freed ? LinkKind::FreedForLater : LinkKind::SetForLater, run, kNoStep, {SaidOf(*origin)});
  }

  /// The next step in which the attribute is in force, behind some that do not take it.
  std::size_t Resuming(std::size_t from) const {
    std::size_t resumes = kNoStep;
    item_.ForEachRun([&](std::size_t begin, std::size_t, Status status, cls_Object const*) {
      if (begin > from && resumes == kNoStep && IsInForce(family_, status)) { resumes = begin; }
    });
    return resumes;
  }
  void AddPassedOver(OriginRun const& run) {
    off_ != kNoStep ? AddUntaken(LinkKind::PassedOverOff, run, off_) : AddUntaken(LinkKind::PassedOver, run, Resuming(run.begin));
  }
  void AddNotCarried(OriginRun const& run, bool perturbation) {
    if (IsPerturbation(steps_, create_)) { return Add(LinkKind::OwnStepsOnly, run, create_); }
    if (!item_.Admits(steps_.Facts(run.begin), true)) { return AddPassedOver(run); }
    if (off_ != kNoStep) { return Add(LinkKind::Off, run, off_); }
    if (perturbation) { return AddUntaken(LinkKind::NotInPerturbation, run, Resuming(run.begin)); }
    Add(LinkKind::OwnStepsOnly, run, saying_);
  }
  std::size_t Frequency(std::size_t step) const {
    auto const number = steps_.LastBefore(step, kprC_frequencyStepType);
    return number == 0 ? kNoStep : steps_.Position(number);
  }

  kprC_StepAwareRepository const& family_;
  kprC_StepDependent const& item_;
  kprC_StepTable const& steps_;
  std::size_t last_;
  std::string_view member_;
  std::size_t create_ = kNoStep;
  std::size_t off_ = kNoStep;      // since when it is off, or at its initial value
  std::size_t general_ = kNoStep;  // the last general step
  std::size_t saying_ = kNoStep;   // the last step that says something
  bool said_ = false;              // whether a step has said something of the member
  std::vector<Link> links_;
  std::unique_ptr<kprC_StepDependent> fresh_;  // says what the type takes, whatever its values
};

std::string StepText(kprC_StepTable const& steps, std::size_t step) { return Quoted(steps.Name(step).View()); }

/// '"A"', '"A" and "B"', '"A" to "D"'.
std::string StepText(kprC_StepTable const& steps, std::size_t begin, std::size_t end) {
  if (end - begin < 2) { return StepText(steps, begin); }
  return StepText(steps, begin) + (end - begin == 2 ? " and " : " to ") + StepText(steps, end - 1);
}

std::string InSentence(cls_Value const& value) {
  auto const* const text = value.As<std::string>();
  return text == nullptr ? ValueText(value) : Quoted(*text);
}

cls_Value StepName(kprC_StepTable const& steps, std::size_t step) {
  return step == kNoStep ? cls_Value() : cls_Value(steps.Name(step).View());
}

}  // namespace

std::string_view Link::Id() const { return RowOf(kind).id; }

Explanation Explain(FoundAttribute const& attribute, std::size_t step, std::string_view member) {
  kprC_StepDependent const& item = *attribute.item;
  Status const status = item.StatusAt(step);
  Explanation explanation{std::string(attribute.family->ItemCmd()),
                          std::string(item.Name().View()),
                          item.ConstructionName(),
                          std::string(member),
                          step,
                          status,
                          !item.IsSuppressed() && IsInForce(*attribute.family, status),
                          item.IsSuppressed(),
                          {},
                          {}};
  std::vector<Origin> const own = OwnMembers(item);
  if (!member.empty()) {
    std::vector<std::string> known;
    cls_Object const* state = CreateState(item);
    std::unique_ptr<kprC_StepDependent> fresh;  // says what the type has, where no step says anything
    if (state == nullptr) {
      fresh = attribute.family->Construct(item.ConstructionName());
      fresh->Begin(cow_String(kprC_Step::initialCmd().View()), kprC_ProcedureType::Initial);
      state = fresh->StateAt(0);
    }
    for (cls_Object const* const of : {state, static_cast<cls_Object const*>(&item)}) {
      for (cls_MemberRow const& row : of->MemberRows()) {
        if (IsTold(row)) { known.emplace_back(ArgumentName(row)); }
      }
    }
    if (std::ranges::find(known, member) == known.end()) {
      throw UnknownName(ObjectText(explanation.kind, explanation.name) + " has no member " + Quoted(member) + ". " +
                        Suggestion(member, known, "There are"));
    }
    if (auto const plain = std::ranges::find(own, member, &Origin::Member); plain != own.end()) {
      bool const has = plain->HasValue();
      LinkKind const kind = !has                                   ? LinkKind::AlwaysUnset
                            : plain->standing == Standing::Default ? LinkKind::AlwaysDefault
                                                                   : LinkKind::Always;
      explanation.links.push_back({kind, 0, item.Steps().Size(), kNoStep, {}, {}, {{explanation.member, plain->standing, plain->Value()}}});
      return explanation;
    }
  }
  explanation.links = Chain(attribute, step, member).Run();
  if (member.empty()) {
    ForEachOriginRun(*attribute.family, item, [&](OriginRun const& run) {
      if (step < run.begin || step >= run.end) { return; }
      std::ranges::copy_if(run.members, std::back_inserter(explanation.members),
                           [](Origin const& origin) { return origin.standing != Standing::Unset; });
    });
  }
  return explanation;
}

std::string SentenceOf(Link const& link, kprC_StepTable const& steps) {
  LinkRow const& row = RowOf(link.kind);
  bool const caused = link.cause != kNoStep;
  char const* const format = caused || row.uncaused[0] == '\0' ? row.sentence : row.uncaused;
  std::string const value = link.said.empty() ? std::string() : InSentence(link.said.front().value);
  return std::string(atr_SubstituteFormat(atr_translate(format), {StepText(steps, link.begin, link.end),
                                                                  caused ? StepText(steps, link.cause) : "", value, link.sort, link.type})
                         .View());
}

std::string SentenceOf(Explanation const& explanation, kprC_StepTable const& steps) {
  std::string sentence;
  bool broken = false;
  for (Link const& link : explanation.links) {
    bool const breaks = RowOf(link.kind).breaks;
    if (!sentence.empty()) { sentence += breaks || broken ? "; " : ", "; }
    sentence += SentenceOf(link, steps);
    broken = breaks;
  }
  if (sentence[0] >= 'a' && sentence[0] <= 'z') { sentence[0] = static_cast<char>(sentence[0] - 'a' + 'A'); }
  return sentence + ".";
}

cls_Value ValueOf(Origin const& origin, kprC_StepTable const& steps) {
  return cls_Value::Fields{
      {"value", origin.Value()}, {"standing", StandingText(origin.standing)}, {"own", origin.own}, {"step", StepName(steps, origin.step)}};
}

cls_Value ValueOf(FoundAttribute const& attribute, AtTime const* at) {
  kprC_StepDependent const& item = *attribute.item;
  kprC_StepTable const& steps = item.Steps();
  cls_Value::Fields object;
  for (Origin const& origin : OwnMembers(item)) { object.emplace_back(origin.Member(), origin.Value()); }
  cls_Value::List rows;
  ForEachOriginRun(*attribute.family, item, [&](OriginRun const& run) {
    for (std::size_t step = run.begin; step < run.end; ++step) {
      cls_Value::Fields members;
      for (Origin const& origin : run.members) {
        if (origin.standing == Standing::Unset && !origin.own) { continue; }
        cls_Value told = ValueOf(origin, steps);
        if (at != nullptr && at->Factor(origin, run.members, step)) {
          std::get<cls_Value::Fields>(told.data).emplace_back("at", at->Of(origin, run.members, step));
        }
        members.emplace_back(origin.Member(), std::move(told));
      }
      rows.emplace_back(cls_Value::Fields{{"step", steps.Name(step).View()},
                                          {"procedure", ProcedureText(steps.ProcedureType(step))},
                                          {"status", static_cast<int>(run.status)},
                                          {"inForce", run.inForce},
                                          {"members", std::move(members)}});
    }
  });
  return cls_Value::Fields{{"kind", attribute.family->ItemCmd()}, {"name", item.Name().View()},  {"type", item.ConstructionName()},
                           {"suppressed", item.IsSuppressed()},   {"object", std::move(object)}, {"steps", std::move(rows)}};
}

cls_Value ValueOf(Explanation const& explanation, kprC_StepTable const& steps) {
  cls_Value::List links;
  for (Link const& link : explanation.links) {
    cls_Value::List names;
    for (std::size_t step = link.begin; step < link.end; ++step) { names.emplace_back(steps.Name(step).View()); }
    cls_Value::Fields fields = {{"kind", link.Id()}, {"steps", std::move(names)}, {"step", StepName(steps, link.cause)}};
    if (!link.said.empty()) {
      cls_Value::Fields said;
      for (Link::Said const& one : link.said) {
        said.emplace_back(one.member, one.standing == Standing::Freed ? cls_Value("FREED") : one.value);
      }
      fields.emplace_back("said", std::move(said));
    }
    fields.emplace_back("sentence", SentenceOf(link, steps));
    links.emplace_back(std::move(fields));
  }
  cls_Value::Fields fields = {{"kind", explanation.kind},
                              {"name", explanation.name},
                              {"type", explanation.type},
                              {"step", StepName(steps, explanation.step)},
                              {"status", static_cast<int>(explanation.status)},
                              {"inForce", explanation.inForce},
                              {"suppressed", explanation.suppressed},
                              {"sentence", SentenceOf(explanation, steps)},
                              {"links", std::move(links)}};
  if (!explanation.member.empty()) {
    fields.insert(fields.begin() + 3, {"member", explanation.member});
    return fields;
  }
  cls_Value::Fields members;
  for (Origin const& origin : explanation.members) { members.emplace_back(origin.Member(), ValueOf(origin, steps)); }
  fields.emplace_back("members", std::move(members));
  return fields;
}

}  // namespace gattr
