#include <gtest/gtest.h>

#include <random>

#include "DocumentHarness.h"
#include "DocumentSupport.h"

namespace quorvane {
namespace {

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t n) { return random() % n; }

std::string anyNumber(Random& random) {
  static const Lines numbers = {"0",
                                "1",
                                "2",
                                "-1",
                                "-2",
                                "9",
                                "10",
                                "11",
                                "50",
                                "51",
                                "256",
                                "257",
                                "1e308",
                                "1e999",
                                "-1e999",
                                "2147483648",
                                "4294967296",
                                "9223372036854775808",
                                "-9223372036854775809",
                                "0.0000000001",
                                "1e-400",
                                "nan",
                                "inf",
                                "",
                                "x",
                                "-",
                                "  3",
                                "3 of them",
                                "0x7f",
                                "1.7976931348623157e308"};
  return numbers[below(random, numbers.size())];
}

void mutateLines(Lines& lines, Random& random) {
  const auto at = static_cast<Lines::difference_type>(below(random, lines.size()));
  switch (below(random, 4)) {
    case 0:
      lines.erase(lines.begin() + at);
      break;
    case 1:
      lines.insert(lines.begin() + at, std::string(lines[static_cast<std::size_t>(at)]));
      break;
    case 2:
      std::swap(lines[static_cast<std::size_t>(at)], lines[below(random, lines.size())]);
      break;
    default:
      lines[static_cast<std::size_t>(at)] = anyNumber(random);
  }
}

void mutateBytes(std::string& text, Random& random) {
  if (text.empty()) return;
  const std::size_t at = below(random, text.size());
  switch (below(random, 4)) {
    case 0:
      text[at] = static_cast<char>(text[at] ^ (1 << below(random, 8)));
      break;
    case 1:
      text.insert(at, 1, static_cast<char>(below(random, 128)));
      break;
    case 2:
      text.erase(at, 1 + below(random, 5));
      break;
    default:
      text.resize(at);
  }
}

std::string mutated(Random& random) {
  Lines lines = sampleLines();
  for (std::size_t k = below(random, 3); k > 0; --k) mutateLines(lines, random);
  std::string text = joined(lines);
  if (below(random, 3) == 0) mutateBytes(text, random);
  return text;
}

class Mutations : public testing::TestWithParam<unsigned> {};

TEST_P(Mutations, OfADocumentNeverBreakTheReaderOrTheModel) {
  Random random(GetParam());
  constexpr int documents = 1500;
  for (int k = 0; k < documents; ++k) {
    const std::string text = mutated(random);
    ASSERT_EQ(checkDocument(text), "") << "document " << k << ":\n" << text;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeded, Mutations, testing::Range(1u, 5u));

TEST(Mutations, ReachEveryOpenStatus) {
  Random random(1);
  int outcomes[4] = {};
  for (int k = 0; k < 2000; ++k)
    ++outcomes[static_cast<int>(readDocument(*freshModel(), mutated(random)).status)];
  for (const int count : outcomes) EXPECT_GT(count, 5);
}

}  // namespace
}  // namespace quorvane
