#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Gives bytes to quorvane-batch as the words of a command line, a NUL after each, without a run, and checks
/// what must hold: a refusal is one line of plain words that names no part of a library, what is accepted is
/// within the limits and means the same when it is written out again, no file comes, goes or changes, and
/// quoted words read as they were. Gives what is wrong, or nothing.
std::string checkCommandLine(std::string_view words);

}  // namespace quorvane
