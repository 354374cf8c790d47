#pragma once

#include <stdexcept>
#include <string_view>

#include "document/ParsedDocument.h"
#include "model/RuleRows.h"

namespace quorvane {

/// Thrown for a value outside the limits; the message names its line.
class DocumentRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Parses a document and checks every value against the limits; throws DocumentRefused at the first
/// violation. The rules must fit into the rows beside the present entries.
ParsedDocument parseDocument(std::string_view text, const RowCounts& rows);

}  // namespace quorvane
