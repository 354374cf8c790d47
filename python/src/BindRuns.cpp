#include "Bindings.h"

namespace quorvane {
namespace {

namespace py = pybind11;

/// Lets Python's signal handlers run, so that Ctrl-C ends a run after a whole sweep.
void handleSignals() {
  if (PyErr_CheckSignals() != 0) throw py::error_already_set();
}

}  // namespace

void bindRuns(CoreClass& core) {
  core.def("sweep", [](Core& self, std::int64_t count, bool traces) {
    if (count < 0) throw py::value_error("the number of sweeps is 0 or more");
    self.sweep(count, traces ? Traces::kUpdated : Traces::kLeftAlone, withoutLock, handleSignals);
  });
  core.def("step", [](Core& self, std::int64_t attempts) {
    if (attempts < 0) throw py::value_error("the number of attempts is 0 or more");
    self.step(attempts, withoutLock, handleSignals);
  });
  core.def("sweeps_done", &Core::sweepsDone);
}

}  // namespace quorvane
