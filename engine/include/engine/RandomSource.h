#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "engine/AdditiveFeedback.h"
#include "engine/PlatformRand.h"
#include "engine/Relaxed.h"

namespace quorvane {

/// A shuffle table of 97 slots in front of the C library's generator (Bays and Durham, ACM Trans. Math.
/// Software 2, 59, 1976; `ran0` of Press et al., Numerical Recipes, 1986), seeded at the first draw, with 10
/// unless startAnew was called.
///
/// Equals bit for bit `srand(10)` and `rand()` drawn through the table. If the C library's generator is
/// glibc's, the values come from `AdditiveFeedback`, because other code in the process (a graphics driver,
/// for example) may call `srand` and `rand` too; lookAtPlatform checks this. For another generator, draws
/// come from `rand` itself.
class RandomSource {
 public:
  static constexpr double maxran = 2147483648.0;

  constexpr RandomSource() = default;
  explicit constexpr RandomSource(PlatformRand platform) : platform_(platform) {}

  /// The next value, 0 to 2^31 - 1 (less if RAND_MAX is less). The first call seeds the source.
  std::uint32_t next() {
    start();
    if (!own_) [[unlikely]]
      return nextOfPlatform();
    Stream stream(*this);
    stream.makeRoom();
    return stream.nextTimesTwo() >> 1;
  }

  /// Consecutive draws with the state cached in registers; the destructor stores it. Concurrent draws
  /// elsewhere disturb the order, never memory or range. Only for a source that has started and drawsItself.
  class Stream {
   public:
    /// The most draws between two calls of makeRoom.
    static constexpr std::ptrdiff_t kRoom = AdditiveFeedback::Reader::kRoom;

    explicit Stream(RandomSource& source)
        : source_(source), feedback_(source.generator_), selected_(source.selected_) {}
    ~Stream() { source_.selected_ = selected_; }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    /// To be called before the first draw and after every kRoom draws.
    void makeRoom() { feedback_.makeRoom(); }

    /// The next value times two: even and below 2^32.
    std::uint32_t nextTimesTwo() {
      Entry& entry = source_.v_[selected_];
      selected_ = entry.selects;
      const std::uint32_t value = entry.timesTwo;
      entry.put(feedback_.nextTimesTwo());
      return value;
    }

    /// The next value, of which real() is the 2^31st part.
    std::uint32_t whole() { return nextTimesTwo() >> 1; }
    /// fRandReal().
    double real() { return static_cast<std::int64_t>(nextTimesTwo()) / (2 * maxran); }
    /// fRandInt(n) - 1, 0 to n - 1; n is 1 to 2^22.
    std::uint32_t below(std::uint32_t n) {
      return static_cast<std::uint32_t>((std::uint64_t{nextTimesTwo()} * n) >> 32);
    }

   private:
    RandomSource& source_;
    AdditiveFeedback::Reader feedback_;
    std::uint32_t selected_;
  };

  /// Compares the platform's generator with AdditiveFeedback, unless done already; the first draw does so at
  /// the latest. Draws nothing from the source. Takes longer while other threads use the platform's
  /// generator, so programs call it before they start threads.
  void lookAtPlatform();

  /// Makes the next draw the first one after a seed, as `srand(seed)` would start it. seed: 1 to 2^31 - 1.
  void startAnew(std::int32_t newSeed) {
    seed = newSeed;
    iff = 0;
  }

  /// Seeds the source if nothing has been drawn from it yet.
  void start() {
    if (iff == 0) [[unlikely]]
      initialise();
  }

  /// The slot that the last value y selects, 1 to 97: truncation of 1.0 + 97.0 * y / maxran. The product has
  /// at most 38 bits and the division is by a power of two, so integers give exactly that.
  static constexpr std::uint32_t slot(std::uint32_t y) { return 1 + selectedBy(2 * y); }

  /// Draws made from this source since it was made, over all seeds. What fills the table after a seed is no
  /// draw. Those of a Stream count when it ends.
  std::int64_t drawsMade() const { return generator_.taken() - takenToStart_ + drawsOfPlatform_; }

  /// True once the platform's generator was found to equal AdditiveFeedback.
  bool drawsItself() const { return own_; }

  static constexpr std::uint32_t kSlots = 97;

  /// Everything that later draws depend on.
  struct State {
    AdditiveFeedback::Words feedback = {};
    std::array<std::uint32_t, kSlots> table = {};  ///< 0 to 2^31 - 1
    std::uint32_t selected = 0;                    ///< the slot of the next draw, below kSlots
  };

  /// The state, after seeding a source from which nothing has been drawn yet. None if the draws come from the
  /// platform's generator, whose state cannot be read.
  std::optional<State> state();
  /// Makes the next draw the one that would have come next where the state was taken, on any platform. Values
  /// must be in their ranges.
  void goOnFrom(const State& state);

 private:
  /// The slot that a value selects, less 1.
  static constexpr std::uint32_t selectedBy(std::uint32_t valueTimesTwo) {
    return static_cast<std::uint32_t>((std::uint64_t{kSlots} * valueTimesTwo) >> 32);
  }

  /// A value in the table. Each draw depends on the slot of the one before it, so the slot is computed when
  /// the value enters the table, off the critical path.
  struct Entry {
    Relaxed<std::uint32_t> timesTwo, selects;

    void put(std::uint32_t valueTimesTwo) {
      timesTwo = valueTimesTwo;
      selects = selectedBy(valueTimesTwo);
    }
  };

  std::uint32_t draw();
  std::uint32_t nextOfPlatform();
  void initialise();

  PlatformRand platform_;
  AdditiveFeedback generator_;
  Relaxed<bool> looked_;
  Relaxed<bool> own_;
  Relaxed<int> seed = 10;
  Relaxed<int> iff;
  Entry v_[kSlots];
  /// By the last value y.
  Relaxed<std::uint32_t> selected_;
  /// Values of generator_ that are no draws.
  Relaxed<std::int64_t> takenToStart_;
  Relaxed<std::int64_t> drawsOfPlatform_;
};

}  // namespace quorvane
