#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "MeasureSupport.h"
#include "measure/MeasureError.h"

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

Snapshot namedLattice(std::vector<std::string> names) {
  Snapshot lattice = latticeOf({"0012", "0022"}, static_cast<int>(names.size()));
  lattice.names = std::move(names);
  return lattice;
}

std::string refusalOf(const std::string& list) {
  try {
    const Measurements measurements(list, namedLattice({"solvent", "oil", "soap"}));
    return "taken";
  } catch (const MeasureError& error) {
    return error.what();
  }
}

TEST(Measurements, HaveTheColumnsInTheOrderOfTheList) {
  const Measurements measurements("order:oil:#0,counts, kept ,order:0:soap",
                                  namedLattice({"solvent", "oil", "soap"}));
  EXPECT_THAT(measurements.columns(),
              ElementsAre("order_1_0", "count_0", "count_1", "count_2", "kept", "never", "order_0_2"));
  EXPECT_EQ(measurements.csvHeader(), "sweep,order_1_0,count_0,count_1,count_2,kept,never,order_0_2\n");
}

TEST(Measurements, WriteARowOfIntegersAndRealNumbers) {
  const Snapshot lattice = namedLattice({"solvent", "oil", "soap"});
  Measurements measurements("counts,order:oil:soap,clusters,kept", lattice);
  EXPECT_EQ(measurements.csvRow(5'000'000'000, lattice),
            "5000000000,4,1,3,-0.25,1,4,4,1,1,1,1,0,1,3,3,1,1,1\n");
}

TEST(Measurements, RefuseAnUnknownObservableWithAllThatThereAre) {
  EXPECT_EQ(
      refusalOf("counts,ordr:0:1"),
      "entry 2 of the observables, \"ordr:0:1\": there is no observable \"ordr\"; there are counts, energy, "
      "contacts, clusters, order:a:b, kept, correlation, structure");
  EXPECT_THAT(refusalOf("Counts"), HasSubstr("there is no observable \"Counts\""));
  EXPECT_THAT(refusalOf("counts;energy"), HasSubstr("there is no observable \"counts;energy\""));
  EXPECT_THAT(refusalOf("help"), HasSubstr("there is no observable \"help\""));
}

TEST(Measurements, RefuseAMissingObservable) {
  EXPECT_EQ(refusalOf(""), "entry 1 of the observables, \"\": an observable is missing");
  EXPECT_EQ(refusalOf("counts,"), "entry 2 of the observables, \"\": an observable is missing");
  EXPECT_EQ(refusalOf("counts, ,energy"), "entry 2 of the observables, \"\": an observable is missing");
  EXPECT_THAT(refusalOf(":0:1"), HasSubstr("there is no observable \"\""));
}

TEST(Measurements, RefuseTooManyAndTooFewTypes) {
  EXPECT_EQ(refusalOf("order"), "entry 1 of the observables, \"order\": the observable is written order:a:b");
  EXPECT_THAT(refusalOf("order:0"), HasSubstr("is written order:a:b"));
  EXPECT_THAT(refusalOf("order:0:1:2"), HasSubstr("is written order:a:b"));
  EXPECT_EQ(refusalOf("counts:0"),
            "entry 1 of the observables, \"counts:0\": the observable is written counts");
}

TEST(Measurements, RefuseTypesThatAreNotThere) {
  EXPECT_EQ(
      refusalOf("kept,order:solvent:water"),
      "entry 2 of the observables, \"order:solvent:water\": there is no pixel type \"water\"; there are #0 "
      "\"solvent\", #1 \"oil\", #2 \"soap\"");
  EXPECT_THAT(refusalOf("order:0:"), HasSubstr("a pixel type is missing"));
  EXPECT_THAT(refusalOf("order:0:3"), HasSubstr("there is no pixel type \"3\""));
}

TEST(Measurements, RefuseTheSameTwice) {
  EXPECT_EQ(refusalOf("order:oil:1"),
            "entry 1 of the observables, \"order:oil:1\": the pixel type #1 stands there twice");
  EXPECT_EQ(refusalOf("counts,kept,counts"),
            "entry 3 of the observables, \"counts\": it is in the list already");
  EXPECT_THAT(refusalOf("order:0:1,order:solvent:oil"), HasSubstr("it is in the list already"));
  EXPECT_EQ(refusalOf("order:0:1,order:1:0"), "taken");
}

TEST(Measurements, NameNonsenseOnOneLine) {
  EXPECT_EQ(refusalOf("a\nb").find('\n'), std::string::npos);
  EXPECT_EQ(refusalOf("order:0:x\ny").find('\n'), std::string::npos);
  EXPECT_THAT(refusalOf(std::string("counts\0x", 8)), StartsWith("entry 1 of the observables, \"counts?x\""));
}

// Words of the grammar in any order and number: whatever is not taken is refused on one line.
TEST(Measurements, TakeOrRefuseAnyNonsense) {
  const std::vector<std::string> words = {"counts", "order", "kept",   ":",    ",",  "#",
                                          "0",      "1",     "oil",    "soap", " ",  "",
                                          "-1",     "\t",    "\xff\n", "#2",   "::", "structure"};
  std::mt19937 source(3);
  int taken = 0;
  for (int k = 0; k < 20000; ++k) {
    std::string list;
    for (auto length = source() % 8; length > 0; --length) list += words[source() % words.size()];
    const std::string refusal = refusalOf(list);
    EXPECT_THAT(refusal, testing::AnyOf("taken", StartsWith("entry ")));
    EXPECT_EQ(refusal.find('\n'), std::string::npos);
    taken += refusal == "taken" ? 1 : 0;
  }
  EXPECT_GT(taken, 100);
  EXPECT_LT(taken, 10000);
}

// Lattices of several sizes are measured by threads of one process, each with objects of its own.
TEST(Measurements, OfSeveralThreadsAreThoseOfOne) {
  const auto rows = [](unsigned seed) {
    std::string text;
    for (int side = 1; side < 40; ++side) {
      const Snapshot lattice = randomLattice(side, side + 1, 3, seed);
      Measurements measurements("structure,clusters,correlation,kept", lattice);
      text += measurements.csvRow(0, lattice);
    }
    return text;
  };
  std::vector<std::string> found(4);
  std::vector<std::thread> threads;
  for (unsigned k = 0; k < found.size(); ++k) threads.emplace_back([&, k] { found[k] = rows(k); });
  for (auto& thread : threads) thread.join();
  for (unsigned k = 0; k < found.size(); ++k) EXPECT_EQ(found[k], rows(k));
}

TEST(Measurements, RefuseALatticeOfAnotherShape) {
  Measurements measurements("counts", latticeOf({"0012", "0022"}, 3));
  EXPECT_THROW(measurements.measure(latticeOf({"001", "002"}, 3)), MeasureError);
  EXPECT_THROW(measurements.measure(latticeOf({"0011", "0011"}, 2)), MeasureError);
  EXPECT_THROW(measurements.measure(latticeOf({"00120022"}, 3)), MeasureError);
  EXPECT_EQ(measurements.csvRow(1, latticeOf({"0000", "0000"}, 3)), "1,8,0,0\n");
}

/// FNV-1a, as 64 bits.
std::uint64_t hashOf(const std::string& text) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
  return hash;
}

// Recorded with GCC on x86-64. The rows were the same with clang and its library, with the vector
// instructions of the machine, and with plain sums instead of FFTW; those of the smaller lattices also on
// 64-bit ARM.
TEST(Measurements, GiveTheSameBytesOnEveryMachine) {
  std::vector<Snapshot> lattices = randomLattices();
  for (const int numTypes : {2, 3}) lattices.push_back(randomLattice(254, 256, numTypes, 5));
  std::string rows;
  for (const Snapshot& lattice : lattices) {
    const std::string list = "counts,energy,contacts,clusters,kept,correlation,structure";
    Measurements measurements(lattice.numTypes > 1 ? list + ",order:0:1" : list, lattice);
    rows += measurements.csvHeader() + measurements.csvRow(1, lattice);
  }
  EXPECT_EQ(hashOf(rows), 16939584762097631186U);
}

TEST(Measurements, KeepAStateOnlyWhereItIsNeeded) {
  const Snapshot lattice = randomLattice(5, 4, 3, 1);
  const auto stateOf = [&](const char* list) { return Measurements(list, lattice).state(); };
  EXPECT_LT(stateOf("counts,energy,contacts,clusters,order:0:1,correlation,structure").size(), 100U);
  EXPECT_GE(stateOf("counts,kept").size(), 2 * 20U);
}

TEST(Measurements, RefuseAStateOfAnotherList) {
  const Snapshot lattice = randomLattice(5, 4, 3, 1);
  const std::string state = Measurements("counts,kept", lattice).state();
  for (const char* list : {"counts", "kept", "kept,counts", "counts,kept,energy"}) {
    Measurements measurements(list, lattice);
    EXPECT_THROW(measurements.restore(state), MeasureError) << list;
  }
}

}  // namespace
}  // namespace quorvane
