#pragma once

#include <stdexcept>
#include <string_view>

#include "document/ParsedDocument.h"
#include "model/RuleRows.h"

namespace quorvane {

/// A value outside the limits of a model; the message names its line.
class DocumentRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Takes a document apart and checks every value against the limits; throws DocumentRefused at the first one
/// outside. The rules must fit into the rows beside the entries that these have.
ParsedDocument parseDocument(std::string_view text, const RowCounts& rows);

}  // namespace quorvane
