#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Parses any bytes as a document, without a model, and checks the invariants: each message is one line that
/// names a line of the text; a refusal leaves nothing; the outcome depends only on the lines that were read;
/// every value is within the limits; numbers read as the C library reads them; and a document printed again
/// is the same. Returns what is wrong, or nothing.
std::string checkParser(std::string_view text);

}  // namespace quorvane
