#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <variant>

#include "document/ParsedDocument.h"

/// Every field of a document with its name in messages, its kind, its limits and its position: the order of a
/// table is the order of the lines.
namespace quorvane {

struct FieldLimits {
  int lowest, highest;
};
/// As the highest value: the last pixel type of the document.
inline constexpr int kLastType = -2;
inline constexpr FieldLimits kTypeOrNone{-1, kLastType};

/// A field of a block whose fields are of the given kinds.
template <class Block, class... Kinds>
struct DocumentField {
  const char* name;
  std::variant<Kinds Block::*...> member;
  std::optional<FieldLimits> limits = {};  ///< of an int
};

inline constexpr DocumentField<DocumentHeader, int> kHeaderFields[] = {
    {"number of sites across", &DocumentHeader::imax, FieldLimits{1, kMaxSide}},
    {"number of sites upwards", &DocumentHeader::jmax, FieldLimits{1, kMaxSide}},
    {"number of pixel types", &DocumentHeader::numTypes, FieldLimits{1, kMaxPixelTypes}},
};

inline constexpr DocumentField<PixelTypeBlock, SharedName, int, double> kPixelTypeFields[] = {
    {"name", &PixelTypeBlock::name},
    {"immobile flag", &PixelTypeBlock::immobile},
    {"masquerade", &PixelTypeBlock::masquerade, kTypeOrNone},
    {"red", &PixelTypeBlock::red},
    {"green", &PixelTypeBlock::green},
    {"blue", &PixelTypeBlock::blue},
    {"persistence", &PixelTypeBlock::persistence},
    {"transparency", &PixelTypeBlock::alpha},
    {"field", &PixelTypeBlock::field},
};

inline constexpr DocumentField<RuleBlock, SharedName, int, double> kRuleFields[] = {
    {"name", &RuleBlock::name},
    {"disabled flag", &RuleBlock::disabled},
    {"ignore-energy flag", &RuleBlock::ignoreEnergy},
    {"type", &RuleBlock::type},
    {"end point A", &RuleBlock::endA, kTypeOrNone},
    {"end point B", &RuleBlock::endB, kTypeOrNone},
    {"parameter", &RuleBlock::param},
    {"facilitation number", &RuleBlock::facNum},
    {"facilitation type", &RuleBlock::facPixel, kTypeOrNone},
};

/// The line of a block, counted from 1, that holds a member.
template <class Block, class... Kinds, std::size_t numFields, class Value>
constexpr int lineOf(const DocumentField<Block, Kinds...> (&fields)[numFields], Value Block::*member) {
  int line = 1;
  for (const auto& field : fields) {
    using Member = Value Block::*;
    if (std::holds_alternative<Member>(field.member) && std::get<Member>(field.member) == member) return line;
    ++line;
  }
  return 0;
}

static_assert(PixelTypeBlock::kLines == std::size(kPixelTypeFields));
static_assert(PixelTypeBlock::kLinesToColor == lineOf(kPixelTypeFields, &PixelTypeBlock::blue));

/// The fields of a pixel type or a rule, read from a model.
PixelTypeBlock pixelTypeBlock(const LatticeModel& model, int t);
RuleBlock ruleBlock(const LatticeModel& model, int r);

/// Sets those fields of a pixel type that the block has. A colour is set as a whole.
void applyPixelType(LatticeModel& model, int t, const PixelTypeBlock& block);

/// Appends the rule, with index r, and sets its fields and, for an interaction, its pair energies.
void applyRule(LatticeModel& model, int r, const RuleBlock& rule);

}  // namespace quorvane
