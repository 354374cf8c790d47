#include <iostream>
#include <variant>

#include "batch/RunBatch.h"
#include "batch/StopSignals.h"
#include "engine/f_ran0.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  // First of all: later on other threads may use the C library's generator.
  processRandomSource.lookAtPlatform();
  const auto command = parseCommandLine(argc, argv);
  if (const auto* status = std::get_if<ExitStatus>(&command)) return *status;
  const ExitStatus status = runBatch(std::get<BatchOptions>(command), std::cerr);
  if (status == kExitInterrupted || status == kExitTerminated) endBySignal(stopSignal());
  return status;
}
