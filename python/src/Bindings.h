#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <functional>
#include <string>

#include "Core.h"
#include "settings/Names.h"

/// What Python sees of the engine, in the module quorvane._native. The package around it, which users see,
/// says more in its messages about wrong arguments; here they are checked once more where memory depends on
/// them.
namespace quorvane {

/// Checks or changes the field of an object; its name begins the line of a SettingError.
template <typename Work>
void forField(const char* field, const Work& work) {
  try {
    work();
  } catch (const SettingError& error) {
    throw SettingError(std::string(field).append(": ").append(error.what()));
  }
}

/// Calls work without the interpreter's lock. Taking the lock again ends the thread where the interpreter has
/// ended meanwhile, which a destructor must not do: pybind11's own guard would end the process with an error.
void withoutLock(const std::function<void()>& work);

using CoreClass = pybind11::class_<Core>;

/// Documents, state, pictures and sites.
void bindDocuments(CoreClass& core);
void bindLattice(CoreClass& core);
void bindRuns(CoreClass& core);
/// One operation for each field of a type or a rule, with a first argument that is its index.
void bindTypes(CoreClass& core);
void bindRules(CoreClass& core);
void bindMeasurements(pybind11::module_& module);
void bindSource(pybind11::module_& module);

}  // namespace quorvane
