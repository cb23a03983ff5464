#pragma once

#include <pybind11/pybind11.h>

#include <functional>
#include <optional>

#include "text/Progress.h"

namespace gattr::python {

namespace py = pybind11;

/// Watches a long call: looks for signals, and tells a callable, which may be None, how far it is. What either raises ends the call.
class Watch {
public:
  explicit Watch(py::handle told) : told_(told) {}

  /// Runs \p work(progress) without the interpreter's lock, and raises what has ended it. What is raised when all is done waits for
  /// Raise: it is too late to end anything.
  template <class Work> void Run(Work&& work) {
    {
      py::gil_scoped_release const unlocked;
      try {
        work(Progress(std::ref(*this)));
        return;
      } catch (Cancelled const&) {}
    }
    Raise();
  }
  /// Raises what was raised when the work was done already.
  void Raise() {
    if (raised_) { throw std::move(*raised_); }
  }

  /// Asked by the work.
  bool operator()(std::size_t done, std::size_t total) {
    py::gil_scoped_acquire const locked;
    if (raised_) { return false; }
    if (PyErr_CheckSignals() == 0) {
      if (told_.is_none()) { return true; }
      auto const answer = py::reinterpret_steal<py::object>(
          PyObject_CallFunction(told_.ptr(), "KK", static_cast<unsigned long long>(done), static_cast<unsigned long long>(total)));
      if (answer) { return true; }
    }
    raised_.emplace();
    return false;
  }

private:
  py::handle told_;
  std::optional<py::error_already_set> raised_;
};

}  // namespace gattr::python
