#include "python/Model.h"

#include <algorithm>
#include <sstream>

#include "command/Lookup.h"
#include "command/Replay.h"
#include "python/Values.h"
#include "python/Watch.h"
#include "store/TextStore.h"

namespace gattr::python {

std::vector<KindInfo> const& Kinds() {
  static std::vector<KindInfo> const kinds = Session::Kinds();
  return kinds;
}

int KindNumber(std::string_view kind) { return static_cast<int>(std::ranges::find(Kinds(), kind, &KindInfo::kind) - Kinds().begin()); }

Model::Use::Use(Model& model, bool alone) : model_(model), alone_(alone) {
  std::thread::id const here = std::this_thread::get_id();
  if (model.depth_ > 0 && model.owner_ != here) { Raise(Defined().busy, "The model is busy in another thread."); }
  if (model.alone_) { Raise(Defined().busy, "The model is busy with the call that this one was made in."); }
  model.owner_ = here;
  ++model.depth_;
  model.alone_ = alone;
}

Outcome Model::Do(cls_Value const& command) {
  Use const use(*this);
  Outcome outcome = session_.Execute(command);
  if (!outcome.ok) { Raise(outcome); }
  return outcome;
}

cls_Object const* Model::Find(int kind, std::string_view name) const {
  return FindObject(Data(), Kinds()[static_cast<std::size_t>(kind)].member, name);
}

std::vector<std::string> Model::Names(int kind) const { return ObjectNamesIn(Data(), Kinds()[static_cast<std::size_t>(kind)].member); }

std::shared_ptr<ObjectName const> Model::Follow(int kind, std::string_view name) {
  return session_.Follow(Kinds()[static_cast<std::size_t>(kind)].kind, name);
}

std::shared_ptr<Subscription> Model::OnChange(py::object callback) {
  Use const use(*this);
  // The callable is let go of under the interpreter's lock, which whoever ends a model or a subscription holds.
  return std::make_shared<Subscription>(
      session_.Subscribe([callback = std::move(callback)](ChangeEvent const& event) { callback(Told(event)); }));
}

void Model::Begin() {
  Use const use(*this);
  if (session_.IsInTransaction()) { throw std::runtime_error("a transaction or a dry run has begun already"); }
  session_.Begin();
  transaction_ = std::make_unique<Use>(*this);
}

void Model::Commit() {
  Use const use(*this);
  transaction_.reset();
  session_.Commit();
}

void Model::Rollback() {
  Use const use(*this);
  transaction_.reset();
  session_.Rollback();
}

void Model::Open(std::string const& path, py::handle progress) {
  Use const use(*this, true);
  ModelPath file(path);
  Watch watch(progress);
  std::optional<ddr_Model> model;
  watch.Run([&](Progress const& told) { model = file.Open(told); });
  watch.Raise();
  session_ = Session(std::move(*model));
  path_ = path;
  file_ = std::move(file);
}

void Model::Replay(std::string const& path, py::handle progress) {
  Use const use(*this, true);
  Session session;
  std::optional<Outcome> refused;
  Watch watch(progress);
  watch.Run([&](Progress const& told) { refused = gattr::Replay(session, path, told); });
  watch.Raise();
  if (refused) { Raise(*refused); }
  session_ = std::move(session);
}

void Model::Save(std::string const& path, bool overwrite, py::handle progress) {
  Use const use(*this, true);
  std::optional<ModelPath> other;
  if (path != path_ || !file_) { other.emplace(path); }
  ModelPath& file = other ? *other : *file_;
  Watch watch(progress);
  watch.Run([&](Progress const& told) { file.Save(Data(), overwrite ? Changed::Overwrite : Changed::Refuse, told); });
  if (other) { file_ = std::move(other); }
  path_ = path;
  watch.Raise();
}

std::string Model::Dump() {
  Use const use(*this);
  std::ostringstream out;
  WriteText(Data(), out);
  return std::move(out).str();
}

void Model::Load(std::string const& text) {
  Use const use(*this);
  std::istringstream in(text);
  session_ = Session(ReadText(in, "text"));
}

}  // namespace gattr::python
