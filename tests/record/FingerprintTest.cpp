#include <gtest/gtest.h>
#include <sys/stat.h>

#include <system_error>

#include "Files.h"
#include "Process.h"
#include "record/Fingerprint.h"

namespace quorvane {
namespace {

/// The hash that another program gives.
std::string hashBySystem(const std::filesystem::path& file) {
  const Finished finished = run("/usr/bin/sha256sum", {"-b", file});
  EXPECT_EQ(finished.status, 0) << finished.err;
  return finished.out.substr(0, 64);
}

TEST(Fingerprint, OfKnownTextsIsThatOfTheStandard) {
  EXPECT_EQ(fingerprintOf("").sha256, "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(fingerprintOf("abc").sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(fingerprintOf("abc").bytes, 3);
}

TEST(Fingerprint, OfAFileIsThatOfSha256sum) {
  const TemporaryFolder folder;
  const auto file = folder / "file";
  std::string content;
  // Around the block of the hash, and around that of reading.
  for (const std::size_t size : {0u, 1u, 55u, 56u, 63u, 64u, 65u, 1000u, 65535u, 65536u, 65537u, 200'000u}) {
    while (content.size() < size) content.push_back(static_cast<char>(content.size() * 131 % 251));
    put(file, content);
    const Fingerprint fingerprint = fingerprintOfFile(file);
    EXPECT_EQ(fingerprint.sha256, hashBySystem(file)) << size;
    EXPECT_EQ(fingerprint.bytes, static_cast<std::int64_t>(size));
    EXPECT_EQ(fingerprintOf(content), fingerprint);
  }
}

TEST(Fingerprint, OfPiecesIsThatOfTheWhole) {
  Fingerprinting fingerprinting;
  std::string whole;
  for (int piece = 0; piece < 100; ++piece) {
    const std::string text(static_cast<std::size_t>(piece), static_cast<char>('a' + piece % 26));
    fingerprinting.add(text);
    whole += text;
    EXPECT_EQ(fingerprinting.soFar(), fingerprintOf(whole));
  }
}

TEST(Fingerprint, IsRefusedForWhatIsNoFile) {
  const TemporaryFolder folder;
  const auto fifo = folder / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  for (const auto& path : {folder / "missing", fifo, folder.path(), std::filesystem::path("/dev/zero")})
    EXPECT_THROW(fingerprintOfFile(path), std::system_error) << path;
}

}  // namespace
}  // namespace quorvane
