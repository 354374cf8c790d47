#include "StudyTestSupport.h"

namespace quorvane {
namespace {

using testing::ElementsAre;

/// The small study with one text in place of another.
std::string changed(const std::string& from, const std::string& to) {
  std::string text = kSmallStudy;
  const auto place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  return text.replace(place, from.size(), to);
}

/// The axes of the small study.
constexpr const char* kAxes = R"([[vary]]
rule = "Unlike spins repel"
parameter = { from = 0.70, to = 0.82, steps = 3 }

[[vary]]
type  = "Spin up"
field = [0.0, 0.05]
)";

std::string refusal(const std::string& text) {
  return studyErrorOf([&] { studyIn(text, "small.toml"); });
}

TEST(StudyFile, IsReadWithEverythingInIt) {
  const Study study = smallStudy();
  EXPECT_EQ(study.document, "ising.quorvane");
  EXPECT_EQ(study.sweeps, 40);
  EXPECT_EQ(study.discard, 10);
  EXPECT_EQ(study.every, 5);
  EXPECT_EQ(study.replicas, 3);
  EXPECT_EQ(study.seed, 11);
  EXPECT_EQ(study.observables, "energy,order:0:1,correlation,kept");
  EXPECT_EQ(study.series, "contacts");
  EXPECT_THAT(study.sides, ElementsAre(LatticeSides{8, 8}, LatticeSides{12, 6}));
  ASSERT_EQ(study.fill.size(), 2u);
  EXPECT_EQ(study.fill[0].type, "Spin up") << "in the order of the file";
  EXPECT_EQ(study.fill[1].share, 0.25);
  ASSERT_EQ(study.axes.size(), 2u);
  EXPECT_EQ(study.axes[0].of, Setting::kRule);
  EXPECT_EQ(study.axes[0].name, "Unlike spins repel");
  EXPECT_THAT(study.axes[0].values, ElementsAre("0.7", "0.76", "0.82"));
  EXPECT_EQ(study.axes[1].of, Setting::kType);
  EXPECT_EQ(study.axes[1].field, "field");
  EXPECT_THAT(study.axes[1].values, ElementsAre("0", "0.05"));
}

TEST(StudyFile, NeedsOnlyDocumentSweepsAndObservables) {
  const Study study = studyIn("document = \"a\"\nsweeps = 5\nobservables = [\"counts\"]\n", "s.toml");
  EXPECT_EQ(study.discard, 0);
  EXPECT_EQ(study.every, 1);
  EXPECT_EQ(study.replicas, 1);
  EXPECT_EQ(study.seed, 1);
  EXPECT_EQ(numPoints(study), 1);
}

TEST(StudyFile, ManyStepsAreReadAtOnce) {
  EXPECT_EQ(studyIn(changed("steps = 3", "steps = 1000000"), "small.toml").axes[0].values.size(), 1'000'000u);
}

TEST(StudyFile, StepsAreDecimalNumbers) {
  const Study study = studyIn(changed("steps = 3", "steps = 13"), "small.toml");
  EXPECT_THAT(study.axes[0].values, ElementsAre("0.7", "0.71", "0.72", "0.73", "0.74", "0.75", "0.76", "0.77",
                                                "0.78", "0.79", "0.8", "0.81", "0.82"));
}

TEST(StudyFile, IsRefusedWithTheLine) {
  EXPECT_EQ(refusal(changed("every ", "often ")), "\"small.toml\": line 4: unknown key \"often\"");
  EXPECT_EQ(refusal(changed("40", "\"40\"")), "\"small.toml\": line 2: a whole number is needed, not a text");
  EXPECT_EQ(refusal(changed("= 40", "= 40.5")),
            "\"small.toml\": line 2: a whole number is needed, not a number");
  EXPECT_EQ(refusal(changed("= 40", "= 0")), "\"small.toml\": line 2: 0 is not from 1 to 1000000000000000");
  EXPECT_THAT(refusal(changed("= 40", "= ")), testing::StartsWith("\"small.toml\": line 2: "));
  EXPECT_EQ(refusal(changed("document = \"ising.quorvane\"", "")),
            "\"small.toml\": line 1: there is no \"document\"");
  EXPECT_EQ(refusal(changed("\"ising.quorvane\"", "7")),
            "\"small.toml\": line 1: document: a text in quotation marks is needed, not a whole number");
  EXPECT_EQ(refusal(changed("[\"contacts\"]", "[]")),
            "\"small.toml\": line 22: observables: the list is empty");
  EXPECT_EQ(refusal(changed("[12, 6]", "[12, 6, 2]")),
            "\"small.toml\": line 10: sides: a side, or two of them as [64, 48], are needed");
  EXPECT_EQ(refusal(changed("[8,", "[257,")), "\"small.toml\": line 10: 257 is not from 1 to 256");
  EXPECT_EQ(refusal(changed("steps = 3", "steps = 1")),
            "\"small.toml\": line 15: 1 is not from 2 to 1000000");
  EXPECT_EQ(refusal(changed("steps = 3", "stride = 3")),
            "\"small.toml\": line 15: [parameter]: there is no \"steps\"");
  EXPECT_EQ(refusal(changed("field = [0.0, 0.05]", "field = [0.0, 0.0]")),
            "\"small.toml\": line 19: [[vary]]: \"Spin up\" has the value 0 twice");
  EXPECT_EQ(refusal(changed("[8, [12, 6]]", "[8, [12, 6], [8, 8]]")),
            "\"small.toml\": line 10: sides: 8 x 8 is there twice");
}

TEST(StudyFile, AValueOfAnotherKindIsNamedForWhatItIs) {
  for (const auto& [value, kind] : {std::pair("{ a = 1 }", "a table"),
                                    {"[1]", "a list"},
                                    {"\"x\"", "a text"},
                                    {"0.5", "a number"},
                                    {"true", "true or false"},
                                    {"2026-05-01", "a time"},
                                    {"07:30:00", "a time"},
                                    {"2026-05-01T07:30:00Z", "a time"}})
    EXPECT_EQ(refusal(changed("= 40", std::string("= ") + value)),
              std::string("\"small.toml\": line 2: a whole number is needed, not ") + kind);
  EXPECT_EQ(refusal(changed("[8, [12, 6]]", "8")),
            "\"small.toml\": line 10: sides: a list in [ ] is needed, not a whole number");
  EXPECT_EQ(refusal(changed("[\"contacts\"]", "[7]")),
            "\"small.toml\": line 22: a text in quotation marks is needed, not a whole number");
  EXPECT_EQ(refusal(changed("0.75", "\"most\"")), "\"small.toml\": line 11: a number is needed, not a text");
  EXPECT_EQ(refusal("vary = 5\n" + changed(kAxes, "")),
            "\"small.toml\": line 1: [[vary]] is needed, not a whole number");
  EXPECT_EQ(refusal("vary = [5]\n" + changed(kAxes, "")),
            "\"small.toml\": line 1: [[vary]]: a table is needed, not a whole number");
  EXPECT_EQ(refusal("series = 1\n" + changed("[series]\nobservables = [\"contacts\"]\n", "")),
            "\"small.toml\": line 1: [series]: a table is needed, not a whole number");
}

TEST(StudyFile, IsRefusedIfValuesDoNotFitTogether) {
  EXPECT_EQ(refusal(changed("discard  = 10", "discard  = 41")),
            "\"small.toml\": line 3: discard: more than the sweeps");
  EXPECT_EQ(refusal(changed("every    = 5", "every    = 7")),
            "\"small.toml\": line 2: sweeps: not a multiple of every");
  EXPECT_EQ(refusal(changed("0.25", "0.2")),
            "\"small.toml\": line 11: fill: the shares add up to 0.95, not 1");
  EXPECT_EQ(refusal(changed("type  =", "parameter = [1]\ntype  =")),
            "\"small.toml\": line 18: [[vary]]: unknown key \"parameter\"")
      << "a type has no parameter";
}

TEST(StudyFile, LastSeedIsTheLargestThereIs) {
  // 12 points times 3 replicas: seeds from first to first + 35.
  EXPECT_EQ(refusal(changed("seed     = 11", "seed     = 2147483612")), "");
  EXPECT_EQ(refusal(changed("seed     = 11", "seed     = 2147483613")),
            "\"small.toml\": line 6: seed: the last of 12 points times 3 replicas would have a seed beyond "
            "2147483647");
  EXPECT_EQ(refusal(changed("replicas = 3", "replicas = 2147483647")),
            "\"small.toml\": line 6: seed: the last of 12 points times 2147483647 replicas would have a seed "
            "beyond "
            "2147483647");
}

TEST(StudyFile, AVaryNeedsOneRuleOrTypeAndOneField) {
  EXPECT_EQ(refusal(changed("type  =", "rule = \"Spins flip\"\ntype  =")),
            "\"small.toml\": line 17: [[vary]]: a rule or a type is needed");
  EXPECT_EQ(refusal(changed("field = [0.0, 0.05]", "")),
            "\"small.toml\": line 17: [[vary]]: of a type one of these is needed: field, immobile");
  EXPECT_EQ(refusal(changed("field =", "immobile = [0, 1]\nfield =")),
            "\"small.toml\": line 17: [[vary]]: only one of field and immobile");
}

TEST(StudyFile, FilesThatAreNoneAreNamed) {
  const TemporaryFolder folder;
  EXPECT_EQ(studyErrorOf([&] { readStudy(folder / "none.toml"); }),
            "\"" + (folder / "none.toml").string() + "\": No such file or directory");
  EXPECT_EQ(studyErrorOf([&] { readStudy(folder.path()); }),
            "\"" + folder.path().string() + "\": is no regular file");
}

}  // namespace
}  // namespace quorvane
