#include "store/ModelFile.h"

#include <map>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "store/Database.h"
#include "store/DocumentReader.h"
#include "store/ModelSteps.h"
#include "store/ModelTables.h"
#include "store/ObservingVisitor.h"
#include "store/RowEncoding.h"
#include "store/StoreError.h"

namespace gattr {

struct ModelFile::Saved {
  ddr_Model model;
  std::shared_ptr<ModelSteps const> steps;
  RowNames names;
  ModelTables::Stamp stamp;
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

/// The extension that holds the steps, null where there is none.
Extension StepsOf(ddr_Model const& model) {
  Extension const* const found = model.Extensions().ConstFind(ddr_Model::stepsCmd());
  return found != nullptr ? *found : nullptr;
}

Table TableOf(mdl_Extension const& extension) {
  return dynamic_cast<kprC_StepAwareRepository const*>(&extension) != nullptr ? Table::Attributes : Table::Objects;
}

/// Brings the tables from one model to another.
class Saver {
public:
  Saver(ModelTables& tables, std::string const& fileName, ModelSteps const& steps, RowNames& names)
      : tables_(tables), where_(fileName + ": "), steps_(steps), names_(names), namesBefore_(names.Names().size()) {}

  void Save(ddr_Model const& before, ModelSteps const& stepsBefore, ddr_Model const& now, bool everything) {
    tables_.Put(Table::Extensions, {0, {}, {}, ClassOf(now), Encode(RowWriter::Row::Extension, "", now)});
    bool const stepsDiffer = SaveSteps(stepsBefore) || everything;
    std::set<std::string_view> saved;
    Extensions::ForEachDifference(everything ? Extensions() : before.Extensions(), now.Extensions(),
                                  [&](cow_String const& name, Extension const* was, Extension const* is) {
                                    saved.insert(name.View());
                                    SaveExtension(name.View(), was, is);
                                  });
    if (stepsDiffer) {  // a sequence that was the model's need not be so any more
      for (auto const& [name, extension] : now.Extensions()) {
        if (!saved.contains(name.View())) { PutExtension(name.View(), *extension); }
      }
    }
    auto const& names = names_.Names();
    for (std::size_t number = namesBefore_; number < names.size(); ++number) {
      tables_.Put(Table::Names, {static_cast<std::int64_t>(number), {}, names[number], {}, {}});
    }
  }

private:
  std::string ClassOf(cls_Object const& object) const {
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(object.DynTypeId());
    if (type == nullptr) { throw StoreError(where_ + "no module has described the class number " + std::to_string(object.DynTypeId())); }
    return type->name;
  }
  /// Good until the next call.
  std::string_view Encode(RowWriter::Row row, std::string_view where, cls_Object const& object) {
    encoded_ = RowWriter(steps_, names_, where_ + std::string(where), row).Encode(object);
    return encoded_;
  }

  bool SaveSteps(ModelSteps const& before) {
    auto const& was = before.Pairs();
    auto const& is = steps_.Pairs();
    bool differ = is.size() != was.size();
    for (std::size_t i = 0; i < is.size(); ++i) {
      auto const& [name, procedure] = std::tie(is[i].stepName, is[i].procedure);
      if (i < was.size() && was[i].stepName == name && was[i].procedure.Same(procedure)) { continue; }
      differ = true;
      std::string const type = procedure ? ClassOf(*procedure) : "";
      std::string_view const data = procedure ? Encode(RowWriter::Row::Object, "steps / " + std::string(name.View()), *procedure) : "";
      tables_.Put(Table::Steps, {static_cast<std::int64_t>(i), {}, name.View(), type, data});
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
      tables_.Remove(Table::Extensions, {0, {}, name, {}, {}});
    }
  }

  void PutExtension(std::string_view name, mdl_Extension const& extension) {
    tables_.Put(Table::Extensions, {0, {}, name, ClassOf(extension), Encode(RowWriter::Row::Extension, name, extension)});
  }

  void PutObject(Table table, std::string_view owner, std::string_view name, cls_Object const* object) {
    if (object == nullptr) { return tables_.Remove(table, {0, owner, name, {}, {}}); }
    std::string const where = std::string(owner) + " / " + std::string(name);
    tables_.Put(table, {0, owner, name, ClassOf(*object), Encode(RowWriter::Row::Object, where, *object)});
  }

  ModelTables& tables_;
  std::string where_;
  ModelSteps const& steps_;
  RowNames& names_;
  std::size_t namesBefore_;
  std::string encoded_;
};

/// Puts the rows of a model together as one document.
class Loader {
public:
  Loader(ModelTables& tables, Document& document) : document_(document) {
    for (StoredRow const& row : tables.ReadAll(Table::Names)) {
      if (row.position != static_cast<std::int64_t>(names_.Names().size()) || names_.Number(row.name) != row.position) {
        document.Refuse("names", "is damaged: expected names of their own, numbered from 0 on");
      }
    }
    extensions_ = tables.ReadAll(Table::Extensions);
    steps_ = tables.ReadAll(Table::Steps);
    for (Table const table : {Table::Attributes, Table::Objects}) {
      for (StoredRow& row : tables.ReadAll(table)) { objects_[row.owner].push_back(std::move(row)); }
    }
    tables.CheckComplete();
  }

  RowNames TakeNames() { return std::move(names_); }

  void Load() {
    RowDecoder const decoder(document_, names_.Names());
    if (extensions_.empty() || !extensions_.front().name.empty()) { document_.Refuse("extensions", "is damaged: lacks the model itself"); }
    document_.Open(Document::Kind::Object, 0);
    decoder.Decode(extensions_.front().data, {[&](Document::Text name) { AddExtensions(decoder, name); }, {}});
    document_.Close();
    if (!objects_.empty()) { document_.Refuse(objects_.begin()->first, "is damaged: holds objects, but is not there"); }
  }

private:
  void AddExtensions(RowDecoder const& decoder, Document::Text member) {
    document_.Open(Document::Kind::Object, member);
    for (auto row = extensions_.begin() + 1; row != extensions_.end(); ++row) {
      bool const holdsSteps = row->name == ddr_Model::stepsCmd().View();
      Open(document_.Intern(row->name), row->type);
      decoder.Decode(row->data, {[&](Document::Text name) { AddObjects(decoder, row->name, name); },
                                 [&](Document::Text name) { AddSteps(decoder, holdsSteps, name); }});
      document_.Close();
      objects_.erase(row->name);
    }
    document_.Close();
  }

  void AddObjects(RowDecoder const& decoder, std::string const& owner, Document::Text member) {
    document_.Open(Document::Kind::Object, member);
    for (StoredRow const& row : std::exchange(objects_[owner], {})) {
      Open(document_.Intern(row.name), row.type);
      decoder.Decode(row.data);
      document_.Close();
    }
    document_.Close();
  }

  /// The sequence of the steps, \p whole or by their names.
  void AddSteps(RowDecoder const& decoder, bool whole, Document::Text member) {
    Document::Text const stepName = document_.Intern("stepName");
    Document::Text const procedure = document_.Intern("procedure");
    document_.Open(Document::Kind::List, member);
    for (std::size_t i = 0; i < steps_.size(); ++i) {
      StoredRow const& row = steps_[i];
      if (row.position != static_cast<std::int64_t>(i)) { document_.Refuse("steps", "is damaged: expected positions from 0 on"); }
      document_.Open(Document::Kind::Object, 0);
      Document::Text const name = document_.Intern(row.name);
      document_.AddText(stepName, name);
      if (row.type.empty()) {
        document_.AddNull(procedure);
      } else if (!whole) {
        document_.AddText(procedure, name);
      } else {
        Open(procedure, row.type);
        decoder.Decode(row.data);
        document_.Close();
      }
      document_.Close();
    }
    document_.Close();
  }

  void Open(Document::Text name, std::string_view type) {
    document_.Open(Document::Kind::Object, name);
    document_.AddText(document_.Intern("class"), document_.Intern(type));
  }

  Document& document_;
  RowNames names_;
  std::vector<StoredRow> extensions_, steps_;
  std::map<std::string, std::vector<StoredRow>> objects_;  // by the extension that holds them
};

void RefuseFolder(std::filesystem::path const& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) { throw StoreError(path.string() + ": is a folder, not a file"); }
}

}  // namespace

ModelFile::ModelFile(std::filesystem::path path) : path_(std::move(path)) {}
ModelFile::ModelFile(ModelFile&&) noexcept = default;
ModelFile& ModelFile::operator=(ModelFile&&) noexcept = default;
ModelFile::~ModelFile() = default;

ddr_Model ModelFile::Open() {
  RefuseFolder(path_);
  Database database(path_, Database::Mode::Read);
  database.Run("BEGIN");
  ModelTables tables(database);
  if (tables.IsEmpty()) { database.Refuse("is empty"); }
  tables.CheckStructure();
  Document document(path_.string());
  Loader loader(tables, document);
  loader.Load();
  ddr_Model model = DocumentReader(document, DocumentReader::Histories::OwnRecords).ReadModel();
  saved_ = std::make_unique<Saved>(Saved{model, std::make_shared<ModelSteps>(model), loader.TakeNames(), tables.Present()});
  return model;
}

void ModelFile::Save(ddr_Model const& model) {
  RefuseFolder(path_);
  std::error_code error;
  bool const isNew = !std::filesystem::exists(path_, error);
  try {
    Database database(path_, Database::Mode::Write);
    // EXTRA: also the end of the journal is on the disk before the save is done. The cache holds what one save changes, so
    // that nothing is written before its end.
    database.Run("PRAGMA synchronous = EXTRA; PRAGMA cache_size = -65536; BEGIN IMMEDIATE");
    ModelTables tables(database);
    bool const everything = saved_ == nullptr || tables.IsEmpty() || tables.Present() != saved_->stamp;
    bool const sameSteps = saved_ != nullptr && StepsOf(model).Same(StepsOf(saved_->model));
    Saved next{model, sameSteps ? saved_->steps : std::make_shared<ModelSteps>(model), everything ? RowNames() : saved_->names, {}};
    if (everything) { tables.Clear(); }
    static ModelSteps const noSteps;
    Saver(tables, path_.string(), *next.steps, next.names)
        .Save(everything ? model : saved_->model, everything ? noSteps : *saved_->steps, model, everything);
    next.stamp = tables.Commit();
    saved_ = std::make_unique<Saved>(std::move(next));
  } catch (...) {
    if (isNew) { std::filesystem::remove(path_, error); }
    throw;
  }
}

}  // namespace gattr
