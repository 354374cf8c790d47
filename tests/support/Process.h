#pragma once

#include <sys/types.h>

#include <chrono>
#include <initializer_list>
#include <string>
#include <vector>

#include "Files.h"

namespace quorvane {

/// The result of a finished process.
struct Finished {
  int status = -1;  ///< exit status, or the signal that ended it, negative
  std::string out;
  std::string err;
};

/// A running program. Standard output and error are files; standard input is a file with the given bytes. A
/// signal ends it after four minutes.
class Process {
 public:
  /// output: a descriptor for standard output instead of a file.
  Process(const std::string& program, const std::vector<std::string>& arguments,
          const std::string& input = {}, int output = -1);
  /// Kills the program if it still runs.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  pid_t id() const { return process_; }
  void signal(int number) const;
  void kill() const;
  /// Returns once it does nothing more until SIGCONT.
  void hold() const;
  /// All arrive before it does anything else.
  void signalTogether(std::initializer_list<int> numbers) const;
  /// True if it ends within the time.
  bool waitFor(std::chrono::microseconds time) const;
  Finished wait();
  /// Its output so far.
  std::string errors() const;

 private:
  TemporaryFolder folder_;
  pid_t process_ = -1;
  int handle_ = -1;
};

/// Runs a program until it ends.
Finished run(const std::string& program, const std::vector<std::string>& arguments,
             const std::string& input = {});

/// Replaces this process, a child of a test, by the program.
[[noreturn]] void become(const std::string& program, const std::vector<std::string>& arguments);

/// Waits for a child to end: the exit status, or minus the signal that ended it.
int statusOf(pid_t child);

}  // namespace quorvane
