#include "ClusterFinder.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

/// Stands for the sites beyond the edges.
constexpr std::uint8_t kNoType = 255;

struct Wrapped {
  int at;
  int turns;
};

Wrapped wrapped(int x, int size) {
  if (x < 0) return {.at = x + size, .turns = -1};
  if (x >= size) return {.at = x - size, .turns = 1};
  return {.at = x, .turns = 0};
}

}  // namespace

/// A column and the one before it, with one site more at both ends, so that no site has to ask whether it is
/// at an edge.
struct ClusterFinder::Columns {
  const std::uint8_t *types, *typesBefore;
  Label* labels;
  const Label* labelsBefore;
  std::size_t height;
};

const std::vector<Cluster>& ClusterFinder::clustersOf(const Snapshot& snapshot) {
  labelLattice(snapshot);
  addUpLabels();
  joinAcrossEdges(snapshot);
  clusters_.clear();
  for (Label label = 0; label < numLabels_; ++label)
    if (parents_[label] == label) clusters_.push_back(of_[label]);
  return clusters_;
}

void ClusterFinder::labelLattice(const Snapshot& snapshot) {
  const auto height = static_cast<std::size_t>(snapshot.jmax), stride = height + 2;
  labels_.resize(stride * (static_cast<std::size_t>(snapshot.imax) + 1));
  numLabels_ = 0;
  parents_.resize(snapshot.sites.size());
  sites_.resize(snapshot.sites.size());
  types_.resize(snapshot.sites.size());
  std::vector<std::uint8_t> types(stride, kNoType), typesBefore(stride, kNoType);
  Columns columns{.types = nullptr,
                  .typesBefore = nullptr,
                  .labels = labels_.data() + 1,
                  .labelsBefore = nullptr,
                  .height = height};
  for (int i = 0; i < snapshot.imax; ++i) {
    types.swap(typesBefore);
    std::copy_n(snapshot.column(i), height, types.begin() + 1);
    columns.types = types.data() + 1;
    columns.typesBefore = typesBefore.data() + 1;
    columns.labelsBefore = columns.labels;
    columns.labels += stride;
    labelColumn(columns);
  }
}

/// The label of a site is that of a neighbour: of the last site of its column, or of three of the column
/// before. Of these a middle one of its type is a neighbour of all others, which have been joined with it
/// already. The labels are read and chosen without branches, half of which would be mispredicted on a random
/// lattice, and through pointers, since this takes most of the time.
void ClusterFinder::labelColumn(const Columns& columns) {
  // What is beside: the last or the lower one 1, the upper one 2, the middle one 4.
  constexpr unsigned nothing = 0, lowerAndUpper = 3;
  constexpr unsigned isSpecial = 1U << nothing | 1U << lowerAndUpper;
  const auto choose = [](bool condition, Label yes, Label no) {
    return no ^ ((no ^ yes) & (0 - Label{condition}));
  };
  SitesOfLabel* sites = sites_.data();
  for (std::size_t j = 0; j < columns.height; ++j) {
    const std::uint8_t *types = columns.types + j, *before = columns.typesBefore + j;
    const Label *labels = columns.labels + j, *labelsBefore = columns.labelsBefore + j;
    const std::uint8_t type = types[0];
    const bool isLast = types[-1] == type, isBelow = before[-1] == type, isMiddle = before[0] == type;
    const bool isAbove = before[1] == type;
    Label label = choose(isBelow, labelsBefore[-1], labelsBefore[1]);
    label = choose(isLast, labels[-1], label);
    label = choose(isMiddle, labelsBefore[0], label);
    const unsigned beside =
        unsigned{isLast} | unsigned{isBelow} | unsigned{isAbove} << 1 | unsigned{isMiddle} << 2;
    if ((isSpecial >> beside & 1) != 0)
      label = beside == nothing ? newLabel(type) : joined(label, labelsBefore[1]);
    columns.labels[j] = label;
    ++sites[label][j % 2];
  }
}

ClusterFinder::Label ClusterFinder::newLabel(std::uint8_t type) {
  parents_[numLabels_] = numLabels_;
  sites_[numLabels_] = {};
  types_[numLabels_] = type;
  return numLabels_++;
}

ClusterFinder::Label ClusterFinder::rootOf(Label label) {
  Label* parents = parents_.data();
  while (parents[label] != label) {
    parents[label] = parents[parents[label]];
    label = parents[label];
  }
  return label;
}

/// The smaller root becomes that of both, so that a parent is never larger than its child.
ClusterFinder::Label ClusterFinder::joined(Label a, Label b) {
  a = rootOf(a);
  b = rootOf(b);
  if (a > b) std::swap(a, b);
  parents_[b] = a;
  return a;
}

/// Makes every label a child of its root, and its sites part of the root's cluster.
void ClusterFinder::addUpLabels() {
  of_.resize(numLabels_);
  for (Label label = 0; label < numLabels_; ++label) {
    const Label root = parents_[parents_[label]];
    parents_[label] = root;
    if (root == label)
      of_[root] = {.type = types_[root], .sites = 0, .closesAlongI = false, .closesAlongJ = false};
    of_[root].sites += sites_[label][0] + sites_[label][1];
  }
  turns_.assign(numLabels_, {.i = 0, .j = 0});
}

void ClusterFinder::joinAcrossEdges(const Snapshot& snapshot) {
  const int lastI = snapshot.imax - 1, lastJ = snapshot.jmax - 1;
  for (int j = 0; j <= lastJ; ++j)
    for (const int stepJ : {-1, 0, 1}) joinAcross(snapshot, lastI, j, 1, stepJ);
  for (int i = 0; i <= lastI; ++i)
    for (const int stepI : {-1, 0, 1}) joinAcross(snapshot, i, lastJ, stepI, 1);
}

void ClusterFinder::joinAcross(const Snapshot& snapshot, int i, int j, int stepI, int stepJ) {
  const Wrapped toI = wrapped(i + stepI, snapshot.imax), toJ = wrapped(j + stepJ, snapshot.jmax);
  if (snapshot.column(i)[j] != snapshot.column(toI.at)[toJ.at]) return;
  const Place here = placeOf(labels_[labelAt(snapshot, i, j)]);
  const Place there = placeOf(labels_[labelAt(snapshot, toI.at, toJ.at)]);
  const Turns difference = here.turns + Turns{toI.turns, toJ.turns} - there.turns;
  Cluster& cluster = of_[here.root];
  if (here.root == there.root) {
    cluster.closesAlongI |= difference.i != 0;
    cluster.closesAlongJ |= difference.j != 0;
    return;
  }
  const Cluster& other = of_[there.root];
  cluster.sites += other.sites;
  cluster.closesAlongI |= other.closesAlongI;
  cluster.closesAlongJ |= other.closesAlongJ;
  parents_[there.root] = here.root;
  turns_[there.root] = difference;
}

/// Also makes the label a child of its root.
ClusterFinder::Place ClusterFinder::placeOf(Label label) {
  Place place{.root = label, .turns = {.i = 0, .j = 0}};
  while (parents_[place.root] != place.root) {
    place.turns = place.turns + turns_[place.root];
    place.root = parents_[place.root];
  }
  if (place.root != label) {
    parents_[label] = place.root;
    turns_[label] = place.turns;
  }
  return place;
}

std::size_t ClusterFinder::labelAt(const Snapshot& snapshot, int i, int j) {
  const auto stride = static_cast<std::size_t>(snapshot.jmax) + 2;
  return (static_cast<std::size_t>(i) + 1) * stride + static_cast<std::size_t>(j) + 1;
}

}  // namespace quorvane
