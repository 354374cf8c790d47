#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Ascii.h"
#include "DocumentFields.h"
#include "DocumentParser.h"
#include "document/DocumentFile.h"
#include "document/FileError.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

RowCounts rowCountsOf(const LatticeModel& model) {
  RowCounts counts;
  for (std::size_t t = 0; t < counts.size(); ++t) counts[t] = model.varAccessibleRulesForSiteIDCount[t];
  return counts;
}

/// The type of a site beyond the end of an incomplete text, in a layout without draws.
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

void apply(LatticeModel& model, const ParsedDocument& document, const HeaderObserver& onHeader) {
  const DocumentHeader& header = *document.header;
  if (onHeader) onHeader(header);
  model.initializeLatticeModel(header.numTypes, header.imax, header.jmax);
  applyLattice(model, header, document.sites);
  int t = 0, r = 0;
  for (const PixelTypeBlock& block : document.types) applyPixelType(model, t++, block);
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
    ParsedDocument document = parseDocument(text, rowCountsOf(model));
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
  Inspection found = inspectDocument(model, text);
  if (found.document.header) apply(model, found.document, onHeader);
  return std::move(found.result);
}

OpenResult openDocument(LatticeModel& model, const std::filesystem::path& path,
                        const HeaderObserver& onHeader) {
  try {
    std::string text;
    if (const auto error = readDocumentFile(path, DocumentSource::kFile, text))
      return unreadable(error.message());
    return readDocument(model, text, onHeader);
  } catch (const std::bad_alloc&) {
    return {OpenStatus::kUnreadable, kOutOfMemory, kOutOfMemory};
  }
}

}  // namespace quorvane
