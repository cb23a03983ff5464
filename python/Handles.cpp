#include "python/Handles.h"

#include "command/Command.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"
#include "python/Values.h"

namespace gattr::python {

namespace {

/// The state whose class has the members that the attribute says in steps; null where nothing is created.
cls_Object const* AnyState(kprC_StepDependent const& attribute) {
  std::size_t const created = attribute.Steps().Find(attribute.CreateStepName());
  return created == kprC_StepTable::npos ? nullptr : attribute.StateAt(created);
}

bool IsHidden(std::string_view name) { return name.starts_with('_'); }

[[noreturn]] void NoMember(py::handle object, py::handle name) {
  PyErr_SetObject(PyExc_AttributeError, Defined().noAttribute(object, name).ptr());
  throw py::error_already_set();
}

cls_Value Given(cls_MemberRow const* row, py::handle value) {
  return value.is_none() && row != nullptr && row->ops->isModified != nullptr ? cls_Value("UNSET") : ToValue(value);
}

}  // namespace

MemberCommands const& SettingMembers() {
  static MemberCommands const commands = [] {
    MemberCommands found;
    for (CommandInfo const& info : Session::Commands()) {
      if (info.members == ObjectMembers::All) { found.onObject = info.name; }
      if (info.members != ObjectMembers::OfState) { continue; }
      found.inStep = info.name;
      found.step = info.arguments.front().name;
    }
    return found;
  }();
  return commands;
}

Handle::Handle(py::object model, int kind, std::string_view name)
    : owner_(std::move(model)), model_(owner_.cast<Model*>()), name_(model_->Follow(kind, name)), kind_(kind) {}

bool Handle::Exists() const {
  Model::Use const use(*model_);
  return model_->Find(kind_, Name()) != nullptr;
}

cls_Object const& Handle::Get() const {
  cls_Object const* const object = name_->lost ? nullptr : model_->Find(kind_, Name());
  if (object == nullptr) { Raise(Defined().gone, "There is no " + Kinds()[static_cast<std::size_t>(kind_)].kind + " \"" + Name() + "\"."); }
  return *object;
}

kprC_StepDependent const* Handle::Attribute() const { return dynamic_cast<kprC_StepDependent const*>(&Get()); }

py::object Handle::Member(py::handle name) const {
  std::string_view const text = TextOf(name);
  if (IsHidden(text)) { NoMember(py::cast(*this), name); }
  Model::Use const use(*model_);
  cls_Object const& object = Get();
  cls_MemberRow const* const row = FindRow(object, text);
  if (row == nullptr) { NoMember(MakeHandle(owner_, kind_, Name()), name); }
  return Read(*row, object);
}

void Handle::SetMember(py::handle name, py::handle value) const {
  Model::Use const use(*model_);
  cls_MemberRow const* const row = FindRow(Get(), TextOf(name));
  if (row == nullptr) { NoMember(MakeHandle(owner_, kind_, Name()), name); }
  cls_Value::Fields command = {{"command", SettingMembers().onObject}, {Kinds()[static_cast<std::size_t>(kind_)].kind, Name()}};
  command.emplace_back(TextOf(name), Given(row, value));
  model_->Do(command);
}

std::vector<std::string> Handle::MemberNames(bool ofState) const {
  Model::Use const use(*model_);
  cls_Object const* object = &Get();
  if (ofState) { object = AnyState(dynamic_cast<kprC_StepDependent const&>(*object)); }
  std::vector<std::string> names;
  if (object == nullptr) { return names; }
  for (cls_MemberRow const& row : object->MemberRows()) {
    if (row.text.settable) { names.emplace_back(ArgumentName(row)); }
  }
  return names;
}

std::string Handle::Do(std::string_view command, py::dict const& arguments) const {
  Model::Use const use(*model_);
  kprC_StepDependent const* const attribute = Attribute();
  cls_Object const* const state = attribute == nullptr ? nullptr : AnyState(*attribute);
  cls_Value::Fields fields = {{"command", command}, {Kinds()[static_cast<std::size_t>(kind_)].kind, Name()}};
  fields.reserve(arguments.size() + 2);
  for (auto const& [name, value] : arguments) {
    std::string_view const text = TextOf(name);
    fields.emplace_back(text, Given(value.is_none() && state != nullptr ? FindRow(*state, text) : nullptr, value));
  }
  return model_->Do(fields).report;
}

State::State(Handle attribute, std::string_view step) : attribute_(std::move(attribute)), step_(attribute_.In().Follow(0, step)) {}

std::size_t State::Index(kprC_StepDependent const& attribute) const {
  std::size_t const index = attribute.Steps().Find(Step());
  if (index == kprC_StepTable::npos) { Raise(Defined().gone, "There is no step \"" + Step() + "\"."); }
  return index;
}

py::object State::Status() const {
  Model::Use const use(attribute_.In());
  kprC_StepDependent const& attribute = *attribute_.Attribute();
  return Defined().statuses[static_cast<std::size_t>(attribute.StatusAt(Index(attribute)))];
}

py::object State::Member(py::handle name) const {
  std::string_view const text = TextOf(name);
  if (IsHidden(text)) { NoMember(py::cast(*this), name); }
  Model::Use const use(attribute_.In());
  kprC_StepDependent const& attribute = *attribute_.Attribute();
  cls_Object const* const state = attribute.StateAt(Index(attribute));
  cls_Object const* const any = state == nullptr ? AnyState(attribute) : state;
  cls_MemberRow const* const row = any == nullptr ? nullptr : FindRow(*any, text);
  if (row == nullptr) { NoMember(py::cast(*this), name); }
  return state == nullptr ? py::object(py::none()) : Read(*row, *state);
}

void State::SetMember(py::handle name, py::handle value) const {
  Model::Use const use(attribute_.In());
  kprC_StepDependent const& attribute = *attribute_.Attribute();
  Index(attribute);
  cls_Object const* const any = AnyState(attribute);
  cls_MemberRow const* const row = any == nullptr ? nullptr : FindRow(*any, TextOf(name));
  if (any != nullptr && row == nullptr) { NoMember(py::cast(*this), name); }
  MemberCommands const& commands = SettingMembers();
  cls_Value::Fields command = {{"command", commands.inStep},
                               {Kinds()[static_cast<std::size_t>(attribute_.Kind())].kind, attribute_.Name()},
                               {commands.step, Step()}};
  command.emplace_back(TextOf(name), Given(row, value));
  attribute_.In().Do(command);
}

py::object MakeHandle(py::object const& model, int kind, std::string_view name) {
  cls_Object const* const object = model.cast<Model&>().Find(kind, name);
  py::dict const& handles = Defined().handles;
  py::str const kindText = Text(Kinds()[static_cast<std::size_t>(kind)].kind);
  PyObject* made = nullptr;
  if (object != nullptr) {
    cls_ClassMetadata const* const type = cls_MetadataRegistrar::Registrar().Find(object->DynTypeId());
    made = PyDict_GetItem(handles.ptr(), py::make_tuple(kindText, Text(type->name)).ptr());
  }
  if (made == nullptr) { made = PyDict_GetItem(handles.ptr(), kindText.ptr()); }
  return py::reinterpret_borrow<py::object>(made)(model, kind, Text(name));
}

}  // namespace gattr::python
