#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/PlatformRand.h"
#include "engine/Relaxed.h"

namespace quorvane {

/// The additive feedback generator that glibc's `rand` is: r[i] = r[i-3] + r[i-31] modulo 2^32, of which the
/// upper 31 bits are the result. Its state is its own, so nothing else in the process can disturb it.
class AdditiveFeedback {
 public:
  /// Goes on from where the generator stands with the position at hand rather than in memory, and puts it
  /// back at its end.
  class Reader {
   public:
    /// Steps that are possible after one makeRoom.
    static constexpr std::ptrdiff_t kRoom = 8;

    explicit Reader(AdditiveFeedback& generator)
        : generator_(generator), next_(generator.words_ + generator.end_) {}
    ~Reader() { generator_.end_ = static_cast<std::uint32_t>(position()); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    void makeRoom() {
      if (next_ > generator_.words_ + (kLength - kRoom)) [[unlikely]]
        next_ = generator_.words_ + generator_.rewind(position());
    }

    /// The next value with its lowest bit, which is no part of the result, as 0: twice the result.
    std::uint32_t twice() {
      const std::uint32_t value = next_[-3] + next_[-kLag];
      *next_++ = value;
      return value & ~1u;
    }

   private:
    std::ptrdiff_t position() const { return next_ - generator_.words_; }

    AdditiveFeedback& generator_;
    Relaxed<std::uint32_t>* next_;
  };

  /// Starts the sequence that `srand(seed)` starts. seed: 1 to 2^31 - 1.
  void seed(std::int32_t seed);

  /// The next value, 0 to 2^31 - 1.
  std::uint32_t next() {
    Reader reader(*this);
    reader.makeRoom();
    return reader.twice() >> 1;
  }

 private:
  static constexpr std::ptrdiff_t kLag = 31;
  /// The last 31 words stand before end_. When the end of the array is near they move to its beginning, which
  /// is so rare that it costs nothing, where a ring would cost every step a few instructions.
  static constexpr std::ptrdiff_t kLength = 320;

  /// Moves the last 31 words before end to the beginning and returns where they end there.
  std::ptrdiff_t rewind(std::ptrdiff_t end);

  Relaxed<std::uint32_t> words_[kLength];
  Relaxed<std::uint32_t> end_ = kLag;
};

/// A shuffle table of 97 slots in front of the C library's generator (Bays and Durham, ACM Trans. Math.
/// Software 2, 59, 1976; `ran0` of Press et al., Numerical Recipes, 1986), seeded with 10 at the first draw.
///
/// Yields bit for bit what `srand(10)` and `rand()` would yield through the table. Where the C library's
/// generator is glibc's, the values come from `AdditiveFeedback`, because other code in the process (a
/// graphics driver, say) may call `srand` and `rand` too; lookAtPlatform checks this, and where the generator
/// is another, draws come from `rand` itself.
class RandomSource {
 public:
  static constexpr double maxran = 2147483648.0;

  constexpr RandomSource() = default;
  explicit constexpr RandomSource(PlatformRand platform) : platform_(platform) {}

  /// The next value, 0 to 2^31 - 1 (less where RAND_MAX is less). Seeds the source when it is the first.
  std::uint32_t next() {
    start();
    if (!own_) [[unlikely]]
      return take(entryOf(2 * static_cast<std::uint32_t>(platform_.rand())));
    Stream stream(*this);
    stream.makeRoom();
    return stream.twice() >> 1;
  }

  /// Many draws in a row, with the last one at hand rather than in memory. The source stands where the draws
  /// have led once the stream is gone; one that draws meanwhile disturbs the order, never memory or range.
  /// Only for a source that has started and drawsItself.
  class Stream {
   public:
    static constexpr std::ptrdiff_t kRoom = AdditiveFeedback::Reader::kRoom;

    explicit Stream(RandomSource& source) : source_(source), feedback_(source.generator_), y_(source.y) {}
    ~Stream() { source_.y = y_; }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    /// Must be called before the first draw and after every kRoom draws.
    void makeRoom() { feedback_.makeRoom(); }

    /// Twice the next value, which is even and below 2^32.
    std::uint32_t twice() {
      auto& place = source_.v[slotOf(y_)];
      y_ = place;
      place = entryOf(feedback_.twice());
      return twiceOf(y_);
    }

    /// fRandReal().
    double real() { return static_cast<std::int64_t>(twice()) / (2 * maxran); }
    /// fRandInt(n) - 1, 0 to n - 1; n is 1 to 2^22.
    std::uint32_t below(std::uint32_t n) {
      return static_cast<std::uint32_t>((std::uint64_t{twice()} * n) >> 32);
    }

   private:
    RandomSource& source_;
    AdditiveFeedback::Reader feedback_;
    std::uint64_t y_;
  };

  /// Finds out whether the platform's generator is the one computed here, if nobody has yet; the first draw
  /// does so at the latest. Draws nothing from the source. Where other threads use the platform's generator
  /// the answer takes longer, so a program asks before there are any.
  void lookAtPlatform();

  /// Seeds the source if nothing has drawn from it yet.
  void start() {
    if (iff == 0) [[unlikely]]
      initialise();
  }

  /// The slot that the last value y selects, 1 to 97: truncation of 1.0 + 97.0 * y / maxran. The product has
  /// at most 38 bits and the division is by a power of two, so whole numbers give exactly that.
  static constexpr std::uint32_t slot(std::uint32_t y) {
    return static_cast<std::uint32_t>(slotOf(entryOf(2 * y)));
  }

  /// True once the platform's generator has been found to be the one computed here.
  bool drawsItself() const { return own_; }

 private:
  static constexpr std::uint32_t kSlots = 97;

  /// Twice a value, with the slot that it selects, less 1, in the upper half. Each draw waits for the slot of
  /// the one before it, so the slot is found when the value enters the table and nothing waits for it.
  using Entry = std::uint64_t;
  static constexpr Entry entryOf(std::uint32_t twice) {
    constexpr Entry upperHalf = 0xFFFFFFFF00000000;
    return (Entry{kSlots} * twice & upperHalf) | twice;
  }
  static constexpr std::uint64_t slotOf(Entry entry) { return 1 + (entry >> 32); }
  static constexpr std::uint32_t twiceOf(Entry entry) { return static_cast<std::uint32_t>(entry); }

  std::uint32_t draw() { return own_ ? generator_.next() : static_cast<std::uint32_t>(platform_.rand()); }
  std::uint32_t take(Entry fresh);
  void initialise();

  PlatformRand platform_;
  AdditiveFeedback generator_;
  Relaxed<bool> looked_;
  Relaxed<bool> own_;
  Relaxed<int> seed = 10;
  Relaxed<int> iff;
  /// Slots 1 to 97; slot 0 is not used.
  Relaxed<Entry> v[kSlots + 1];
  Relaxed<Entry> y;
};

}  // namespace quorvane
