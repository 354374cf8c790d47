#include "Svg.h"

#include "Figure.h"
#include "Html.h"

namespace quorvane {
namespace {

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

/// Removes everything from each begin to the next end.
void removeBetween(std::string& text, const std::string& begin, const std::string& end) {
  for (std::size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at)) {
    const std::size_t last = text.find(end, at);
    if (last == std::string::npos) return;
    text.erase(at, last + end.size() - at);
  }
}

/// Groups without content, which gnuplot writes for each change of the pen.
void removeEmptyGroups(std::string& text) {
  const std::string end = ">\n</g>\n";
  for (std::size_t at = text.find(end); at != std::string::npos; at = text.find(end, at)) {
    const std::size_t begin = text.rfind('<', at);
    if (text.compare(begin, 3, "<g ") != 0) {
      at += end.size();
      continue;
    }
    text.erase(begin, at + end.size() - begin);
    at = begin;
  }
}

void useColoursOfThePage(std::string& svg) {
  for (const char* attribute : {"color", "fill", "stroke"})
    for (const std::string quote : {"'", "\""})
      replaceAll(svg, std::string(attribute).append("=").append(quote).append("black").append(quote),
                 std::string(attribute).append("=").append(quote).append("currentColor").append(quote));
  replaceAll(svg, "rgb(  1,   1,   0)", "var(--grid)");
  for (std::size_t k = 1; k <= kMostCurves; ++k)
    replaceAll(svg, "rgb(  1,   1,   " + std::to_string(k) + ")", "var(--curve-" + std::to_string(k) + ")");
}

}  // namespace

std::string svgForPage(std::string svg, const std::string& title, std::size_t number) {
  svg.erase(0, svg.find("<svg"));
  removeBetween(svg, "<title>", "</title>");
  removeBetween(svg, "<desc>", "</desc>");
  removeBetween(svg, "<filter ", "</filter>");
  removeEmptyGroups(svg);
  useColoursOfThePage(svg);
  const std::string prefix = "figure-" + std::to_string(number) + "-";
  replaceAll(svg, " id='", " id='" + prefix);
  replaceAll(svg, R"( id=")", R"( id=")" + prefix);
  replaceAll(svg, "href='#", "href='#" + prefix);
  const std::string name = R"( role="img" aria-label=")" + htmlText(title) + '"';
  svg.insert(std::string("<svg").size(), name);
  return svg;
}

}  // namespace quorvane
