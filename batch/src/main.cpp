#include <iostream>
#include <variant>

#include "batch/RunBatch.h"
#include "batch/StopSignals.h"
#include "batch/Streams.h"
#include "engine/f_ran0.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  fillStandardDescriptors();
  // Before anything else runs: later on other threads may use the C library's generator.
  processRandomSource.lookAtPlatform();
  const auto command = parseCommandLine(argc, argv);
  if (const auto* status = std::get_if<ExitStatus>(&command)) return *status;
  const ExitStatus status = runBatch(std::get<BatchOptions>(command), std::cerr);
  if (status > kExitUsage) endBySignal(stopSignal());
  return status;
}
