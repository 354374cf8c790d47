#pragma once

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "document/ModelDocument.h"

namespace quorvane {

/// What the text gives of a pixel type: its first numLines fields.
struct PixelTypeBlock {
  static constexpr int kLines = 9;
  int numLines = 0;
  std::string name;
  int immobile = 0, masquerade = 0;
  double red = 0, green = 0, blue = 0, persistence = 0, alpha = 0, field = 0;
};

/// A rule of which the text gives every field.
struct RuleBlock {
  std::string name;
  int disabled = 0, ignoreEnergy = 0, type = 0, endA = 0, endB = 0;
  double param = 0;
  int facNum = 0, facPixel = 0;
};

/// A document taken apart, as far as its text goes.
struct ParsedDocument {
  std::optional<DocumentHeader> header;
  std::vector<int> sites;             ///< i outer, j inner
  std::vector<PixelTypeBlock> types;  ///< only the last may be incomplete
  std::vector<RuleBlock> rules;
  /// Where the text ends and what was expected next, if it ends early.
  std::optional<std::string> cutShort;
};

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
