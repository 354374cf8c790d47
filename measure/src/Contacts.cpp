#include "Bonds.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

class Contacts : public Observable {
 public:
  explicit Contacts(int numTypes) : numTypes_(numTypes) {}

  std::vector<std::string> columns() const override {
    std::vector<std::string> names;
    for (int a = 0; a < numTypes_; ++a)
      for (int b = a; b < numTypes_; ++b)
        names.push_back("contacts_" + std::to_string(a) + "_" + std::to_string(b));
    return names;
  }

  void measure(const Snapshot& snapshot, Row& row) override {
    const Bonds bonds = bondsOf(snapshot);
    const auto numTypes = static_cast<std::size_t>(numTypes_);
    for (std::size_t a = 0; a < numTypes; ++a)
      for (std::size_t b = a; b < numTypes; ++b) row.add(bonds.between[a][b]);
  }

 private:
  int numTypes_;
};

std::unique_ptr<Observable> makeContacts(const Snapshot& first, std::span<const int> /*types*/) {
  return std::make_unique<Contacts>(first.numTypes);
}

}  // namespace

extern const ObservableKind kContacts;
constexpr ObservableKind kContacts{
    .name = "contacts",
    .arguments = "",
    .columns = "contacts_a_b for all types a <= b",
    .definition =
        "The number of pairs of neighbouring sites of types a and b: eight directions, wrapped, "
        "each pair once, so that all contacts together are 4 N. On a lattice of side 2 two sites "
        "are neighbours twice, and on one of side 1 a site is its own neighbour; such pairs count "
        "as often.",
    .paper = "",
    .cost = "N",
    .make = makeContacts,
};

}  // namespace quorvane
