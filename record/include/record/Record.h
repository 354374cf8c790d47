#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "record/Fingerprint.h"
#include "record/Program.h"

/// What made a result, as JSON (docs/record.md, docs/record.schema.json). All texts are UTF-8.
namespace quorvane {

/// A text that is no record; what() is one line that says where and why, but may contain any character.
class RecordError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The format that is written, and the newest that is read.
inline constexpr std::int64_t kRecordFormat = 1;

/// The document of a run as it was read.
struct RecordedDocument {
  std::string path;  ///< as given; "-" for standard input
  Fingerprint content;

  bool operator==(const RecordedDocument&) const = default;
};

/// What is known when a run starts. A run that is continued later keeps it, and adds to seconds and draws.
struct RunStart {
  Program program;
  Machine machine;
  std::string started;         ///< as utcText gives it
  double seconds = 0.0;        ///< spent on the run so far, 0 or more
  std::int64_t drawsMade = 0;  ///< of the random source so far, 0 or more
  std::vector<std::string> commandLine;
  std::string workingFolder;  ///< that relative paths refer to; empty if it has no name
  RecordedDocument document;

  bool operator==(const RunStart&) const = default;
};

struct RecordedFrame {
  std::string name;
  Fingerprint content;

  bool operator==(const RecordedFrame&) const = default;
};

/// A file, or a folder of frames in the order of their numbers.
struct RecordedOutput {
  std::string option;  ///< such as "--picture"
  std::string path;    ///< as given; "-" for standard output
  std::variant<Fingerprint, std::vector<RecordedFrame>> content;

  bool operator==(const RecordedOutput&) const = default;
};

struct Record {
  RunStart start;
  std::int64_t seed = 0;  ///< 1 to 2^31 - 1
  std::vector<std::string> settings;
  std::optional<std::string> remake, fill, observables;  ///< the values of the options
  std::int64_t every = 1;                                ///< 1 or more
  std::int64_t scale = 1;                                ///< 1 or more
  bool trace = false;
  std::int64_t sweepsAsked = 0, sweepsDone = 0;  ///< 0 or more
  std::vector<RecordedOutput> outputs;           ///< in the order in which they were finished

  bool operator==(const Record&) const = default;
};

/// The record as JSON, with a line feed at its end. Bytes that are not UTF-8 become U+FFFD.
std::string toJson(const Record& record);
std::string toJson(const RunStart& start);

/// Reads what toJson gives. Throws RecordError for anything that is not valid by the schema.
Record recordFromJson(std::string_view text);
RunStart startFromJson(std::string_view text);

/// True if a text is UTF-8, so that it stands in a record as it is.
bool canBeRecorded(const std::string& text);

}  // namespace quorvane
