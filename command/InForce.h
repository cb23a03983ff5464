#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "command/AtTime.h"
#include "command/Lookup.h"
#include "command/Origins.h"
#include "framework/ddr_Model.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/CoreUtils/ddb_Export.h"

/// What is in force in each step, for whoever writes a solver's input or shows a model step by step.
namespace gattr {

/// What becomes of something in a step, beside the step before it.
enum class InForceChange : std::uint8_t {
  New,      ///< in force here, and not before
  Changed,  ///< another value, or one of the members of an attribute
  Gone,     ///< in force before, and not here
  Still,    ///< as before
};
DDB_API std::string_view InForceText(InForceChange what);

/// A member of an attribute in a step.
struct InForceMember {
  InForceChange what;
  Origin origin;  ///< value, and the step that said it; of one that is gone, the one that gave it up, without a value
  cls_Value was;  ///< the value before, of one that is changed or gone
};

/// An attribute in a step. Suppressed attributes are in force nowhere.
struct InForceAttribute {
  std::size_t step;  ///< its position
  InForceChange what;
  FoundAttribute attribute;
  mdl_PropagationStatusEnm status;  ///< in the step; tells why one is gone: switched off, passed over, held by the modes, reset
  std::vector<InForceMember>
      members;  ///< what it says in steps, in the order of the class: those that have a value, and those that gave it up

  /// What is in force of the members.
  DDB_API std::vector<Origin> Origins() const;
};

/// Goes over what is in force step by step: in each step what has come, changed or gone, by kind and name, then what is as before.
///
/// Works on the model as it is now. Nothing is made before it is asked for: beginning costs what attributes say and where that starts;
/// each step costs what changes in it, and what is told.
class DDB_API InForce {
public:
  struct Options {
    std::size_t first = 0, last = kNoStep;  ///< the steps that are told, by position
    bool still = true;                      ///< tell what is as before, too
  };
  explicit InForce(ddr_Model model) : InForce(std::move(model), Options()) {}
  InForce(ddr_Model model, Options options);
  InForce(InForce&&) noexcept;
  ~InForce();

  /// The next one; null behind the last. Good until the next call; what it names, as long as this object.
  InForceAttribute const* Next();
  ddr_Model const& Model() const;

private:
  struct Walk;
  std::unique_ptr<Walk> walk_;
};

/// One as named values, all that there is to tell: {"step", "what", "kind", "name", "type", "status", "members": {"u2": {"what", "value",
/// "was", "own", "step"}}, "object": {"region": "Top"}}; "object" has the attribute's own members, which are the same in all steps.
/// With \p at, members that an amplitude varies have a value "at" that time of the step, too.
DDB_API cls_Value ValueOf(InForceAttribute const& told, AtTime const* at = nullptr);

}  // namespace gattr
