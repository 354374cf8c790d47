#include "report/Report.h"

#include <nlohmann/json.hpp>

#include "Gnuplot.h"
#include "Grid.h"
#include "Page.h"
#include "Sections.h"
#include "batch/Streams.h"
#include "study/StudyActions.h"
#include "study/StudyError.h"
#include "study/StudyFile.h"
#include "study/StudyResults.h"
#include "study/Tables.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using Terms = std::vector<std::pair<std::string, std::string>>;

std::string lastName(const fs::path& folder) {
  // "ising.results/" ends with an empty name.
  const fs::path path = fs::absolute(folder).lexically_normal();
  return (path.has_filename() ? path : path.parent_path()).stem().string();
}

Terms setupOf(const Study& study, const Grid& grid) {
  Terms rows = {{"Document", study.document.filename().string()}};
  for (const GridAxis& axis : grid.axes()) {
    std::string values;
    for (const std::string& value : axis.values) values.append(values.empty() ? "" : ", ").append(value);
    rows.emplace_back(axis.label, values);
  }
  if (!study.fill.empty()) {
    std::string shares;
    for (const Share& share : study.fill)
      shares.append(shares.empty() ? "" : ", ").append(share.type).append(" ").append(shortest(share.share));
    rows.emplace_back("Sites at the start", "at random: " + shares);
  }
  rows.emplace_back("Sweeps of a run", std::to_string(study.sweeps) + ", measured every " +
                                           std::to_string(study.every) + " from " +
                                           std::to_string(study.discard) + " on");
  rows.emplace_back("Observables", study.observables);
  if (!study.series.empty()) rows.emplace_back("Series", study.series);
  rows.emplace_back("Points", std::to_string(numPoints(study)));
  rows.emplace_back("Replicas of a point", std::to_string(study.replicas));
  rows.emplace_back("Seeds", std::to_string(study.seed) + " to " +
                                 std::to_string(study.seed + numRuns(study) - 1) + ", one for each run");
  return rows;
}

/// A text of study.json.
std::string textIn(const nlohmann::json& json, const char* pointer) {
  const nlohmann::json::json_pointer place(pointer);
  return json.contains(place) && json[place].is_string() ? json[place].get<std::string>() : "unknown";
}

Terms provenanceOf(const StudyFolder& folder) {
  const auto json = nlohmann::json::parse(textOf(folder.path() / kDescriptionName), nullptr, false);
  Terms terms = {{"Version", textIn(json, "/version")}};
  for (const auto& program : json.value("programs", nlohmann::json::array())) {
    terms.emplace_back("Commit", textIn(program, "/commit"));
    terms.emplace_back("Compiler", textIn(program, "/compiler"));
    terms.emplace_back("C library", textIn(program, "/c_library"));
  }
  terms.emplace_back("SHA-256 of the study", textIn(json, "/study/sha256"));
  terms.emplace_back("SHA-256 of the document", textIn(json, "/document/sha256"));
  return terms;
}

std::vector<std::string> warningsOf(const StudyResults& results, const Study& study) {
  const auto made = std::ssize(results.made()), failed = std::ssize(results.failed());
  std::vector<std::string> warnings;
  if (made < numRuns(study))
    warnings.push_back("Not all runs are made: " + std::to_string(made) + " of " +
                       std::to_string(numRuns(study)) + ", and " + std::to_string(failed) + " failed.");
  return warnings;
}

void addFigures(const std::vector<Section>& sections, std::vector<const Figure*>& figures) {
  for (const Section& section : sections)
    for (const Figure& figure : section.figures) figures.push_back(&figure);
}

void writeReport(const StudyFolder& folder, const RunMaker& maker, const StudyResults& results) {
  const Study& study = folder.study();
  const Grid grid(study);
  const auto averages = pointSections(grid, readTable(folder.path() / kPointsTable), maker.typeNames());
  std::vector<Section> series;
  if (!study.series.empty())
    series = seriesSections(grid, readTable(folder.path() / kSeriesTable), maker.typeNames());
  std::vector<const Figure*> figures;
  addFigures(averages, figures);
  addFigures(series, figures);
  const std::string studyText = textOf(folder.path() / kStudyName);
  const StudyFacts facts{.name = lastName(folder.path()),
                         .description = leadingComment(studyText),
                         .studyText = studyText,
                         .documentName = study.document.filename().string(),
                         .documentText = folder.documentText(),
                         .setup = setupOf(study, grid),
                         .provenance = provenanceOf(folder),
                         .warnings = warningsOf(results, study)};
  writeOutput(folder.path() / kReportName, reportPage(facts, averages, series, drawFigures(figures)));
}

}  // namespace

int makeReport(const fs::path& path, Messages& messages) {
  return guarded(messages, [&] {
    const StudyFolder folder = StudyFolder::open(path);
    const RunMaker maker(folder.study(), folder.documentText());
    writeReport(folder, maker, tabulate(folder, maker, messages));
    return static_cast<int>(messages.failed() ? kStudyFailed : kStudyDone);
  });
}

}  // namespace quorvane
