#include "store/FirstVersion.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace gattr {

namespace {

enum class Tag : unsigned char { End, Null, False, True, Integer, Real, Text, Object, Nested, List, Reference, Rows, Steps };

constexpr std::size_t kRepeatableTexts = 64;  // texts of a row that may be repeated by number are its first ones
constexpr std::size_t kMostUnpacked = 64;     // times as large as the file, and megabytes beside that

class Unpacker {
public:
  Unpacker(Database const& database, std::vector<std::string> names, RowClasses& classes)
      : database_(database), names_(std::move(names)), classes_(classes) {}

  /// The row \p where of a class and its bytes.
  std::string Row(std::string where, std::string_view type, std::string_view bytes) {
    where_ = std::move(where);
    bytes_ = bytes;
    limit_ += kMostUnpacked * bytes.size();
    texts_.clear();
    row_.clear();
    Object(type, 0);
    if (!bytes_.empty()) { Refuse("goes on behind its end"); }
    limit_ -= row_.size();
    return std::move(row_);
  }

private:
  [[noreturn]] void Refuse(std::string_view what) const { database_.Refuse(where_ + ": is damaged: the row " + std::string(what)); }

  std::string_view Take(std::uint64_t size) {
    if (size > bytes_.size()) { Refuse("ends too early"); }
    std::string_view const taken = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return taken;
  }
  unsigned char Byte() { return static_cast<unsigned char>(Take(1)[0]); }
  /// Seven bits a byte, least first, the top bit set where more follow.
  std::uint64_t Varint() {
    std::uint64_t number = 0;
    for (unsigned shift = 0; shift < 64; shift += 7) {
      std::uint64_t const byte = Byte();
      number |= (byte & 0x7F) << shift;
      if (byte < 0x80) { return number; }
    }
    Refuse("holds a number that is too large");
  }
  std::size_t Index(std::size_t limit) {
    std::uint64_t const index = Varint();
    if (index >= limit) { Refuse("refers to what is not there"); }
    return index;
  }
  template <class T> void Digits(T number) {
    char digits[32];
    row_.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
  }

  /// The members up to the end; \p type is empty where the owner knows it.
  void Object(std::string_view type, std::size_t depth) {
    std::vector<std::string> members;
    row_ += "{\"";
    std::size_t const numberAt = row_.size();
    row_ += "\":[";
    for (auto tag = static_cast<Tag>(Byte()); tag != Tag::End; tag = static_cast<Tag>(Byte())) {
      if (!members.empty()) { row_ += ','; }
      members.push_back(names_[Index(names_.size())]);
      Value(tag, depth + 1);
    }
    row_ += "]}";
    row_.insert(numberAt, std::to_string(classes_.Number({std::string(type), std::move(members)})));
  }

  void Value(Tag tag, std::size_t depth) {
    if (depth > RowReader::kDeepest) { Refuse("nests deeper than " + std::to_string(RowReader::kDeepest) + " objects and lists"); }
    if (row_.size() > limit_) { Refuse("unpacks to more than " + std::to_string(kMostUnpacked) + " times its size"); }
    switch (tag) {
      case Tag::Null: row_ += "null"; return;
      case Tag::False: row_ += "false"; return;
      case Tag::True: row_ += "true"; return;
      case Tag::Integer: {
        std::uint64_t const bits = Varint();
        return Digits(static_cast<long long>(bits >> 1 ^ (~(bits & 1) + 1)));
      }
      case Tag::Real: {
        std::uint64_t bits = 0;
        for (int byte = 0; byte < 8; ++byte) { bits |= std::uint64_t{Byte()} << (8 * byte); }
        return Digits(std::bit_cast<double>(bits));
      }
      case Tag::Text: {
        std::size_t const known = Index(texts_.size() + 1);
        std::string_view const text = known == 0 ? Take(Varint()) : texts_[known - 1];
        if (known == 0 && texts_.size() < kRepeatableTexts) { texts_.push_back(text); }
        return AppendQuoted(row_, text);
      }
      case Tag::Object: return Object(names_[Index(names_.size())], depth);
      case Tag::Nested: return Object({}, depth);
      case Tag::List: {
        row_ += '[';
        for (std::uint64_t left = Varint(), at = 0; at < left; ++at) {
          if (at > 0) { row_ += ','; }
          Value(static_cast<Tag>(Byte()), depth + 1);
        }
        row_ += ']';
        return;
      }
      // the objects of a row were numbered without the one that the row is
      case Tag::Reference: return Digits(Varint() + 1);
      case Tag::Rows: return AppendQuoted(row_, kRowsElsewhere);
      case Tag::Steps: return AppendQuoted(row_, kStepsElsewhere);
      default: Refuse("holds a value of an unknown kind");
    }
  }

  Database const& database_;
  std::vector<std::string> names_;
  RowClasses& classes_;
  std::string where_;
  std::string_view bytes_;
  std::vector<std::string_view> texts_;
  std::string row_;
  std::size_t limit_ = kMostUnpacked << 20;
};

}  // namespace

ModelRows ReadFirstVersion(ModelTables& tables, Database const& database) {
  ModelRows rows;
  rows.nullIsLargest = true;
  std::vector<std::string> names;
  tables.ForEach(Table::Classes, [&](Row const& row) {
    if (row.position != static_cast<std::int64_t>(names.size())) { database.Refuse("names: is damaged: expected numbers from 0 on"); }
    names.emplace_back(row.name);
  });
  Unpacker unpacker(database, std::move(names), rows.classes);
  auto const unpack = [&](Row const& row) {
    std::string const where = row.owner.empty() ? std::string(row.name) : std::string(row.owner) + " / " + std::string(row.name);
    bool const isNull = row.type.empty() && row.data.empty();  // a step without a procedure
    return StoredRow{row.position, rows.Keep(row.name), isNull ? "null" : rows.Keep(unpacker.Row(where, row.type, row.data))};
  };
  tables.ForEach(Table::Extensions, [&](Row const& row) { rows.extensions.push_back(unpack(row)); });
  tables.ForEach(Table::Steps, [&](Row const& row) { rows.steps.push_back(unpack(row)); });
  for (Table const table : {Table::Attributes, Table::Objects}) {
    tables.ForEach(table, [&](Row const& row) {
      std::string owner(row.owner);
      if (table == Table::Attributes) { rows.repositories.insert(owner); }
      rows.objects[std::move(owner)].push_back(unpack(row));
    });
  }
  tables.CheckComplete();
  return rows;
}

}  // namespace gattr
