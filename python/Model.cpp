#include "python/Model.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "framework/mdl_MapString2ObjCow.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "module/kpr/model/kprC_ModelSteps.h"
#include "python/Values.h"
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
  if (model.depth_ > 0 && (alone || model.alone_)) { Raise(Defined().busy, "The model is busy with the call that this one was made in."); }
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
  if (kind == 0) {
    kprC_StepContainer const& steps = kprC_Steps(Data());
    std::size_t const index = steps.Index(name);
    return index == kprC_StepTable::npos ? nullptr : &steps.Step(index);
  }
  mdl_Extension const* const all = Data().ConstExtension(Kinds()[static_cast<std::size_t>(kind)].member);
  if (auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(all)) { return attributes->ConstItem(name); }
  auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(all);
  return named == nullptr ? nullptr : named->ConstObject(name);
}

std::vector<std::string> Model::Names(int kind) const {
  std::vector<std::string> names;
  auto const add = [&names](auto const& keys) {
    for (cow_String const& name : keys) { names.emplace_back(name.View()); }
  };
  if (kind == 0) {
    add(kprC_Steps(Data()).Names());
    return names;
  }
  mdl_Extension const* const all = Data().ConstExtension(Kinds()[static_cast<std::size_t>(kind)].member);
  if (auto const* const attributes = mdl_ExtensionAs<kprC_StepAwareRepository>(all)) {
    add(attributes->Keys());
  } else if (auto const* const named = mdl_ExtensionAs<mdl_NamedObjects>(all)) {
    add(named->Keys());
  }
  return names;
}

std::shared_ptr<ObjectName const> Model::Follow(int kind, std::string_view name) {
  return session_.Follow(Kinds()[static_cast<std::size_t>(kind)].kind, name);
}

std::shared_ptr<Subscription> Model::OnChange(py::object callback) {
  Use const use(*this);
  // The callable is let go of under the interpreter's lock, which whoever ends a model or a subscription holds.
  auto kept = std::make_shared<Subscription>(
      session_.Subscribe([callback = std::move(callback)](ChangeEvent const& event) { callback(Told(event)); }));
  subscriptions_.push_back(kept);
  return kept;
}

void Model::End(std::shared_ptr<Subscription> const& subscription) {
  subscription->End();
  std::erase(subscriptions_, subscription);
}

namespace {

/// Whether a long call goes on: asked of signals, and of the callable that is told how far it is. What either raises ends the call.
class Progress {
public:
  explicit Progress(py::handle told) : told_(told) {}

  /// With or without the interpreter's lock. False where the call has to end, which Done then raises.
  bool operator()(std::size_t done, std::size_t total) {
    py::gil_scoped_acquire const locked;
    if (PyErr_CheckSignals() == 0) {
      if (told_.is_none()) { return true; }
      auto const answer = py::reinterpret_steal<py::object>(
          PyObject_CallFunction(told_.ptr(), "KK", static_cast<unsigned long long>(done), static_cast<unsigned long long>(total)));
      if (answer) { return true; }
    }
    raised_.emplace();
    return false;
  }
  /// Raises what has ended the call.
  void Done() {
    if (raised_) { throw std::move(*raised_); }
  }

private:
  py::handle told_;
  std::optional<py::error_already_set> raised_;
};

}  // namespace

void Model::Open(std::string const& path, py::handle progress) {
  Use const use(*this, true);
  ModelPath file(path);
  Progress told(progress);
  std::optional<ddr_Model> model;
  {
    py::gil_scoped_release const unlocked;
    if (told(0, 1)) { model = file.Open(); }
  }
  told.Done();
  session_ = Session(std::move(*model));
  path_ = path;
  file_ = std::move(file);
}

void Model::Replay(std::string const& path, py::handle progress) {
  Use const use(*this, true);
  std::error_code error;
  auto const size = static_cast<std::size_t>(std::filesystem::file_size(path, error));
  std::ifstream in(path, std::ios::binary);
  if (error || !in) { Raise(PyExc_FileNotFoundError, "cannot read \"" + path + "\""); }
  Progress told(progress);
  Session session;
  JournalReader reader(in, path);
  std::optional<Outcome> refused;
  {
    py::gil_scoped_release const unlocked;
    bool goesOn = true;
    while (goesOn) {
      std::optional<cls_Value> const command = reader.Next();
      if (!command) { break; }
      Outcome outcome = session.Execute(*command);
      if (!outcome.ok) {
        outcome.message = path + ", line " + std::to_string(reader.Line()) + ": " + outcome.message;
        refused = std::move(outcome);
        break;
      }
      if (reader.Line() % 64 == 0) { goesOn = told(static_cast<std::size_t>(in.tellg()), size); }
    }
    if (goesOn && !refused) { told(size, size); }
  }
  told.Done();
  if (refused) { Raise(*refused); }
  session_ = std::move(session);
}

void Model::Save(std::string const& path, bool overwrite, py::handle progress) {
  Use const use(*this, true);
  std::optional<ModelPath> other;
  if (path != path_ || !file_) { other.emplace(path); }
  ModelPath& file = other ? *other : *file_;
  Progress told(progress);
  {
    py::gil_scoped_release const unlocked;
    if (told(0, 1)) { file.Save(Data(), overwrite ? Changed::Overwrite : Changed::Refuse); }
  }
  told.Done();
  if (other) { file_ = std::move(other); }
  path_ = path;
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
