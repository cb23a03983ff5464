#include "store/Database.h"

#include <charconv>
#include <cstring>

#include <sqlite3.h>

#include "store/StoreError.h"

namespace gattr {

namespace {

constexpr int kPatience = 500;  // milliseconds to wait for another program that has the file

/// What to say of an error of the engine, by its primary code.
struct Wording {
  int code;
  char const* text;
};
constexpr Wording kWordings[] = {
    {SQLITE_NOTADB, "is no model file"},
    {SQLITE_CORRUPT, "is damaged"},
    {SQLITE_BUSY, "is in use by another program"},
    {SQLITE_LOCKED, "is in use by another program"},
    {SQLITE_READONLY, "may not be written"},
    {SQLITE_PERM, "may not be opened"},
    {SQLITE_AUTH, "may not be opened"},
    {SQLITE_CANTOPEN, "cannot be opened"},
    {SQLITE_FULL, "cannot be written: the disk is full"},
    {SQLITE_IOERR, "cannot be read or written"},
    {SQLITE_ERROR, "is damaged"},  // its tables are not ours
};

std::string GlanceAt(std::filesystem::path const& path) {
  std::string uri = "file:";
  for (char const c : std::filesystem::absolute(path).string()) {
    constexpr std::string_view kSpecial = "%?#", kCodes[] = {"%25", "%3f", "%23"};
    auto const special = kSpecial.find(c);
    special == std::string_view::npos ? uri += c : uri += kCodes[special];
  }
  return uri + "?immutable=1";
}

}  // namespace

void Database::Close::operator()(sqlite3* handle) const { sqlite3_close(handle); }
void Database::Statement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Database::Database(std::filesystem::path const& path, std::string_view name, Access access)
    : fileName_(name.empty() ? path.string() : name) {
  int const common = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;  // one thread at a time has it
  sqlite3* handle = nullptr;
  // Also for reading it is opened to be written: a journal that a crash has left behind has to be played back.
  int const code = access == Access::Full
                       ? sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | common, nullptr)
                       : sqlite3_open_v2(GlanceAt(path).c_str(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | common, nullptr);
  handle_.reset(handle);
  Check(code);
  sqlite3_busy_timeout(handle, kPatience);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  Run("PRAGMA cell_size_check = ON");
}

void Database::Run(char const* sql) { Check(sqlite3_exec(handle_.get(), sql, nullptr, nullptr, nullptr)); }

std::int64_t Database::Number(char const* sql) {
  Statement statement(*this, sql);
  if (!statement.Step()) { Refuse("is damaged"); }
  return statement.Number(0);
}

void Database::CheckStructure() {
  Statement check(*this, "PRAGMA integrity_check(1)");
  if (!check.Step()) { Refuse("is damaged"); }
  std::string_view const found = check.Text(0);
  if (found == "ok") { return; }
  constexpr std::string_view kCode = "error code=";  // of the engine, where it could not get at a page
  if (auto const at = found.find(kCode); at != std::string_view::npos) {
    int code = 0;
    std::from_chars(found.data() + at + kCode.size(), found.data() + found.size(), code);
    if ((code & 0xFF) == SQLITE_IOERR || (code & 0xFF) == SQLITE_NOMEM) { Check(code & 0xFF); }
  }
  bool const maybe = found.find("failed to get page") != std::string_view::npos;
  Refuse((maybe ? "is damaged or cannot be read: " : "is damaged: ") + std::string(found));
}

void Database::Refuse(std::string_view what) const { throw StoreError(fileName_ + ": " + std::string(what)); }

void Database::Fail(int code) const {
  for (Wording const& wording : kWordings) {
    if (wording.code != (code & 0xFF)) { continue; }
    std::string text = wording.text;
    int const system = handle_ != nullptr ? sqlite3_system_errno(handle_.get()) : 0;
    bool const isSystem = wording.code == SQLITE_CANTOPEN || wording.code == SQLITE_IOERR;
    if (isSystem && system != 0) { text += std::string(": ") + std::strerror(system); }
    if (wording.code == SQLITE_ERROR) { text += std::string(": ") + sqlite3_errmsg(handle_.get()); }
    Refuse(text);
  }
  Refuse(sqlite3_errstr(code));
}

void Database::Check(int code) const {
  if (code == SQLITE_NOMEM) { throw std::bad_alloc(); }
  if (code != SQLITE_OK) { Fail(code); }
}

Database::Statement::Statement(Database& database, char const* sql) : database_(&database) {
  sqlite3_stmt* statement = nullptr;
  database.Check(sqlite3_prepare_v2(database.handle_.get(), sql, -1, &statement, nullptr));
  statement_.reset(statement);
}

Database::Statement& Database::Statement::Bind(int parameter, std::int64_t number) {
  database_->Check(sqlite3_bind_int64(statement_.get(), parameter, number));
  return *this;
}

Database::Statement& Database::Statement::Bind(int parameter, std::string_view text) {
  database_->Check(
      sqlite3_bind_text64(statement_.get(), parameter, text.data() != nullptr ? text.data() : "", text.size(), SQLITE_STATIC, SQLITE_UTF8));
  return *this;
}

Database::Statement& Database::Statement::BindBytes(int parameter, std::string_view bytes) {
  database_->Check(
      sqlite3_bind_blob64(statement_.get(), parameter, bytes.data() != nullptr ? bytes.data() : "", bytes.size(), SQLITE_STATIC));
  return *this;
}

bool Database::Statement::Step() {
  int const code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) { return true; }
  sqlite3_reset(statement_.get());
  if (code != SQLITE_DONE) { database_->Check(code); }
  return false;
}

void Database::Statement::Reset() { sqlite3_reset(statement_.get()); }

std::int64_t Database::Statement::Number(int column) const {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_INTEGER) { database_->Refuse("is damaged: a column is no number"); }
  return sqlite3_column_int64(statement_.get(), column);
}

std::string_view Database::Statement::Text(int column) const {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_TEXT) { database_->Refuse("is damaged: a column is no text"); }
  auto const* const text = reinterpret_cast<char const*>(sqlite3_column_text(statement_.get(), column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

std::string_view Database::Statement::Bytes(int column) const {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_BLOB) { database_->Refuse("is damaged: a column holds no data"); }
  auto const* const bytes = static_cast<char const*>(sqlite3_column_blob(statement_.get(), column));
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

}  // namespace gattr
