#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>

#include "engine/Relaxed.h"

namespace quorvane {

/// The additive feedback generator of glibc's `rand`: r[i] = r[i-3] + r[i-31] modulo 2^32, of which the upper
/// 31 bits are the value. The state is private, so other code of the process cannot disturb it.
class AdditiveFeedback {
 public:
  /// Draws with the position cached in a register; the destructor stores it.
  class Reader {
   public:
    /// The most draws between two calls of makeRoom.
    static constexpr std::ptrdiff_t kRoom = 8;

    explicit Reader(AdditiveFeedback& generator)
        : generator_(generator), next_(generator.words_ + generator.end_) {}
    ~Reader() { generator_.end_ = static_cast<std::uint32_t>(position()); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    void makeRoom() {
      if (next_ > generator_.words_ + (kLength - kRoom)) [[unlikely]]
        next_ = generator_.words_ + generator_.rewind(position());
#ifndef NDEBUG
      room_ = kRoom;
#endif
    }

    /// The next value times two: the word without its lowest bit, which is no part of the value.
    std::uint32_t nextTimesTwo() {
#ifndef NDEBUG
      assert(room_-- > 0 && "more than kRoom draws since makeRoom");
#endif
      const std::uint32_t word = next_[-3] + next_[-kLag];
      *next_++ = word;
      return word & ~1u;
    }

   private:
    std::ptrdiff_t position() const { return next_ - generator_.words_; }

    AdditiveFeedback& generator_;
    Relaxed<std::uint32_t>* next_;
#ifndef NDEBUG
    std::ptrdiff_t room_ = 0;
#endif
  };

  /// Starts the sequence that `srand(seed)` starts. seed: 1 to 2^31 - 1.
  void seed(std::int32_t seed);

  /// The next value, 0 to 2^31 - 1.
  std::uint32_t next();

  /// Values drawn since the generator was made, with the 310 that each seed discards. A Reader's count when
  /// it ends.
  std::int64_t taken() const { return leftBehind_ + (end_ - kLag); }

  static constexpr std::ptrdiff_t kLag = 31;
  /// Everything that later values depend on: the last 31 words, the newest last.
  using Words = std::array<std::uint32_t, kLag>;
  Words lastWords() const;
  void goOnFrom(const Words& words);

 private:
  /// The last 31 words are those before end_. Near the end of the array they are moved to its beginning, once
  /// in some 300 draws; a ring buffer would cost every draw a few instructions.
  static constexpr std::ptrdiff_t kLength = 320;

  /// Moves the 31 words before end to the beginning and returns the index after them.
  std::ptrdiff_t rewind(std::ptrdiff_t end);

  Relaxed<std::uint32_t> words_[kLength];
  Relaxed<std::uint32_t> end_ = kLag;
  /// Values drawn before the one at index kLag. It changes where the array is full or seeded, so that
  /// counting costs a draw nothing.
  Relaxed<std::int64_t> leftBehind_;
};

}  // namespace quorvane
