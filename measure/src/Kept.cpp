#include "ByteText.h"
#include "CountEqual.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

using Sites = std::vector<std::uint8_t>;

std::string bytesOf(const Sites& sites) { return {sites.begin(), sites.end()}; }

/// Replaces elements by as many bytes, none larger than the limit.
void readBytes(Sites& elements, std::string_view bytes, std::uint8_t largest) {
  if (bytes.size() != elements.size())
    throw MeasureError("the stored state of \"kept\" is of a lattice of another size");
  for (std::size_t k = 0; k < bytes.size(); ++k) {
    elements[k] = static_cast<std::uint8_t>(bytes[k]);
    if (elements[k] > largest) throw MeasureError("the stored state of \"kept\" is damaged");
  }
}

class Kept : public Observable {
 public:
  explicit Kept(const Snapshot& start)
      : start_(start.sites), now_(start.sites.size()), always_(start.sites.size(), 1) {}

  std::vector<std::string> columns() const override { return {"kept", "never"}; }

  void measure(const Snapshot& snapshot, Row& row) override {
    // Bytes may alias anything, so the loops are compiled to vectors only with pointers of their own.
    const std::uint8_t *sites = snapshot.sites.data(), *start = start_.data();
    std::uint8_t *now = now_.data(), *always = always_.data();
    const std::size_t numSites = start_.size();
    for (std::size_t k = 0; k < numSites; ++k) now[k] = sites[k] == start[k] ? 1 : 0;
    for (std::size_t k = 0; k < numSites; ++k) always[k] &= now[k];
    for (const std::uint8_t* same : {now, always})
      row.add(ratio(countEqual(same, numSites, 1), snapshot.numSites()));
  }

  std::string state() const override {
    std::string bytes;
    appendBlock(bytes, bytesOf(start_));
    appendBlock(bytes, bytesOf(always_));
    return bytes;
  }

  void restore(std::string_view state) override {
    readBytes(start_, takeBlock(state), kMaxPixelTypes - 1);
    readBytes(always_, takeBlock(state), 1);
    if (!state.empty()) throw MeasureError("the stored state of \"kept\" is too long");
  }

 private:
  Sites start_;
  Sites now_;     ///< 1 for a site that holds its first type
  Sites always_;  ///< 1 for a site that held its first type at every measurement
};

std::unique_ptr<Observable> makeKept(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Kept>(first);
}

}  // namespace

extern const ObservableKind kKept;
constexpr ObservableKind kKept{
    .name = "kept",
    .arguments = "",
    .columns = "kept, never",
    .definition =
        "The share of sites that hold the type they held at the start, and the share of those that "
        "held it at every measurement, whose change was never seen. A site that changes back "
        "between two measurements counts in both.",
    .paper =
        "B. Derrida, A. J. Bray and C. Godreche, J. Phys. A 27, L357 (1994), for the second one, the "
        "persistence.",
    .cost = "N",
    .make = makeKept,
};

}  // namespace quorvane
