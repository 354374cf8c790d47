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

ExitStatus carryOut(const Command& command) {
  if (const auto* options = std::get_if<BatchOptions>(&command)) return runBatch(*options, std::cerr);
  if (const auto* continuation = std::get_if<Continuation>(&command))
    return continueBatch(*continuation, std::cerr);
  if (const auto* request = std::get_if<ReplayRequest>(&command)) return replay(request->record, std::cerr);
  // Nothing is to run.
  return *std::get_if<ExitStatus>(&command);
}

int run(int argc, char** argv) {
  fillStandardDescriptors();
  // First of all, since other threads may use the C library's generator later.
  processRandomSource.lookAtPlatform();
  const ExitStatus status = carryOut(parseCommandLine(argc, argv));
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
