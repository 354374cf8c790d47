#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MeasureSupport.h"
#include "measure/MeasureError.h"

namespace quorvane {
namespace {

struct Shares {
  double kept, never;
  bool operator==(const Shares&) const = default;
};

Shares measured(Measurements& measurements, const Snapshot& lattice) {
  const NamedRow row(measurements.columns(), measurements.measure(lattice));
  return {row.real("kept"), row.real("never")};
}

TEST(Kept, IsAllAtTheStart) {
  const Snapshot start = latticeOf({"0012", "0022"}, 3);
  Measurements measurements("kept", start);
  EXPECT_EQ(measured(measurements, start), (Shares{1.0, 1.0}));
}

TEST(Kept, CountsASiteThatReturnsAgainButNotAsNeverChanged) {
  Snapshot lattice = latticeOf({"0012", "0022"}, 3);
  Measurements measurements("kept", lattice);
  setType(lattice, 0, 0, 2);
  setType(lattice, 1, 1, 1);
  EXPECT_EQ(measured(measurements, lattice), (Shares{0.75, 0.75}));
  setType(lattice, 0, 0, 0);
  EXPECT_EQ(measured(measurements, lattice), (Shares{0.875, 0.75}));
  setType(lattice, 1, 2, 0);
  EXPECT_EQ(measured(measurements, lattice), (Shares{0.75, 0.625}));
}

TEST(Kept, IsThatOfAWalkOverAHistoryOfRandomLattices) {
  for (const Snapshot& start : randomLattices()) {
    Measurements measurements("kept", start);
    std::vector<bool> always(start.sites.size(), true);
    for (unsigned row = 0; row < 4; ++row) {
      const Snapshot now = randomLattice(start.imax, start.jmax, start.numTypes, 1000 + row);
      int kept = 0, never = 0;
      for (std::size_t k = 0; k < now.sites.size(); ++k) {
        if (now.sites[k] != start.sites[k]) always[k] = false;
        kept += now.sites[k] == start.sites[k] ? 1 : 0;
        never += always[k] ? 1 : 0;
      }
      const auto numSites = static_cast<double>(start.numSites());
      EXPECT_EQ(measured(measurements, now), (Shares{kept / numSites, never / numSites})) << describe(start);
    }
  }
}

TEST(Kept, GoesOnFromAState) {
  Snapshot lattice = randomLattice(7, 5, 3, 1);
  Measurements whole("kept,counts", lattice);
  whole.measure(randomLattice(7, 5, 3, 2));
  const std::string state = whole.state();
  // As a run that is continued makes it, from the lattice at which it stopped.
  Measurements continued("kept,counts", randomLattice(7, 5, 3, 2));
  continued.restore(state);
  EXPECT_EQ(continued.state(), state);
  const Snapshot next = randomLattice(7, 5, 3, 3);
  EXPECT_EQ(continued.csvRow(3, next), whole.csvRow(3, next));
  EXPECT_EQ(continued.state(), whole.state());
}

TEST(Kept, RefusesAStateThatIsNoneOfItsLattice) {
  const Snapshot lattice = randomLattice(7, 5, 3, 1);
  const std::string state = Measurements("kept", lattice).state();
  const auto refused = [&](const std::string& bytes) {
    Measurements measurements("kept", lattice);
    EXPECT_THROW(measurements.restore(bytes), MeasureError) << bytes.size();
  };
  for (std::size_t length = 0; length < state.size(); ++length) refused(state.substr(0, length));
  refused(state + '\0');
  refused(Measurements("kept", randomLattice(5, 6, 3, 1)).state());
  refused(Measurements("counts", lattice).state());
  std::string damaged = state;
  damaged.back() = 2;
  refused(damaged);
  damaged = state;
  // Behind the lengths of both blocks.
  damaged[16] = 10;
  refused(damaged);
}

}  // namespace
}  // namespace quorvane
