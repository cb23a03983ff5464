#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "module/kpr/engine/kprC_PassTable.h"
#include "module/kpr/engine/kprC_PropagatingState.h"
#include "module/kpr/engine/kprC_State.h"
#include "module/kpr/engine/kprC_StepDependent.h"

/// What the engine refuses of itself; \p Error is the family's enumeration of codes. What the operations refuse stands with
/// their tests.
template <class Error> struct kprC_StepRefusals {
  Error unknownStep;
  Error unknownStatus;
  Error replaceCreateStep;               ///< the procedure of the create step is replaced
  Error createNotAdmitted;               ///< update of the states, and the check of every record
  Error anneal;                          ///< the check of every record: active in an anneal step
  std::optional<Error> setToPropagated;  ///< a caller sets a member to "PROPAGATED"
  bool lookUpByKey = false;              ///< looking up a step that is unknown raises an omu_KeyErrorException
};

/// A procedure set that nothing may be moved into, and the refusal.
struct kprC_MoveTarget {
  template <class Set, class Error>
  constexpr kprC_MoveTarget(Set set, Error code) : procedures(set.Bits()), refusal(static_cast<int>(code)) {}

  std::uint32_t procedures;  ///< a bit each
  int refusal;
};

/// What an operation asks before it changes anything. Each question is of the step that the operation names, for a move of
/// the source unless it says otherwise.
enum class kprC_Ask : std::uint8_t {
  UnknownStep,       ///< a step that is named does not exist
  SameStep,          ///< source and destination are one
  IntoInitialStep,   ///< the destination is the initial step
  InitialStep,       ///< it is the initial step
  CreateStep,        ///< it is the create step
  NoState,           ///< its record holds no state
  SwitchedOff,       ///< its record holds a state that is switched off
  PassedOver,        ///< its status is that of a step that does not admit the type
  Perturbation,      ///< its procedure is a perturbation procedure
  Inactive,          ///< its status is none of the active ones
  BuiltIn,           ///< its status is that of a base state
  NotEditable,       ///< its status is none of the editable ones
  Propagated,        ///< its status is a carried one
  NoReset,           ///< its status is one of those that are not reset
  OfType,            ///< what the type refuses itself: kprC_Attribute::AssertOperation
  DestinationFirst,  ///< the destination, which lies before the source, says something of its own
  Between,           ///< a step between source and destination does
  Destination,       ///< the destination does, unless it was asked already
  EmptyBetween,      ///< asks nothing: the records between are emptied from here on
  Target,            ///< the destination's procedure takes nothing: the family's move targets, each with a refusal of its own
  NotAdmitted,       ///< the destination's procedure does not admit the type
  NotAdmittedLater,  ///< the same of any destination but the initial step
};
/// One test of an operation: what is asked, and what a yes leads to: a refusal of the family, or without one the end of the
/// operation, which has then done nothing.
struct kprC_Test {
  constexpr kprC_Test(kprC_Ask what) : ask(what) {}
  template <class Error>
    requires std::is_enum_v<Error>
  constexpr kprC_Test(kprC_Ask what, Error code) : ask(what), refusal(static_cast<int>(code)) {}

  kprC_Ask ask;
  int refusal = -1;
};

/// What an operation does once its tests have passed.
enum class kprC_Effect : std::uint8_t {
  SwitchOff,  ///< the record is switched off by itself: deactivated, or reset to the initial value
  TakeBack,   ///< what the record says is taken away
  Move,       ///< what the record says is moved to another step
};
/// An operation of a family: a command on its attributes that names a step, for a move two.
struct kprC_Operation {
  std::string_view command;  ///< "deactivate"
  std::string_view meaning;  ///< one line for the user
  kprC_Effect effect;
  std::span<kprC_Test const> tests;  ///< asked in this order
};

/// A family as the engine sees it: the page of tables that its Rules are, with refusals by number. kprC_FamilyOf makes it.
struct kprC_Family {
  /// A record as it is stored.
  struct Stored {
    cow_String stepName;
    mdl_PropagationStatusEnm status;
    cow_Handle<kprC_State> state;
    cow_Handle<kprC_Procedure> procedure;
  };

  kprC_StatusTable const& statuses;
  kprC_PassTable const& pass;
  std::span<kprC_Operation const> operations;
  std::span<kprC_MoveTarget const> targets;
  int unknownStep, unknownStatus, createNotAdmitted, anneal, replaceCreateStep, setToPropagated;
  bool lookUpByKey;  ///< kprC_StepRefusals
  bool onCopy;       ///< a refused operation leaves the attribute as it was
  kprC_StepKind (*kind)(unsigned procedureType);
  void (*refuse)(int code);
  unsigned recordType;  ///< type identity of the family's record
  std::unique_ptr<kprC_Record> (*makeRecord)();
  void (*writeRecord)(cls_WriteVisitor const&, Stored const&, cls_Uid);
  Stored (*readRecord)(cls_ReadVisitor const&);
  cow_Handle<kprC_State> (*asState)(cow_Handle<cls_Object> const&);  ///< the object as a state of the family; null where it is none

  void Assert(bool condition, int code) const {
    if (!condition) { refuse(code); }
  }
  /// The operation of that effect; a family has one at most. Refuses one that it has not.
  kprC_Operation const& Operation(kprC_Effect effect) const;
  bool Is(mdl_PropagationStatusEnm status, unsigned trait) const {
    auto const number = static_cast<std::size_t>(status);
    unsigned const traits = number < statuses.size() ? statuses[number] : 0U;
    Assert((traits & kprC_Known) != 0, unknownStatus);
    return (traits & trait) != 0;
  }
};

/// What a family's page of tables holds.
template <class R>
concept kprC_FamilyRules = requires(unsigned procedureType, typename R::Error error) {
  requires std::derived_from<typename R::State, kprC_State>;
  { R::kStatuses } -> std::same_as<kprC_StatusTable const&>;
  { R::kPass } -> std::same_as<kprC_PassTable const&>;
  { R::kRefusals } -> std::same_as<kprC_StepRefusals<typename R::Error> const&>;
  { std::span(R::kOperations) } -> std::convertible_to<std::span<kprC_Operation const>>;
  { std::span(R::kMoveTargets) } -> std::convertible_to<std::span<kprC_MoveTarget const>>;
  { R::kOnCopy } -> std::same_as<bool const&>;
  { R::Kind(procedureType) } -> std::same_as<kprC_StepKind>;
  { R::kEdit } -> std::same_as<kprC_EditRefusals<typename R::Error> const&>;
  R::Assert(true, error);
};

/// The family of \p Rules.
template <kprC_FamilyRules Rules> struct kprC_FamilyTables {
  using Record = kprC_PropagatingState<typename Rules::State>;

  static void Refuse(int code) { Rules::Assert(false, static_cast<typename Rules::Error>(code)); }
  static std::unique_ptr<kprC_Record> Make() { return std::make_unique<Record>(); }
  static void Write(cls_WriteVisitor const& out, kprC_Family::Stored const& stored, cls_Uid uid) {
    out.WriteNested("", Record({stored.stepName, stored.procedure}, stored.status, Record::Typed(stored.state), uid));
  }
  static kprC_Family::Stored Read(cls_ReadVisitor const& in) {
    Record record(in);
    return {std::move(record.stepName), record.status, std::move(record.state), std::move(record.procedure)};
  }
  static cow_Handle<kprC_State> AsState(cow_Handle<cls_Object> const& object) { return object.template As<typename Rules::State>(); }
};
template <class Rules>
inline constexpr kprC_Family kprC_FamilyOf = {
    .statuses = Rules::kStatuses,
    .pass = Rules::kPass,
    .operations = Rules::kOperations,
    .targets = Rules::kMoveTargets,
    .unknownStep = static_cast<int>(Rules::kRefusals.unknownStep),
    .unknownStatus = static_cast<int>(Rules::kRefusals.unknownStatus),
    .createNotAdmitted = static_cast<int>(Rules::kRefusals.createNotAdmitted),
    .anneal = static_cast<int>(Rules::kRefusals.anneal),
    .replaceCreateStep = static_cast<int>(Rules::kRefusals.replaceCreateStep),
    .setToPropagated = Rules::kRefusals.setToPropagated ? static_cast<int>(*Rules::kRefusals.setToPropagated) : -1,
    .lookUpByKey = Rules::kRefusals.lookUpByKey,
    .onCopy = Rules::kOnCopy,
    .kind = &Rules::Kind,
    .refuse = &kprC_FamilyTables<Rules>::Refuse,
    .recordType = kprC_FamilyTables<Rules>::Record::TypeId(),
    .makeRecord = &kprC_FamilyTables<Rules>::Make,
    .writeRecord = &kprC_FamilyTables<Rules>::Write,
    .readRecord = &kprC_FamilyTables<Rules>::Read,
    .asState = &kprC_FamilyTables<Rules>::AsState,
};
