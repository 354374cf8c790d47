#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/ModelDocument.h"

/// A parsed document, for inspecting one without opening it.
namespace quorvane {

/// The first numLines fields of a pixel type.
struct PixelTypeBlock {
  static constexpr int kLines = 9;
  static constexpr int kLinesToColor = 6;
  int numLines = 0;
  SharedName name;
  int immobile = 0, masquerade = 0;
  double red = 0, green = 0, blue = 0, persistence = 0, alpha = 0, field = 0;
};

/// A complete rule.
struct RuleBlock {
  SharedName name;
  int disabled = 0, ignoreEnergy = 0, type = 0, endA = 0, endB = 0;
  double param = 0;
  int facNum = 0, facPixel = 0;
};

/// The content of a document as far as its text goes.
struct ParsedDocument {
  std::optional<DocumentHeader> header;
  std::vector<int> sites;             ///< i outer, j inner
  std::vector<PixelTypeBlock> types;  ///< only the last may be incomplete
  std::vector<RuleBlock> rules;
  /// The position where the text ends early and the value expected there, if so.
  std::optional<std::string> cutShort;
};

/// What opening a text would result in.
struct Inspection {
  OpenResult result;
  ParsedDocument document;  ///< empty if the text is refused
};

/// The result that readDocument would give for this model, which is not changed. Makes no draws.
Inspection inspectDocument(const LatticeModel& model, std::string_view text);

/// Gives an unused model everything that a view shows of a document right after opening: sizes, sites, traces
/// and the types' names, colours and opacities. Makes no draws: where opening would draw missing values,
/// sites stay black and the types' colours are greys, starting with black.
void layOutLattice(LatticeModel& unused, const ParsedDocument& document);

}  // namespace quorvane
