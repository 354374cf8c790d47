#pragma once

#include <array>
#include <stdexcept>
#include <string_view>

#include "document/ParsedDocument.h"

namespace quorvane {

/// A value outside the limits of a model; the message names its line.
class DocumentRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// How many rules stand in each pixel type's row.
using RowLengths = std::array<int, kMaxPixelTypes>;

/// Takes a document apart and checks every value against the limits; throws DocumentRefused at the first one
/// outside. The rules must fit into the rows beside what stands in them.
ParsedDocument parseDocument(std::string_view text, const RowLengths& rows);

}  // namespace quorvane
