#include "DocumentSupport.h"

#include <sstream>

#include "engine/f_ran0.h"

namespace quorvane {

std::unique_ptr<LatticeModel> freshModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  return model;
}

void restartRandomNumbers() { processRandomSource = RandomSource(); }

const Lines& sampleLines() {
  static const Lines lines = {
      "2",
      "3",
      "2",  // sites across, sites upwards, pixel types
      "0",
      "1",
      "1",  // column 0
      "0",
      "1",
      "0",  // column 1
      "Empty space",
      "0",
      "-1",
      "0.1000000000",
      "0.2000000000",
      "0.3000000000",
      "0.4000000000",
      "0.5000000000",
      "-0.6000000000",
      "Particle",
      "1",
      "0",
      "0.9000000000",
      "0.8000000000",
      "0.7000000000",
      "0.9500000000",
      "0.2500000000",
      "1.7500000000",
      "5",
      "Grow",
      "0",
      "1",
      "0",
      "0",
      "1",
      "0.1250000000",
      "3",
      "1",
      "Flicker",
      "1",
      "0",
      "1",
      "-1",
      "1",
      "0.5000000000",
      "0",
      "0",
      "Move",
      "0",
      "0",
      "2",
      "1",
      "-1",
      "1.0000000000",
      "0",
      "0",
      "Attract",
      "0",
      "0",
      "3",
      "1",
      "1",
      "-1.5000000000",
      "0",
      "0",
      "Repel, if ever",
      "1",
      "0",
      "3",
      "0",
      "1",
      "2.5000000000",
      "0",
      "-1",
  };
  return lines;
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

Lines sampleWith(std::size_t line, const std::string& text) {
  Lines lines = sampleLines();
  lines.at(line) = text;
  return lines;
}

std::string stateOf(const LatticeModel& model) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(17);
  out << writeDocument(model) << "state " << model.varMyState << '\n';
  for (int t = 0; t < model.getNumPixelTypes(); ++t) {
    out << "trace " << t << " of at most " << model.varMobileHistoryMax[t] << ':';
    for (int i = 0; i < model.getIMax(); ++i)
      for (int j = 0; j < model.getJMax(); ++j) out << ' ' << model.varMobileHistory[t][i][j];
    out << '\n';
  }
  for (int t = 0; t < kMaxPixelTypes; ++t) {
    out << "row " << t << ':';
    for (int k = 0; k < model.varAccessibleRulesForSiteIDCount[t]; ++k)
      out << ' ' << model.varAccessibleRulesForSiteID[t][k];
    out << "\nenergies " << t << ':';
    for (int u = 0; u < kMaxPixelTypes; ++u)
      out << ' ' << model.getPixelIntConstant(t, u) << '/' << model.getPixelIntConstantBCK(t, u);
    out << '\n';
  }
  return out.str();
}

GermanLocale::GermanLocale() {
  constexpr const char* name = "de_DE.UTF-8";
  installed_ = std::setlocale(LC_ALL, name) != nullptr;
  if (installed_) std::locale::global(std::locale(name));
}

GermanLocale::~GermanLocale() {
  std::locale::global(before_);
  std::setlocale(LC_ALL, "C");
}

}  // namespace quorvane
