#include "batch/Provenance.h"

#include <algorithm>
#include <utility>

#include "batch/Results.h"
#include "engine/f_ran0.h"
#include "record/Time.h"

namespace quorvane {
namespace {

/// Of a source that no seed was given for.
constexpr int kUsualSeed = 10;

std::string workingFolder() {
  std::error_code error;
  return std::filesystem::current_path(error).native();
}

RunStart startNow(const BatchOptions& options) {
  return {.program = thisProgram(),
          .machine = thisMachine(),
          .started = utcText(std::chrono::system_clock::now()),
          .seconds = 0.0,
          .drawsMade = 0,
          .commandLine = options.commandLine,
          .workingFolder = workingFolder(),
          .document = {.path = options.document.native(), .content = {}}};
}

/// The word of the command line, or the part of one behind "=", that leads to a path; the path itself if none
/// does.
std::string asTyped(const RunStart& start, const std::string& path) {
  const auto leadsThere = [&](const std::string& word) {
    return (std::filesystem::path(start.workingFolder) / word).lexically_normal() ==
           std::filesystem::path(path).lexically_normal();
  };
  for (const std::string& word : start.commandLine) {
    if (leadsThere(word)) return word;
    if (std::string value = word.substr(word.find('=') + 1); leadsThere(value)) return value;
  }
  return path;
}

}  // namespace

RecordedOutput outputOf(const BatchOptions& options,
                        std::optional<std::filesystem::path> BatchOptions::*result,
                        std::variant<Fingerprint, std::vector<RecordedFrame>> content) {
  const auto results = allResults();
  const auto found =
      std::find_if(results.begin(), results.end(), [&](const Result& one) { return one.target == result; });
  return {found->option, (options.*result)->native(), std::move(content)};
}

Provenance::Provenance(const BatchOptions& options) : Provenance(options, startNow(options)) {}

Provenance::Provenance(BatchOptions options, RunStart before)
    : options_(std::move(options)),
      start_(std::move(before)),
      drawsBefore_(processRandomSource.drawsMade()) {}

void Provenance::addDocument(std::string_view text) { start_.document.content = fingerprintOf(text); }

void Provenance::add(RecordedOutput output) {
  output.path = asTyped(start_, output.path);
  outputs_.push_back(std::move(output));
}

RunStart Provenance::start() const {
  RunStart start = start_;
  start.seconds += std::chrono::duration<double>(Clock::now() - begin_).count();
  start.drawsMade += processRandomSource.drawsMade() - drawsBefore_;
  return start;
}

Record Provenance::record(std::int64_t sweepsDone) const {
  const StartWords& words = options_.startWords;
  const auto orNone = [](const std::string& text) {
    return text.empty() ? std::nullopt : std::optional<std::string>(text);
  };
  return {.start = start(),
          .seed = options_.start.seed.value_or(kUsualSeed),
          .settings = words.settings,
          .remake = words.remake,
          .fill = words.fill,
          .observables = orNone(options_.observables),
          .every = options_.every,
          .scale = options_.scale,
          .trace = options_.trace,
          .sweepsAsked = options_.sweeps,
          .sweepsDone = sweepsDone,
          .outputs = outputs_};
}

}  // namespace quorvane
