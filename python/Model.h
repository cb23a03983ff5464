#pragma once

#include <pybind11/pybind11.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "command/Session.h"
#include "store/ModelPath.h"

namespace gattr::python {

namespace py = pybind11;

/// The kinds of objects by number, the steps first.
std::vector<KindInfo> const& Kinds();
int KindNumber(std::string_view kind);

/// A session as Python holds it, and the file that its model was opened from or saved to.
///
/// Every call enters; while one lets other threads run, whoever enters from another is refused (gattr.Busy), and so is whoever enters in
/// a callback of a call that allows none. Entering is under the interpreter's lock, so a count does.
class Model {
public:
  /// Of one call.
  class Use {
  public:
    /// \p alone: nothing else may begin meanwhile, callbacks of the same thread included.
    explicit Use(Model& model, bool alone = false);
    ~Use() {
      --model_.depth_;
      if (alone_) { model_.alone_ = false; }
    }
    Use(Use const&) = delete;
    Use& operator=(Use const&) = delete;

  private:
    Model& model_;
    bool alone_;
  };

  /// Runs a command and raises what it refuses.
  Outcome Do(cls_Value const& command);

  Session& Commands() { return session_; }
  ddr_Model const& Data() const { return session_.Model(); }
  /// The object of that kind and name, or null.
  cls_Object const* Find(int kind, std::string_view name) const;
  std::shared_ptr<ObjectName const> Follow(int kind, std::string_view name);
  std::vector<std::string> Names(int kind) const;

  /// Has \p callback told of every whole edit until the subscription, which the caller keeps, ends.
  std::shared_ptr<Subscription> OnChange(py::object callback);

  /// From here to Commit or Rollback the model is in use by this thread.
  void Begin();
  void Commit();
  void Rollback();

  /// Where the model was opened or saved last; empty where it was not.
  std::string const& Path() const { return path_; }
  /// Of a new model, in the place of what is here. \p progress is a callable or None, for all of these.
  void Open(std::string const& path, py::handle progress);
  void Replay(std::string const& path, py::handle progress);
  void Save(std::string const& path, bool overwrite, py::handle progress);
  std::string Dump();
  void Load(std::string const& text);

private:
  Session session_;
  std::string path_;
  std::optional<ModelPath> file_;
  std::thread::id owner_;
  int depth_ = 0;
  bool alone_ = false;
  std::unique_ptr<Use> transaction_;  // last: it ends before what it uses
};

}  // namespace gattr::python
