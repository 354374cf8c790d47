#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "batch/Start.h"

/// A study: runs of one document over a grid of parameters, several for each point of the grid.
///
/// Points are numbered from 0 over the product of all axes, the last axis fastest; the sides of the lattice
/// are the first axis. Runs are numbered from 0: run = replica * points + point, so that all points grow
/// evenly and replicas can be added later without a change of earlier runs.
namespace quorvane {

/// A value that differs between points.
struct Axis {
  decltype(Setting::of) of = Setting::kRule;
  std::string name;                 ///< of the rule or the pixel type, or "#INDEX"
  std::string field;                ///< as in a Setting
  std::vector<std::string> values;  ///< at least one, as --set takes them
  int line = 0;                     ///< of the study file
};

struct Study {
  std::filesystem::path document;   ///< as the study file has it, from its folder
  std::int64_t sweeps = 0;          ///< of a run, 1 or more
  std::int64_t discard = 0;         ///< sweeps before the first measurement, 0 to sweeps
  std::int64_t every = 1;           ///< sweeps between measurements, 1 or more; divides sweeps
  std::int64_t replicas = 1;        ///< runs of a point, 1 or more
  std::int64_t seed = 1;            ///< of run 0; run r has seed + r
  std::string observables;          ///< as --observables takes them
  std::string series;               ///< observables whose means are kept for each measurement; empty if none
  std::vector<LatticeSides> sides;  ///< empty: those of the document
  std::vector<Share> fill;          ///< empty: the sites of the document
  std::vector<Axis> axes;

  /// Where it was read, for messages: the file as they name it, and lines.
  struct Source {
    std::string file;
    int document = 0, observables = 0, series = 0, fill = 0;
  } source;
};

/// The largest seed, and so the largest number of runs.
inline constexpr std::int64_t kLargestSeed = 2147483647;

std::int64_t numPoints(const Study& study);
std::int64_t numRuns(const Study& study);

/// The place of a point on each axis, that of the sides first if there are any.
std::vector<std::size_t> placesOf(const Study& study, std::int64_t point);

/// The seed, settings, sides and shares of a run.
Start startOf(const Study& study, std::int64_t run);

/// The names of the columns that tell points apart, and a point's values in them.
std::vector<std::string> settingNames(const Study& study);
std::vector<std::string> settingValues(const Study& study, std::int64_t point);

/// How often a run is measured for its averages: at the multiples of every from discard to sweeps.
std::int64_t numMeasurements(const Study& study);

/// Everything in a study that decides what a run of a given number gives, line by line. The number of
/// replicas does not, and of the document it is the content that does.
std::string identityOf(const Study& study);

/// A number as text that reads back to the same bits, as short as possible.
std::string shortest(double value);

}  // namespace quorvane
