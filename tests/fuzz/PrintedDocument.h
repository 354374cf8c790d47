#pragma once

#include <string>

#include "document/ParsedDocument.h"

namespace quorvane {

/// A whole document as text, in the form in which documents are saved.
std::string printedDocument(const ParsedDocument& document);

}  // namespace quorvane
