#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "measure/Snapshot.h"
#include "model/LatticeModel.h"
#include "study/RunResult.h"
#include "study/Study.h"

namespace quorvane {

/// Makes the runs of a study. A run draws what quorvane-batch would draw with the run's seed, settings, sides
/// and shares, and so gives the same lattices. The document is read once, and the model is used for every
/// run. One for the process, since it uses the process's random source; main thread only.
class RunMaker {
 public:
  /// text: of the document. Throws StudyError if it is not a whole document, or if a name, a value or an
  /// observable of the study does not fit it.
  RunMaker(Study study, const std::string& text);

  /// Throws StudyError if memory runs out, for example; none if goOn, which is asked every few sweeps,
  /// returned false.
  std::optional<RunResult> make(std::int64_t run, const std::function<bool()>& goOn);

  /// The columns of the averages and of the series, and the sites, of the lattice of a point.
  struct Shape {
    std::vector<std::string> columns, series;
    std::int64_t numSites;
  };
  const Shape& shapeOf(std::int64_t point) const;

  /// The names of the document's pixel types.
  std::vector<std::string> typeNames() const;

 private:
  [[noreturn]] void refuse(int line, const std::string& why) const;
  void requireNames();
  void requireObservables(const std::string& list, const Snapshot& now, int line) const;
  void start(std::int64_t run);
  Shape shapeNow() const;

  Study study_;
  std::unique_ptr<LatticeModel> opened_, model_;
  std::int64_t drawsToOpen_ = 0;
  std::vector<Shape> shapes_;  ///< for each of the sides
};

}  // namespace quorvane
