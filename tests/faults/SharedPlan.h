#pragma once

#include "FaultPlan.h"
#include "Files.h"

namespace quorvane {

/// A plan in a file, which started programs share with this process.
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

}  // namespace quorvane
