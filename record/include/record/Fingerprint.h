#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace quorvane {

/// What identifies a content: its size and its SHA-256 (FIPS 180-4).
struct Fingerprint {
  std::string sha256;  ///< 64 digits 0 to 9 and a to f
  std::int64_t bytes = 0;

  bool operator==(const Fingerprint&) const = default;
};

/// The fingerprint of a content that comes in pieces.
class Fingerprinting {
 public:
  Fingerprinting();
  Fingerprinting(Fingerprinting&&) noexcept;
  Fingerprinting& operator=(Fingerprinting&&) noexcept;
  ~Fingerprinting();

  void add(std::string_view piece);
  /// That of the pieces so far. More may follow.
  Fingerprint soFar() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

Fingerprint fingerprintOf(std::string_view content);

/// Reads a file in pieces, so that its size does not matter. Throws std::system_error, also for anything but
/// a regular file.
Fingerprint fingerprintOfFile(const std::filesystem::path& file);

}  // namespace quorvane
