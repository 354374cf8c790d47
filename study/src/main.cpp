#include <CLI/CLI.hpp>
#include <charconv>
#include <iostream>
#include <new>
#include <thread>

#include "batch/CommandWords.h"
#include "batch/Streams.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "process/StopSignals.h"
#include "report/Report.h"
#include "study/ForkedCrew.h"
#include "study/StudyActions.h"

namespace quorvane {
namespace {

constexpr const char* kStudyProgram = "quorvane-study";

constexpr const char* kStudyFooter = R"(A study file is TOML; docs/studies.md describes it and has examples.

Ctrl-C (SIGINT) or SIGTERM keeps the runs that are made and drops those under way;
the same command goes on. Results that exist are never made twice, and more
replicas can be added to a study later.

Exit status:
  0    done
  1    a file or a run failed; one line says which and why
  2    wrong usage
  130  stopped by SIGINT, 143 by SIGTERM)";

struct StudyWords {
  std::filesystem::path study, results;
  std::optional<std::filesystem::path> folder;
  std::optional<std::string> shard;
  std::int64_t jobs = 0, run = 0, tasks = 0, again = 3;
};

CLI::Validator wholeFrom(std::int64_t lowest, std::int64_t highest) {
  const auto check = [=](const std::string& text) -> std::string {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc{} && end == text.data() + text.size() && value >= lowest && value <= highest)
      return {};
    return inQuotes(text) + " is not a whole number from " + std::to_string(lowest) + " to " +
           std::to_string(highest);
  };
  return {check, ""};
}

[[noreturn]] void refuse(const std::string& line) { throw CLI::ParseError(line, kStudyUsage); }

/// Reads "3/40": the third of forty parts.
ShardPart partIn(const std::string& text) {
  std::int64_t index = 0, count = 0;
  const char* last = text.data() + text.size();
  const auto first = std::from_chars(text.data(), last, index);
  if (first.ec == std::errc{} && first.ptr != last && *first.ptr == '/') {
    const auto second = std::from_chars(first.ptr + 1, last, count);
    if (second.ec == std::errc{} && second.ptr == last && index >= 1 && index <= count)
      return {index - 1, count};
  }
  refuse("--shard: " + inQuotes(text) + " is not K/N with K from 1 to N, such as 3/40");
}

std::filesystem::path resultsOf(const StudyWords& words) {
  return words.folder.value_or(StudyFolder::defaultFor(words.study));
}

constexpr std::int64_t kMostJobs = 1024;

void addStudy(CLI::App& command, StudyWords& words) {
  command.add_option("FILE", words.study, "The study, a TOML file")->required()->type_name("");
}

void addFolder(CLI::App& command, StudyWords& words) {
  command.add_option("FOLDER", words.results, "The folder of the results")->required()->type_name("");
}

void addResults(CLI::App& command, StudyWords& words) {
  command
      .add_option("--results", words.folder,
                  "The folder of the results (default: the study's name with .results)")
      ->type_name("FOLDER");
}

/// The commands, each with what it does.
class Commands {
 public:
  Commands(CLI::App& app, StudyWords& words) : words_(words) {
    run_ = app.add_subcommand("run", "Makes the runs that are left, and the tables");
    addStudy(*run_, words);
    addResults(*run_, words);
    run_->add_option("-j,--jobs", words.jobs, "Worker processes (default: the cores)")
        ->check(wholeFrom(1, kMostJobs))
        ->type_name("N");
    run_->add_option("--shard", words.shard, "Only part K of N, by run number; makes no tables")
        ->type_name("K/N");
    command_ = app.add_subcommand("command", "Prints the call of quorvane-batch that makes a run by hand");
    addStudy(*command_, words);
    command_->add_option("--run", words.run, "The number of the run, from 0")
        ->required()
        ->check(wholeFrom(0, kLargestSeed))
        ->type_name("R");
    status_ = app.add_subcommand("status", "Tells what is made and left");
    addFolder(*status_, words);
    table_ = app.add_subcommand("table", "Makes the tables from the runs that are made");
    addFolder(*table_, words);
    report_ = app.add_subcommand("report", "Makes the tables, and a page with figures of them");
    addFolder(*report_, words);
    check_ = app.add_subcommand("check", "Reads every record and makes some runs again to compare");
    addFolder(*check_, words);
    check_->add_option("--again", words.again, "Runs to make again (default 3)")
        ->check(wholeFrom(0, kLargestSeed))
        ->type_name("N");
    slurm_ = app.add_subcommand("slurm", "Prints a script that submits the study to Slurm as an array");
    addStudy(*slurm_, words);
    addResults(*slurm_, words);
    slurm_->add_option("--tasks", words.tasks, "Tasks of the array")
        ->required()
        ->check(wholeFrom(1, kLargestSeed))
        ->type_name("N");
    app.require_subcommand(1);
  }

  int carryOut(Messages& messages) const {
    if (run_->parsed()) return run(messages);
    if (command_->parsed()) return printCommand(words_.study, words_.run, messages);
    if (status_->parsed()) return printStatus(words_.results, messages);
    if (table_->parsed()) return makeTables(words_.results, messages);
    if (report_->parsed()) return makeReport(words_.results, messages);
    if (check_->parsed()) return checkResults(words_.results, words_.again, messages);
    return printSlurmScript(words_.study, resultsOf(words_), words_.tasks, messages);
  }

 private:
  int run(Messages& messages) const {
    RunOptions options{.study = words_.study, .results = resultsOf(words_), .part = {}};
    if (words_.shard) options.part = partIn(*words_.shard);
    const auto cores = static_cast<std::int64_t>(std::thread::hardware_concurrency());
    const std::int64_t jobs = words_.jobs > 0 ? words_.jobs : std::clamp<std::int64_t>(cores, 1, kMostJobs);
    const CrewMaker crewFor = [jobs](const StudyFolder& folder, RunMaker& maker) {
      return std::make_unique<ForkedCrew>(static_cast<int>(jobs), folder, maker);
    };
    return runStudy(options, crewFor, messages);
  }

  StudyWords& words_;
  CLI::App *run_, *command_, *status_, *table_, *report_, *check_, *slurm_;
};

int studyMain(int argc, char** argv) {
  fillStandardDescriptors();
  failWritesInstead();
  processRandomSource.lookAtPlatform();
  Messages messages(std::cerr, kStudyProgram);
  CLI::App app("Makes many runs of a Quorvane document over a grid of parameters.\n", kStudyProgram);
  StudyWords words;
  const Commands commands(app, words);
  app.set_help_flag("-h,--help", "Prints this and exits");
  app.set_version_flag("--version", std::string(kStudyProgram) + " " + QUORVANE_VERSION,
                       "Prints the version and exits");
  app.footer(kStudyFooter);
  try {
    app.parse(argc, argv);
    const int status = commands.carryOut(messages);
    if (status > kStudyUsage) endBySignal(stopSignal());
    return status;
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      app.exit(error, std::cout, std::cerr);
      return std::cout.flush() ? kStudyDone : kStudyFailed;
    }
    messages.fail(onOneLine(error.what()) + " (--help tells more)");
    return kStudyUsage;
  }
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  try {
    return quorvane::studyMain(argc, argv);
  } catch (const std::bad_alloc&) {
    std::cerr << "quorvane-study: " << quorvane::kOutOfMemory << std::endl;
    return quorvane::kStudyFailed;
  } catch (const std::exception& error) {
    std::cerr << "quorvane-study: " << error.what() << std::endl;
    return quorvane::kStudyFailed;
  }
}
