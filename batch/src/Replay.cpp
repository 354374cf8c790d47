#include "batch/Replay.h"

#include <algorithm>
#include <sstream>
#include <string>

#include "RecordedDocument.h"
#include "RecordedOptions.h"
#include "ReplayFolder.h"
#include "batch/Messages.h"
#include "batch/RecordedRows.h"
#include "batch/Results.h"
#include "batch/RunBatch.h"
#include "batch/Streams.h"
#include "document/DocumentFile.h"
#include "document/FileError.h"
#include "process/StopSignals.h"
#include "record/Record.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::string contentOfRecord(const fs::path& file) {
  // That of ten million frames is smaller.
  constexpr std::size_t most = std::size_t{1} << 31;
  std::string text;
  const auto error = readDocumentFile(file, DocumentSource::kFile, text, most);
  if (error == FileError::kTooLarge) throw BatchFailure(inQuotes(file.native()), "is too large for a record");
  if (error) throw BatchFailure(inQuotes(file.native()), error.message());
  return text;
}

std::string buildText(const Program& program) {
  return program.name + ' ' + program.version + " (commit " + program.commit + ')';
}

void noteOtherBuild(const Program& recorded, Messages& messages) {
  const Program now = thisProgram();
  if (recorded.version == now.version && recorded.commit == now.commit) return;
  messages.note(onOneLine("recorded by " + buildText(recorded) + ", replayed by " + buildText(now)));
}

std::string beginningOf(const Fingerprint& content) {
  constexpr std::size_t digits = 12;
  return content.sha256.substr(0, digits);
}

/// The lines about the results of a record and of the run that was made again.
class Comparison {
 public:
  void compare(const Record& recorded, const Record& now) {
    for (const RecordedOutput& output : recorded.outputs)
      for (const RecordedOutput& again : now.outputs)
        if (again.option == output.option) compare(output, again);
    if (recorded.start.drawsMade != now.start.drawsMade)
      add("random numbers drawn", std::to_string(recorded.start.drawsMade),
          std::to_string(now.start.drawsMade));
  }

  const std::string& lines() const { return lines_; }
  bool isSame() const { return same_; }

 private:
  void compare(const RecordedOutput& output, const RecordedOutput& again) {
    const std::string what = output.option + ' ' + nameOf(output.path);
    if (const auto* frames = std::get_if<std::vector<RecordedFrame>>(&output.content))
      compareFrames(what, *frames, std::get<std::vector<RecordedFrame>>(again.content));
    else
      add(what, std::get<Fingerprint>(output.content), std::get<Fingerprint>(again.content));
  }

  /// By their order: a run that was stopped had names for more.
  void compareFrames(const std::string& what, const std::vector<RecordedFrame>& frames,
                     const std::vector<RecordedFrame>& again) {
    const std::string before = lines_;
    const std::size_t common = std::min(frames.size(), again.size());
    std::size_t different = 0;
    for (std::size_t k = 0; k < common; ++k) {
      if (frames[k].content == again[k].content) continue;
      ++different;
      add(what + ", " + inQuotes(frames[k].name), frames[k].content, again[k].content);
    }
    const auto number = [](std::size_t count) { return std::to_string(count) + " frames"; };
    if (frames.size() != again.size())
      add(what, number(frames.size()), number(again.size()));
    else if (different == 0)
      lines_ += "same: " + what + ": " + number(frames.size()) + '\n';
  }

  void add(const std::string& what, const Fingerprint& recorded, const Fingerprint& now) {
    if (recorded == now)
      lines_ += "same: " + what + ": recorded " + beginningOf(recorded) + ", now " + beginningOf(now) + '\n';
    else
      add(what, beginningOf(recorded), beginningOf(now));
  }

  void add(const std::string& what, const std::string& recorded, const std::string& now) {
    same_ = false;
    lines_ += "different: " + what + ": recorded " + recorded + ", now " + now + '\n';
  }

  std::string lines_;
  bool same_ = true;
};

/// The options with all files in the folder.
BatchOptions movedInto(const ReplayFolder& folder, BatchOptions options) {
  options.document = folder / "document";
  for (const Result& result : allResults())
    if (auto& target = options.*result.target) target = folder / (std::string("result") + result.option);
  options.record = folder / "record";
  return options;
}

/// Without the name of the program, which Messages adds, and without where rows are that are removed at the
/// end.
std::string passedOn(const std::string& line) {
  constexpr std::string_view program = "quorvane-batch: ";
  const std::size_t begin = line.starts_with(program) ? program.size() : 0;
  return line.substr(begin, line.find(kRowsSoFar) - begin);
}

void passOn(const std::string& lines, bool onlyFirst, Messages& messages) {
  std::istringstream all(lines);
  for (std::string line; std::getline(all, line);) {
    messages.note(passedOn(line));
    // If there is no room for one of the results, there is none for the others.
    if (onlyFirst) return;
  }
}

ExitStatus replayRecord(const fs::path& file, const Record& record, Messages& messages) {
  const BatchOptions recorded = recordedOptions(record);
  noteOtherBuild(record.start.program, messages);
  const std::string document = recordedDocument(record.start, file);
  watchStopSignals();
  const ReplayFolder folder;
  const BatchOptions options = movedInto(folder, recorded);
  writeOutput(options.document, document);
  std::ostringstream said;
  const ExitStatus status = runBatch(options, said);
  const bool failed = status == kExitFailed || status == kExitUsage;
  passOn(said.str(), failed, messages);
  if (status != kExitDone) return failed ? kExitFailed : status;
  Comparison comparison;
  comparison.compare(record, recordFromJson(contentOfRecord(*options.record)));
  writeStandardOutput(comparison.lines());
  return comparison.isSame() ? kExitDone : kExitFailed;
}

}  // namespace

ExitStatus replay(const fs::path& record, std::ostream& err) {
  Messages messages(err);
  try {
    return replayRecord(record, recordFromJson(contentOfRecord(record)), messages);
  } catch (const RecordError& error) {
    messages.fail(inQuotes(record.native()) + ": " + onOneLine(error.what()));
  } catch (const std::exception& error) {
    messages.fail(lineOf(error, inQuotes(record.native())));
  }
  return kExitFailed;
}

}  // namespace quorvane
