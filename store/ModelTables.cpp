#include "store/ModelTables.h"

#include <iterator>
#include <random>
#include <span>
#include <utility>

#include "store/Checksum.h"

namespace gattr {

/// What a column holds.
enum class TableField { Position, Owner, Name, Type, Bytes, Data };
struct TableColumn {
  char const* name;
  TableField field;
};
/// A table: its columns but the last, the checksum, and how many of them are the key.
struct TableLayout {
  char const* name;
  char const* schema;
  std::span<TableColumn const> columns;
  int keys;
};

namespace {

constexpr char const* kMetaSchema = "CREATE TABLE meta(key TEXT PRIMARY KEY, value INTEGER NOT NULL) STRICT, WITHOUT ROWID";

constexpr TableColumn kClassColumns[] = {{"number", TableField::Position}, {"name", TableField::Name}, {"members", TableField::Data}};
constexpr TableColumn kExtensionColumns[] = {{"name", TableField::Name}, {"data", TableField::Data}};
constexpr TableColumn kStepColumns[] = {{"position", TableField::Position}, {"name", TableField::Name}, {"data", TableField::Data}};
constexpr TableColumn kAttributeColumns[] = {{"repository", TableField::Owner}, {"name", TableField::Name}, {"data", TableField::Data}};
constexpr TableColumn kObjectColumns[] = {{"extension", TableField::Owner}, {"name", TableField::Name}, {"data", TableField::Data}};

constexpr TableColumn kNameColumnsV1[] = {{"number", TableField::Position}, {"name", TableField::Name}};
constexpr TableColumn kExtensionColumnsV1[] = {{"name", TableField::Name}, {"class", TableField::Type}, {"data", TableField::Bytes}};
constexpr TableColumn kStepColumnsV1[] = {
    {"position", TableField::Position}, {"name", TableField::Name}, {"class", TableField::Type}, {"data", TableField::Bytes}};
constexpr TableColumn kAttributeColumnsV1[] = {
    {"repository", TableField::Owner}, {"name", TableField::Name}, {"class", TableField::Type}, {"data", TableField::Bytes}};
constexpr TableColumn kObjectColumnsV1[] = {
    {"extension", TableField::Owner}, {"name", TableField::Name}, {"class", TableField::Type}, {"data", TableField::Bytes}};

// The schema is also compared with the file's, letter by letter.
constexpr std::array<TableLayout, kTables.size()> kLayouts[] = {
    // by version, each in the order of the enumeration
    {{
        {"names", "CREATE TABLE names(number INTEGER PRIMARY KEY, name TEXT NOT NULL, checksum INTEGER NOT NULL) STRICT", kNameColumnsV1,
         1},
        {"extensions",
         "CREATE TABLE extensions(name TEXT PRIMARY KEY, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL) STRICT, "
         "WITHOUT ROWID",
         kExtensionColumnsV1, 1},
        {"steps",
         "CREATE TABLE steps(position INTEGER PRIMARY KEY, name TEXT NOT NULL, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER "
         "NOT NULL) STRICT",
         kStepColumnsV1, 1},
        {"attributes",
         "CREATE TABLE attributes(repository TEXT, name TEXT, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL, PRIMARY "
         "KEY(repository, name)) STRICT, WITHOUT ROWID",
         kAttributeColumnsV1, 2},
        {"objects",
         "CREATE TABLE objects(extension TEXT, name TEXT, class TEXT NOT NULL, data BLOB NOT NULL, checksum INTEGER NOT NULL, PRIMARY "
         "KEY(extension, name)) STRICT, WITHOUT ROWID",
         kObjectColumnsV1, 2},
    }},
    {{
        {"classes",
         "CREATE TABLE classes(number INTEGER PRIMARY KEY, name TEXT NOT NULL, members TEXT NOT NULL, checksum INTEGER NOT NULL) STRICT",
         kClassColumns, 1},
        {"extensions",
         "CREATE TABLE extensions(name TEXT PRIMARY KEY, data TEXT NOT NULL, checksum INTEGER NOT NULL) STRICT, WITHOUT ROWID",
         kExtensionColumns, 1},
        {"steps",
         "CREATE TABLE steps(position INTEGER PRIMARY KEY, name TEXT NOT NULL, data TEXT NOT NULL, checksum INTEGER NOT NULL) STRICT",
         kStepColumns, 1},
        {"attributes",
         "CREATE TABLE attributes(repository TEXT, name TEXT, data TEXT NOT NULL, checksum INTEGER NOT NULL, PRIMARY KEY(repository, "
         "name)) "
         "STRICT, WITHOUT ROWID",
         kAttributeColumns, 2},
        {"objects",
         "CREATE TABLE objects(extension TEXT, name TEXT, data TEXT NOT NULL, checksum INTEGER NOT NULL, PRIMARY KEY(extension, name)) "
         "STRICT, WITHOUT ROWID",
         kObjectColumns, 2},
    }},
};

// What one looks at the tables with; nothing here reads them.
constexpr char const* kViews[] = {
    "CREATE VIEW step_members AS SELECT s.position, s.name AS step, c.name AS class, m.value AS member, v.value AS value FROM steps s, "
    "json_each(s.data) o JOIN classes c ON c.number = CAST(o.key AS INTEGER), json_each(o.value) v, json_each(c.members) m "
    "WHERE m.key = v.key",
    "CREATE VIEW attribute_members AS SELECT a.repository, a.name AS attribute, c.name AS class, m.value AS member, v.value AS value "
    "FROM attributes a, json_each(a.data) o JOIN classes c ON c.number = CAST(o.key AS INTEGER), json_each(o.value) v, "
    "json_each(c.members) m WHERE m.key = v.key",
    "CREATE VIEW object_members AS SELECT a.extension, a.name AS object, c.name AS class, m.value AS member, v.value AS value "
    "FROM objects a, json_each(a.data) o JOIN classes c ON c.number = CAST(o.key AS INTEGER), json_each(o.value) v, "
    "json_each(c.members) m WHERE m.key = v.key",
    "CREATE VIEW history_members AS SELECT a.repository, a.attribute, r.value ->> '$[0]' AS step, r.value ->> '$[1]' AS status, "
    "m.value AS member, v.value AS value FROM attribute_members a, json_each(iif(a.member = 'states', a.value, '[]')) e, "
    "json_each(e.value) r, json_each(r.value -> '$[2]') s JOIN classes c ON c.number = CAST(s.key AS INTEGER), json_each(s.value) v, "
    "json_each(c.members) m WHERE m.key = v.key",
};

std::string KeyCondition(TableLayout const& layout) {
  std::string condition;
  for (int key = 0; key < layout.keys; ++key) {
    condition += std::string(key == 0 ? " WHERE " : " AND ") + layout.columns[static_cast<std::size_t>(key)].name + " = ?";
  }
  return condition;
}

void Bind(Database::Statement& statement, int parameter, TableField field, Row const& row) {
  switch (field) {
    case TableField::Position: statement.Bind(parameter, row.position); break;
    case TableField::Owner: statement.Bind(parameter, row.owner); break;
    case TableField::Name: statement.Bind(parameter, row.name); break;
    case TableField::Type: statement.Bind(parameter, row.type); break;
    case TableField::Bytes: statement.BindBytes(parameter, row.data); break;
    case TableField::Data: statement.Bind(parameter, row.data); break;
  }
}

Database::Statement& BindKey(Database::Statement& statement, TableLayout const& layout, Row const& row) {
  for (int key = 0; key < layout.keys; ++key) { Bind(statement, key + 1, layout.columns[static_cast<std::size_t>(key)].field, row); }
  return statement;
}

/// The columns of the row that \p statement has come to, in the order of the layout.
Row Fetch(Database::Statement const& statement, TableLayout const& layout) {
  Row row;
  int column = 0;
  for (TableColumn const& one : layout.columns) {
    switch (one.field) {
      case TableField::Position: row.position = statement.Number(column); break;
      case TableField::Owner: row.owner = statement.Text(column); break;
      case TableField::Name: row.name = statement.Text(column); break;
      case TableField::Type: row.type = statement.Text(column); break;
      case TableField::Bytes: row.data = statement.Bytes(column); break;
      case TableField::Data: row.data = statement.Text(column); break;
    }
    ++column;
  }
  return row;
}

int ChecksumColumn(TableLayout const& layout) { return static_cast<int>(layout.columns.size()); }

}  // namespace

TableLayout const& ModelTables::LayoutOf(Table table) const { return kLayouts[version_ - 1][static_cast<std::size_t>(table)]; }

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
  version_ = database.Number("PRAGMA user_version");
  if (version_ > kVersion) {
    database.Refuse("is of the later version " + std::to_string(version_) + "; expected version " + std::to_string(kVersion));
  }
  if (version_ < 1) { database.Refuse("is damaged: expected version " + std::to_string(kVersion)); }

  std::vector<std::string> found;
  Database::Statement schema(database, "SELECT sql FROM sqlite_schema WHERE type <> 'view' ORDER BY rowid");
  while (schema.Step()) { found.emplace_back(schema.Text(0)); }
  bool fits = found.size() == kTables.size() + 1 && found[0] == kMetaSchema;
  for (Table const table : kTables) { fits = fits && found[static_cast<std::size_t>(table) + 1] == LayoutOf(table).schema; }
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
  if (present_ && version_ == kVersion) {
    for (Table const table : kTables) { database_.Run(("DELETE FROM " + std::string(LayoutOf(table).name)).c_str()); }
    return;
  }
  if (present_) {
    database_.Run("DROP TABLE meta");
    for (Table const table : kTables) { database_.Run(("DROP TABLE " + std::string(LayoutOf(table).name)).c_str()); }
  }
  version_ = kVersion;
  database_.Run(("PRAGMA application_id = " + std::to_string(kApplicationId)).c_str());
  database_.Run(("PRAGMA user_version = " + std::to_string(kVersion)).c_str());
  database_.Run(kMetaSchema);
  for (Table const table : kTables) { database_.Run(LayoutOf(table).schema); }
  for (char const* const view : kViews) { database_.Run(view); }
}

Database::Statement& ModelTables::Prepared(Table table, With with) {
  auto& statement = statements_[static_cast<std::size_t>(table)][static_cast<std::size_t>(with)];
  if (statement) { return *statement; }
  TableLayout const& layout = LayoutOf(table);
  std::string const name = layout.name;
  std::string text;
  switch (with) {
    case With::Find: text = "SELECT * FROM " + name + KeyCondition(layout); break;
    case With::Put:
      text = "INSERT OR REPLACE INTO " + name + " VALUES(?";  // the checksum
      for (std::size_t i = 0; i < layout.columns.size(); ++i) { text += ", ?"; }
      text += ")";
      break;
    case With::Remove: text = "DELETE FROM " + name + KeyCondition(layout); break;
  }
  return statement.emplace(database_, text.c_str());
}

std::int64_t ModelTables::ChecksumOf(Table table, Row const& row) {
  Checksum checksum;
  checksum.Add(static_cast<std::uint64_t>(table)).Add(static_cast<std::uint64_t>(row.position));
  for (std::string_view const text : {row.owner, row.name, row.type, row.data}) { checksum.Add(text); }
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
  TableLayout const& layout = LayoutOf(table);
  if (!cleared_) {
    Database::Statement& find = BindKey(Prepared(table, With::Find), layout, row);
    if (find.Step()) {
      bool const equal = Fetch(find, layout) == row;
      std::int64_t const checksum = find.Number(ChecksumColumn(layout));
      find.Reset();
      if (equal) { return; }
      totals_.Subtract(checksum);
    }
  }
  std::int64_t const checksum = ChecksumOf(table, row);
  Database::Statement& put = Prepared(table, With::Put);
  int parameter = 0;
  for (TableColumn const& column : layout.columns) { Bind(put, ++parameter, column.field, row); }
  put.Bind(++parameter, checksum).Run();
  totals_.Add(checksum);
  changed_ = true;
}

void ModelTables::Remove(Table table, Row const& key) {
  TableLayout const& layout = LayoutOf(table);
  Database::Statement& find = BindKey(Prepared(table, With::Find), layout, key);
  if (!find.Step()) { return; }
  totals_.Subtract(find.Number(ChecksumColumn(layout)));
  find.Reset();
  BindKey(Prepared(table, With::Remove), layout, key).Run();
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

ModelTables::Stamp ModelTables::Finish() {
  if (!std::exchange(changed_, false)) { return stamp_; }
  cleared_ = false;
  present_ = true;
  std::random_device random;
  Stamp const next{stamp_.generation + 1, static_cast<std::int64_t>(std::uint64_t{random()} << 31 ^ random())};
  Database::Statement put(database_, "INSERT OR REPLACE INTO meta VALUES(?, ?)");
  put.Bind(1, "generation").Bind(2, next.generation).Run();
  put.Bind(1, "mark").Bind(2, next.mark).Run();
  put.Bind(1, "rows").Bind(2, totals_.rows).Run();
  put.Bind(1, "sum").Bind(2, totals_.sum).Run();
  put.Bind(1, "checksum").Bind(2, MetaChecksum(next, totals_)).Run();
  return stamp_ = next;
}

void ModelTables::ForEach(Table table, std::function<void(Row const&)> const& visit) {
  TableLayout const& layout = LayoutOf(table);
  std::string order;
  for (int key = 0; key < layout.keys; ++key) {
    order += std::string(key == 0 ? " ORDER BY " : ", ") + layout.columns[static_cast<std::size_t>(key)].name;
  }
  Database::Statement select(database_, ("SELECT * FROM " + std::string(layout.name) + order).c_str());
  while (select.Step()) {
    Row const row = Fetch(select, layout);
    std::int64_t const checksum = select.Number(ChecksumColumn(layout));
    if (checksum != ChecksumOf(table, row)) {
      std::string const where = row.owner.empty() ? std::string(row.name) : std::string(row.owner) + " / " + std::string(row.name);
      database_.Refuse("is damaged: " + std::string(layout.name) + ": \"" + where + "\" does not fit its checksum");
    }
    read_.Add(checksum);
    visit(row);
  }
}

void ModelTables::CheckComplete() const {
  if (!(read_ == totals_)) {
    database_.Refuse("is damaged: expected " + std::to_string(totals_.rows) + " rows as they were written, found " +
                     std::to_string(read_.rows));
  }
}

}  // namespace gattr
