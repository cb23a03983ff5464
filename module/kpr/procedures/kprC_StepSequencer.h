#pragma once

#include <span>
#include <string>
#include <vector>

#include "module/kpr/engine/kprC_StepTable.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cow_List.h"

class kprC_StepContainer;

/// Decides which procedures may be placed where in a sequence of analysis steps. Holds a sequence of its own, which is
/// legal at any time: a step that may not follow is refused with 50, and the sequence is then what it was.
///
/// A perturbation step is transparent: what may follow it is what may follow the steps before it, explicit procedures
/// excepted, and what may follow the procedure itself. For every step, what may come behind it is one set, made from the
/// set of the step before, so that a sequence is checked in one pass whatever its length or the chains in it.
class DDB_API kprC_StepSequencer {
public:
  /// Empty. \p addedMassPermitted tells whether added-mass generation may be placed at all.
  explicit kprC_StepSequencer(bool addedMassPermitted) : addedMassPermitted_(addedMassPermitted) {}
  /// Empty, and takes sequences from \p steps as they are now. Stands with the container.
  kprC_StepSequencer(kprC_StepContainer const& steps, bool addedMassPermitted);
  /// Holds the given procedures, each checked as it is appended.
  kprC_StepSequencer(cow_List<unsigned> const& procedureTypes, bool addedMassPermitted);

  /// Takes the container's steps, the initial one left out.
  void Run();
  /// The same up to the step called \p stepName, or with \p stopBefore up to the one before it; "Initial" gives the empty
  /// sequence. Refuses a name that no step has with 81, as the next two do.
  void Run(cow_String const& stepName, bool stopBefore);
  /// Takes the container's steps with a further one behind \p stepName.
  void InsertAfter(cow_String const& stepName, unsigned procedureType);
  /// Takes the container's steps with another procedure in \p stepName. Refuses the initial step with 143.
  void Replace(cow_String const& stepName, unsigned procedureType);

  void Append(unsigned procedureType);
  /// Removes the step at a position, 0 for the first analysis step. Refuses one that is not removable with 50.
  void Remove(int index);
  /// Whether the rest stays a legal sequence when the step at \p index is taken out, added-mass generation taken as
  /// permitted. Refuses an index outside the sequence with 51. Looks only as far as the change can reach.
  bool IsRemovable(int index) const;

  std::size_t Size() const { return sequence_.size(); }
  cow_List<unsigned> Sequence() const;
  bool HasFrequency() const { return Last().frequency; }

  /// The procedures that may be appended, offered or not.
  kprC_ProcedureSet MayFollow() const;
  /// Those of them that are offered and are no perturbation procedures, in the order of the label map.
  cow_List<unsigned> AppendableGeneral() const { return Appendable(false); }
  /// Those of them that are perturbation procedures, in the same order.
  cow_List<unsigned> AppendablePerturbation() const { return Appendable(true); }

  /// Whether \p procedureType may stand at the position \p index of \p legal, a sequence that is legal with its initial step first.
  /// Looks only as far as the change can reach.
  static bool MayInsert(kprC_StepTable const& legal, std::size_t index, unsigned procedureType, bool addedMassPermitted);

  /// A sentence that says why \p procedureType may not be appended; empty when it may.
  std::string WhyNot(unsigned procedureType) const;

private:
  /// A step, and what may come behind it when added-mass generation is permitted.
  struct Entry {
    unsigned type = 0;
    kprC_ProcedureSet next;
    bool frequency = false;  ///< whether a frequency step is among the steps up to here

    friend bool operator==(Entry const&, Entry const&) = default;
  };
  static Entry const kStart;
  DDB_LOCAL static Entry After(Entry const& before, unsigned procedureType);

  /// The step before the position \p index of a table.
  DDB_LOCAL static Entry EntryBefore(kprC_StepTable const& steps, std::size_t index);

  Entry const& Last() const { return sequence_.empty() ? kStart : sequence_.back(); }
  Entry const& Before(std::size_t index) const { return index == 0 ? kStart : sequence_[index - 1]; }
  DDB_LOCAL kprC_ProcedureSet Permitted(kprC_ProcedureSet next) const;
  DDB_LOCAL std::size_t Known(cow_String const& stepName) const;
  cow_List<unsigned> Appendable(bool perturbation) const;
  DDB_LOCAL std::vector<unsigned> Types(std::size_t end) const;
  DDB_LOCAL void Rebuild(std::span<unsigned const> procedureTypes);

  kprC_StepTable steps_;
  std::vector<Entry> sequence_;
  bool addedMassPermitted_;
};
