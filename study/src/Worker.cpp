#include "study/Worker.h"

#include <new>

#include "batch/Messages.h"
#include "document/ModelDocument.h"

namespace quorvane {

Report Worker::work(int number, std::int64_t run, const std::function<bool()>& goOn) {
  Report report{.worker = number, .run = run, .what = Report::kFailed, .reason = {}};
  std::string content;
  try {
    const auto result = maker_.make(run, goOn);
    if (!result) {
      report.what = Report::kDropped;
      return report;
    }
    content = bytesOf(*result);
  } catch (const std::bad_alloc&) {
    report.reason = kOutOfMemory;
    return report;
  } catch (const std::exception& error) {
    report.reason = onOneLine(error.what());
    return report;
  }
  try {
    shard_.append(run, content);
    report.what = Report::kMade;
  } catch (const std::exception& error) {
    report.what = Report::kNotKept;
    report.reason = error.what();
  }
  return report;
}

}  // namespace quorvane
