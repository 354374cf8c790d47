#pragma once

#include <functional>
#include <string>
#include <vector>

#include "DocumentSupport.h"
#include "Process.h"
#include "Waiting.h"

namespace quorvane {

/// quorvane-batch with arguments while it runs.
class BatchProcess : public Process {
 public:
  /// output: the descriptor to take as standard output instead of a file.
  explicit BatchProcess(const std::vector<std::string>& arguments, const std::string& input = {},
                        int output = -1)
      : Process(QUORVANE_BATCH, arguments, input, output) {}
};

/// Runs quorvane-batch until it ends.
Finished runBatchProgram(const std::vector<std::string>& arguments, const std::string& input = {});

/// Why no terminal can be had here, as in some containers; empty where one can.
std::string whyNoTerminal();

/// A terminal for a run. Columns are 0 for one that does not know.
struct Terminal {
  unsigned short columns = 0;
  unsigned short columnsBehindFirstLine = 0;
  /// Whether a run that has written this much is asked to end.
  std::function<bool(const std::string&)> isEnough = [](const std::string&) { return false; };
};

/// Runs quorvane-batch with everything on a terminal; out is what the terminal received.
Finished runBatchProgramOnTerminal(const std::vector<std::string>& arguments, const Terminal& screen = {});

/// The rows of a CSV of populations behind its first line.
std::vector<std::vector<long>> rowsOf(const std::string& csv);

}  // namespace quorvane
