#include "Page.h"

#include <sstream>

#include "Html.h"
#include "Svg.h"

namespace quorvane {
namespace {

/// Writes sections, and numbers sections and figures.
class PageWriter {
 public:
  explicit PageWriter(const std::vector<std::string>& drawn) : drawn_(drawn) {}

  void addPart(const char* title, const char* explanation, const std::vector<Section>& sections) {
    if (sections.empty()) return;
    append({"<h2>", title, "</h2>\n<p class=\"soft\">", explanation, "</p>\n"});
    for (const Section& section : sections) addSection(section, title);
  }

  const std::string& body() const { return body_; }
  const std::string& contents() const { return contents_; }

 private:
  void append(std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) body_ += part;
  }

  void addSection(const Section& section, const char* part) {
    const std::string id = "section-" + std::to_string(++sections_);
    contents_.append("<li><a href=\"#").append(id).append("\">").append(htmlText(section.title));
    contents_.append("</a> <span class=\"soft\">").append(part).append("</span></li>\n");
    append({"<h3 id=\"", id, "\">", htmlText(section.title), "</h3>\n"});
    if (!section.text.empty()) append({"<p>", htmlText(section.text), "</p>\n"});
    for (const Figure& figure : section.figures) addFigure(figure);
    append({"<p>Data: ", downloadLink(section.fileName, csvOf(section.table)), "</p>\n"});
  }

  void addFigure(const Figure& figure) {
    const std::string svg = svgForPage(drawn_[figures_], figure.caption, figures_ + 1);
    ++figures_;
    append({"<figure>\n", svg, "\n<figcaption>Figure ", std::to_string(figures_), ". ",
            htmlText(figure.caption), "</figcaption>\n</figure>\n"});
  }

  const std::vector<std::string>& drawn_;
  std::size_t sections_ = 0, figures_ = 0;
  std::string body_, contents_;
};

std::vector<std::pair<std::string, std::string>> escaped(
    const std::vector<std::pair<std::string, std::string>>& rows) {
  std::vector<std::pair<std::string, std::string>> markup;
  markup.reserve(rows.size());
  for (const auto& [term, what] : rows) markup.emplace_back(htmlText(term), htmlText(what));
  return markup;
}

std::string preformatted(const std::string& title, const std::string& text) {
  return "<details>\n<summary>" + htmlText(title) + "</summary>\n<pre>" + htmlText(text) +
         "</pre>\n</details>\n";
}

}  // namespace

std::string leadingComment(const std::string& toml) {
  std::istringstream lines(toml);
  std::string comment, line;
  while (std::getline(lines, line) && line.starts_with('#')) {
    const std::size_t begin = line.find_first_not_of("# \t");
    if (begin == std::string::npos) continue;
    if (!comment.empty()) comment += ' ';
    comment += line.substr(begin);
  }
  return comment;
}

std::string reportPage(const StudyFacts& facts, const std::vector<Section>& averages,
                       const std::vector<Section>& series, const std::vector<std::string>& drawn) {
  PageWriter parts(drawn);
  parts.addPart("Averages",
                "Averages over the measurements and the replicas of a point. Bars are standard errors, from "
                "the scatter of the replicas.",
                averages);
  parts.addPart("Series", "Means over the replicas of a point by time. Bands are standard errors.", series);
  std::string body = "<h1>" + htmlText(facts.name) + "</h1>\n";
  if (!facts.description.empty()) body += "<p>" + htmlText(facts.description) + "</p>\n";
  for (const std::string& warning : facts.warnings)
    body.append("<p><strong>").append(htmlText(warning)).append("</strong></p>\n");
  if (!parts.contents().empty())
    body += "<nav aria-label=\"Contents\">\n<ul>\n" + parts.contents() + "</ul>\n</nav>\n";
  body += "<h2>What was studied</h2>\n" + termTable(escaped(facts.setup));
  body += preformatted("The study file", facts.studyText);
  body += preformatted("The document " + facts.documentName, facts.documentText);
  body += parts.body();
  body += "<h2>Provenance</h2>\n" + termTable(escaped(facts.provenance));
  return htmlPage(facts.name, body);
}

}  // namespace quorvane
