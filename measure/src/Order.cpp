#include "TypeCounts.h"
#include "measure/Registry.h"

namespace quorvane {
namespace {

class Order : public Observable {
 public:
  Order(int a, int b) : a_(a), b_(b) {}

  std::vector<std::string> columns() const override {
    return {"order_" + std::to_string(a_) + "_" + std::to_string(b_)};
  }

  void measure(const Snapshot& snapshot, Row& row) override {
    const auto counts = countsOf(snapshot);
    const auto of = [&](int type) { return counts[static_cast<std::size_t>(type)]; };
    row.add(ratio(of(a_) - of(b_), snapshot.numSites()));
  }

 private:
  int a_, b_;
};

std::unique_ptr<Observable> makeOrder(const Snapshot& /*first*/, std::span<const int> types) {
  return std::make_unique<Order>(types[0], types[1]);
}

}  // namespace

extern const ObservableKind kOrder;
constexpr ObservableKind kOrder{
    .name = "order",
    .arguments = ":a:b",
    .columns = "order_a_b",
    .definition =
        "(n_a - n_b) / N for the numbers of sites n of two types, which is the magnetisation per "
        "site of an Ising model.",
    .paper = "",
    .cost = "N for each type",
    .make = makeOrder,
};

}  // namespace quorvane
