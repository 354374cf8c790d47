#include <utility>

#include "Bindings.h"
#include "Sweeping.h"
#include "checkpoint/CheckpointError.h"
#include "engine/Limits.h"
#include "engine/f_ran0.h"
#include "measure/MeasureError.h"
#include "output/LatticePicture.h"
#include "settings/Names.h"

PYBIND11_MODULE(_native, module) {
  using namespace quorvane;
  // Before any thread draws from the platform's generator, when it takes longer.
  processRandomSource.lookAtPlatform();

  pybind11::register_local_exception_translator([](std::exception_ptr thrown) {
    try {
      std::rethrow_exception(std::move(thrown));
    } catch (const SettingError& error) {
      PyErr_SetString(PyExc_ValueError, error.what());
    } catch (const MeasureError& error) {
      PyErr_SetString(PyExc_ValueError, error.what());
    } catch (const CheckpointError& error) {
      PyErr_SetString(PyExc_ValueError, error.what());
    }
  });

  CoreClass core(module, "Core");
  core.def(pybind11::init<>());
  bindDocuments(core);
  bindLattice(core);
  bindRuns(core);
  bindTypes(core);
  bindRules(core);
  bindMeasurements(module);
  bindSource(module);

  module.attr("VERSION") = QUORVANE_VERSION;
  module.attr("MAX_SIDE") = kMaxSide;
  module.attr("MAX_TYPES") = kMaxPixelTypes;
  module.attr("MAX_RULES") = kMaxRules;
  module.attr("MAX_SCALE") = kMaxScale;
  module.attr("DEFAULT_SCALE") = kDefaultScale;
}
