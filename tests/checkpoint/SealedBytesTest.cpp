#include <gtest/gtest.h>

#include "checkpoint/CheckpointError.h"
#include "checkpoint/Digest.h"
#include "checkpoint/SealedBytes.h"

namespace quorvane {
namespace {

std::string whyRefused(const std::string& file) {
  try {
    contentOfSealed(file);
    return "";
  } catch (const CheckpointError& error) {
    return error.what();
  }
}

std::string withVersion(std::string file, char version) {
  file[8] = version;
  return file;
}

TEST(SealedBytes, GiveTheirContent) {
  for (const std::string& content : {std::string(), std::string("a"), std::string(100'000, '\0')})
    EXPECT_EQ(contentOfSealed(seal(content)), content);
}

TEST(SealedBytes, AreRefusedWithEveryBitChanged) {
  const std::string file = seal("content");
  for (std::size_t k = 0; k < file.size(); ++k)
    for (int bit = 0; bit < 8; ++bit) {
      std::string damaged = file;
      damaged[k] = static_cast<char>(damaged[k] ^ (1 << bit));
      EXPECT_NE(whyRefused(damaged), "") << k << ' ' << bit;
    }
}

TEST(SealedBytes, AreRefusedAtEveryOtherLength) {
  const std::string file = seal("content");
  EXPECT_EQ(whyRefused(""), "is empty");
  for (std::size_t size = 1; size < file.size(); ++size)
    EXPECT_EQ(whyRefused(file.substr(0, size)), "is cut short") << size;
  EXPECT_EQ(whyRefused(file + '\0'), "is damaged (it is too long)");
}

TEST(SealedBytes, SayWhatIsWrong) {
  const std::string file = seal("content");
  EXPECT_EQ(whyRefused("10\n10\n2\n"), "is no checkpoint");
  EXPECT_EQ(whyRefused("\x89PNG\r\n\x1a\n"), "is no checkpoint");
  EXPECT_EQ(whyRefused(withVersion(file, 2)),
            "was written by a newer version of this program (format 2, this one reads 1)");
  EXPECT_EQ(whyRefused(withVersion(file, 0)), "is damaged (there is no version 0)");
  std::string damaged = file;
  damaged[25] = 'X';
  EXPECT_EQ(whyRefused(damaged), "is damaged (its checksum differs)");
}

TEST(Digests, DoNotDependOnThePiecesAndAreThePublishedOnes) {
  DigestOf whole("one text in pieces"), pieces;
  for (const char* piece : {"one text", "", " in ", "pieces"}) pieces.add(piece);
  EXPECT_EQ(whole.value(), pieces.value());
  EXPECT_NE(whole.value(), DigestOf("one text in piecez").value());
  // XXH3 with 128 bits of nothing, with the highest byte first.
  const Digest ofNothing = {0x99, 0xaa, 0x06, 0xd3, 0x01, 0x47, 0x98, 0xd8,
                            0x60, 0x01, 0xc3, 0x24, 0x46, 0x8d, 0x49, 0x7f};
  EXPECT_EQ(DigestOf().value(), ofNothing);
}

}  // namespace
}  // namespace quorvane
