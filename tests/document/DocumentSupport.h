#pragma once

#include <clocale>
#include <locale>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Files.h"
#include "document/ModelDocument.h"

namespace quorvane {

using Lines = std::vector<std::string>;

/// A model after a fresh start.
std::unique_ptr<LatticeModel> freshModel();

/// Resets the random source, so that the next draw is the first of a process.
void restartRandomNumbers();

/// A document of 2 by 3 sites, 2 pixel types and 5 rules, with a different value in nearly every field.
/// Indices of lines count from 0.
const Lines& sampleLines();
inline constexpr std::size_t kFirstSite = 3, kFirstType = 9, kSecondType = 18, kNumRulesLine = 27,
                             kFirstRule = 28, kLinesPerBlock = 9;

/// The text with a line feed after every line.
std::string joined(const Lines& lines);
/// The sample with one line replaced.
Lines sampleWith(std::size_t line, const std::string& text);

/// Everything that a document can change in a model, and what follows from it, as text for comparison.
std::string stateOf(const LatticeModel& model);

/// A decimal comma and a full stop between thousands, in C and C++ alike, while it lives.
class GermanLocale {
 public:
  GermanLocale();
  ~GermanLocale();
  GermanLocale(const GermanLocale&) = delete;
  GermanLocale& operator=(const GermanLocale&) = delete;

  /// False if the system does not have the locale.
  bool installed() const { return installed_; }

 private:
  bool installed_ = false;
  std::locale before_;
};

}  // namespace quorvane
