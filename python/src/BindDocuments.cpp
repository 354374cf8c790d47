#include <system_error>
#include <utility>

#include "Bindings.h"
#include "document/DocumentFile.h"
#include "document/FileError.h"
#include "document/ModelDocument.h"
#include "document/ParsedDocument.h"

namespace quorvane {
namespace {

namespace py = pybind11;

/// As Python has names of files, which need not be UTF-8.
py::object fileName(const std::string& path) {
  return py::reinterpret_steal<py::object>(
      PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size())));
}

/// As Python's own functions on files do, so that a missing file is a FileNotFoundError.
[[noreturn]] void throwOsError(const std::error_code& error, const std::string& reason,
                               const std::string& path) {
  const bool isOfSystem =
      error.category() == std::system_category() || error.category() == std::generic_category();
  if (isOfSystem && error)
    PyErr_SetObject(PyExc_OSError, py::make_tuple(error.value(), reason, fileName(path)).ptr());
  else
    PyErr_SetObject(PyExc_OSError, py::str("{}: {}").format(fileName(path), reason).ptr());
  throw py::error_already_set();
}

/// The bytes of a file, which need not be ASCII.
py::bytes fileContent(const std::string& path) {
  std::string text;
  std::error_code error;
  withoutLock([&] { error = readDocumentFile(path, DocumentSource::kFile, text); });
  if (error) throwOsError(error, error.message(), path);
  return text;
}

/// Why the text was refused; empty if the model was made of all of it. A text that ends early is refused,
/// too.
std::string readText(Core& core, const std::string& text) {
  LatticeModel& model = core.useWithSource();
  OpenResult inspected = inspectDocument(model, text).result;
  if (inspected.status != OpenStatus::kOpened) return std::move(inspected.reason);
  return readDocument(model, text).reason;
}

/// The note about the way in which it was saved; mostly empty.
std::string save(Core& core, const std::string& path) {
  const std::string text = writeDocument(core.use());
  SaveResult result;
  withoutLock([&] { result = saveDocument(text, path); });
  if (result.saved) return result.note;
  throwOsError(result.error, result.reason, path);
}

}  // namespace

void bindDocuments(CoreClass& core) {
  core.def_static("file_content", fileContent);
  core.def("read_text", readText);
  core.def("text", [](Core& self) { return py::bytes(writeDocument(self.use())); });
  core.def("save", save);
  core.def("state", [](Core& self) { return py::bytes(self.state()); });
  core.def("restore", &Core::restore);
}

}  // namespace quorvane
