#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/Database.h"

namespace gattr {

/// The tables of a model file beside meta; README.md describes them.
enum class Table { Names, Extensions, Steps, Attributes, Objects };
inline constexpr std::array kTables = {Table::Names, Table::Extensions, Table::Steps, Table::Attributes, Table::Objects};

/// A row of any table. What the table has no column for is left empty.
template <class Text> struct BasicRow {
  std::int64_t position = 0;
  Text owner, name, type, data;

  friend bool operator==(BasicRow const&, BasicRow const&) = default;
};
using Row = BasicRow<std::string_view>;
using StoredRow = BasicRow<std::string>;

/// The tables of one model file inside a transaction: rows, and the sums over them that show when one is missing.
class ModelTables {
public:
  static constexpr std::int32_t kApplicationId = 0x67617474;  ///< "gatt"
  static constexpr std::int32_t kVersion = 1;

  /// Tells one content of the file from all others.
  struct Stamp {
    std::int64_t generation = 0;  ///< counts the saves
    std::int64_t mark = 0;        ///< drawn at random for each

    friend bool operator==(Stamp const&, Stamp const&) = default;
  };

  /// Looks at the file. Refuses what is no model file, of a later version, or has other tables.
  explicit ModelTables(Database& database);

  /// Whether the file is new: without tables.
  bool IsEmpty() const { return !present_; }
  Stamp const& Present() const { return stamp_; }

  // Writing. None of it holds before Commit.

  /// Makes the tables, or empties them.
  void Clear();
  /// Writes a row in the place of the one with the same key; nothing where that is equal.
  void Put(Table table, Row const& row);
  void Remove(Table table, Row const& key);
  /// Removes all rows of an owner.
  void RemoveOwned(Table table, std::string_view owner);
  /// Removes the rows from a position on.
  void RemoveFrom(Table table, std::int64_t position);
  /// Ends the transaction and returns the new stamp; the present one where nothing has changed.
  Stamp Commit();

  // Reading.

  /// Refuses a file whose structure is damaged.
  void CheckStructure();
  /// All rows in the order of their keys. Refuses one whose checksum does not fit.
  std::vector<StoredRow> ReadAll(Table table);
  /// Refuses when what was read of all tables is not all that was written.
  void CheckComplete() const;

private:
  struct Statements {
    std::optional<Database::Statement> find, put, remove;
  };
  struct Totals {
    std::int64_t rows = 0;
    std::int64_t sum = 0;  ///< of the checksums

    void Add(std::int64_t checksum);
    void Subtract(std::int64_t checksum);
    friend bool operator==(Totals const&, Totals const&) = default;
  };

  Statements& Prepared(Table table);
  template <class Text> static std::int64_t ChecksumOf(Table table, BasicRow<Text> const& row);
  static std::int64_t MetaChecksum(Stamp const& stamp, Totals const& totals);
  /// Removes the rows that match \p condition with the parameter \p bound.
  template <class Value> void RemoveWhere(Table table, std::string_view condition, Value bound);

  Database& database_;
  bool present_ = false, cleared_ = false, changed_ = false;
  Stamp stamp_;
  Totals totals_;  ///< of the rows that are written
  Totals read_;    ///< of those that have been read
  std::array<Statements, kTables.size()> statements_;
};

}  // namespace gattr
