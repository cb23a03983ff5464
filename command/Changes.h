#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/ddr_Model.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CoreUtils/ddb_Export.h"

/// What commands change, told to whoever listens.
namespace gattr {

/// An object that a command gave another name.
struct Rename {
  std::string kind, from, to;
};

enum class ChangeKind : std::uint8_t { Created, Changed, Renamed, Deleted };

/// "created", "changed", "renamed", "deleted".
DDB_API std::string_view ChangeText(ChangeKind change);

/// What has become of one object.
struct ObjectChange {
  ChangeKind change;
  std::string kind;                     ///< "boundaryCondition", "step", "region"; "model" for the model's own name and space
  std::string name;                     ///< what it is called now; of one that is deleted, what it was called
  std::string before = {};              ///< of one that is renamed, what it was called; it may have changed besides
  std::vector<std::string> steps = {};  ///< of an attribute, in which it says other things than before, by their present names

  friend bool operator==(ObjectChange const&, ObjectChange const&) = default;
};

/// What one whole edit has changed.
struct ChangeEvent {
  enum class Cause : std::uint8_t { Command, Undo, Redo, Switch };
  Cause cause;
  std::string label;                  ///< of the command: 'deactivate boundaryCondition "Fix"'; of a switch: 'switch "softer"'
  std::vector<ObjectChange> objects;  ///< the model, the steps in order, then attributes and other objects by kind and name
};

/// What \p now says that \p before did not, which has come from it, or it from that, by edits with those renames. What merely follows
/// from others is not told: statuses and carried values where a step has come or gone. Costs what differs; where the steps differ, a
/// look at what each attribute says of its own.
DDB_API std::vector<ObjectChange> ChangesBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames);

/// A run of neighbouring steps in which an attribute does something else than before.
struct StatusChange {
  std::string kind, name;           ///< of the attribute; what it is called now, or of one that is deleted, was called
  std::string firstStep, lastStep;  ///< the same of steps
  std::optional<mdl_PropagationStatusEnm> before, after;  ///< nothing where there is no such step; without the attribute NotYetCreated

  friend bool operator==(StatusChange const&, StatusChange const&) = default;
};

/// What an edit has come to, or would come to.
struct Effects {
  std::vector<ObjectChange> objects;   ///< as ChangesBetween has them
  std::vector<StatusChange> statuses;  ///< what follows of it too, by kind, name and step
};

/// What has led from \p before to \p now, and what it means for every attribute. Costs what differs; where the steps differ, as much
/// as all statuses.
DDB_API Effects EffectsBetween(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames);

using Listener = std::function<void(ChangeEvent const&)>;

/// Keeps a listener; when it ends, nothing is told any more. May outlive the session.
class DDB_API Subscription {
public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<Listener const> listener) : listener_(std::move(listener)) {}
  void End() { listener_.reset(); }

private:
  std::shared_ptr<Listener const> listener_;
};

/// An object by its name, which follows when the object is renamed, and when that is undone.
struct ObjectName {
  std::string kind, name;
  bool lost = false;  ///< the session is no more
};

}  // namespace gattr
