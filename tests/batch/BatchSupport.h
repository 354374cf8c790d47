#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "DocumentSupport.h"

namespace quorvane {

/// What a finished process left behind.
struct Finished {
  int status = -1;  ///< exit status, or the signal that ended it, negative
  std::string out;
  std::string err;
};

/// quorvane-batch with arguments while it runs. Standard output and error are files; standard input is one
/// that holds the given bytes.
class BatchProcess {
 public:
  /// output: the descriptor to take as standard output instead of a file.
  explicit BatchProcess(const std::vector<std::string>& arguments, const std::string& input = {},
                        int output = -1);
  /// Ends a process that nobody waited for.
  ~BatchProcess();
  BatchProcess(const BatchProcess&) = delete;
  BatchProcess& operator=(const BatchProcess&) = delete;

  pid_t id() const { return process_; }
  void signal(int number) const;
  Finished wait();

 private:
  TemporaryFolder folder_;
  pid_t process_ = -1;
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

/// Waits until the condition holds; false if that takes longer than half a minute.
bool waitUntil(const std::function<bool()>& condition);

}  // namespace quorvane
