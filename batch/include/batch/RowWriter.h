#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "document/GrowingFile.h"

namespace quorvane {

/// Where rows go as they come: standard output, a device or pipe, or a GrowingFile that takes the place of
/// its target at the end. No signal ends the process in the middle of a row of a file.
class RowWriter {
 public:
  /// Makes the growing file. Throws BatchFailure, as write and finish do.
  explicit RowWriter(std::filesystem::path target);

  /// Hands whole rows to the system.
  void write(std::string_view rows);

  /// Puts the growing file in the place of its target, and removes what killed runs have left of it. What
  /// there is to say of it, as writeOutput says it.
  std::string finish();

  /// From now on the growing file stays, however the run ends.
  void keep() { file_.keep(); }

  /// True while there is a growing file.
  bool isGrowing() const { return !file_.partial().empty(); }

  /// The growing file if it stays; else empty.
  std::filesystem::path kept() const { return file_.isKept() ? file_.partial() : std::filesystem::path(); }

 private:
  void require(std::error_code error) const;

  std::filesystem::path target_;
  GrowingFile file_;
};

}  // namespace quorvane
