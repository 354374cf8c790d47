#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Opens any bytes as a document and checks what must hold whatever they are: a text that is not applied
/// leaves the model as it was, messages are one line, and a model that opened runs, is saved, and opens again
/// as the same. Gives what is wrong, or nothing.
std::string checkDocument(std::string_view text);

}  // namespace quorvane
