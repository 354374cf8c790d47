#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Opens any bytes as a document and checks the invariants: a text that is not applied leaves the model and
/// the random numbers unchanged; each message is one line of printable ASCII and names the line of the text
/// if one is invalid; inspecting the text gives the same message as opening it; sites keep to the pixel types
/// during a run; an opened document is saved as one that opens as the same system, before and after that run.
/// Returns what is wrong, or nothing.
std::string checkDocument(std::string_view text);

}  // namespace quorvane
