#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace quorvane {

/// A time in its two largest units: "3 min 20 s".
std::string timeInWords(double seconds);

/// A line on standard error that is written anew about three times a second and fits the terminal's present
/// width. Nothing is written unless standard error is a terminal, or if that terminal shows results.
class TerminalLine {
 public:
  /// resultsOnOutput: results go to standard output.
  explicit TerminalLine(bool resultsOnOutput);
  /// Erases the line.
  ~TerminalLine();
  TerminalLine(const TerminalLine&) = delete;
  TerminalLine& operator=(const TerminalLine&) = delete;

  /// textFor: gives a text of at most so many columns; called only when it is written.
  void show(const std::function<std::string(int columns)>& textFor);

 private:
  using Clock = std::chrono::steady_clock;

  bool onTerminal_;
  bool shown_ = false;
  Clock::time_point next_;
};

}  // namespace quorvane
