#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "Examples.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

std::string page() { return contentOf(QUORVANE_EXAMPLE_PAGE); }

/// The sections of the page; the first is the text before all headings.
std::vector<std::string> sections() {
  std::vector<std::string> parts(1);
  std::istringstream lines(page());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("## ")) parts.emplace_back();
    parts.back() += line + '\n';
  }
  return parts;
}

std::string sectionOf(const std::string& example) {
  const std::string link = "\n[" + example + "](../examples/" + example + "), below after ";
  for (const std::string& section : sections())
    if (section.find(link) != std::string::npos) return section;
  return {};
}

std::string pictureOf(const std::string& example) { return fs::path(example).stem().string() + ".png"; }

/// The section's lines that list the types and the rules.
std::vector<std::string> listedIn(const std::string& section) {
  std::vector<std::string> listed;
  std::istringstream lines(section);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("Types: ") || line.starts_with("| ")) listed.push_back(line);
  return listed;
}

/// With the decimals of a document, without trailing zeros.
std::string number(double value) {
  std::ostringstream out;
  out << std::fixed;
  out.precision(10);
  out << value;
  std::string text = out.str();
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string typeText(const LatticeModel& model, int t) {
  std::vector<std::string> traits;
  if (model.getPixelImmobile(t) != 0) traits.emplace_back("immobile");
  if (const int other = model.getPixelMasqueradeAs(t); other != kNoMasquerade)
    traits.push_back("masquerades as " + model.getPixelName(other));
  if (model.getPixelPersistence(t) != 0.0)
    traits.push_back("persistence " + number(model.getPixelPersistence(t)));
  if (model.getPixelField(t) != 0.0) traits.push_back("field " + number(model.getPixelField(t)));
  std::string text = model.getPixelName(t);
  for (std::size_t k = 0; k < traits.size(); ++k) text += (k == 0 ? " (" : ", ") + traits[k];
  return traits.empty() ? text : text + ')';
}

std::string typesLine(const LatticeModel& model) {
  std::string line = "Types: ";
  for (int t = 0; t < model.getNumPixelTypes(); ++t) line += (t == 0 ? "" : "; ") + typeText(model, t);
  return line + '.';
}

std::string endText(const LatticeModel& model, int end) {
  return end == kAnyPixelType ? "any type" : model.getPixelName(end);
}

/// The rule as a row of the page's table, with the given name and number of neighbours needed.
std::string ruleRow(const LatticeModel& model, int r, const std::string& name, const std::string& needed) {
  constexpr const char* kinds[] = {"irreversible flip", "reversible flip", "swap", "pair energy"};
  const std::string ends =
      endText(model, model.getRulePixelA(r)) + ", " + endText(model, model.getRulePixelB(r));
  const std::string needs =
      needed == "0" ? " |" : " " + needed + ' ' + model.getPixelName(model.getRuleFacPixel(r)) + " |";
  return "| " + name + " | " + kinds[model.getRuleType(r)] + " | " + ends + " | " +
         number(model.getRuleParam(r)) + " |" + needs;
}

/// True if eight rules from here on differ only in their number, 1 to 8, and need that many neighbours.
bool isForEachNeighbour(const LatticeModel& model, int r, const std::string& name) {
  if (r + kNumDirections > model.getNumRules()) return false;
  for (int k = 1; k <= kNumDirections; ++k) {
    const int rule = r + k - 1;
    if (model.getRuleName(rule) != name + std::to_string(k) || model.getRuleFacNum(rule) != k) return false;
    if (ruleRow(model, rule, name, "1") != ruleRow(model, r, name, "1")) return false;
  }
  return true;
}

std::vector<std::string> expectedList(const LatticeModel& model) {
  std::vector<std::string> list = {typesLine(model), "| rule | type | ends | parameter | needs |"};
  for (int r = 0; r < model.getNumRules(); ++r) {
    const std::string& name = model.getRuleName(r);
    const std::string unnumbered = name.substr(0, name.size() - 1);
    if (isForEachNeighbour(model, r, unnumbered)) {
      list.push_back(ruleRow(model, r, unnumbered + "1 to 8", "1 to 8"));
      r += kNumDirections - 1;
    } else {
      list.push_back(ruleRow(model, r, name, std::to_string(model.getRuleFacNum(r))));
    }
  }
  return list;
}

class ExamplePage : public testing::TestWithParam<std::string> {};

TEST_P(ExamplePage, HasAllItsParts) {
  const std::string section = sectionOf(GetParam());
  ASSERT_FALSE(section.empty()) << "no section";
  for (const char* part : {"What it is", "In words", "Look for", "Change", "From"})
    EXPECT_THAT(section, HasSubstr("\n**" + std::string(part) + ".** "));
}

TEST_P(ExamplePage, ListsTheTypesAndRulesOfTheDocument) {
  EXPECT_EQ(listedIn(sectionOf(GetParam())), expectedList(*openedExample(exampleFile(GetParam()))));
}

TEST_P(ExamplePage, ShowsAPicture) {
  const std::string picture = pictureOf(GetParam());
  EXPECT_THAT(sectionOf(GetParam()), HasSubstr("](images/examples/" + picture + ")\n"));
  EXPECT_TRUE(contentOf(fs::path(QUORVANE_EXAMPLE_PICTURES) / picture).starts_with("\x89PNG\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Examples, ExamplePage, testing::ValuesIn(exampleNames()), exampleTestName);

TEST(ExamplePages, HaveNoSectionPictureOrLinkWithoutADocument) {
  std::vector<std::string> pictures;
  for (const std::string& name : exampleNames()) pictures.push_back(pictureOf(name));
  EXPECT_EQ(namesIn(QUORVANE_EXAMPLE_PICTURES), pictures);

  std::size_t documented = 0;
  for (const std::string& section : sections())
    documented += section.find("](../examples/") != std::string::npos ? 1 : 0;
  EXPECT_EQ(documented, exampleNames().size());
}

}  // namespace
}  // namespace quorvane
