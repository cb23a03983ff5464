#include "embed/Model.h"

#include <optional>

#include "command/Command.h"
#include "command/Explain.h"
#include "command/Library.h"
#include "command/Lookup.h"
#include "command/Replay.h"
#include "command/Session.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "store/ModelPath.h"
#include "text/JsonText.h"
#include "text/Text.h"

namespace gattr {

namespace {

cls_Value::Fields Joined(cls_Value::Fields first, cls_Value::Fields second) {
  first.insert(first.end(), std::make_move_iterator(second.begin()), std::make_move_iterator(second.end()));
  return first;
}

/// The object of that kind and name; null where there is none.
cls_Object const* Find(ddr_Model const& model, ObjectName const& name) {
  static std::vector<KindInfo> const kinds = Session::Kinds();
  auto const kind = std::ranges::find(kinds, name.kind, &KindInfo::kind);
  return kind == kinds.end() ? nullptr : FindObject(model, kind->member, name.name);
}

/// The member that commands call so; null where the object has none.
std::optional<cls_Value> MemberOf(cls_Object const& object, std::string_view called) {
  for (cls_MemberRow const& row : object.MemberRows()) {
    if (row.IsCalled(called)) { return object.Member(row.name); }
  }
  return std::nullopt;
}

}  // namespace

Refused::Refused(Outcome const& outcome)
    : std::runtime_error(outcome.message),
      refusal(outcome.refused),
      object(outcome.object),
      step(outcome.step),
      member(outcome.member),
      hint(outcome.hint) {}

struct ModelBase::Core {
  Library library;
  Session session;
  std::string path;  // of the file
  std::optional<ModelPath> file;
};

ModelBase::ModelBase() : core_(std::make_shared<Core>()) {}

void ModelBase::Open(std::string const& path, Progress const& progress) {
  ModelPath file(path);
  auto core = std::make_shared<Core>();
  core->session = Session(file.Open(progress));
  core->path = path;
  core->file = std::move(file);
  core_ = std::move(core);
}

void ModelBase::Replay(std::string const& path, Progress const& progress) {
  auto core = std::make_shared<Core>();
  if (auto const refused = gattr::Replay(core->session, path, progress)) { throw Refused(*refused); }
  core_ = std::move(core);
}

void ModelBase::Save(std::string const& path, Progress const& progress) {
  std::optional<ModelPath> other;
  if (!core_->file || core_->path != path) { other.emplace(path); }
  (other ? *other : *core_->file).Save(core_->session.Model(), Changed::Refuse, progress);
  if (!other) { return; }
  core_->file = std::move(other);
  core_->path = path;
}

void ModelBase::Execute(cls_Value const& command) {
  Outcome const outcome = core_->session.Execute(command);
  if (!outcome.ok) { throw Refused(outcome); }
}
void ModelBase::ExecuteLine(std::string_view line) { Execute(ParseJson(line)); }

bool ModelBase::Undo() { return core_->session.Undo(); }
bool ModelBase::Redo() { return core_->session.Redo(); }
Session& ModelBase::Edits() const { return core_->session; }

void ModelBase::Construct(std::string_view command, cls_Value::Fields own, cls_Value::Fields members) {
  Execute(Joined(Joined({{"command", command}}, std::move(own)), std::move(members)));
}

ObjectHandle::ObjectHandle(ModelBase const& model, std::string_view kind, std::string_view name)
    : model_(model.core_), name_(model.core_->session.Follow(kind, name)) {}

std::string ObjectHandle::Name() const { return name_->name; }
std::string_view ObjectHandle::Kind() const { return name_->kind; }

bool ObjectHandle::Exists() const {
  auto const core = model_.lock();
  return core != nullptr && Find(core->session.Model(), *name_) != nullptr;
}

std::shared_ptr<ModelBase::Core> ObjectHandle::Core() const {
  auto core = model_.lock();
  if (core == nullptr) { throw Gone("The model of the " + ObjectText(name_->kind, name_->name) + " is no more."); }
  if (Find(core->session.Model(), *name_) == nullptr) { throw Gone("There is no " + ObjectText(name_->kind, name_->name) + " any more."); }
  return core;
}

void ObjectHandle::Run(std::string_view command, cls_Value::Fields arguments, cls_Value::Fields members) const {
  cls_Value::Fields fields = {{"command", command}, {name_->kind, name_->name}};
  Outcome const outcome = Core()->session.Execute(Joined(Joined(std::move(fields), std::move(arguments)), std::move(members)));
  if (!outcome.ok) { throw Refused(outcome); }
}

cls_Value ObjectHandle::Member(std::string_view member) const {
  auto const value = MemberOf(*Find(Core()->session.Model(), *name_), member);
  if (!value) { throw std::out_of_range("A " + name_->kind + " of this type has no member " + Quoted(member) + "."); }
  return *value;
}

namespace {
/// The attribute and the position of a step; refuses what has no history, and a step that the model does not have.
std::pair<kprC_StepDependent const*, std::size_t> At(ddr_Model const& model, ObjectName const& name, std::string_view step) {
  auto const* const item = dynamic_cast<kprC_StepDependent const*>(Find(model, name));
  if (item == nullptr) { throw std::out_of_range("A " + name.kind + " has no history."); }
  std::size_t const index = item->Steps().Find(step);
  if (index == kprC_StepTable::npos) { throw std::out_of_range("There is no step " + Quoted(step) + "."); }
  return {item, index};
}
}  // namespace

cls_Value ObjectHandle::MemberIn(std::string_view step, std::string_view member) const {
  auto const core = Core();
  auto const [item, index] = At(core->session.Model(), *name_, step);
  cls_Object const* const state = item->StateAt(index);
  if (state == nullptr) { return {}; }
  if (auto const value = MemberOf(*state, member)) { return *value; }
  throw std::out_of_range("A " + name_->kind + " of this type says nothing of " + Quoted(member) + ".");
}

std::string ObjectHandle::Explain(std::string_view step, std::string_view member) const {
  auto const core = Core();
  ddr_Model const& model = core->session.Model();
  FoundAttribute const attribute = FindAttribute(model, Kind(), Name());
  return SentenceOf(gattr::Explain(attribute, FindStep(model, step), member), attribute.item->Steps());
}

int ObjectHandle::StatusIn(std::string_view step) const {
  auto const core = Core();
  auto const [item, index] = At(core->session.Model(), *name_, step);
  return static_cast<int>(item->StatusAt(index));
}

ObjectHandle ObjectHandle::Other(std::string_view name) const {
  auto const core = Core();
  return {core, core->session.Follow(name_->kind, name)};
}

}  // namespace gattr
