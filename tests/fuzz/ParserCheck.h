#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Takes any bytes apart as a document, without a model to apply them to, and checks what must hold: each
/// message is one line that names a line of the text, a refusal leaves nothing, what is refused or accepted
/// depends only on the lines that were read, every value is within the limits, numbers read as the C library
/// reads them, and a document that is printed again is the same. Gives what is wrong, or nothing.
std::string checkParser(std::string_view text);

}  // namespace quorvane
