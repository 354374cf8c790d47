#include "TypeCounts.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

class Counts : public Observable {
 public:
  explicit Counts(int numTypes) : numTypes_(numTypes) {}

  std::vector<std::string> columns() const override {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(numTypes_));
    for (int t = 0; t < numTypes_; ++t) names.push_back(columnOf("count", t));
    return names;
  }

  void measure(const Snapshot& snapshot, Row& row) override {
    for (const std::int64_t count : countsOf(snapshot)) row.add(count);
  }

 private:
  int numTypes_;
};

std::unique_ptr<Observable> makeCounts(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Counts>(first.numTypes);
}

}  // namespace

extern const ObservableKind kCounts;
constexpr ObservableKind kCounts{
    .name = "counts",
    .arguments = "",
    .columns = "count_0, count_1, ...",
    .definition = "The number of sites of each type.",
    .paper = "",
    .cost = "N for each type",
    .make = makeCounts,
};

}  // namespace quorvane
