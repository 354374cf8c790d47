#include "RecordedDocument.h"

#include <optional>
#include <system_error>
#include <vector>

#include "batch/Messages.h"
#include "batch/Streams.h"
#include "document/DocumentFile.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> placesOf(const RunStart& start, const fs::path& record) {
  const fs::path path = start.document.path;
  if (path.is_absolute()) return {path, record.parent_path() / path.filename()};
  return {start.workingFolder / path, path, record.parent_path() / path,
          record.parent_path() / path.filename()};
}

BatchFailure changed(const fs::path& file, const Fingerprint& now, const Fingerprint& then) {
  constexpr std::size_t digits = 12;
  return {nameOf(file), "has changed since the run: its SHA-256 begins with " + now.sha256.substr(0, digits) +
                            ", recorded is " + then.sha256.substr(0, digits)};
}

}  // namespace

std::string recordedDocument(const RunStart& start, const fs::path& record) {
  const RecordedDocument& document = start.document;
  if (isStandardStream(document.path))
    throw BatchFailure(nameOf(record), "the document was read from standard input, so it cannot be found");
  std::optional<BatchFailure> change;
  std::optional<std::error_code> firstError;
  for (const fs::path& place : placesOf(start, record)) {
    std::string text;
    const auto error = readDocumentFile(place, DocumentSource::kFile, text);
    if (!firstError) firstError = error;
    if (error) continue;
    const Fingerprint now = fingerprintOf(text);
    if (now == document.content) return text;
    if (!change) change = changed(place, now, document.content);
  }
  if (change) throw BatchFailure(*change);
  throw BatchFailure(inQuotes(document.path),
                     "the document of the record cannot be found: " + firstError->message());
}

}  // namespace quorvane
