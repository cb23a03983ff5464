#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/CoreUtils/ddb_Export.h"

/// What the members of an attribute are in its steps, and which step has said so.
namespace gattr {

/// No position: a step that there is not.
inline constexpr std::size_t kNoStep = kprC_StepTable::npos;

/// How a member stands.
enum class Standing : std::uint8_t {
  Unset,    ///< nothing is said, or what is said is that there is no value
  Set,      ///< a value is given
  Freed,    ///< a step gave it up
  Default,  ///< nobody says anything: it has the value of a new object
};
DDB_API std::string_view StandingText(Standing standing);

/// One member in a step: its value, how it stands, and where that comes from. Good as long as the attribute. A list counts as one
/// member: it comes from the last step that said something of any element.
struct Origin {
  cls_MemberRow const* row = nullptr;
  cls_Object const* holder = nullptr;  ///< has the value
  Standing standing = Standing::Unset;
  bool own = false;            ///< said in this step, not carried into it
  std::size_t step = kNoStep;  ///< position of the step that said it: the one that freed it where it is freed; kNoStep: none did

  /// As commands call it.
  std::string_view Member() const { return row->text.command.empty() ? row->name : row->text.command; }
  bool HasValue() const { return standing == Standing::Set || standing == Standing::Default; }
  /// Null where there is none.
  cls_Value Value() const { return HasValue() ? row->ToValue(holder) : cls_Value(); }
};

/// Neighbouring steps in which an attribute has one status, and all its members are the same.
struct OriginRun {
  std::size_t begin, end;  ///< positions: from the first step to one past the last
  mdl_PropagationStatusEnm status;
  bool inForce;  ///< the status is an active one, and the attribute is not suppressed; where not, members tell what is kept meanwhile
  std::span<Origin const> members;           ///< in the order of the class; none before the creation
  std::span<std::uint32_t const> differing;  ///< places of those members that are not as in the run before
};

/// Follows the members of one attribute from run to run (kprC_StepDependent::ForEachRun).
class DDB_API OriginTracker {
public:
  OriginTracker(kprC_StepAwareRepository const& family, kprC_StepDependent const& item) : family_(&family), item_(&item) {}

  /// Takes the next run. One whose state is that of the run before may be left out. Costs nothing where it is, else as many looks as there
  /// are members.
  void Take(std::size_t begin, mdl_PropagationStatusEnm status, cls_Object const* state);
  std::span<Origin const> Members() const { return members_; }
  std::span<std::uint32_t const> Differing() const { return differing_; }

private:
  void Begin(std::size_t step, cls_Object const& state);

  kprC_StepAwareRepository const* family_;
  kprC_StepDependent const* item_;
  cls_Object const* state_ = nullptr;
  std::vector<Origin> members_;
  std::vector<Origin> carried_;  // as later steps carry them: what perturbation steps say is not carried on
  std::vector<std::uint32_t> differing_;
};

/// Whether \p status is an active one of the family.
inline bool IsInForce(kprC_StepAwareRepository const& family, mdl_PropagationStatusEnm status) {
  return (family.Statuses()[static_cast<std::size_t>(status)] & kprC_Active) != 0;
}

/// Calls \p visit for the runs of all steps, in their order. What it is given is good during the call; copies of Origin longer. Costs what
/// the attribute says and the changes of procedure, however many steps there are; values are made when they are asked for.
DDB_API void ForEachOriginRun(kprC_StepAwareRepository const& family, kprC_StepDependent const& item,
                              std::function<void(OriginRun const& run)> const& visit);

/// The members of the attribute itself, which are the same in all steps: region, distribution, ...
DDB_API std::vector<Origin> OwnMembers(kprC_StepDependent const& item);

/// A value as a person reads it: -10, Smooth, ["S","U"].
DDB_API std::string ValueText(cls_Value const& value);

/// Whether a member tells something of what an attribute is, and not of how it is kept; each is told under one name.
DDB_API bool IsTold(cls_MemberRow const& row);

}  // namespace gattr
