#include "store/ModelFile.h"

#include <sys/stat.h>
#include <cerrno>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include <nlohmann/json.hpp>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "store/Database.h"
#include "store/FirstVersion.h"
#include "store/ModelSteps.h"
#include "store/ModelTables.h"
#include "store/ObservingVisitor.h"
#include "store/RowEncoding.h"
#include "store/RowReader.h"
#include "store/StoreError.h"
#include "store/TemporaryFile.h"

namespace gattr {

/// A connection to a file that is there, for one save after the other: most of what a small one costs is to look at the tables.
class Connection {
public:
  Connection(std::filesystem::path path, std::string const& name) : path_(std::move(path)), database_(path_, name) {
    // EXTRA: also the end of the journal is on the disk before the save is done. The cache holds what one save changes, so
    // that nothing is written before its end.
    database_.Run("PRAGMA synchronous = EXTRA; PRAGMA cache_size = -65536");
  }

  /// Whether this is a connection to what the path leads to, and nobody has written there since the last save, be it as bytes.
  bool IsGood(std::filesystem::path const& path) const { return path == path_ && LookAt(path) == left_; }
  Database& File() { return database_; }
  /// Begins a save. The tables are looked at where another connection has changed them.
  ModelTables& Begin() {
    database_.Run("BEGIN IMMEDIATE");
    std::int64_t const version = database_.Number("PRAGMA data_version");
    if (!tables_ || version != version_) { tables_.emplace(database_); }
    version_ = version;
    return *tables_;
  }
  void Commit() {
    database_.Run("COMMIT");
    left_ = LookAt(path_);
  }

private:
  /// Tells a file, and what was last done to it.
  struct Look {
    dev_t device;
    ino_t number;
    off_t size;
    std::int64_t seconds, nanoseconds;

    friend bool operator==(Look const&, Look const&) = default;
  };
  static std::optional<Look> LookAt(std::filesystem::path const& path) {
    struct stat found = {};
    if (::stat(path.c_str(), &found) != 0) { return std::nullopt; }
    return Look{found.st_dev, found.st_ino, found.st_size, found.st_ctim.tv_sec, found.st_ctim.tv_nsec};
  }

  std::filesystem::path path_;
  Database database_;
  std::optional<ModelTables> tables_;
  std::int64_t version_ = 0;
  std::optional<Look> left_;
};

struct ModelFile::Saved {
  ddr_Model model;
  std::shared_ptr<ModelSteps const> steps;
  kprC_StepTable table;  // known to list those steps
  RowClasses classes;
  ModelTables::Stamp stamp;
  std::unique_ptr<Connection> connection = nullptr;  // of a file that was saved again
};

namespace {

using Extension = cow_Handle<mdl_Extension>;
using Extensions = cow_Map<cow_String, Extension>;

/// Lists what an extension's first map holds.
class MapObserver final : public ObservingVisitor {
public:
  explicit MapObserver(mdl_Extension::ChangeVisitor const& visit) : visit_(visit) {}

  bool StartMap(std::string_view, std::size_t) const override { return !std::exchange(seen_, true); }
  void EndMap() const override { open_ = false; }
  void WriteObject(std::string_view name, cls_Object const& object) const override {
    if (seen_ && open_) { visit_(cow_String(name), &object); }
  }

private:
  mdl_Extension::ChangeVisitor const& visit_;
  mutable bool seen_ = false, open_ = true;
};

Table TableOf(mdl_Extension const& extension) {
  return mdl_ExtensionAs<kprC_StepAwareRepository>(&extension) != nullptr ? Table::Attributes : Table::Objects;
}

/// Brings the tables from one model to another.
class Saver {
public:
  Saver(ModelTables& tables, std::string const& fileName, ModelSteps const& steps, kprC_StepTable& table, RowClasses& classes,
        Progress const& progress)
      : tables_(tables),
        where_(fileName + ": "),
        steps_(steps),
        table_(table),
        classes_(classes),
        classesBefore_(classes.Size()),
        writer_(steps, classes, where_),
        tick_(progress) {}

  /// \p before and \p stepsBefore are null where the tables are empty.
  void Save(ddr_Model const* before, ModelSteps const* stepsBefore, ddr_Model const& now) {
    tables_.Put(Table::Extensions, {0, {}, {}, Encode(RowWriter::Row::Extension, "", now)});
    bool const stepsDiffer = SaveSteps(stepsBefore) || before == nullptr;
    std::set<std::string_view> saved;
    Extensions::ForEachDifference(before == nullptr ? Extensions() : before->Extensions(), now.Extensions(),
                                  [&](cow_String const& name, Extension const* was, Extension const* is) {
                                    saved.insert(name.View());
                                    SaveExtension(name.View(), was, is);
                                  });
    if (stepsDiffer) {  // a sequence that was the model's need not be so any more
      for (auto const& [name, extension] : now.Extensions()) {
        if (!saved.contains(name.View())) { PutExtension(name.View(), *extension); }
      }
    }
    for (std::size_t number = classesBefore_; number < classes_.Size(); ++number) {
      std::string members;
      for (std::string const& member : classes_[number].members) {
        members += members.empty() ? '[' : ',';
        AppendQuoted(members, member);
      }
      members += members.empty() ? "[]" : "]";
      tables_.Put(Table::Classes, {static_cast<std::int64_t>(number), {}, classes_[number].name, members});
    }
  }

private:
  /// Good until the next call.
  std::string_view Encode(RowWriter::Row row, std::string const& where, cls_Object const& object, bool hasModelSteps = false) {
    writer_.SetWhere(where_ + where);
    return writer_.Encode(object, row, hasModelSteps);
  }

  bool SaveSteps(ModelSteps const* before) {
    if (before != nullptr && before->Same(steps_)) { return false; }
    static std::vector<kprC_StepNameProcedurePair> const none;
    auto const& was = before == nullptr ? none : before->Pairs();
    auto const& is = steps_.Pairs();
    bool differ = is.size() != was.size();
    for (std::size_t i = 0; i < is.size(); ++i) {
      auto const& [name, procedure] = std::tie(is[i].stepName, is[i].procedure);
      if (i < was.size() && was[i].stepName == name && was[i].procedure.Same(procedure)) { continue; }
      differ = true;
      tick_();
      std::string_view const data = procedure ? Encode(RowWriter::Row::Object, "steps / " + std::string(name.View()), *procedure) : "null";
      tables_.Put(Table::Steps, {static_cast<std::int64_t>(i), {}, name.View(), data});
    }
    if (is.size() < was.size()) { tables_.RemoveFrom(Table::Steps, static_cast<std::int64_t>(is.size())); }
    return differ;
  }

  void SaveExtension(std::string_view name, Extension const* was, Extension const* is) {
    bool const comparable = was != nullptr && is != nullptr && (*was)->DynTypeId() == (*is)->DynTypeId();
    if (is != nullptr) { PutExtension(name, **is); }
    auto const save = [&](cow_String const& key, cls_Object const* object) { PutObject(TableOf(**is), name, key.View(), object); };
    if (comparable && (*is)->ForEachChange(**was, save)) { return; }
    if (was != nullptr) { tables_.RemoveOwned(TableOf(**was), name); }
    if (is != nullptr) {
      (*is)->DBWrite(MapObserver(save));
    } else {
      tables_.Remove(Table::Extensions, {0, {}, name, {}});
    }
  }

  void PutExtension(std::string_view name, mdl_Extension const& extension) {
    auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(&extension);
    // to compare a repository's sequence with the model's step by step is for the first that has it
    bool const isKnown = steps_.IsHome(extension) || (repository != nullptr && table_.Size() != 0 && repository->Steps().Same(table_));
    tables_.Put(Table::Extensions, {0, {}, name, Encode(RowWriter::Row::Extension, std::string(name), extension, isKnown)});
    if (repository != nullptr && writer_.WroteModelSteps()) { table_ = repository->Steps(); }
  }

  void PutObject(Table table, std::string_view owner, std::string_view name, cls_Object const* object) {
    tick_();
    if (object == nullptr) { return tables_.Remove(table, {0, owner, name, {}}); }
    std::string const where = std::string(owner) + " / " + std::string(name);
    tables_.Put(table, {0, owner, name, Encode(RowWriter::Row::Object, where, *object)});
  }

  ModelTables& tables_;
  std::string where_;
  ModelSteps const& steps_;
  kprC_StepTable& table_;
  RowClasses& classes_;
  std::size_t classesBefore_;
  RowWriter writer_;
  Ticker tick_;
};

/// The texts of a list of texts, as AppendQuoted has written them.
std::vector<std::string> ParseTexts(std::string_view list) {
  auto const texts = nlohmann::json::parse(list, nullptr, false);
  if (!texts.is_array()) { return {}; }
  std::vector<std::string> parsed;
  for (auto const& text : texts) {
    if (text.is_string()) { parsed.push_back(text.get<std::string>()); }
  }
  return parsed;
}

ModelRows ReadRows(ModelTables& tables, Database const& database) {
  if (tables.IsFirstVersion()) { return ReadFirstVersion(tables, database); }
  ModelRows rows;
  tables.ForEach(Table::Classes, [&](Row const& row) {
    if (row.position != static_cast<std::int64_t>(rows.classes.Size())) {
      database.Refuse("classes: is damaged: expected numbers from 0 on");
    }
    rows.classes.Add({std::string(row.name), ParseTexts(row.data)});
  });
  auto const stored = [&](Row const& row) { return StoredRow{row.position, rows.Keep(row.name), rows.Keep(row.data)}; };
  tables.ForEach(Table::Extensions, [&](Row const& row) { rows.extensions.push_back(stored(row)); });
  tables.ForEach(Table::Steps, [&](Row const& row) { rows.steps.push_back(stored(row)); });
  for (Table const table : {Table::Attributes, Table::Objects}) {
    std::vector<StoredRow>* own = nullptr;
    std::string owner;
    tables.ForEach(table, [&](Row const& row) {
      if (own == nullptr || owner != row.owner) {
        owner = row.owner;
        own = &rows.objects[owner];
        if (table == Table::Attributes) { rows.repositories.insert(owner); }
      }
      own->push_back(stored(row));
    });
  }
  tables.CheckComplete();
  return rows;
}

constexpr int kMostLinks = 40;  // one behind the other, as many as the system follows

/// What there is under a path.
enum class Present { Nothing, EmptyFile, File };

/// Refuses what is no file, and what cannot be looked at: that may be anything.
Present Examine(std::filesystem::path const& path) {
  struct stat found = {};
  if (::stat(path.c_str(), &found) != 0) {
    if (errno == ENOENT) { return Present::Nothing; }
    throw StoreError(path.string() + ": cannot be examined: " + std::generic_category().message(errno));
  }
  if (S_ISDIR(found.st_mode)) { throw StoreError(path.string() + ": is a folder, not a file"); }
  if (!S_ISREG(found.st_mode)) { throw StoreError(path.string() + ": is no file, but a device or a pipe"); }
  return found.st_size == 0 ? Present::EmptyFile : Present::File;
}

std::filesystem::path JournalOf(std::filesystem::path path) { return path += "-journal"; }

/// Whether a file holds the model with that stamp, for good: a journal would bring back what was there before. Asks for no lock, which
/// may be what has failed.
bool Holds(std::filesystem::path const& path, ModelTables::Stamp const& stamp) {
  try {
    if (std::filesystem::exists(JournalOf(path))) { return false; }
    Database database(path, {}, Database::Access::Glance);
    return ModelTables(database).Present() == stamp;
  } catch (StoreError const&) { return false; } catch (std::filesystem::filesystem_error const&) {
    return false;
  }
}

}  // namespace

ModelFile::ModelFile(std::filesystem::path path) : path_(std::move(path)) {}
ModelFile::ModelFile(ModelFile&&) noexcept = default;
ModelFile& ModelFile::operator=(ModelFile&&) noexcept = default;
ModelFile::~ModelFile() = default;

ddr_Model ModelFile::Open(Progress const& progress) {
  if (Examine(path_) == Present::EmptyFile) { throw StoreError(path_.string() + ": is empty"); }
  Database database(path_);
  database.Run("BEGIN");
  ModelTables tables(database);
  if (tables.IsEmpty()) { database.Refuse("is empty"); }
  database.CheckStructure();
  ModelRows rows = ReadRows(tables, database);
  std::size_t count = rows.extensions.size();
  for (auto const& [owner, own] : rows.objects) { count += own.size(); }
  Ticker tick(progress, count);
  RowReader reader(rows, path_.string(), tick);
  ddr_Model model = reader.ReadModel();
  tick.Finish();
  saved_ = std::make_unique<Saved>(
      Saved{model, std::make_shared<ModelSteps>(model), reader.ModelsSteps(), std::move(rows.classes), tables.Present()});
  return model;
}

void ModelFile::Save(ddr_Model const& model, Changed changed, Progress const& progress) {
  std::filesystem::path path = path_;
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(path, error); ++links) {  // they stay, also those to nothing
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  Present const present = Examine(path);
  if (present != Present::File && SaveFirst(path, model, present == Present::EmptyFile, progress)) { return; }
  SaveAgain(path, model, changed, progress);
}

bool ModelFile::SaveFirst(std::filesystem::path const& path, ddr_Model const& model, bool replaces, Progress const& progress) {
  std::filesystem::path const journal = JournalOf(path);
  std::error_code error;
  if (std::filesystem::exists(journal, error)) {
    if (!replaces) {
      throw StoreError(path.string() + ": cannot be written: " + journal.string() +
                       " is left of another model that had this name; remove it, or put that model back");
    }
    Database(path).Run("BEGIN IMMEDIATE; ROLLBACK");  // an empty file has nothing to go back to: the engine removes it
  }
  std::optional<TemporaryFile> file;
  try {
    file.emplace(path);
    struct stat present = {};
    if (replaces && ::stat(path.c_str(), &present) == 0) { ::fchmod(file->Handle(), present.st_mode & 07777); }
    Saved next{model, std::make_shared<ModelSteps>(model), {}, {}, {}};
    {
      Database database(file->Path(), path.string());
      // Nobody sees the file before it has its name, which it gets when its bytes are on the disk.
      database.Run("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA cache_size = -65536; BEGIN EXCLUSIVE");
      ModelTables tables(database);
      tables.Clear();
      Saver(tables, path.string(), *next.steps, next.table, next.classes, progress).Save(nullptr, nullptr, model);
      next.stamp = tables.Finish();
      database.Run("COMMIT");
    }
    if (!file->Place(replaces)) { return false; }
    saved_ = std::make_unique<Saved>(std::move(next));
    return true;
  } catch (StoreError const& refusal) {
    std::string const message = refusal.what();
    std::string const name = path.string() + ": ";
    throw StoreError(message.starts_with(name) ? message : name + message);
  }
}

void ModelFile::SaveAgain(std::filesystem::path const& path, ddr_Model const& model, Changed changed, Progress const& progress) {
  std::optional<Saved> next;
  bool ending = false;
  try {
    auto connection = saved_ != nullptr ? std::move(saved_->connection) : nullptr;
    if (!connection || !connection->IsGood(path)) { connection = std::make_unique<Connection>(path, path_.string()); }
    ModelTables& tables = connection->Begin();
    bool const isOurs = saved_ != nullptr && !tables.IsEmpty() && tables.Present() == saved_->stamp;
    if (saved_ != nullptr && !tables.IsEmpty() && !isOurs && changed == Changed::Refuse) { connection->File().Refuse(kWasChanged); }
    bool const everything = !isOurs || tables.IsFirstVersion();
    auto steps = std::make_shared<ModelSteps const>(model);
    if (everything) {
      next.emplace(Saved{model, std::move(steps), {}, {}, {}});
      tables.Clear();
    } else {
      bool const same = steps->Same(*saved_->steps);
      next.emplace(Saved{model, same ? saved_->steps : steps, same ? saved_->table : kprC_StepTable(), saved_->classes, {}});
    }
    Saver(tables, path_.string(), *next->steps, next->table, next->classes, progress)
        .Save(everything ? nullptr : &saved_->model, everything ? nullptr : saved_->steps.get(), model);
    next->stamp = tables.Finish();
    ending = true;
    connection->Commit();
    next->connection = std::move(connection);
  } catch (StoreError const&) {
    // What fails behind the end of the transaction, such as to let go of a lock, leaves the new model in the file.
    if (!ending || !Holds(path, next->stamp)) { throw; }
  }
  saved_ = std::make_unique<Saved>(std::move(*next));
}

}  // namespace gattr
