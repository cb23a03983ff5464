#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "module/kpr/engine/kprC_StepTable.h"
#include "platform/BasicUtils/cls_Shared.h"
#include "platform/BasicUtils/cow_1DArrayList.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/CaeUtils/mdl_PropagationStatus.h"
#include "platform/CoreGeometry/rgnC_Region.h"
#include "platform/CoreUtils/atr_String.h"

class ddr_Model;
class kprC_StepDependent;
struct kprC_Operation;

/// What the editing layers refuse before they reach an attribute, by a family's codes; in words of their own where it has none.
template <class Error> struct kprC_EditRefusals {
  using Code = std::optional<Error>;

  Code noSuchAttribute = {};   ///< no attribute of that name, or none in that step
  Code copyUnknown = {};       ///< the same of one that is to be copied
  Code noSteps = {};           ///< the model has no steps
  Code noAttributes = {};      ///< the model has no attribute of the family
  Code nameInUse = {};         ///< an attribute of that name exists
  Error unknownStep;           ///< no step of that name
  Error suppressed;            ///< a suppressed attribute is edited
  Code amplitudeName = {};     ///< an amplitude without a name, in a family where that does not mean the step's default
  Code amplitudeUnknown = {};  ///< an amplitude that the model does not know, or no text at all
  Code fieldUnknown = {};      ///< a field that the model does not know
  Error notInStep;             ///< the attribute is not active in the step in which it is edited
  Error readOnlyInStep;        ///< it is, but cannot be edited there
  Code droppedInStep = {};     ///< one that exists is edited in a perturbation step, in a family that drops such a change
  Code inInitialStep = {};     ///< one is created in the initial step, in a family that has none there
  Code inPerturbation = {};    ///< one is created in a perturbation step, in a family that has none there
  Code typeNotAdmitted = {};   ///< one is created in a step that does not admit its type, which the type itself does not refuse
  Code propertyUnknown = {};   ///< an interaction property that the model does not know
  /// A load case names what is not there or not in force; taken from kLoadCase, none in a family that has nothing to do with them.
  Code notInLoadCase = {};
  Code replaceCreateStep = {};  ///< its create step gets another procedure; taken from kRefusals
  /// What the check of the attribute refuses only where the model it is edited in has nothing to say against it (AssertInModel).
  std::array<Code, 3> behindModel = {Code(), Code(), Code()};
};
/// The refusals of a family as the editing layers see them: by their numbers.
using kprC_EditRefusalCodes = kprC_EditRefusals<int>;

/// Members by name, as a command gives them.
using kprC_Arguments = std::vector<std::pair<std::string, cls_Value>>;

/// What a type of attribute acts on.
enum class kprC_ActsOn {
  Anything,    ///< nobody has said
  Sets,        ///< nodes, elements or cells
  Surfaces,    ///< faces or edges
  Regions,     ///< either
  Connectors,  ///< connector elements, which it names
  Model,       ///< the whole model where it names no region
};

/// What an attribute prescribes of its region in a step.
struct kprC_Prescription {
  unsigned quantity = 0;         ///< attributes of one quantity get in each other's way; 0: the type prescribes nothing
  std::uint32_t components = 0;  ///< bits by the numbers of the degrees of freedom; kprC_oneValue where there are none
};
inline constexpr int kprC_oneValue = 7;  ///< stands for the one value of a quantity without components

/// An edit that one type of a family knows beside the family's operations, as a command: its arguments are the members of an object.
struct kprC_TypeEdit {
  std::string_view command;
  std::string_view meaning;  ///< one line for the user
  unsigned typeId;           ///< of the attributes that know it
  bool inStep;               ///< whether it is an edit of one step, in which the attribute has to be editable
  std::unique_ptr<cls_Object> (*arguments)();
  /// Edits \p item, which is of the type. Answers in a sentence why that cannot be done, "" where it was; the caller takes back what was
  /// changed by then.
  std::string (*perform)(kprC_StepDependent& item, cow_String const& step, cls_Object const& arguments);
};

/// One step-dependent attribute of any family, as repositories, stores and commands see it. The families' operations,
/// with their refusals, come from kprC_StepAttribute.
class DDB_API kprC_StepDependent : public cls_Object {
public:
  cow_String const& Name() const { return name_; }
  void SetName(cow_String name) { name_ = std::move(name); }

  virtual bool IsSuppressed() const = 0;
  /// Suppresses the whole attribute; its history stays.
  virtual void Suppress() = 0;
  /// Takes the attribute back into the analysis and forms its history anew.
  virtual void Resume() = 0;

  virtual kprC_StepTable const& Steps() const = 0;
  virtual mdl_PropagationStatusEnm Status(cow_String const& step) const = 0;
  virtual mdl_PropagationStatusEnm StatusAt(std::size_t index) const = 0;
  /// All statuses in step order. Linear in the steps.
  virtual cow_List<mdl_PropagationStatusEnm> History() const = 0;
  /// The state in force in a step; null before the creation.
  virtual cls_Object const* StateAt(std::size_t index) const = 0;
  /// Calls \p visit for every run of neighbouring steps of one status and one state: from the position \p begin to \p end, one
  /// past the last. The state is null before the creation. Costs what changes, not what there are steps.
  using RunVisitor = std::function<void(std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const* state)>;
  virtual void ForEachRun(RunVisitor const& visit) const = 0;
  /// The same record by record: calls fn(index, status, state) for every step in order.
  template <class Fn> void ForEachRecord(Fn&& fn) const {
    ForEachRun([&fn](std::size_t begin, std::size_t end, mdl_PropagationStatusEnm status, cls_Object const* state) {
      for (; begin < end; ++begin) { fn(begin, status, state); }
    });
  }
  /// Name of the first step whose record holds a state; empty when none does.
  virtual cow_String CreateStepName() const = 0;
  virtual bool IsMember(cow_String const& step) const = 0;
  /// Whether the attribute is in force in the step.
  virtual bool IsActiveIn(cow_String const& step) const = 0;
  virtual bool IsEditable(cow_String const& step) const = 0;
  /// \p step where it can be edited, else the create step.
  virtual cow_String GetEditableStepName(cow_String const& step) const = 0;

  /// Begins the history in \p step with the default state of the type for a step of \p procedureType.
  virtual void Begin(cow_String const& step, unsigned procedureType) = 0;
  /// Sets members of the state of \p step by name and forms the history anew. Names that the state does not have are
  /// looked for in the attribute. False when neither knows one; nothing has changed then.
  virtual bool SetInStep(cow_String const& step, kprC_Arguments const& members, std::string* unknown) = 0;
  /// Turns what a command says of the state of such a step into what is stored of it; what the type cannot store is refused.
  virtual void Complete(kprC_Arguments& /*members*/, kprC_StepFacts /*step*/) const {}
  /// Makes what the attribute says of its own at \p index fit a step such as \p then, which is going to take the place of that step, as far
  /// as the type knows how. Nothing is formed or checked before the steps change. False where nothing had to change.
  virtual bool Adapt(std::size_t /*index*/, kprC_StepFacts /*then*/) { return false; }
  virtual bool Remove(cow_String const& step) = 0;
  /// Does what \p operation, one of the family's, says in \p step; \p toStep counts for a move only.
  virtual void Perform(kprC_Operation const& operation, cow_String const& step, cow_String const& toStep) = 0;
  /// Whether the attribute may stand in such a step: created or moved there, or \p carried into it.
  virtual bool Admits(kprC_StepFacts step, bool carried) const = 0;
  /// By what number of the family the type refuses to be created or changed in such a step, where that is not the one of every type
  /// that a step does not admit.
  virtual std::optional<int> RefusedIn(kprC_StepFacts /*step*/) const { return {}; }
  /// Whether perturbation steps have what the last general step ended with as part of their base state, whatever the type: nobody is
  /// asked for admission there.
  virtual bool IsPartOfBaseState() const = 0;
  /// Checks again after the procedures of the steps have changed.
  virtual void UpdateStates() = 0;
  /// Re-checks every record against its step; raises the first refusal. Nothing while suppressed.
  virtual void AssertValid() const = 0;
  /// Refuses what does not go with what \p model holds beside the steps: its space, its connectors and what they offer. Asked
  /// of an attribute that is not suppressed, after every edit of it or of what it refers to.
  virtual void AssertInModel(ddr_Model const& /*model*/) const {}

  /// Names of the amplitudes in use, each once, in step order.
  virtual cow_1DArrayList<cow_String> Amplitudes() const = 0;
  /// The regions that the attribute acts on, as far as they were picked as \p type.
  virtual cls_xoList<rgnC_Region> Regions(rgnC_RegionType type) const = 0;
  /// Has what the attribute names lead elsewhere, in every step, and forms the history anew. False when it names nothing of the kind.
  virtual bool Redirect(cls_Redirection const& to) = 0;

  /// Bytes, roughly, that keeping this attribute costs beside \p now, a later version of it that shares what both say; those of
  /// the whole where there is none.
  virtual std::size_t WeightBeside(kprC_StepDependent const* now) const = 0;

  /// What tells a person of its status in a step: "%1$s" is the status's word, "%2$s" the step's name. Empty in a family without.
  virtual std::string_view StatusFormat() const { return {}; }

  /// Calls \p visit with edits that the type knows beside its family's operations (kprC_TypeEdit), which make of an attribute whose other
  /// records are there what it keeps beside its members; \p step is empty for an edit of no step, and of one that has gone since.
  using EditVisitor = std::function<void(std::string_view command, cow_String const& step, cls_Object const& arguments)>;
  virtual void ForEachTypeEdit(EditVisitor const& /*visit*/) const {}

  /// What the attribute says over all steps, for a person to read; empty for a type that has no report.
  virtual atr_String Report() const { return {}; }

  /// The name of the command that makes such an attribute.
  virtual std::string ConstructionName() const = 0;
  /// The type's label.
  virtual std::string Label() const = 0;
  /// The type's category, "MECHANICAL"; empty in a family without.
  virtual std::string CategoryText() const { return {}; }
  /// Whether load cases take the type: "yes", "no", "not yet"; empty in a family that has nothing to do with them.
  virtual std::string LoadCaseText() const { return {}; }
  /// Refuses to be used in a load case of \p step: by the family's numbers what is not in force there, and a type that load cases
  /// do not take.
  virtual void AssertInLoadCase(cow_String const& /*step*/) const {}
  virtual kprC_ActsOn ActsOn() const { return kprC_ActsOn::Anything; }
  /// What it prescribes with \p state, one of its own.
  virtual kprC_Prescription Prescribes(cls_Object const& /*state*/) const { return {}; }
  /// What it leaves open with \p state, one of its own, and says nothing without: as commands call the member; empty where nothing.
  virtual std::string_view Lacks(cls_Object const& /*state*/) const { return {}; }

private:
  friend class kprC_StepAwareRepository;

  // the repository's calls

  /// Takes the sequence: matches the records by the names of the steps and forms the history.
  virtual void Initialize(kprC_StepTable const& steps) = 0;
  /// The same without any refusal: records of steps that the sequence lacks are dropped, nothing is checked.
  virtual void InitializeStateValues(kprC_StepTable const& steps) = 0;
  /// Takes another version of the sequence and nothing else.
  virtual void TakeSteps(kprC_StepTable const& steps) = 0;
  /// Takes the next version of the sequence, in which a step has come, gone, or changed. The history is formed and checked again
  /// where it said something there, waits for it, or has rules that look at the steps. What a refusal leaves behind is the
  /// family's.
  virtual void FollowSteps(kprC_StepTable const& steps) = 0;
  /// Whether it stands on \p steps, and nothing waits to be formed or checked.
  virtual bool IsUpToDate(kprC_StepTable const& steps) const = 0;
  /// Whether the step has a record that is not merely carried.
  virtual bool SaysSomethingIn(std::size_t index) const = 0;
  /// Empties the record of a step whose procedure is being replaced, and takes \p bare, the sequence without that procedure.
  /// Refused for the create step.
  virtual void EmptyStep(std::size_t index, kprC_StepTable const& bare) = 0;
  /// Takes \p steps for a history that was read, and refuses one that does not follow from its own records.
  virtual void RestoreHistory(cls_ReadVisitor const& in, kprC_StepTable const& steps) = 0;

  cow_String name_;                          // the key in the repository, not a stored member
  static constexpr int kTimeBits = 40;       // last for twelve days of a change every microsecond
  std::uint64_t changedAt_ : kTimeBits = 0;  // the repository's time of its last change

protected:
  bool checked_ = false;  // AssertValid has passed since the last change
};
