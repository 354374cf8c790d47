#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "measure/Snapshot.h"

namespace quorvane {

/// A set of sites of one type that neighbours (eight directions, wrapped) connect.
struct Cluster {
  int type;
  std::int64_t sites;
  bool closesAlongI, closesAlongJ;  ///< a path in it returns to its first site after going round the lattice
};

/// Finds the clusters of lattices; keeps its memory.
///
/// First labels the lattice without its wrapping, column by column, as in J. Hoshen and R. Kopelman, Phys.
/// Rev. B 14, 3438 (1976). Then it joins the labels across the edges, where each keeps its displacement from
/// the root of its tree; a bond within a cluster whose ends are displaced otherwise closes around the
/// lattice: J. Machta et al., Phys. Rev. E 54, 1332 (1996).
class ClusterFinder {
 public:
  /// In the order of the labels. Valid until the next call.
  const std::vector<Cluster>& clustersOf(const Snapshot& snapshot);

 private:
  using Label = std::uint32_t;
  /// Those at even and at odd j. An increment has to wait for the one before it in the same place.
  using SitesOfLabel = std::array<std::uint32_t, 2>;
  struct Columns;

  /// How often a path goes round the lattice along i and along j.
  struct Turns {
    int i, j;
    Turns operator+(Turns other) const { return {i + other.i, j + other.j}; }
    Turns operator-(Turns other) const { return {i - other.i, j - other.j}; }
  };
  struct Place {
    Label root;
    Turns turns;  ///< from the root
  };

  void labelLattice(const Snapshot& snapshot);
  void labelColumn(const Columns& columns);
  Label newLabel(std::uint8_t type);
  Label rootOf(Label label);
  Label joined(Label a, Label b);
  void addUpLabels();
  void joinAcrossEdges(const Snapshot& snapshot);
  void joinAcross(const Snapshot& snapshot, int i, int j, int stepI, int stepJ);
  Place placeOf(Label label);
  static std::size_t labelAt(const Snapshot& snapshot, int i, int j);

  std::vector<Label> labels_;  ///< of the sites, at labelAt
  Label numLabels_ = 0;
  std::vector<Label> parents_;  ///< of the labels; a root is its own
  std::vector<SitesOfLabel> sites_;
  std::vector<std::uint8_t> types_;  ///< of the labels
  std::vector<Turns> turns_;         ///< of the labels from their parents
  std::vector<Cluster> of_;          ///< those of the roots
  std::vector<Cluster> clusters_;
};

}  // namespace quorvane
