#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/Document.h"
#include "store/StoreWriter.h"

namespace gattr {

/// The encoding of the data of a row; README.md describes it.
enum class RowTag : unsigned char {
  End = 0,  ///< of an object or map
  Null = 1,
  False = 2,
  True = 3,
  Integer = 4,
  Real = 5,
  Text = 6,
  Object = 7,  ///< of a class of its own
  Nested = 8,  ///< of the class that its owner knows; also a map
  List = 9,
  Reference = 10,  ///< to an object of the row
  Rows = 11,       ///< a map whose objects are rows
  Steps = 12,      ///< the model's steps: in the extension of the steps themselves, elsewhere their names
};

/// Texts of a row that may be repeated by number are its first ones.
inline constexpr std::size_t kRepeatableTexts = 64;

/// Names of members and classes by number. Only grows, so that rows written once stay readable.
class RowNames {
public:
  std::uint32_t Number(std::string_view name);
  std::vector<std::string> const& Names() const { return names_; }

private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };
  std::vector<std::string> names_;
  std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> numbers_;
};

/// Encodes one object at a time.
class RowWriter final : public StoreWriter {
public:
  enum class Row {
    Extension,  ///< its first map is left to rows of its own, and the model's sequence of steps to theirs
    Object,     ///< complete in itself, steps included, so that it stays good when they change
  };

  RowWriter(ModelSteps const& steps, RowNames& names, std::string_view where, Row row)
      : StoreWriter(steps, where), names_(names), row_(row) {}

  /// The members of \p object.
  std::string Encode(cls_Object const& object);

  bool WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const override;
  bool WritesOwnRecordsOnly() const override { return true; }

protected:
  void PutNull(std::string_view member) const override { Put(RowTag::Null, member); }
  void PutBool(std::string_view member, bool value) const override { Put(value ? RowTag::True : RowTag::False, member); }
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
  void Put(RowTag tag, std::string_view member) const;
  void Varint(std::uint64_t number) const;

  RowNames& names_;
  Row row_;
  // writing goes through a const interface
  mutable std::string bytes_;
  mutable std::vector<std::pair<std::size_t, std::size_t>> texts_;  // begin and size in the bytes
  mutable std::unordered_map<cls_Object const*, std::uint32_t> objects_;
  mutable bool hasRows_ = false;
};

/// Adds what rows hold to a document.
class RowDecoder {
public:
  /// What to add for what a row leaves to others, under the given name.
  struct Elsewhere {
    std::function<void(Document::Text)> rows;
    std::function<void(Document::Text)> steps;
  };

  RowDecoder(Document& document, std::vector<std::string> const& names);

  /// Adds the members of a row to the object that is open. Raises a StoreError when the bytes are no such row.
  void Decode(std::string_view bytes, Elsewhere const& elsewhere = {}) const;

private:
  Document& document_;
  Document::Text class_;
  std::vector<Document::Text> names_;
};

}  // namespace gattr
