#include "Html.h"

#include <cctype>

#include "batch/Messages.h"

namespace quorvane {
namespace {

/// Colours that are told apart with any kind of sight (M. Okabe and K. Ito, Color Universal Design, 2008),
/// darker or lighter where the background needs it.
constexpr const char* kStyle = R"(
:root {
  color-scheme: light dark;
  --background: #ffffff; --text: #1c1e21; --soft: #5b6168; --line: #d5d9dd; --grid: #e6e9ec; --link: #0058a8;
  --curve-1: #0072b2; --curve-2: #d55e00; --curve-3: #008f68; --curve-4: #b8448c;
  --curve-5: #a87b00; --curve-6: #2f9fd0; --curve-7: #6a4fb3; --curve-8: #555b61;
}
@media (prefers-color-scheme: dark) {
  :root {
    --background: #17191c; --text: #e6e8ea; --soft: #a3aab1; --line: #3a3f45; --grid: #2b2f34; --link: #7ab8ff;
    --curve-1: #4aa8e0; --curve-2: #ff8a3c; --curve-3: #2fc79a; --curve-4: #e58ac2;
    --curve-5: #e0b93a; --curve-6: #8ad0f5; --curve-7: #a996ea; --curve-8: #b4bac0;
  }
}
body {
  margin: 0 auto; max-width: 60rem; padding: 1.5rem 1rem 4rem; background: var(--background);
  color: var(--text); font: 1rem/1.5 system-ui, sans-serif;
}
h1 { margin: 0 0 .25rem; font-size: 1.9rem; overflow-wrap: anywhere; }
h2 { margin: 3rem 0 1rem; padding-bottom: .3rem; border-bottom: 1px solid var(--line); font-size: 1.4rem; }
h3 { margin: 2.2rem 0 .5rem; font-size: 1.1rem; overflow-wrap: anywhere; }
p { margin: .5rem 0; }
a { color: var(--link); }
.soft { color: var(--soft); }
nav ul { margin: .5rem 0; padding: 0; list-style: none; columns: 20rem; }
figure { margin: 1rem 0 2rem; }
figure svg { display: block; width: 100%; height: auto; }
figcaption { color: var(--soft); font-size: .92rem; }
table { border-collapse: collapse; }
th, td { padding: .2rem 1.2rem .2rem 0; text-align: left; vertical-align: top; overflow-wrap: anywhere; }
th { font-weight: 600; white-space: nowrap; }
pre {
  overflow-x: auto; padding: .8rem; border: 1px solid var(--line); border-radius: .3rem;
  font: .85rem/1.45 ui-monospace, monospace;
}
summary { cursor: pointer; }
@media print { body { max-width: none; } figure, h3 { break-inside: avoid; } h2, h3 { break-after: avoid; } }
)";

bool isPlain(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalnum(byte) != 0 || c == '-' || c == '.' || c == '_' || c == '~' || c == ',';
}

/// As the data of a link.
std::string percentEncoded(std::string_view text) {
  constexpr const char* digits = "0123456789ABCDEF";
  constexpr unsigned sixteen = 16;
  std::string encoded;
  for (const char c : text) {
    if (isPlain(c)) {
      encoded += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    encoded += '%';
    encoded += digits[byte / sixteen];
    encoded += digits[byte % sixteen];
  }
  return encoded;
}

void appendEscaped(std::string& html, std::string_view line) {
  for (const char c : onOneLine(line)) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
}

}  // namespace

std::string htmlText(std::string_view text) {
  std::string html;
  for (std::size_t from = 0;;) {
    const std::size_t end = text.find('\n', from);
    appendEscaped(html, text.substr(from, end == std::string_view::npos ? end : end - from));
    if (end == std::string_view::npos) return html;
    html += '\n';
    from = end + 1;
  }
}

std::string downloadLink(const std::string& fileName, const std::string& text) {
  std::string link = "<a download=\"" + htmlText(fileName) + "\" href=\"data:text/csv;charset=utf-8,";
  link.append(percentEncoded(text)).append("\">").append(htmlText(fileName)).append("</a>");
  return link;
}

std::string termTable(const std::vector<std::pair<std::string, std::string>>& rows) {
  std::string html = "<table>\n";
  for (const auto& [term, what] : rows)
    html.append("<tr><th scope=\"row\">")
        .append(term)
        .append("</th><td>")
        .append(what)
        .append("</td></tr>\n");
  return html + "</table>\n";
}

std::string htmlPage(const std::string& title, const std::string& body) {
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
         htmlText(title) + "</title>\n<style>" + kStyle + "</style>\n</head>\n<body>\n" + body +
         "</body>\n</html>\n";
}

}  // namespace quorvane
