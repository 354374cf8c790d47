#include <optional>
#include <string>
#include <utility>

#include "Ascii.h"
#include "DocumentParser.h"
#include "document/DocumentFile.h"
#include "document/FileError.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

RowLengths rowLengthsOf(const LatticeModel& model) {
  RowLengths lengths;
  for (std::size_t t = 0; t < lengths.size(); ++t) lengths[t] = model.varAccessibleRulesForSiteIDCount[t];
  return lengths;
}

/// The type of a site behind the end of a text that was cut short, in a layout that draws no random numbers.
constexpr int kNoType = -1;

void setSites(LatticeModel& model, const DocumentHeader& header, const std::vector<int>& sites) {
  int k = 0;
  for (const int type : sites) {
    model.setSiteValue(k / header.jmax, k % header.jmax, type);
    ++k;
  }
}

void applyLattice(LatticeModel& model, const DocumentHeader& header, const std::vector<int>& sites) {
  setSites(model, header, sites);
  if (std::ssize(sites) < std::ptrdiff_t{header.imax} * header.jmax) return;
  for (int t = 0; t < header.numTypes; ++t) model.reinitHistory(t);
}

void applyPixelType(LatticeModel& model, int t, const PixelTypeBlock& block) {
  const int numLines = block.numLines;
  if (numLines >= 1) model.setPixelName(t, block.name);
  if (numLines >= 2) model.setPixelImmobile(t, block.immobile);
  if (numLines >= 3) model.setPixelMasqueradeAs(t, block.masquerade);
  if (numLines >= PixelTypeBlock::kLinesToColor) model.setPixelColor(t, block.red, block.green, block.blue);
  if (numLines >= 7) model.setPixelPersistence(t, block.persistence);
  if (numLines >= 8) model.setPixelAlpha(t, block.alpha);
  if (numLines >= 9) model.setPixelField(t, block.field);
}

void applyRule(LatticeModel& model, int r, const RuleBlock& rule) {
  model.makeNewRule(rule.name, rule.type, rule.endA, rule.endB);
  // The flag comes first: it decides which table the pair energies go to.
  model.setRuleDisabled(r, rule.disabled);
  model.setRuleIgnoreEnergy(r, rule.ignoreEnergy);
  model.setRuleParam(r, rule.param);
  model.setRuleFacNum(r, rule.facNum);
  model.setRuleFacPixel(r, rule.facPixel);
  if (rule.type == kPixelPixelInteraction) model.setInteractionParams(r, rule.param);
}

void apply(LatticeModel& model, const ParsedDocument& document) {
  const DocumentHeader& header = *document.header;
  model.initializeLatticeModel(header.numTypes, header.imax, header.jmax);
  applyLattice(model, header, document.sites);
  int t = 0;
  for (const PixelTypeBlock& block : document.types) applyPixelType(model, t++, block);
  int r = 0;
  for (const RuleBlock& rule : document.rules) applyRule(model, r++, rule);
}

OpenResult unreadable(const std::string& reason) { return {OpenStatus::kUnreadable, kLogNoLines, reason}; }

}  // namespace

Inspection inspectDocument(const LatticeModel& model, std::string_view text) {
  if (text.size() > kMaxDocumentBytes)
    return {unreadable(make_error_code(FileError::kTooLarge).message()), {}};
  if (const auto position = findNonAscii(text); position != std::string_view::npos)
    return {unreadable(placeOf(text, position) + ": a character that is not ASCII"), {}};
  try {
    ParsedDocument document = parseDocument(text, rowLengthsOf(model));
    OpenResult result{OpenStatus::kOpened, {}, {}};
    if (document.cutShort) result = {OpenStatus::kCutShort, *document.cutShort, *document.cutShort};
    return {std::move(result), std::move(document)};
  } catch (const DocumentRefused& refused) {
    return {{OpenStatus::kRefused, refused.what(), refused.what()}, {}};
  }
}

void layOutLattice(LatticeModel& unused, const ParsedDocument& document) {
  const auto [imax, jmax, numTypes] = *document.header;
  unused.varImax = imax;
  unused.varJmax = jmax;
  unused.varNumSiteTypes = numTypes;
  for (int i = 0; i < imax; ++i)
    for (int j = 0; j < jmax; ++j) unused.setSiteValue(i, j, kNoType);
  setSites(unused, *document.header, document.sites);
  for (int t = 0; t < numTypes; ++t) {
    const double grey = static_cast<double>(t) / numTypes;
    unused.setPixelColor(t, grey, grey, grey);
    unused.setPixelAlpha(t, 1.0);
    unused.reinitHistory(t);
  }
  int t = 0;
  for (const PixelTypeBlock& block : document.types) applyPixelType(unused, t++, block);
}

OpenResult readDocument(LatticeModel& model, std::string_view text, const HeaderObserver& onHeader) {
  const Inspection found = inspectDocument(model, text);
  if (found.document.header) {
    if (onHeader) onHeader(*found.document.header);
    apply(model, found.document);
  }
  return found.result;
}

OpenResult openDocument(LatticeModel& model, const std::filesystem::path& path,
                        const HeaderObserver& onHeader) {
  std::string text;
  if (const auto error = readDocumentFile(path, DocumentSource::kFile, text))
    return unreadable(error.message());
  return readDocument(model, text, onHeader);
}

}  // namespace quorvane
