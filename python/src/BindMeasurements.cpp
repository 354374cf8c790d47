#include "Bindings.h"
#include "measure/Measurements.h"
#include "measure/Registry.h"

namespace quorvane {

void bindMeasurements(pybind11::module_& module) {
  namespace py = pybind11;
  py::class_<Measurements> measurements(module, "Measurements");
  measurements.def(py::init([](const std::string& list, Core& core) {
    return std::make_unique<Measurements>(list, snapshotOf(core.use()));
  }));
  measurements.def("columns", &Measurements::columns);
  // A list of int and float.
  measurements.def("measure", [](Measurements& self, Core& core) {
    return self.measure(snapshotOf(core.use())).values();
  });
  module.def("observables_help", observablesHelp);
}

}  // namespace quorvane
