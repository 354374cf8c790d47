#include <iostream>
#include <new>
#include <variant>

#include "batch/RunBatch.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "process/StopSignals.h"

namespace quorvane {
namespace {

int run(int argc, char** argv) {
  fillStandardDescriptors();
  // First of all, since other threads may use the C library's generator later.
  processRandomSource.lookAtPlatform();
  const auto command = parseCommandLine(argc, argv);
  if (const auto* status = std::get_if<ExitStatus>(&command)) return *status;
  const auto* options = std::get_if<BatchOptions>(&command);
  const ExitStatus status =
      options ? runBatch(*options, std::cerr) : continueBatch(std::get<Continuation>(command), std::cerr);
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
