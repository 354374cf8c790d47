#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RecordSample.h"

namespace quorvane {
namespace {

using testing::HasSubstr;

/// Why a text is refused; empty if it is not.
std::string refusalOf(const std::string& text) {
  try {
    recordFromJson(text);
    return {};
  } catch (const RecordError& error) {
    return error.what();
  }
}

/// The sample with one piece of its text replaced.
std::string sampleWith(const std::string& piece, const std::string& other) {
  std::string text = toJson(sampleRecord());
  const auto at = text.find(piece);
  if (at == std::string::npos) throw std::runtime_error("the sample has no " + piece);
  return text.replace(at, piece.size(), other);
}

TEST(ReadRecord, RefusesWhatIsNoJsonAndSaysWhere) {
  EXPECT_EQ(refusalOf(""), "line 1, column 1: ends too early for JSON");
  EXPECT_EQ(refusalOf("{\n  \"format\": ?\n}"), "line 2, column 13: is no JSON");
  EXPECT_EQ(refusalOf("sweep,energy\n"), "line 1, column 1: is no JSON");
  EXPECT_THAT(refusalOf(toJson(sampleRecord()) + "x"), HasSubstr(": is no JSON"));
  EXPECT_THAT(refusalOf(sampleWith("GCC", "\xff")), HasSubstr("is no JSON"));
}

TEST(ReadRecord, RefusesEveryTextThatIsCutShort) {
  const std::string text = toJson(sampleRecord());
  // The last bytes are the bracket and the line feed.
  for (std::size_t size = 0; size + 1 < text.size(); ++size)
    ASSERT_THAT(refusalOf(text.substr(0, size)), HasSubstr("JSON")) << size;
}

TEST(ReadRecord, RefusesWhatIsForeign) {
  const std::string why = "is no record of a run (its format is not quorvane-record)";
  EXPECT_EQ(refusalOf("{}"), why);
  EXPECT_EQ(refusalOf("{\"format\": \"other\"}"), why);
  EXPECT_EQ(refusalOf("[]"), "is no JSON object");
  EXPECT_EQ(refusalOf("7"), "is no JSON object");
}

TEST(ReadRecord, RefusesANewerFormatWhateverItsFieldsAre) {
  EXPECT_EQ(refusalOf(R"({"format": "quorvane-record", "formatVersion": 2, "new": 1})"),
            "is a record of format 2, and this program reads only 1");
  EXPECT_EQ(refusalOf(R"({"format": "quorvane-record", "formatVersion": 0})"),
            "field formatVersion: is no whole number from 1 upwards");
}

TEST(ReadRecord, RefusesEveryFieldThatIsMissingUnknownOrTwice) {
  EXPECT_EQ(refusalOf(sampleWith("\"commit\"", "\"comit\"")), "field program.commit: is missing");
  EXPECT_EQ(refusalOf(sampleWith("\"trace\": true", "\"trace\": true, \"more\": 1")),
            "field more: is not known to this version");
  EXPECT_EQ(refusalOf(sampleWith("\"trace\": true", "\"trace\": true, \"trace\": true")),
            "has the field trace twice");
  EXPECT_EQ(refusalOf(sampleWith("\"name\": \"frame-000001.png\",", "")),
            "field outputs[1].frames[1].name: is missing");
}

TEST(ReadRecord, RefusesValuesOfAnotherKindOrOutsideTheirLimits) {
  const struct {
    const char *piece, *other, *why;
  } cases[] = {
      {"\"seed\": 4711", "\"seed\": 0", "field seed: is no whole number from 1 to 2147483647"},
      {"\"seed\": 4711", "\"seed\": 2147483648", "field seed: is no whole number from 1 to 2147483647"},
      {"\"seed\": 4711", "\"seed\": \"4711\"", "field seed: is no whole number from 1 to 2147483647"},
      {"\"every\": 10", "\"every\": 0", "field every: is no whole number from 1 upwards"},
      {"\"every\": 10", "\"every\": 1.5", "field every: is no whole number from 1 upwards"},
      {"\"every\": 10", "\"every\": 18446744073709551615", "field every: is no whole number from 1 upwards"},
      {"\"done\": 90", "\"done\": -1", "field sweeps.done: is no whole number from 0 upwards"},
      {"\"asked\": 9000000000000000000", "\"asked\": 89", "field sweeps.done: is more than were asked for"},
      {"\"cores\": 12", "\"cores\": 0", "field machine.cores: is no whole number from 1 to 2147483647"},
      {"\"trace\": true", "\"trace\": 1", "field trace: is neither true nor false"},
      {"\"seconds\": 0.30000000000000004", "\"seconds\": -1", "field seconds: is no number from 0 upwards"},
      {"\"seconds\": 0.30000000000000004", "\"seconds\": 1e999", "has a number that is too large"},
      {"2026-11-22T23:40:01Z", "yesterday", "field started: is no time such as 2026-11-22T23:40:00Z"},
      {"\"in.quorvane\"", "null", "field document.path: is no text"},
      {"\"in.quorvane\"", "\"in\\u0000\"", "field document.path: contains a zero byte"},
      {"\"remake\": \"128x64\"", "\"remake\": 5", "field remake: is no text"},
      {"\"settings\": [", "\"settings\": [ 1,", "field settings: is no text"},
      {"\"path\": \"film\"", "\"path\": \"film\", \"sha256\": \"\"",
       "field outputs[1].sha256: is not known to this version"},
  };
  for (const auto& c : cases) EXPECT_EQ(refusalOf(sampleWith(c.piece, c.other)), c.why) << c.other;
}

TEST(ReadRecord, RefusesWhatIsNoHash) {
  const std::string hash = fingerprintOf("document").sha256;
  for (const std::string& other :
       {std::string(), hash.substr(1), hash + "0", std::string(64, 'A'), std::string(63, '0') + 'g'})
    EXPECT_EQ(refusalOf(sampleWith(hash, other)),
              "field document.sha256: is no hash of 64 digits 0 to 9 and a to f");
}

TEST(ReadRecord, RefusesDeepNestingWithoutFollowingIt) {
  EXPECT_EQ(refusalOf(std::string(1'000'000, '[')), "is nested deeper than a record");
  std::string objects;
  for (int k = 0; k < 100'000; ++k) objects += "{\"a\":";
  EXPECT_EQ(refusalOf(objects), "is nested deeper than a record");
}

}  // namespace
}  // namespace quorvane
