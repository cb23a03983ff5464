#include "store/ModelTables.h"

#include <iterator>
#include <random>
#include <span>

#include "store/Checksum.h"

namespace gattr {

namespace {

constexpr char const* kMetaSchema = "CREATE TABLE meta(key TEXT PRIMARY KEY, value INTEGER NOT NULL) STRICT, WITHOUT ROWID";

enum class Field { Position, Owner, Name, Type, Data };
struct Column {
  char const* name;
  Field field;
};

/// A table: its columns but the last, the checksum, and how many of them are the key.
struct Layout {
  char const* name;
  char const* schema;
  std::span<Column const> columns;
  int keys;
};

constexpr Column kNameColumns[] = {{"number", Field::Position}, {"name", Field::Name}};
constexpr Column kExtensionColumns[] = {{"name", Field::Name}, {"class", Field::Type}, {"data", Field::Data}};
constexpr Column kStepColumns[] = {{"position", Field::Position}, {"name", Field::Name}, {"class", Field::Type}, {"data", Field::Data}};
constexpr Column kAttributeColumns[] = {{"repository", Field::Owner}, {"name", Field::Name}, {"class", Field::Type}, {"data", Field::Data}};
constexpr Column kObjectColumns[] = {{"extension", Field::Owner}, {"name", Field::Name}, {"class", Field::Type}, {"data", Field::Data}};

// In the order of the enumeration. The schema is also compared with the file's, letter by letter.
constexpr Layout kLayouts[] = {
    {"names", "CREATE TABLE names(number INTEGER PRIMARY KEY, name TEXT NOT NULL, checksum INTEGER NOT NULL) STRICT", kNameColumns, 1},
    {"extensions",
     "CREATE TABLE extensions(name TEXT PRIMARY KEY, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL) STRICT, "
     "WITHOUT ROWID",
     kExtensionColumns, 1},
    {"steps",
     "CREATE TABLE steps(position INTEGER PRIMARY KEY, name TEXT NOT NULL, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT "
     "NULL) STRICT",
     kStepColumns, 1},
    {"attributes",
     "CREATE TABLE attributes(repository TEXT, name TEXT, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL, PRIMARY "
     "KEY(repository, name)) STRICT, WITHOUT ROWID",
     kAttributeColumns, 2},
    {"objects",
     "CREATE TABLE objects(extension TEXT, name TEXT, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL, PRIMARY "
     "KEY(extension, name)) STRICT, WITHOUT ROWID",
     kObjectColumns, 2},
};

Layout const& LayoutOf(Table table) { return kLayouts[static_cast<std::size_t>(table)]; }

std::string KeyCondition(Layout const& layout) {
  std::string condition;
  for (int key = 0; key < layout.keys; ++key) {
    condition += std::string(key == 0 ? " WHERE " : " AND ") + layout.columns[static_cast<std::size_t>(key)].name + " = ?";
  }
  return condition;
}

void Bind(Database::Statement& statement, int parameter, Field field, Row const& row) {
  switch (field) {
    case Field::Position: statement.Bind(parameter, row.position); break;
    case Field::Owner: statement.Bind(parameter, row.owner); break;
    case Field::Name: statement.Bind(parameter, row.name); break;
    case Field::Type: statement.Bind(parameter, row.type); break;
    case Field::Data: statement.BindBytes(parameter, row.data); break;
  }
}

Database::Statement& BindKey(Database::Statement& statement, Layout const& layout, Row const& row) {
  for (int key = 0; key < layout.keys; ++key) { Bind(statement, key + 1, layout.columns[static_cast<std::size_t>(key)].field, row); }
  return statement;
}

/// The columns of the row that \p statement has come to, in the order of the layout.
template <class RowType> RowType Fetch(Database::Statement const& statement, Layout const& layout) {
  RowType row;
  int column = 0;
  for (Column const& one : layout.columns) {
    switch (one.field) {
      case Field::Position: row.position = statement.Number(column); break;
      case Field::Owner: row.owner = statement.Text(column); break;
      case Field::Name: row.name = statement.Text(column); break;
      case Field::Type: row.type = statement.Text(column); break;
      case Field::Data: row.data = statement.Bytes(column); break;
    }
    ++column;
  }
  return row;
}

int ChecksumColumn(Layout const& layout) { return static_cast<int>(layout.columns.size()); }

}  // namespace

void ModelTables::Totals::Add(std::int64_t checksum) {
  ++rows;
  sum += checksum;
}

void ModelTables::Totals::Subtract(std::int64_t checksum) {
  --rows;
  sum -= checksum;
}

ModelTables::ModelTables(Database& database) : database_(database) {
  std::int64_t const application = database.Number("PRAGMA application_id");
  if (application == 0 && database.Number("SELECT count(*) FROM sqlite_schema") == 0) { return; }
  present_ = true;
  if (application != kApplicationId) { database.Refuse("is no model file, but a database of another program"); }
  std::int64_t const version = database.Number("PRAGMA user_version");
  if (version > kVersion) {
    database.Refuse("is of the later version " + std::to_string(version) + "; expected version " + std::to_string(kVersion));
  }
  if (version != kVersion) { database.Refuse("is damaged: expected version " + std::to_string(kVersion)); }

  std::vector<std::string> found;
  Database::Statement schema(database, "SELECT sql FROM sqlite_schema ORDER BY rowid");
  while (schema.Step()) { found.emplace_back(schema.Text(0)); }
  bool fits = found.size() == std::size(kLayouts) + 1 && found[0] == kMetaSchema;
  for (std::size_t i = 0; fits && i < std::size(kLayouts); ++i) { fits = found[i + 1] == kLayouts[i].schema; }
  if (!fits) { database.Refuse("is damaged: expected the tables of a model"); }

  std::int64_t checksum = -1;
  struct Entry {
    std::string_view key;
    std::int64_t* value;
  };
  Entry const entries[] = {
      {"checksum", &checksum}, {"generation", &stamp_.generation}, {"mark", &stamp_.mark}, {"rows", &totals_.rows}, {"sum", &totals_.sum}};
  Database::Statement meta(database, "SELECT key, value FROM meta ORDER BY key");
  for (Entry const& entry : entries) {
    if (!meta.Step() || meta.Text(0) != entry.key) { database.Refuse("is damaged: meta: expected \"" + std::string(entry.key) + "\""); }
    *entry.value = meta.Number(1);
  }
  if (meta.Step() || checksum != MetaChecksum(stamp_, totals_)) { database.Refuse("is damaged: meta does not fit its checksum"); }
}

void ModelTables::Clear() {
  totals_ = {};
  cleared_ = changed_ = true;
  if (present_) {
    for (Layout const& layout : kLayouts) { database_.Run(("DELETE FROM " + std::string(layout.name)).c_str()); }
    return;
  }
  database_.Run(("PRAGMA application_id = " + std::to_string(kApplicationId)).c_str());
  database_.Run(("PRAGMA user_version = " + std::to_string(kVersion)).c_str());
  database_.Run(kMetaSchema);
  for (Layout const& layout : kLayouts) { database_.Run(layout.schema); }
}

ModelTables::Statements& ModelTables::Prepared(Table table) {
  Statements& statements = statements_[static_cast<std::size_t>(table)];
  if (statements.put) { return statements; }
  Layout const& layout = LayoutOf(table);
  std::string const name = layout.name;
  std::string places = "?";  // of the checksum
  for (std::size_t i = 0; i < layout.columns.size(); ++i) { places += ", ?"; }
  std::string const condition = KeyCondition(layout);
  statements.find.emplace(database_, ("SELECT * FROM " + name + condition).c_str());
  statements.put.emplace(database_, ("INSERT OR REPLACE INTO " + name + " VALUES(" + places + ")").c_str());
  statements.remove.emplace(database_, ("DELETE FROM " + name + condition).c_str());
  return statements;
}

template <class Text> std::int64_t ModelTables::ChecksumOf(Table table, BasicRow<Text> const& row) {
  Checksum checksum;
  checksum.Add(static_cast<std::uint64_t>(table)).Add(static_cast<std::uint64_t>(row.position));
  for (std::string_view const text :
       {std::string_view(row.owner), std::string_view(row.name), std::string_view(row.type), std::string_view(row.data)}) {
    checksum.Add(text);
  }
  return checksum.Value();
}

std::int64_t ModelTables::MetaChecksum(Stamp const& stamp, Totals const& totals) {
  Checksum checksum;
  for (std::int64_t const number : {stamp.generation, stamp.mark, totals.rows, totals.sum}) {
    checksum.Add(static_cast<std::uint64_t>(number));
  }
  return checksum.Value();
}

void ModelTables::Put(Table table, Row const& row) {
  Layout const& layout = LayoutOf(table);
  Statements& statements = Prepared(table);
  if (!cleared_) {
    Database::Statement& find = BindKey(*statements.find, layout, row);
    if (find.Step()) {
      bool const equal = Fetch<Row>(find, layout) == row;
      std::int64_t const checksum = find.Number(ChecksumColumn(layout));
      find.Reset();
      if (equal) { return; }
      totals_.Subtract(checksum);
    }
  }
  std::int64_t const checksum = ChecksumOf(table, row);
  Database::Statement& put = *statements.put;
  int parameter = 0;
  for (Column const& column : layout.columns) { Bind(put, ++parameter, column.field, row); }
  put.Bind(++parameter, checksum).Run();
  totals_.Add(checksum);
  changed_ = true;
}

void ModelTables::Remove(Table table, Row const& key) {
  Layout const& layout = LayoutOf(table);
  Statements& statements = Prepared(table);
  Database::Statement& find = BindKey(*statements.find, layout, key);
  if (!find.Step()) { return; }
  totals_.Subtract(find.Number(ChecksumColumn(layout)));
  find.Reset();
  BindKey(*statements.remove, layout, key).Run();
  changed_ = true;
}

template <class Value> void ModelTables::RemoveWhere(Table table, std::string_view condition, Value bound) {
  std::string const from = " FROM " + std::string(LayoutOf(table).name) + " WHERE " + std::string(condition);
  Database::Statement find(database_, ("SELECT checksum" + from).c_str());
  find.Bind(1, bound);
  while (find.Step()) {
    totals_.Subtract(find.Number(0));
    changed_ = true;
  }
  Database::Statement(database_, ("DELETE" + from).c_str()).Bind(1, bound).Run();
}

void ModelTables::RemoveOwned(Table table, std::string_view owner) {
  RemoveWhere(table, std::string(LayoutOf(table).columns[0].name) + " = ?", owner);
}

void ModelTables::RemoveFrom(Table table, std::int64_t position) {
  RemoveWhere(table, std::string(LayoutOf(table).columns[0].name) + " >= ?", position);
}

ModelTables::Stamp ModelTables::Commit() {
  if (!changed_) {
    database_.Run("ROLLBACK");
    return stamp_;
  }
  std::random_device random;
  Stamp const next{stamp_.generation + 1, static_cast<std::int64_t>(std::uint64_t{random()} << 31 ^ random())};
  Database::Statement put(database_, "INSERT OR REPLACE INTO meta VALUES(?, ?)");
  put.Bind(1, "generation").Bind(2, next.generation).Run();
  put.Bind(1, "mark").Bind(2, next.mark).Run();
  put.Bind(1, "rows").Bind(2, totals_.rows).Run();
  put.Bind(1, "sum").Bind(2, totals_.sum).Run();
  put.Bind(1, "checksum").Bind(2, MetaChecksum(next, totals_)).Run();
  database_.Run("COMMIT");
  return next;
}

void ModelTables::CheckStructure() {
  Database::Statement check(database_, "PRAGMA integrity_check(1)");
  if (!check.Step()) { database_.Refuse("is damaged"); }
  if (std::string_view const result = check.Text(0); result != "ok") { database_.Refuse("is damaged: " + std::string(result)); }
}

std::vector<StoredRow> ModelTables::ReadAll(Table table) {
  Layout const& layout = LayoutOf(table);
  std::string order;
  for (int key = 0; key < layout.keys; ++key) {
    order += std::string(key == 0 ? " ORDER BY " : ", ") + layout.columns[static_cast<std::size_t>(key)].name;
  }
  std::vector<StoredRow> rows;
  Database::Statement select(database_, ("SELECT * FROM " + std::string(layout.name) + order).c_str());
  while (select.Step()) {
    StoredRow const& row = rows.emplace_back(Fetch<StoredRow>(select, layout));
    std::int64_t const checksum = select.Number(ChecksumColumn(layout));
    if (checksum != ChecksumOf(table, row)) {
      std::string const where = row.owner.empty() ? row.name : row.owner + " / " + row.name;
      database_.Refuse("is damaged: " + std::string(layout.name) + ": \"" + where + "\" does not fit its checksum");
    }
    read_.Add(checksum);
  }
  return rows;
}

void ModelTables::CheckComplete() const {
  if (!(read_ == totals_)) {
    database_.Refuse("is damaged: expected " + std::to_string(totals_.rows) + " rows as they were written, found " +
                     std::to_string(read_.rows));
  }
}

}  // namespace gattr
