#pragma once

#include <sys/types.h>

#include <memory>
#include <vector>

#include "study/Crew.h"
#include "study/RunMaker.h"
#include "study/StudyFolder.h"

namespace quorvane {

/// Worker processes on this machine, forked from this one, so that they share its document and model until
/// they change them. The process must have one thread, and watch stop signals already. A worker that dies is
/// replaced. A worker whose parent dies ends too, within a few sweeps.
class ForkedCrew : public Crew {
 public:
  /// Throws StudyError if no process can be made. The folder and the maker must outlive this.
  ForkedCrew(int size, const StudyFolder& folder, RunMaker& maker);
  ~ForkedCrew() override;

  int size() const override { return static_cast<int>(members_.size()); }
  void give(int worker, std::int64_t run) override;
  std::vector<Report> wait(std::chrono::milliseconds longest) override;
  void stop() override;

 private:
  struct Member {
    pid_t process = -1;
    int socket = -1;  ///< for one message a packet: run numbers to it, reports from it
    std::int64_t run = -1;
  };

  void start(int number);
  [[noreturn]] void workInChild(int number, int socket);
  Report receive(int number);
  Report buried(int number);

  const StudyFolder& folder_;
  RunMaker& maker_;
  std::vector<Member> members_;
  bool stopping_ = false;
};

}  // namespace quorvane
