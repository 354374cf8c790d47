#pragma once

#include <string>
#include <string_view>

#include "study/Crew.h"

namespace quorvane {

/// What a report says of its run, as a message of at most 2 kB between processes. The worker and the run are
/// known to the receiver.
std::string packetOf(const Report& report);
Report reportIn(std::string_view packet, int worker, std::int64_t run);

}  // namespace quorvane
