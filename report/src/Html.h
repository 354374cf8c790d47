#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

/// Text as content or attribute of HTML: no characters of markup, and bytes that are no UTF-8 as escapes.
/// Line feeds stay.
std::string htmlText(std::string_view text);

/// A link that saves a text as a file of the given name.
std::string downloadLink(const std::string& fileName, const std::string& text);

/// A table of two columns: a term and what it is, which may be markup.
std::string termTable(const std::vector<std::pair<std::string, std::string>>& rows);

/// A whole page: body is its markup.
std::string htmlPage(const std::string& title, const std::string& body);

}  // namespace quorvane
