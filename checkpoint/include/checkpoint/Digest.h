#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

struct XXH3_state_s;

namespace quorvane {

/// 128 bits that differ between different texts, except by chance. No protection against forgery.
using Digest = std::array<std::uint8_t, 16>;

/// Computes the digest of a text that comes piece by piece, by XXH3. The same on every machine.
class DigestOf {
 public:
  DigestOf();
  /// Throws std::bad_alloc, as the other constructor does.
  explicit DigestOf(std::string_view text) : DigestOf() { add(text); }

  void add(std::string_view piece);
  /// Of everything so far; more may be added afterwards.
  Digest value() const;

 private:
  struct Free {
    void operator()(XXH3_state_s* state) const;
  };
  std::unique_ptr<XXH3_state_s, Free> state_;
};

}  // namespace quorvane
