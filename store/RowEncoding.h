#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/StoreWriter.h"

namespace gattr {

// What the data of a row is made of; README.md describes it.
inline constexpr std::string_view kRowsElsewhere = "rows";    ///< stands for a map whose objects have rows of their own
inline constexpr std::string_view kStepsElsewhere = "steps";  ///< stands for the model's sequence

/// Whether two texts of \p size bytes are the same. Names are short: eight at a time, and not worth a call.
inline bool AreSame(char const* a, char const* b, std::size_t size) {
  auto const same = [&]<class Word>(Word, std::size_t at) {
    Word one, other;
    std::memcpy(&one, a + at, sizeof one);
    std::memcpy(&other, b + at, sizeof other);
    return one == other;
  };
  using Long = std::uint64_t;
  using Half = std::uint32_t;
  if (size >= sizeof(Long)) {
    for (std::size_t at = 0; at + sizeof(Long) < size; at += sizeof(Long)) {
      if (!same(Long(), at)) { return false; }
    }
    return same(Long(), size - sizeof(Long));
  }
  if (size >= sizeof(Half)) { return same(Half(), 0) && same(Half(), size - sizeof(Half)); }
  return size == 0 || (a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1]);
}
/// Whether \p whole is the one text and then the other.
inline bool IsJoined(std::string_view whole, std::string_view first, std::string_view second) {
  return whole.size() == first.size() + second.size() && AreSame(whole.data(), first.data(), first.size()) &&
         AreSame(whole.data() + first.size(), second.data(), second.size());
}

/// The classes of a model file by number, each with the names of its members: values of an object stand in their order. Only
/// grows, so that rows written once stay readable.
class RowClasses {
public:
  struct Class {
    std::string name;
    std::vector<std::string> members;
  };

  std::size_t Size() const { return classes_.size(); }
  Class const& operator[](std::size_t number) const { return classes_[number]; }
  void Add(Class one) { classes_.push_back(std::move(one)); }
  /// The number of that class with those members, which is added when it is new.
  std::size_t Number(Class one);

private:
  std::vector<Class> classes_;
};

/// Adds \p text to \p row as JSON has it.
void AppendQuoted(std::string& row, std::string_view text);

/// Encodes one object at a time.
class RowWriter final : public StoreWriter {
public:
  enum class Row {
    Extension,  ///< its first map is left to rows of its own, and the model's sequence of steps to theirs
    Object,     ///< complete in itself, steps included, so that it stays good when they change
  };

  RowWriter(ModelSteps const& steps, RowClasses& classes, std::string_view where) : StoreWriter(steps, where), classes_(classes) {}

  using StoreWriter::SetWhere;
  /// \p object with its members. \p hasModelSteps: the sequence in it is known to be the model's. Good until the next call.
  std::string_view Encode(cls_Object const& object, Row row, bool hasModelSteps = false);

  /// Whether the model's sequence stood in what was encoded last.
  bool WroteModelSteps() const { return wroteModelSteps_; }

  bool StartWrite(unsigned typeId, cls_Uid const& uid) const override;
  void WriteEnumerated(std::string_view member, std::string_view suffix, std::string_view text, unsigned number) const override;
  bool WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const override;
  bool WritesOwnRecordsOnly() const override { return true; }

protected:
  void PutNull(std::string_view member) const override { Put(member, "null"); }
  void PutBool(std::string_view member, bool value) const override { Put(member, value ? "true" : "false"); }
  void PutInteger(std::string_view member, long long value) const override;
  void PutReal(std::string_view member, double value) const override;
  void PutText(std::string_view member, std::string_view value) const override;
  bool PutShared(std::string_view member, cls_Object const* object) const override;
  void OpenObject(std::string_view member, std::string_view className) const override;
  void OpenList(std::string_view member, std::size_t count) const override;
  bool OpenMap(std::string_view member) const override;
  void Close(Kind kind) const override;
  bool RefersToSteps() const override { return row_ == Row::Extension; }

private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// What is open: an object with the class that it seems to be of, a list or a map.
  struct Frame {
    Kind kind = Kind::List;
    std::size_t count = 0;                  ///< of what has been written here
    unsigned typeId = 0;                    ///< of an object
    std::size_t guess = kNone;              ///< the class that its type had last; none where the members are not that one's
    std::size_t numberAt = 0;               ///< where in the bytes its number stands
    std::vector<std::string> members = {};  ///< as far as there is no guess
  };

  /// Everything before a value: a comma, the name of an entry of a map.
  void Begin(std::string_view member, std::string_view suffix = {}) const;
  void Put(std::string_view member, std::string_view value) const;
  void Quote(std::string_view text) const { AppendQuoted(bytes_, text); }
  /// Gives the object its number, once its members are known.
  void CloseObject() const;

  RowClasses& classes_;
  Row row_ = Row::Object;
  bool hasModelSteps_ = false;
  // writing goes through a const interface
  mutable std::string bytes_;
  mutable std::vector<Frame> frames_;
  mutable std::unordered_map<unsigned, std::size_t> last_;  // the class that an object of a type had last
  mutable std::unordered_map<cls_Object const*, std::size_t> shared_;
  mutable std::size_t objects_ = 0;  // that have been written
  mutable bool hasRows_ = false, wroteModelSteps_ = false;
};

}  // namespace gattr
