#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "module/kpr/engine/kprC_PassTable.h"
#include "module/kpr/engine/kprC_PropagatingState.h"
#include "module/kpr/engine/kprC_State.h"
#include "module/kpr/engine/kprC_StepDependent.h"

/// A family's refusals of the per-step operations; \p Error is the family's enumeration of codes.
template <class Error> struct kprC_StepRefusals {
  Error unknownStep;
  Error unknownStatus;
  Error notActive;            ///< deactivate
  Error resetInCreateStep;    ///< reset, and replacing the create step's procedure
  Error resetNotDeactivated;  ///< reset
  Error moveAcrossChange;
  Error moveOntoChange;
  Error moveInactive;
  Error movePropagated;
  Error moveFromPerturbation;
  Error moveNotAdmitted;
  Error createNotAdmitted;                ///< update of the states, and the check of every record
  Error anneal;                           ///< the check of every record: active in an anneal step
  std::optional<Error> setToPropagated;   ///< a caller sets a member to "PROPAGATED"
  std::optional<Error> offInInitialStep;  ///< deactivate, as far as the family refuses these
  std::optional<Error> offInPerturbation;
  std::optional<Error> cannotBeOff;  ///< active, but not editable
};

/// Procedures that nothing may be moved into, and the refusal. \p Set answers Contains(procedureType).
template <class Set, class Error> struct kprC_MoveTarget {
  Set procedures;
  Error refusal;
};

/// What an operation asks before it changes anything. Each question is of the step that the operation names, for a move of
/// the source unless it says otherwise.
enum class kprC_Ask : std::uint8_t {
  UnknownStep,       ///< a step that is named does not exist
  SameStep,          ///< source and destination are one
  InitialStep,       ///< it is the initial step
  CreateStep,        ///< it is the create step
  NoState,           ///< its record holds no state
  SwitchedOff,       ///< its record holds a state that is switched off
  Perturbation,      ///< its procedure is a perturbation procedure
  Inactive,          ///< its status is none of the active ones
  NotEditable,       ///< its status is none of the editable ones
  Propagated,        ///< its status is a carried one
  NoReset,           ///< its status is one of those that are not reset
  OfType,            ///< the type's own question: kprC_Attribute::AssertMove and its like
  DestinationFirst,  ///< the destination, which lies before the source, says something of its own
  Between,           ///< a step between source and destination does
  Destination,       ///< the destination does, unless it was asked already
  EmptyBetween,      ///< asks nothing: the records between are emptied from here on
  Target,            ///< the destination's procedure takes nothing: Rules::kMoveTargets, each with a refusal of its own
  NotAdmitted,       ///< the destination's procedure does not admit the type
};
/// One test of an operation: what is asked, and what a yes leads to: the family's refusal, or without one the end of the
/// operation, which has then done nothing.
template <class Error> struct kprC_TestOf {
  kprC_Ask ask;
  std::optional<Error> refusal = {};
};

/// A family as the engine sees it: the page of tables that its Rules are, with refusals by number. kprC_FamilyOf makes it.
struct kprC_Family {
  struct Test {
    kprC_Ask ask;
    int refusal;  ///< -1: the operation ends
  };
  struct MoveTarget {
    std::uint32_t procedures;  ///< a bit each
    int refusal;
  };
  /// A record as it is stored.
  struct Stored {
    cow_String stepName;
    mdl_PropagationStatusEnm status;
    cow_Handle<kprC_State> state;
    cow_Handle<kprC_Procedure> procedure;
  };

  kprC_StatusTable const& statuses;
  kprC_PassTable const& pass;
  std::span<Test const> deactivate, reset, move;
  std::span<MoveTarget const> targets;
  int unknownStep, unknownStatus, createNotAdmitted, anneal, resetInCreateStep, setToPropagated;
  bool onCopy;  ///< a refused operation leaves the attribute as it was
  kprC_StepKind (*kind)(unsigned procedureType);
  void (*refuse)(int code);
  unsigned recordType;  ///< type identity of the family's record
  std::unique_ptr<kprC_Record> (*makeRecord)();
  void (*writeRecord)(cls_WriteVisitor const&, Stored const&, cls_Uid);
  Stored (*readRecord)(cls_ReadVisitor const&);

  void Assert(bool condition, int code) const {
    if (!condition) { refuse(code); }
  }
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
  { std::begin(R::kDeactivate)->ask } -> std::same_as<kprC_Ask const&>;
  { std::begin(R::kReset)->ask } -> std::same_as<kprC_Ask const&>;
  { std::begin(R::kMove)->ask } -> std::same_as<kprC_Ask const&>;
  { std::begin(R::kMoveTargets)->procedures.Contains(procedureType) } -> std::same_as<bool>;
  { R::kOnCopy } -> std::same_as<bool const&>;
  { R::Kind(procedureType) } -> std::same_as<kprC_StepKind>;
  { R::kEdit } -> std::same_as<kprC_EditRefusals<typename R::Error> const&>;
  R::Assert(true, error);
};

/// The family of \p Rules.
template <kprC_FamilyRules Rules> struct kprC_FamilyTables {
  using Record = kprC_PropagatingState<typename Rules::State>;

  template <class Tests> static constexpr auto Numbers(Tests const& tests) {
    std::array<kprC_Family::Test, std::tuple_size_v<Tests>> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = {tests[i].ask, tests[i].refusal ? static_cast<int>(*tests[i].refusal) : -1};
    }
    return numbers;
  }
  static constexpr auto kDeactivate = Numbers(Rules::kDeactivate);
  static constexpr auto kReset = Numbers(Rules::kReset);
  static constexpr auto kMove = Numbers(Rules::kMove);
  static constexpr auto kTargets = [] {
    std::array<kprC_Family::MoveTarget, std::tuple_size_v<std::remove_cvref_t<decltype(Rules::kMoveTargets)>>> targets{};
    for (std::size_t i = 0; i < targets.size(); ++i) {
      targets[i] = {Rules::kMoveTargets[i].procedures.Bits(), static_cast<int>(Rules::kMoveTargets[i].refusal)};
    }
    return targets;
  }();

  static void Refuse(int code) { Rules::Assert(false, static_cast<typename Rules::Error>(code)); }
  static std::unique_ptr<kprC_Record> Make() { return std::make_unique<Record>(); }
  static void Write(cls_WriteVisitor const& out, kprC_Family::Stored const& stored, cls_Uid uid) {
    out.WriteNested("", Record({stored.stepName, stored.procedure}, stored.status, Record::Typed(stored.state), uid));
  }
  static kprC_Family::Stored Read(cls_ReadVisitor const& in) {
    Record const record(in);
    return {record.stepName, record.status, record.state, record.procedure};
  }
};
template <class Rules>
inline constexpr kprC_Family kprC_FamilyOf = {
    .statuses = Rules::kStatuses,
    .pass = Rules::kPass,
    .deactivate = kprC_FamilyTables<Rules>::kDeactivate,
    .reset = kprC_FamilyTables<Rules>::kReset,
    .move = kprC_FamilyTables<Rules>::kMove,
    .targets = kprC_FamilyTables<Rules>::kTargets,
    .unknownStep = static_cast<int>(Rules::kRefusals.unknownStep),
    .unknownStatus = static_cast<int>(Rules::kRefusals.unknownStatus),
    .createNotAdmitted = static_cast<int>(Rules::kRefusals.createNotAdmitted),
    .anneal = static_cast<int>(Rules::kRefusals.anneal),
    .resetInCreateStep = static_cast<int>(Rules::kRefusals.resetInCreateStep),
    .setToPropagated = Rules::kRefusals.setToPropagated ? static_cast<int>(*Rules::kRefusals.setToPropagated) : -1,
    .onCopy = Rules::kOnCopy,
    .kind = &Rules::Kind,
    .refuse = &kprC_FamilyTables<Rules>::Refuse,
    .recordType = kprC_FamilyTables<Rules>::Record::TypeId(),
    .makeRecord = &kprC_FamilyTables<Rules>::Make,
    .writeRecord = &kprC_FamilyTables<Rules>::Write,
    .readRecord = &kprC_FamilyTables<Rules>::Read,
};
