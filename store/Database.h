#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace gattr {

/// A connection to a database file; errors are StoreErrors that begin with the file's name.
class Database {
public:
  /// Glance: for a look at a file that is at rest, without locks, and without what its journal might bring back.
  enum class Access { Full, Glance };

  /// A file that is not there is refused. \p name is what messages call it; the path by default.
  explicit Database(std::filesystem::path const& path, std::string_view name = {}, Access access = Access::Full);

  /// Runs a statement without parameters and without an answer.
  void Run(char const* sql);
  /// The one number that a statement answers.
  std::int64_t Number(char const* sql);
  [[noreturn]] void Refuse(std::string_view what) const;
  /// Has the engine look through the structure of the whole file; refuses one that is damaged, and tells that from one that cannot
  /// be read.
  void CheckStructure();

  /// A statement that is run many times. Parameters count from 1, columns from 0.
  class Statement {
  public:
    Statement(Database& database, char const* sql);

    // The bytes are not copied: they stay until Step or Run.
    Statement& Bind(int parameter, std::int64_t number);
    Statement& Bind(int parameter, std::string_view text);
    Statement& BindBytes(int parameter, std::string_view bytes);
    /// Goes to the next row; false, and ready to be run again, when there is none.
    bool Step();
    /// Runs the statement for its effect.
    void Run() {
      while (Step()) {}
    }
    /// Ready to be run again before all rows have been seen.
    void Reset();

    /// Refuse a column of another type.
    std::int64_t Number(int column) const;
    /// Good until the next step.
    std::string_view Text(int column) const;
    std::string_view Bytes(int column) const;

  private:
    struct Finalize {
      void operator()(sqlite3_stmt* statement) const;
    };
    Database* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  };

private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };

  [[noreturn]] void Fail(int code) const;
  void Check(int code) const;

  std::string fileName_;
  std::unique_ptr<sqlite3, Close> handle_;
};

}  // namespace gattr
