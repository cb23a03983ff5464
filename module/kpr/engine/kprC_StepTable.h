#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "module/kpr/engine/kprC_StepNameProcedurePair.h"
#include "platform/BasicUtils/cls_xoList.h"

/// The step sequence as a list of pairs, in step order, beginning with the initial step.
using kprC_StepSequence = cls_xo1DArrayList<kprC_StepNameProcedurePair>;

/// A sequence is written as such, so that a visitor may refer to the model's own.
template <> struct cls_MemberTraits<kprC_StepSequence> : cls_ListTraits<kprC_StepSequence, kprC_StepNameProcedurePair> {
  static void Write(cls_WriteVisitor const& out, std::string_view name, kprC_StepSequence const& steps) {
    bool const written = out.WriteSequence(name, steps.Size(), [&steps](std::size_t index) {
      kprC_StepNameProcedurePair const& pair = steps[index];
      return std::pair<std::string_view, cls_Object const*>(pair.stepName.View(), pair.procedure.ConstGet());
    });
    if (!written) { cls_ListTraits::Write(out, name, steps); }
  }
};

/// The step sequence with what the histories ask of it worked out once. A handle: copies share one body, and all
/// histories of a model share the same table, so that a step's name and procedure exist once whatever number of
/// attributes refers to them. Making one is linear in the steps; every question is answered in constant time.
class DDB_API kprC_StepTable {
public:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  kprC_StepTable();
  explicit kprC_StepTable(kprC_StepSequence steps);

  kprC_StepSequence const& Steps() const { return body_->steps; }
  std::size_t Size() const { return body_->types.size(); }
  kprC_StepNameProcedurePair const& operator[](std::size_t index) const { return body_->steps[index]; }
  cow_String const& Name(std::size_t index) const { return body_->steps[index].stepName; }
  /// The procedure type that rules are asked with; 0 for the initial step.
  unsigned ProcedureType(std::size_t index) const { return body_->types[index]; }
  /// Every procedure type of the sequence once, in the order in which it first stands there.
  std::vector<unsigned> const& DistinctTypes() const { return body_->distinctTypes; }
  /// One past the last of the neighbouring steps that share the procedure type of \p index.
  std::size_t SegmentEnd(std::size_t index) const { return body_->segmentEnds[index]; }
  /// Position of the first step called \p name, or npos.
  std::size_t Find(std::string_view name) const;
  /// Whether both are the same table, not only equal ones.
  bool Same(kprC_StepTable const& other) const { return body_ == other.body_; }
  /// Whether both tell the same sequence: as many steps, equal names, the very same procedure objects.
  bool Tells(kprC_StepTable const& other) const;
  /// Whether both have the same names in the same order.
  bool SameNames(kprC_StepTable const& other) const;

  kprC_StepTable WithInserted(std::size_t index, kprC_StepNameProcedurePair const& pair) const;
  kprC_StepTable WithRemoved(std::size_t index) const;
  kprC_StepTable WithReplaced(std::size_t index, kprC_StepNameProcedurePair const& pair) const;

private:
  struct Body : mem_Counted {
    kprC_StepSequence steps;
    std::vector<unsigned> types, distinctTypes;
    std::vector<std::uint32_t> segmentEnds;
    std::vector<std::uint32_t> slots;  ///< open hash of the names: position + 1, or 0; a power of two long
  };

  cow_Handle<Body> body_;
};
