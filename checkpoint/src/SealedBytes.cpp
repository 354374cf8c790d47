#include "checkpoint/SealedBytes.h"

#include <algorithm>

#include "checkpoint/Bytes.h"
#include "checkpoint/Digest.h"

namespace quorvane {
namespace {

/// Not a text, and changed by programs that convert ends of lines.
constexpr std::string_view kMagic("\x8fQVC\r\n\x1a\n", 8);
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kHeaderBytes = kMagic.size() + sizeof(std::uint32_t) + sizeof(std::uint64_t);
constexpr std::size_t kDigestBytes = sizeof(Digest);

void requireKind(std::string_view file) {
  const std::size_t known = std::min(file.size(), kMagic.size());
  if (file.substr(0, known) != kMagic.substr(0, known)) throw CheckpointError("is no checkpoint");
  if (file.empty()) throw CheckpointError("is empty");
  if (file.size() < kHeaderBytes) throw CheckpointError("is cut short");
}

void requireVersion(std::uint32_t version) {
  ByteReader::require(version != 0, "there is no version 0");
  if (version > kVersion)
    throw CheckpointError("was written by a newer version of this program (format " +
                          std::to_string(version) + ", this one reads " + std::to_string(kVersion) + ")");
}

}  // namespace

std::string seal(std::string_view content) {
  ByteWriter header;
  header.value(kVersion);
  header.value(content);
  std::string file = std::string(kMagic) + header.bytes();
  const Digest digest = DigestOf(file).value();
  return file.append(digest.begin(), digest.end());
}

std::string_view contentOfSealed(std::string_view file) {
  requireKind(file);
  ByteReader header(file.substr(kMagic.size()));
  std::uint32_t version = 0;
  std::uint64_t length = 0;
  header.value(version);
  header.value(length);
  requireVersion(version);
  const std::size_t behindHeader = file.size() - kHeaderBytes;
  if (behindHeader < kDigestBytes || length > behindHeader - kDigestBytes)
    throw CheckpointError("is cut short");
  ByteReader::require(length == behindHeader - kDigestBytes, "it is too long");
  const std::size_t sealed = file.size() - kDigestBytes;
  const Digest digest = DigestOf(file.substr(0, sealed)).value();
  const std::string_view stored = file.substr(sealed);
  ByteReader::require(
      std::equal(digest.begin(), digest.end(), stored.begin(),
                 [](std::uint8_t byte, char c) { return byte == static_cast<std::uint8_t>(c); }),
      "its checksum differs");
  return file.substr(kHeaderBytes, static_cast<std::size_t>(length));
}

}  // namespace quorvane
