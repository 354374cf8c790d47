#pragma once

#include <string>

namespace quorvane {

/// An SVG document of gnuplot as an element of a page: without the prologue and what is not visible, with ids
/// that no other figure has, with title as its name for screen readers, and with the colours of the page.
std::string svgForPage(std::string svg, const std::string& title, std::size_t number);

}  // namespace quorvane
