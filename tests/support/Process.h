#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

#include "Files.h"

namespace quorvane {

/// What a finished process left behind.
struct Finished {
  int status = -1;  ///< exit status, or the signal that ended it, negative
  std::string out;
  std::string err;
};

/// A program while it runs. Standard output and error are files; standard input is one that holds the given
/// bytes. A signal ends it after two minutes.
class Process {
 public:
  /// output: the descriptor to take as standard output instead of a file.
  Process(const std::string& program, const std::vector<std::string>& arguments,
          const std::string& input = {}, int output = -1);
  /// Kills a program that still runs.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  pid_t id() const { return process_; }
  void signal(int number) const;
  void kill() const;
  /// True if it has ended by then.
  bool waitFor(std::chrono::microseconds time) const;
  Finished wait();
  /// What it has written so far.
  std::string errors() const;

 private:
  TemporaryFolder folder_;
  pid_t process_ = -1;
  int handle_ = -1;
};

/// Runs a program until it ends.
Finished run(const std::string& program, const std::vector<std::string>& arguments,
             const std::string& input = {});

/// Makes this process, a child of a test's, the program.
[[noreturn]] void become(const std::string& program, const std::vector<std::string>& arguments);

/// Waits for the end of a child: the exit status, or the signal that ended it, negative.
int statusOf(pid_t child);

}  // namespace quorvane
