#include "study/ReportPacket.h"

#include "checkpoint/Bytes.h"

namespace quorvane {

std::string packetOf(const Report& report) {
  constexpr std::size_t longestReason = 2000;
  ByteWriter bytes;
  bytes.value(static_cast<std::uint8_t>(report.what));
  bytes.value(report.reason.substr(0, longestReason));
  return bytes.take();
}

Report reportIn(std::string_view packet, int worker, std::int64_t run) {
  ByteReader bytes(packet);
  std::uint8_t what = 0;
  Report report{.worker = worker, .run = run, .what = Report::kMade, .reason = {}};
  bytes.value(what);
  bytes.value(report.reason);
  report.what = static_cast<Report::What>(what);
  return report;
}

}  // namespace quorvane
