#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "module/kpr/engine/kprC_StepNameProcedurePair.h"
#include "platform/BasicUtils/cls_xoList.h"
#include "platform/BasicUtils/cow_Map.h"

/// The step sequence as a list of pairs, in step order, beginning with the initial step.
using kprC_StepSequence = cls_xo1DArrayList<kprC_StepNameProcedurePair>;

/// One version of the step sequence, with what the histories ask of it. A handle: copies share one body, and all histories
/// of a model stand on the same version, so that a step's name and procedure exist once whatever number of attributes refers
/// to them.
///
/// A version never changes. An edit gives the next one, which shares with it what the edit leaves alone: it costs what a
/// block of steps weighs, and a word for every block, whatever the number of steps. A position that does not exist is refused. Every step
/// keeps its number from version to version, and the numbers rise in step order: a history names steps by number and need not be told of
/// steps that come, go, or are renamed elsewhere. Questions by position cost the same for every step but for a search among the blocks,
/// questions by number or name are logarithmic.
class DDB_API kprC_StepTable {
public:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  /// Names a step within the versions that follow each other; 0 is none.
  using Number = std::uint64_t;

  kprC_StepTable();
  explicit kprC_StepTable(kprC_StepSequence const& steps);
  /// The one step of an attribute that no repository holds: it is in no sequence, and so not the initial one.
  static kprC_StepTable OfOne(cow_String const& step);

  std::size_t Size() const { return body_->size; }
  kprC_StepNameProcedurePair const& operator[](std::size_t index) const { return At(index).step->pair; }
  cow_String const& Name(std::size_t index) const { return (*this)[index].stepName; }
  /// The procedure type that rules are asked with; 0 for the initial step.
  unsigned ProcedureType(std::size_t index) const { return At(index).facts.procedureType; }
  kprC_StepFacts Facts(std::size_t index) const { return At(index).facts; }
  Number NumberOf(std::size_t index) const { return At(index).number; }
  /// Whether the step is the initial one: the first of the sequence, with a procedure object or without.
  bool IsInitial(std::size_t index) const { return index == 0 && !body_->loose && ProcedureType(0) == 0; }
  /// Position of the step of that number, or npos.
  std::size_t Position(Number number) const;
  /// Position of the first step called \p name, or npos.
  std::size_t Find(std::string_view name) const;
  /// One past the last of the neighbouring steps that share the facts of \p index.
  std::size_t SegmentEnd(std::size_t index) const;
  /// Number of the last step of that procedure type before the position \p index; 0 when there is none.
  Number LastBefore(std::size_t index, unsigned procedureType) const;
  /// Whether any step has that procedure type.
  bool HasType(unsigned procedureType) const;
  /// Whether any step has a procedure object.
  bool HasProcedure() const { return body_->procedures != 0; }
  /// The steps as a list. Linear.
  kprC_StepSequence Sequence() const;
  /// Calls \p fn(pair) for every step in order.
  template <class Fn> void ForEach(Fn&& fn) const {
    for (Part const& part : body_->parts) {
      for (Entry const& entry : part.block->entries) { fn(entry.step->pair); }
    }
  }

  /// Whether both are the same version, not only equal ones.
  bool Same(kprC_StepTable const& other) const { return body_ == other.body_; }
  /// Whether this is \p earlier, or the version made from it by one edit: numbers mean the same in both.
  bool Continues(kprC_StepTable const& earlier) const { return Same(earlier) || body_->parent == earlier.body_->version; }
  /// Number of the step that the edit took away or gave other facts; 0 where it did neither.
  Number Disturbed() const { return body_->disturbed; }
  /// Whether both have the same names in the same order.
  bool SameNames(kprC_StepTable const& other) const;

  kprC_StepTable WithInserted(std::size_t index, kprC_StepNameProcedurePair const& pair) const;
  kprC_StepTable WithRemoved(std::size_t index) const;
  /// Another name, another procedure, or both; the step keeps its number.
  kprC_StepTable WithReplaced(std::size_t index, kprC_StepNameProcedurePair const& pair) const;
  /// The same steps under the names of \p other, which has as many.
  kprC_StepTable WithNames(kprC_StepTable const& other) const;

private:
  static constexpr std::size_t kBlock = 128;  // steps in a block at most

  struct Step : mem_Counted {
    explicit Step(kprC_StepNameProcedurePair const& of) : pair(of) {}
    kprC_StepNameProcedurePair pair;
  };
  struct Entry {
    Number number;
    cow_Handle<Step> step;
    kprC_StepFacts facts;
  };
  struct Block : mem_Counted {
    std::vector<Entry> entries;
    std::uint32_t types = 0;  // procedure types of the steps, a bit each
    std::uint8_t traits = 0;  // that any of them has

    void Count(Entry const& entry) {
      types |= kprC_ProcedureBit(entry.facts.procedureType);
      traits |= entry.facts.traits;
    }
    void CountAll();
  };
  struct Part {
    cow_Handle<Block> block;
    std::size_t begin;  // position of its first step
    Number first;       // its number
  };
  /// Names are looked up by hash, and by the text where hashes meet.
  struct Key {
    std::size_t hash;
    cow_String name;
    std::uint64_t Rank() const { return hash; }
    friend bool operator==(Key const& a, Key const& b) { return a.hash == b.hash && a.name == b.name; }
    friend std::strong_ordering operator<=>(Key const& a, Key const& b) {
      return a.hash != b.hash ? a.hash <=> b.hash : a.name.View() <=> b.name.View();
    }
  };
  struct Body : mem_Counted {
    std::vector<Part> parts;
    std::size_t size = 0, procedures = 0;  // steps, and those of them with a procedure object
    cow_Map<Key, Number> numbers;          // of the first step of each name
    std::uint64_t version = 0, parent = 0;
    Number disturbed = 0;  // by the edit that made this version
    bool loose = false;
  };

  static Entry MakeEntry(Number number, kprC_StepNameProcedurePair const& pair);
  std::size_t PartOf(std::size_t index) const;
  Entry const& At(std::size_t index) const {
    if (index >= body_->size) { cow_RefuseIndex(index, body_->size); }
    auto const& parts = body_->parts;
    if (parts.size() == 1) { return parts[0].block->entries[index]; }
    Part const& part = parts[PartOf(index)];
    return part.block->entries[index - part.begin];
  }
  /// The next version, still equal to this one.
  cow_Handle<Body> Next() const;
  /// Brings the parts from \p part on in line with their blocks.
  static void Settle(Body& body, std::size_t part);
  static void Fill(Body& body, std::vector<Entry> entries);
  static kprC_StepTable From(cow_Handle<Body> body);

  cow_Handle<Body> body_;
};

/// A source that has the model's sequence at hand while it is read.
class DDB_API kprC_StepSource {
public:
  /// The model's sequence.
  virtual kprC_StepTable const& Steps() const = 0;
  /// Takes the sequence under \p member where it is the model's; false where it is told as a list.
  virtual bool ReadSteps(std::string_view member, kprC_StepTable& table) const = 0;

protected:
  virtual ~kprC_StepSource();
};

/// A step sequence is written as the list of its pairs, and as such, so that a visitor may refer to the model's own.
template <> struct DDB_API cls_MemberTraits<kprC_StepTable> {
  static void Describe(cls_MemberInfo& info);
  static void Write(cls_WriteVisitor const& out, std::string_view name, kprC_StepTable const& table);
  static void Read(cls_ReadVisitor const& in, std::string_view name, kprC_StepTable& table);
  static void NewUid(kprC_StepTable&) {}
  static bool Equal(kprC_StepTable const& a, kprC_StepTable const& b);
  static cls_Value ToValue(kprC_StepTable const& table);
  static std::string_view FromValue(kprC_StepTable&, cls_Value const&) { return "nothing: the steps have commands of their own"; }
};
