#include <iostream>
#include <new>
#include <variant>

#include "batch/Replay.h"
#include "batch/RunBatch.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "process/StopSignals.h"

namespace quorvane {
namespace {

struct CarryOut {
  ExitStatus operator()(const BatchOptions& options) const { return runBatch(options, std::cerr); }
  ExitStatus operator()(const Continuation& continuation) const {
    return continueBatch(continuation, std::cerr);
  }
  ExitStatus operator()(const ReplayRequest& request) const { return replay(request.record, std::cerr); }
  /// There is nothing to run.
  ExitStatus operator()(ExitStatus status) const { return status; }
};

int run(int argc, char** argv) {
  fillStandardDescriptors();
  // First of all, since other threads may use the C library's generator later.
  processRandomSource.lookAtPlatform();
  const ExitStatus status = std::visit(CarryOut{}, parseCommandLine(argc, argv));
  if (status > kExitUsage) endBySignal(stopSignal());
  return status;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  try {
    return quorvane::run(argc, argv);
  } catch (const std::bad_alloc&) {
    // A longer message might need memory too.
    std::cerr << "quorvane-batch: " << quorvane::kOutOfMemory << std::endl;
    return quorvane::kExitFailed;
  }
}
