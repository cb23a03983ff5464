// What the Python module is measured against: the same commands through the session, and the bytes of a table filled by runs.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "command/Session.h"
#include "module/DDB_GeometricAttributes.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "text/JsonText.h"

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point begin) { return std::chrono::duration<double>(Clock::now() - begin).count(); }

class Baseline {
public:
  /// Seconds that the commands, given as texts, take.
  double Run(std::vector<std::string> const& texts) {
    std::vector<cls_Value> commands;
    for (std::string const& text : texts) { commands.push_back(gattr::ParseJson(text)); }
    auto const begin = Clock::now();
    bool ok = true;
    for (cls_Value const& command : commands) { ok = session_.Execute(command).ok && ok; }
    double const seconds = SecondsSince(begin);
    if (!ok) { throw std::runtime_error("a command was refused"); }
    return seconds;
  }

  /// Seconds that new bytes take, filled run by run of every attribute; and their sum, to be compared.
  std::pair<double, std::size_t> Fill() const {
    auto const begin = Clock::now();
    auto const& all = session_.Model().ConstGet<kprC_StepAwareRepository>(ddr_Model::bcCmd());
    std::size_t const columns = all.Steps().Size(), size = all.Size() * columns;
    auto const bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    std::uint8_t* row = bytes.get();
    all.ForEach([&](cow_String const&, kprC_StepDependent const& item) {
      item.ForEachRun([row](std::size_t from, std::size_t to, mdl_PropagationStatusEnm status, cls_Object const*) {
        std::fill(row + from, row + to, static_cast<std::uint8_t>(status));
      });
      row += columns;
    });
    double const seconds = SecondsSince(begin);
    std::size_t sum = 0;
    for (std::size_t i = 0; i < size; ++i) { sum += bytes[i]; }
    return {seconds, sum};
  }

private:
  gattr::Session session_;
};

}  // namespace

PYBIND11_MODULE(gattr_baseline, m) {  // NOLINT
  static int started = 0;
  DDB_GeometricAttributes_initialize(started);
  pybind11::class_<Baseline>(m, "Baseline").def(pybind11::init<>()).def("run", &Baseline::Run).def("fill", &Baseline::Fill);
}
