#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "store/Database.h"

namespace gattr {

/// The tables of a model file beside meta; README.md describes them.
enum class Table { Classes, Extensions, Steps, Attributes, Objects };
inline constexpr std::array kTables = {Table::Classes, Table::Extensions, Table::Steps, Table::Attributes, Table::Objects};

/// A row of any table. What the table has no column for is left empty.
struct Row {
  std::int64_t position = 0;
  std::string_view owner, name, data;
  std::string_view type = {};  ///< the class, in the first version

  friend bool operator==(Row const&, Row const&) = default;
};

struct TableLayout;

/// The tables of one model file inside a transaction: rows, and the sums over them that show when one is missing. After one that has
/// ended well another may follow.
class ModelTables {
public:
  static constexpr std::int32_t kApplicationId = 0x67617474;  ///< "gatt"
  static constexpr std::int32_t kVersion = 2;

  /// Tells one content of the file from all others.
  struct Stamp {
    std::int64_t generation = 0;  ///< counts the saves
    std::int64_t mark = 0;        ///< drawn at random for each

    friend bool operator==(Stamp const&, Stamp const&) = default;
  };

  /// Looks at the file. Refuses what is no model file, of a later version, or has other tables. Files of earlier versions can be
  /// read, and cleared.
  explicit ModelTables(Database& database);

  /// Whether the file is new: without tables.
  bool IsEmpty() const { return !present_; }
  bool IsFirstVersion() const { return version_ == 1; }
  Stamp const& Present() const { return stamp_; }

  // Writing. None of it holds before the transaction ends.

  /// Makes the tables, or empties them. Due before anything else is written into a file of another version.
  void Clear();
  /// Writes a row in the place of the one with the same key; nothing where that is equal.
  void Put(Table table, Row const& row);
  void Remove(Table table, Row const& key);
  /// Removes all rows of an owner.
  void RemoveOwned(Table table, std::string_view owner);
  /// Removes the rows from a position on.
  void RemoveFrom(Table table, std::int64_t position);
  /// Writes the new stamp, which it returns, so that the transaction can end; the present one where nothing has changed.
  Stamp Finish();

  // Reading.

  /// All rows in the order of their keys, good during the call. Refuses one whose checksum does not fit.
  void ForEach(Table table, std::function<void(Row const&)> const& visit);
  /// Refuses when what was read of all tables is not all that was written.
  void CheckComplete() const;

private:
  /// What is done with one row of a table.
  enum class With { Find, Put, Remove };
  struct Totals {
    std::int64_t rows = 0;
    std::int64_t sum = 0;  ///< of the checksums

    void Add(std::int64_t checksum);
    void Subtract(std::int64_t checksum);
    friend bool operator==(Totals const&, Totals const&) = default;
  };

  TableLayout const& LayoutOf(Table table) const;
  /// The statement for that, which is prepared when it is asked for first.
  Database::Statement& Prepared(Table table, With with);
  static std::int64_t ChecksumOf(Table table, Row const& row);
  static std::int64_t MetaChecksum(Stamp const& stamp, Totals const& totals);
  /// Removes the rows that match \p condition with the parameter \p bound.
  template <class Value> void RemoveWhere(Table table, std::string_view condition, Value bound);

  Database& database_;
  bool present_ = false, cleared_ = false, changed_ = false;
  std::int64_t version_ = kVersion;  ///< of the tables
  Stamp stamp_;
  Totals totals_;  ///< of the rows that are written
  Totals read_;    ///< of those that have been read
  std::array<std::array<std::optional<Database::Statement>, 3>, kTables.size()> statements_;
};

}  // namespace gattr
