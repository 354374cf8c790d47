#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Figure.h"

namespace quorvane {

/// What the report of a study shows besides its figures.
struct StudyFacts {
  std::string name;         ///< of the study
  std::string description;  ///< the comment at the beginning of its file, may be empty
  std::string studyText, documentName, documentText;
  std::vector<std::pair<std::string, std::string>> setup;       ///< text, not markup
  std::vector<std::pair<std::string, std::string>> provenance;  ///< likewise
  std::vector<std::string> warnings;                            ///< a sentence each
};

/// The comment lines at the beginning of a TOML file as a paragraph.
std::string leadingComment(const std::string& toml);

/// The whole page. drawn: the SVG documents of gnuplot, one for each figure of averages, then of series.
std::string reportPage(const StudyFacts& facts, const std::vector<Section>& averages,
                       const std::vector<Section>& series, const std::vector<std::string>& drawn);

}  // namespace quorvane
