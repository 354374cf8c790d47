#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Reads a text as a record. Returns what is wrong: a refusal that is no line, a record that reads otherwise
/// when it is written, or options that no command line could have; empty if nothing is.
std::string checkRecord(std::string_view text);

}  // namespace quorvane
