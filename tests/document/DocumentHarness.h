#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Opens any bytes as a document and checks what must hold whatever they are: a text that is not applied
/// leaves the model and the random numbers as they were, each message is one line of printable ASCII and
/// names a line of the text where one is at fault, looking at the text without opening it gives the same
/// message, sites keep to the pixel types in a run, and what was opened is saved as a document that opens as
/// the same, before and after that run. Gives what is wrong, or nothing.
std::string checkDocument(std::string_view text);

}  // namespace quorvane
