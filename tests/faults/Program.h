#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "DocumentSupport.h"
#include "FaultPlan.h"

namespace quorvane {

/// A plan in a file, which programs that are started meanwhile share with this process.
class SharedPlan {
 public:
  SharedPlan();
  ~SharedPlan();
  SharedPlan(const SharedPlan&) = delete;
  SharedPlan& operator=(const SharedPlan&) = delete;

  FaultPlan& operator*() const { return *plan_; }
  FaultPlan* operator->() const { return plan_; }

 private:
  TemporaryFolder folder_;
  FaultPlan* plan_;
};

/// A program while it runs, with its output in files. Its end is waited for no longer than a test may take.
class Program {
 public:
  Program(const std::string& file, const std::vector<std::string>& arguments);
  /// Kills a program that still runs.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  pid_t id() const { return process_; }
  /// True if it has ended by then.
  bool waitFor(std::chrono::microseconds time) const;
  void kill() const;
  /// The exit status, or the signal that ended it, negative. One that does not end is killed.
  int wait();
  std::string errors() const;

 private:
  TemporaryFolder folder_;
  pid_t process_ = -1;
  int handle_ = -1;
};

}  // namespace quorvane
