#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/ModelDocument.h"

/// A document taken apart, for those who look at one without opening it.
namespace quorvane {

/// What the text gives of a pixel type: its first numLines fields.
struct PixelTypeBlock {
  static constexpr int kLines = 9;
  static constexpr int kLinesToColor = 6;
  int numLines = 0;
  SharedName name;
  int immobile = 0, masquerade = 0;
  double red = 0, green = 0, blue = 0, persistence = 0, alpha = 0, field = 0;
};

/// A rule of which the text gives every field.
struct RuleBlock {
  SharedName name;
  int disabled = 0, ignoreEnergy = 0, type = 0, endA = 0, endB = 0;
  double param = 0;
  int facNum = 0, facPixel = 0;
};

/// What stands in a document, as far as its text goes.
struct ParsedDocument {
  std::optional<DocumentHeader> header;
  std::vector<int> sites;             ///< i outer, j inner
  std::vector<PixelTypeBlock> types;  ///< only the last may be incomplete
  std::vector<RuleBlock> rules;
  /// Where the text ends and what was expected next, if it ends early.
  std::optional<std::string> cutShort;
};

/// What opening a text would give, and what it would say.
struct Inspection {
  OpenResult result;
  ParsedDocument document;  ///< empty where the text is refused
};

/// Answers as readDocument would for this model, which stays as it is. Makes no draws.
Inspection inspectDocument(const LatticeModel& model, std::string_view text);

/// Gives a model that nothing has used yet what a view shows of a document with a header right after opening:
/// sizes, sites, traces and the types' names, colours and transparencies. Makes no draws: where opening would
/// draw what the text lacks, sites stay black and the types' colours are greys, from black upwards.
void layOutLattice(LatticeModel& unused, const ParsedDocument& document);

}  // namespace quorvane
