#pragma once

#include <pybind11/pybind11.h>

#include <array>
#include <string>
#include <string_view>

#include "command/Difference.h"
#include "command/Session.h"
#include "platform/BasicUtils/cls_Members.h"
#include "platform/BasicUtils/cls_Value.h"

/// Values on their way between Python and the session, and what the module takes from its Python part.
namespace gattr::python {

namespace py = pybind11;

/// What the Python part of the module defines and this part needs: given once, when the module is imported.
struct Definitions {
  py::object unset, freed;
  std::array<py::object, 16> statuses;  ///< by number
  py::dict handles;                     ///< kind to class of handles, and (kind, class) where a class of objects has its own
  py::object refused, gone, busy, unreadable, noAttribute, change, objectChange, statusChange;
};
/// Never ends: the interpreter may be gone before it would.
Definitions& Defined();

/// A text, a number, True, False, None, a list or a dictionary; UNSET and FREED, handles as their names. A TypeError for any other object.
cls_Value ToValue(py::handle object);
py::object ToPython(cls_Value const& value);

/// The member of an object as Python shows it: None where it is unset or names nothing, FREED.
py::object Read(cls_MemberRow const& row, cls_Object const& object);
/// The member that commands call so and may set; null where there is none.
cls_MemberRow const* FindRow(cls_Object const& object, std::string_view name);

/// An edit as callbacks are told it.
py::object Told(ChangeEvent const& event);
/// The objects and the statuses.
py::object Told(Effects const& effects);
/// What two models differ in, as tuples.
py::list Told(std::vector<ObjectDifference> const& differences);

/// Raises what the outcome tells.
[[noreturn]] void Raise(Outcome const& outcome);
/// Raises an exception of \p type with that text.
[[noreturn]] void Raise(py::handle type, std::string const& text);

inline std::string_view TextOf(py::handle text) {
  if (PyUnicode_Check(text.ptr()) == 0) {
    throw py::type_error("a text is expected, not " + std::string(py::str(py::type::of(text).attr("__name__"))));
  }
  Py_ssize_t size = 0;
  char const* const bytes = PyUnicode_AsUTF8AndSize(text.ptr(), &size);
  if (bytes == nullptr) { throw py::error_already_set(); }
  return {bytes, static_cast<std::size_t>(size)};
}
inline py::str Text(std::string_view text) { return {text.data(), text.size()}; }
/// A path as Python has them, or a text that holds one: bytes that are no UTF-8 come back when it is encoded again.
inline py::object FileText(std::string_view text) {
  return py::reinterpret_steal<py::object>(PyUnicode_DecodeFSDefaultAndSize(text.data(), static_cast<Py_ssize_t>(text.size())));
}

}  // namespace gattr::python
