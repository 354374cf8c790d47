#include <string>

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

void applyLattice(LatticeModel& model, const DocumentHeader& header, const std::vector<int>& sites) {
  int k = 0;
  for (const int type : sites) {
    model.setSiteValue(k / header.jmax, k % header.jmax, type);
    ++k;
  }
  if (k < header.imax * header.jmax) return;
  for (int t = 0; t < header.numTypes; ++t) model.reinitHistory(t);
}

void applyPixelType(LatticeModel& model, int t, const PixelTypeBlock& block) {
  const int numLines = block.numLines;
  if (numLines >= 1) model.setPixelName(t, block.name);
  if (numLines >= 2) model.setPixelImmobile(t, block.immobile);
  if (numLines >= 3) model.setPixelMasqueradeAs(t, block.masquerade);
  if (numLines >= 6) model.setPixelColor(t, block.red, block.green, block.blue);
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

OpenResult readDocument(LatticeModel& model, std::string_view text, const HeaderObserver& onHeader) {
  if (text.size() > kMaxDocumentBytes) return unreadable(make_error_code(FileError::kTooLarge).message());
  if (const auto position = findNonAscii(text); position != std::string_view::npos)
    return unreadable(placeOf(text, position) + ": a character that is not ASCII");
  try {
    const ParsedDocument document = parseDocument(text, rowLengthsOf(model));
    if (document.header) {
      if (onHeader) onHeader(*document.header);
      apply(model, document);
    }
    if (document.cutShort) return {OpenStatus::kCutShort, *document.cutShort, *document.cutShort};
    return {OpenStatus::kOpened, {}, {}};
  } catch (const DocumentRefused& refused) {
    return {OpenStatus::kRefused, refused.what(), refused.what()};
  }
}

OpenResult openDocument(LatticeModel& model, const std::filesystem::path& path,
                        const HeaderObserver& onHeader) {
  std::string text;
  if (const auto error = readDocumentFile(path, DocumentSource::kFile, text))
    return unreadable(error.message());
  return readDocument(model, text, onHeader);
}

}  // namespace quorvane
