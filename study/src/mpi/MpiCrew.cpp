#include "MpiCrew.h"

#include <mpi.h>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>

#include "process/StopSignals.h"
#include "study/ReportPacket.h"
#include "study/RunMaker.h"
#include "study/StudyFolder.h"
#include "study/Worker.h"

namespace quorvane {
namespace {

/// Tags of messages from rank 0, and of those to it.
enum Tag : int { kRun = 1, kStop = 2, kReport = 3 };
constexpr std::int64_t kDismissed = -1;

/// MPI's own waiting keeps a core busy.
constexpr std::chrono::microseconds kBetweenLooks{100};

bool hasMessage(int rank, int tag, MPI_Status& status) {
  int there = 0;
  MPI_Iprobe(rank, tag, MPI_COMM_WORLD, &there, &status);
  return there != 0;
}

void sendNumber(int rank, Tag tag, std::int64_t number) {
  MPI_Send(&number, 1, MPI_INT64_T, rank, tag, MPI_COMM_WORLD);
}

std::int64_t receiveNumber(Tag tag) {
  std::int64_t number = 0;
  MPI_Recv(&number, 1, MPI_INT64_T, 0, tag, MPI_COMM_WORLD, MPI_STATUS_IGNORE);
  return number;
}

/// The next run of this rank; kDismissed at the end.
std::int64_t nextRun() {
  for (;;) {
    MPI_Status status;
    while (!hasMessage(0, MPI_ANY_TAG, status)) std::this_thread::sleep_for(kBetweenLooks);
    const std::int64_t number = receiveNumber(static_cast<Tag>(status.MPI_TAG));
    if (status.MPI_TAG == kRun) return number;
    // A stop that came when its run was over.
  }
}

bool mayGoOn() {
  MPI_Status status;
  return stopSignal() == 0 && !hasMessage(0, kStop, status);
}

/// The study of this rank, opened with its first run.
struct OpenStudy {
  explicit OpenStudy(const std::filesystem::path& results)
      : folder(StudyFolder::open(results)),
        maker(folder.study(), folder.documentText()),
        worker(folder, maker) {}

  StudyFolder folder;
  RunMaker maker;
  Worker worker;
};

}  // namespace

MpiCrew::~MpiCrew() {
  const auto isBusy = [](std::int64_t run) { return run >= 0; };
  MpiCrew::stop();
  while (std::any_of(runs_.begin(), runs_.end(), isBusy)) MpiCrew::wait(std::chrono::seconds(1));
}

void MpiCrew::give(int worker, std::int64_t run) {
  runs_[static_cast<std::size_t>(worker)] = run;
  sendNumber(worker + 1, kRun, run);
}

std::vector<Report> MpiCrew::wait(std::chrono::milliseconds longest) {
  const auto end = std::chrono::steady_clock::now() + longest;
  std::vector<Report> reports;
  for (;;) {
    MPI_Status status;
    while (hasMessage(MPI_ANY_SOURCE, kReport, status)) {
      int length = 0;
      MPI_Get_count(&status, MPI_BYTE, &length);
      std::string packet(static_cast<std::size_t>(length), '\0');
      MPI_Recv(packet.data(), length, MPI_BYTE, status.MPI_SOURCE, kReport, MPI_COMM_WORLD,
               MPI_STATUS_IGNORE);
      const int worker = status.MPI_SOURCE - 1;
      std::int64_t& run = runs_[static_cast<std::size_t>(worker)];
      reports.push_back(reportIn(packet, worker, run));
      // A rank that was told to stop would drop every other run too: the job stops, as if all had been told.
      if (reports.back().what == Report::kDropped && stopSignal() == 0) ::raise(SIGTERM);
      run = -1;
    }
    if (!reports.empty() || std::chrono::steady_clock::now() >= end) return reports;
    std::this_thread::sleep_for(kBetweenLooks);
  }
}

void MpiCrew::stop() {
  for (int worker = 0; worker < size_; ++worker)
    if (runs_[static_cast<std::size_t>(worker)] >= 0) sendNumber(worker + 1, kStop, 0);
}

void dismissRanks() {
  int size = 0;
  MPI_Comm_size(MPI_COMM_WORLD, &size);
  for (int rank = 1; rank < size; ++rank) sendNumber(rank, kRun, kDismissed);
}

void workAsRank(const std::filesystem::path& results) {
  std::unique_ptr<OpenStudy> study;
  for (std::int64_t run = nextRun(); run != kDismissed; run = nextRun()) {
    Report report{.worker = 0, .run = run, .what = Report::kNotKept, .reason = {}};
    try {
      if (!study) study = std::make_unique<OpenStudy>(results);
      report = study->worker.work(0, run, mayGoOn);
    } catch (const std::exception& error) {
      report.reason = error.what();
    }
    const std::string packet = packetOf(report);
    MPI_Send(packet.data(), static_cast<int>(packet.size()), MPI_BYTE, 0, kReport, MPI_COMM_WORLD);
  }
}

int tasksOfTheAllocation() {
  int most = 1;
  for (const char* name :
       {"SLURM_NTASKS", "SLURM_NPROCS", "PMI_SIZE", "OMPI_COMM_WORLD_SIZE", "MPI_LOCALNRANKS"}) {
    const char* value = std::getenv(name);
    if (!value) continue;
    const std::string_view text(value);
    int tasks = 1;
    if (std::from_chars(text.data(), text.data() + text.size(), tasks).ec == std::errc{})
      most = std::max(most, tasks);
  }
  return most;
}

}  // namespace quorvane
