#include "study/StudyActions.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "StudyProgressLine.h"
#include "batch/Streams.h"
#include "batch/TerminalLine.h"
#include "process/StopSignals.h"
#include "study/RunCommand.h"
#include "study/SlurmScript.h"
#include "study/StudyError.h"
#include "study/StudyFile.h"
#include "study/StudyResults.h"
#include "study/Tables.h"

namespace quorvane {
namespace {

constexpr int kSignalStatus = 128;

/// "1 run", "2 runs".
std::string counted(std::int64_t number, const char* what) {
  std::string text = std::to_string(number);
  return text.append(" ").append(what).append(number == 1 ? "" : "s");
}

std::string runsText(std::int64_t runs) { return counted(runs, "run"); }

void noteDamages(const StudyResults& results, Messages& messages) {
  for (const std::string& damage : results.damages()) messages.note(damage);
}

/// Tables and checks of a part of the runs say so.
void noteMissing(const StudyResults& results, const StudyFolder& folder, Messages& messages) {
  const auto made = std::ssize(results.made()), failed = std::ssize(results.failed());
  const std::int64_t total = numRuns(folder.study());
  if (made + failed < total)
    messages.note(std::to_string(made) + " of " + runsText(total) + " are made so far");
}

void noteFailed(const StudyResults& results, const StudyFolder& folder, Messages& messages) {
  if (const auto failed = std::ssize(results.failed()); failed > 0)
    messages.fail(runsText(failed) + " failed: " + nameOf(folder.path() / kFailedTable) + " has the reasons");
}

/// Gives what is left to the crew until nothing is, or a signal comes.
StudyProgress makeRuns(const StudyFolder& folder, RunMaker& maker, ShardPart part, const CrewMaker& crewFor,
                       Messages& messages) {
  const StudyResults results(folder);
  noteDamages(results, messages);
  StudyRun study(folder, results, part);
  if (study.progress().done == study.progress().total) return study.progress();
  const auto start = std::chrono::steady_clock::now();
  TerminalLine line(false);
  const auto show = [&](const StudyProgress& progress) {
    line.show([&](int columns) {
      return studyProgressText(progress, std::chrono::steady_clock::now() - start, columns);
    });
  };
  const auto crew = crewFor(folder, maker);
  study.run(*crew, show, [] { return stopSignal() == 0; });
  return study.progress();
}

/// The document of a study file, which may be the one in a folder of results.
std::filesystem::path documentOf(const Study& study, const std::filesystem::path& file) {
  const auto folder = file.parent_path();
  std::error_code none;
  const bool inResults =
      file.filename() == kStudyName && std::filesystem::exists(folder / kDescriptionName, none);
  return folder / (inResults ? std::filesystem::path(kDocumentName) : study.document);
}

/// Reads the records of all runs made. Returns how many.
std::int64_t readAll(StudyResults& results) {
  for (const auto& entry : results.made()) results.result(entry);
  return std::ssize(results.made());
}

/// Makes some of the runs again, evenly over those made. Returns how many; stops at a signal.
std::int64_t makeAgain(RunMaker& maker, StudyResults& results, std::int64_t wanted) {
  const std::int64_t made = std::ssize(results.made());
  const std::int64_t count = std::min(wanted, made);
  for (std::int64_t k = 0; k < count; ++k) {
    const auto& entry = results.made()[static_cast<std::size_t>(k * made / count)];
    const auto again = maker.make(entry.run, [] { return stopSignal() == 0; });
    if (!again) return k;
    if (bytesOf(*again) != bytesOf(results.result(entry)))
      throw StudyError("run " + std::to_string(entry.run) + " made again differs from its record in " +
                       nameOf(results.fileOf(entry)));
  }
  return count;
}

}  // namespace

int guarded(Messages& messages, const std::function<int()>& work) {
  try {
    return work();
  } catch (const StudyError& error) {
    messages.fail(error.what());
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, "the study"));
  }
  return kStudyFailed;
}

StudyResults tabulate(const StudyFolder& folder, const RunMaker& maker, Messages& messages) {
  StudyResults results(folder);
  noteDamages(results, messages);
  noteMissing(results, folder, messages);
  writeTables(folder, maker, results);
  noteFailed(results, folder, messages);
  return results;
}

int runStudy(const RunOptions& options, const CrewMaker& crewFor, Messages& messages) {
  return guarded(messages, [&] {
    const StudyFolder folder = StudyFolder::forStudy(options.study, options.results);
    if (folder.numPrograms() > 1)
      messages.note(nameOf(folder.path()) + ": runs of " + std::to_string(folder.numPrograms()) +
                    " builds of the program, which study.json names");
    RunMaker maker(folder.study(), folder.documentText());
    watchStopSignals();
    const StudyProgress progress =
        makeRuns(folder, maker, options.part.value_or(ShardPart{}), crewFor, messages);
    if (stopSignal() != 0) {
      messages.note("stopped with " + std::to_string(progress.done) + " of " + runsText(progress.total) +
                    " made; the same command goes on");
      return kSignalStatus + stopSignal();
    }
    if (!options.part)
      tabulate(folder, maker, messages);
    else if (progress.failed > 0)
      messages.fail(runsText(progress.failed) + " failed");
    return static_cast<int>(messages.failed() ? kStudyFailed : kStudyDone);
  });
}

int makeTables(const std::filesystem::path& path, Messages& messages) {
  return guarded(messages, [&] {
    const StudyFolder folder = StudyFolder::open(path);
    const RunMaker maker(folder.study(), folder.documentText());
    tabulate(folder, maker, messages);
    return static_cast<int>(messages.failed() ? kStudyFailed : kStudyDone);
  });
}

int printStatus(const std::filesystem::path& path, Messages& messages) {
  return guarded(messages, [&] {
    const StudyFolder folder = StudyFolder::open(path);
    const StudyResults results(folder);
    const std::int64_t total = numRuns(folder.study()), made = std::ssize(results.made());
    const std::int64_t failed = std::ssize(results.failed());
    std::string text = std::to_string(made) + " of " + runsText(total) + " made, " + std::to_string(failed) +
                       " failed, " + std::to_string(total - made - failed) + " left\n";
    text += counted(numPoints(folder.study()), "point") + ", " + counted(folder.study().replicas, "replica") +
            ", " + counted(std::ssize(folder.shardFiles()), "shard") + "\n";
    writeStandardOutput(text);
    noteDamages(results, messages);
    return static_cast<int>(kStudyDone);
  });
}

int checkResults(const std::filesystem::path& path, std::int64_t numRunsAgain, Messages& messages) {
  return guarded(messages, [&] {
    const StudyFolder folder = StudyFolder::open(path);
    RunMaker maker(folder.study(), folder.documentText());
    watchStopSignals();
    folder.requireUnchanged();
    StudyResults results(folder);
    noteMissing(results, folder, messages);
    const std::int64_t read = readAll(results);
    const std::int64_t again = makeAgain(maker, results, numRunsAgain);
    for (const std::string& damage : results.damages()) messages.fail(damage);
    writeStandardOutput("read the records of " + runsText(read) + ", and made " + runsText(again) +
                        " again with the same result\n");
    if (stopSignal() != 0) return kSignalStatus + stopSignal();
    return static_cast<int>(messages.failed() ? kStudyFailed : kStudyDone);
  });
}

int printSlurmScript(const std::filesystem::path& study, const std::filesystem::path& results,
                     std::int64_t tasks, Messages& messages) {
  return guarded(messages, [&] {
    const Study read = readStudy(study);
    const RunMaker fits(read, textOf(documentOf(read, study)));
    writeStandardOutput(slurmScript(study, results, tasks));
    return static_cast<int>(kStudyDone);
  });
}

int printCommand(const std::filesystem::path& file, std::int64_t run, Messages& messages) {
  return guarded(messages, [&] {
    const Study study = readStudy(file);
    const std::filesystem::path document = documentOf(study, file);
    const RunMaker fits(study, textOf(document));
    if (run >= numRuns(study))
      throw StudyError("--run: " + std::to_string(run) + " is not below " + std::to_string(numRuns(study)) +
                       ", the number of runs");
    writeStandardOutput(runCommand(study, document, run));
    return static_cast<int>(kStudyDone);
  });
}

}  // namespace quorvane
