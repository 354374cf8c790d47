#include "batch/RunBatch.h"

#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "batch/LatticePicture.h"
#include "batch/Png.h"
#include "batch/PopulationTable.h"
#include "batch/Progress.h"
#include "document/AtomicFile.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

class BatchFailure : public std::runtime_error {
 public:
  BatchFailure(const std::filesystem::path& file, const std::string& why)
      : std::runtime_error(file.string() + ": " + why) {}
};

std::unique_ptr<LatticeModel> openModel(const std::filesystem::path& document) {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  const OpenResult result = openDocument(*model, document);
  if (result.status == OpenStatus::kUnreadable)
    throw BatchFailure(document, "cannot be read, or is not plain ASCII text");
  if (result.status != OpenStatus::kOpened) throw BatchFailure(document, result.message);
  return model;
}

void checkOutputs(const BatchOptions& options) {
  for (const auto& file : {options.output, options.populations, options.picture})
    if (file)
      if (const auto error = checkFileCanBeWritten(*file)) throw BatchFailure(*file, error.message());
}

std::optional<PopulationTable> run(LatticeModel& model, const BatchOptions& options) {
  std::optional<PopulationTable> table;
  if (options.populations) table.emplace(model);
  Progress progress(options.sweeps);
  for (std::int64_t done = 0;; ++done) {
    const bool last = done == options.sweeps;
    if (table && (last || done % options.every == 0)) table->addRow(model, done);
    if (last) return table;
    progress.show(done);
    model.runSweeps(1);
  }
}

void write(const std::filesystem::path& file, std::string_view content) {
  if (const auto error = writeFileAtomically(file, content)) throw BatchFailure(file, error.message());
}

void writeResults(const LatticeModel& model, const BatchOptions& options,
                  const std::optional<PopulationTable>& table) {
  // Made first: nothing is written unless everything could be computed.
  const std::string picture = options.picture ? encodePng(drawLattice(model, options.scale)) : std::string();
  if (options.output)
    if (const SaveResult result = saveDocument(model, *options.output); !result.saved)
      throw BatchFailure(*options.output, result.reason);
  if (table) write(*options.populations, table->csv());
  if (options.picture) write(*options.picture, picture);
}

}  // namespace

ExitStatus runBatch(const BatchOptions& options, std::ostream& err) {
  constexpr const char* program = "quorvane-batch: ";
  try {
    const auto model = openModel(options.document);
    checkOutputs(options);
    writeResults(*model, options, run(*model, options));
    return kExitDone;
  } catch (const BatchFailure& failure) {
    err << program << failure.what() << '\n';
  } catch (const std::exception& error) {
    err << program << options.document.string() << ": " << error.what() << '\n';
  }
  return kExitFailed;
}

}  // namespace quorvane
