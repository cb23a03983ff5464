#include "python/Values.h"

#include <algorithm>

#include "command/Command.h"
#include "python/Handles.h"

namespace gattr::python {

namespace {

constexpr std::string_view kUnset = "UNSET", kFreed = "FREED";

/// "UNSET" and "FREED" of members that steps carry, alone and in lists.
py::object Shown(cls_Value const& value, bool carried, bool isName) {
  if (auto const* const text = value.As<std::string>()) {
    if (isName && text->empty()) { return py::none(); }
    if (carried && *text == kFreed) { return Defined().freed; }
    if (carried && (*text == kUnset || *text == "PROPAGATED")) { return py::none(); }
    return Text(*text);
  }
  if (auto const* const values = value.As<cls_Value::List>()) {
    py::list list(values->size());
    for (std::size_t i = 0; i < values->size(); ++i) { list[i] = Shown((*values)[i], carried, isName); }
    return list;
  }
  return ToPython(value);
}

cls_Value Whole(py::handle number) {
  int overflow = 0;
  long long const whole = PyLong_AsLongLongAndOverflow(number.ptr(), &overflow);
  if (overflow != 0) {  // as in a journal
    double const real = PyLong_AsDouble(number.ptr());
    if (PyErr_Occurred() != nullptr) { throw py::error_already_set(); }
    return real;
  }
  if (whole == -1 && PyErr_Occurred() != nullptr) { throw py::error_already_set(); }
  return whole;
}

/// Bounds how deep values lie in each other as the interpreter bounds its calls.
class Deeper {
public:
  Deeper() {
    if (Py_EnterRecursiveCall(" in a command") != 0) { throw py::error_already_set(); }
  }
  ~Deeper() { Py_LeaveRecursiveCall(); }
  Deeper(Deeper const&) = delete;
  Deeper& operator=(Deeper const&) = delete;
};

cls_Value Several(PyObject* sequence) {
  Deeper const deeper;
  auto const items = py::reinterpret_steal<py::object>(PySequence_Fast(sequence, "a value is expected"));
  if (!items) { throw py::error_already_set(); }
  cls_Value::List list;
  list.reserve(static_cast<std::size_t>(PySequence_Fast_GET_SIZE(items.ptr())));
  for (Py_ssize_t i = 0; i < PySequence_Fast_GET_SIZE(items.ptr()); ++i) {
    list.push_back(ToValue(PySequence_Fast_GET_ITEM(items.ptr(), i)));
  }
  return list;
}

}  // namespace

Definitions& Defined() {
  static auto* const defined = new Definitions;  // NOLINT(cppcoreguidelines-owning-memory): see the header
  return *defined;
}

cls_Value ToValue(py::handle object) {
  PyObject* const value = object.ptr();
  if (value == Py_None) { return {}; }
  if (PyFloat_Check(value)) { return PyFloat_AS_DOUBLE(value); }
  if (PyUnicode_Check(value)) { return TextOf(object); }
  if (PyBool_Check(value)) { return value == Py_True; }
  if (PyLong_Check(value)) { return Whole(object); }
  if (object.is(Defined().unset)) { return kUnset; }
  if (object.is(Defined().freed)) { return kFreed; }
  if (PyDict_Check(value)) {
    Deeper const deeper;
    cls_Value::Fields fields;
    fields.reserve(static_cast<std::size_t>(PyDict_GET_SIZE(value)));
    for (auto const& [name, field] : py::reinterpret_borrow<py::dict>(object)) {
      if (!PyUnicode_Check(name.ptr())) { throw py::type_error("the names of values are texts"); }
      fields.emplace_back(TextOf(name), ToValue(field));
    }
    return fields;
  }
  if (PyList_Check(value) || PyTuple_Check(value)) { return Several(value); }
  if (py::isinstance<Handle>(object)) { return object.cast<Handle const&>().Name(); }
  if (py::isinstance<State>(object)) { return object.cast<State const&>().Step(); }
  if (PyIndex_Check(value)) {
    auto const whole = py::reinterpret_steal<py::object>(PyNumber_Index(value));
    if (whole) { return Whole(whole); }
    PyErr_Clear();
  }
  if (PySequence_Check(value) && !PyBytes_Check(value) && PySequence_Size(value) >= 0) { return Several(value); }
  PyErr_Clear();
  if (PyNumber_Check(value)) {
    double const real = PyFloat_AsDouble(value);
    if (PyErr_Occurred() == nullptr) { return real; }
    PyErr_Clear();
  }
  throw py::type_error("a command takes no " + std::string(py::str(py::type::of(object).attr("__name__"))));
}

py::object ToPython(cls_Value const& value) {
  return std::visit(
      [](auto const& is) -> py::object {
        using T = std::decay_t<decltype(is)>;
        if constexpr (std::is_same_v<T, std::monostate>) {
          return py::none();
        } else if constexpr (std::is_same_v<T, std::string>) {
          return Text(is);
        } else if constexpr (std::is_same_v<T, cls_Value::List>) {
          py::list list(is.size());
          for (std::size_t i = 0; i < is.size(); ++i) { list[i] = ToPython(is[i]); }
          return list;
        } else if constexpr (std::is_same_v<T, cls_Value::Fields>) {
          py::dict fields;
          for (auto const& [name, field] : is) { fields[Text(name)] = ToPython(field); }
          return fields;
        } else {
          return py::cast(is);
        }
      },
      value.data);
}

py::object Read(cls_MemberRow const& row, cls_Object const& object) {
  if (row.ops->realInForce != nullptr) {
    if (double const* const real = row.ops->realInForce(row.In(&object))) { return py::float_(*real); }
  }
  return Shown(row.ToValue(&object), row.ops->isModified != nullptr, row.text.refers != cls_Reference::None);
}

cls_MemberRow const* FindRow(cls_Object const& object, std::string_view name) {
  auto const rows = object.MemberRows();
  auto const row =
      std::ranges::find_if(rows, [&](cls_MemberRow const& known) { return known.text.settable && ArgumentName(known) == name; });
  return row == rows.end() ? nullptr : &*row;
}

namespace {

py::list Told(std::vector<ObjectChange> const& changes) {
  py::list objects;
  for (ObjectChange const& change : changes) {
    py::list steps;
    for (std::string const& step : change.steps) { steps.append(Text(step)); }
    objects.append(Defined().objectChange(Text(ChangeText(change.change)), Text(change.kind), Text(change.name),
                                          change.before.empty() ? py::object(py::none()) : Text(change.before), steps));
  }
  return objects;
}

py::object Told(std::optional<mdl_PropagationStatusEnm> status) {
  return status ? Defined().statuses[static_cast<std::size_t>(*status)] : py::object(py::none());
}

}  // namespace

py::object Told(ChangeEvent const& event) {
  constexpr char const* kCauses[] = {"command", "undo", "redo", "switch"};
  return Defined().change(kCauses[static_cast<std::size_t>(event.cause)], Text(event.label), Told(event.objects));
}

py::object Told(Effects const& effects) {
  py::list statuses;
  for (StatusChange const& change : effects.statuses) {
    statuses.append(Defined().statusChange(Text(change.kind), Text(change.name), Text(change.firstStep), Text(change.lastStep),
                                           Told(change.before), Told(change.after)));
  }
  return py::make_tuple(Told(effects.objects), statuses);
}

py::list Told(std::vector<ObjectDifference> const& differences) {
  auto const optional = [](std::string const& text) { return text.empty() ? py::object(py::none()) : py::object(Text(text)); };
  auto const members = [](std::vector<MemberDifference> const& all) {
    py::list told;
    for (MemberDifference const& one : all) { told.append(py::make_tuple(Text(one.member), ToPython(one.was), ToPython(one.is))); }
    return told;
  };
  py::list told;
  for (ObjectDifference const& one : differences) {
    py::list steps;
    for (RecordDifference const& record : one.records) {
      steps.append(py::make_tuple(Text(record.step), Text(SaysText(record.was)), Text(SaysText(record.is)), optional(record.movedFrom),
                                  members(record.members)));
    }
    told.append(py::make_tuple(Text(ChangeText(one.change)), Text(one.kind), Text(one.name), optional(one.before), optional(one.typeBefore),
                               optional(one.type), optional(one.previous), members(one.members), steps));
  }
  return told;
}

void Raise(py::handle type, std::string const& text) {
  PyErr_SetObject(type.ptr(), Text(text).ptr());
  throw py::error_already_set();
}

void Raise(Outcome const& outcome) {
  Refusal const& refused = outcome.refused;
  py::object const error =
      Defined().refused(Text(outcome.message), Text(refused.exception), Text(refused.module), refused.code, Text(refused.message),
                        Text(outcome.object), Text(outcome.step), Text(outcome.member), Text(outcome.hint));
  PyErr_SetObject(py::type::of(error).ptr(), error.ptr());
  throw py::error_already_set();
}

}  // namespace gattr::python
