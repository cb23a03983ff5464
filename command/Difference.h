#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command/Changes.h"
#include "platform/BasicUtils/cls_Value.h"

class kprC_StepAwareRepository;
class kprC_StepDependent;

/// In what two models differ: by object, step and member, as a person edits them.
namespace gattr {

struct Outcome;

/// A member in which both sides differ, by what commands call it. Null: that side says nothing of it, or that it has no value.
struct MemberDifference {
  std::string member;
  cls_Value was, is;

  friend bool operator==(MemberDifference const&, MemberDifference const&) = default;
};

/// What an attribute says of its own in a step.
enum class Says : std::uint8_t {
  Nothing,
  Values,       ///< sets or frees members
  Creation,     ///< begins
  CreationOff,  ///< begins switched off
  Off,          ///< is switched off
};

/// "nothing", "values", "creation", "creation off", "off".
DDB_API std::string_view SaysText(Says says);

/// In what both sides differ in one step.
struct RecordDifference {
  std::string step;
  Says was, is;
  std::string movedFrom = {};  ///< the step that said all this before, and says nothing now
  std::vector<MemberDifference> members = {};

  friend bool operator==(RecordDifference const&, RecordDifference const&) = default;
};

/// In what both sides differ in one object.
struct ObjectDifference {
  ChangeKind change;
  std::string kind;                            ///< "boundaryCondition", "step", "region"; "model" for the model's own name and space
  std::string name;                            ///< what it is called now; of one that is deleted, what it was called
  std::string before = {};                     ///< of one that is renamed, what it was called; it may differ besides
  std::string typeBefore = {}, type = {};      ///< its construction command, "DisplacementBC"; empty on a side where it is not
  std::string previous = {};                   ///< of a step that has come or stands elsewhere: behind which
  std::string switchOff = {};                  ///< of an attribute: the command that switches it off, "deactivate"
  std::vector<MemberDifference> members = {};  ///< the same in all steps; of one that only one side has, what is not as in a new one
  std::vector<RecordDifference> records = {};  ///< of an attribute, by the steps of now, then those that say nothing any more

  friend bool operator==(ObjectDifference const&, ObjectDifference const&) = default;
};

/// What \p now says that \p before did not, whatever they have to do with each other; nothing where both are equal. Told is what was
/// edited, not what follows: neither statuses nor carried values, nor that what is declared elsewhere is another one. A step or an
/// attribute under another name is told as renamed where nothing else can be meant: it alone has gone, another one that says the very same
/// has come, of steps in the same place, and what attributes said in it they say in that one. In the order of ChangeEvent::objects. Costs
/// what differs where the models share the rest; where not, or where the steps differ, it is linear in what each attribute says of its own,
/// but for what has moved or gone: there it is quadratic in the records of the attribute.
DDB_API std::vector<ObjectDifference> DifferencesBetween(ddr_Model const& before, ddr_Model const& now);

/// The steps and attributes that have another name, as DifferencesBetween tells them.
std::vector<Rename> RenamesBetween(ddr_Model const& before, ddr_Model const& now);
/// Gives what \p model holds the names that \p renames say, so that what names it follows. Those that are refused are taken out of
/// \p renames and told to \p refused, with the model as it is then.
void Follow(ddr_Model& model, std::vector<Rename>& renames,
            std::function<void(Rename const&, Outcome const&, ddr_Model const&)> const& refused = {});

/// How much a comparison tells.
enum class Depth {
  Steps,   ///< which objects, and which steps of attributes
  Values,  ///< all
};
/// The comparison behind ChangesBetween and DifferencesBetween; what was moved is told as gone and come. \p renames have led from \p before
/// to \p now.
std::vector<ObjectDifference> Compare(ddr_Model const& before, ddr_Model const& now, std::span<Rename const> renames, Depth depth);

/// Makes one record of what has gone in a step and come in another, where nothing else can be meant.
void FindMoved(std::vector<RecordDifference>& records);

/// How two versions of an attribute differ, or an attribute from none where one is null.
ObjectDifference DifferenceOf(kprC_StepAwareRepository const& family, kprC_StepDependent const* was, kprC_StepDependent const* is);

}  // namespace gattr
