#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Process.h"
#include "RecordSample.h"
#include "record/Record.h"

namespace quorvane {
namespace {

TEST(Record, ReadsBackAsItWasWritten) {
  const Record record = sampleRecord();
  const std::string text = toJson(record);
  EXPECT_EQ(recordFromJson(text), record);
  EXPECT_EQ(toJson(recordFromJson(text)), text);
}

TEST(Record, MayLackSettingsOptionsAndOutputs) {
  Record record = sampleRecord();
  record.settings.clear();
  record.remake.reset();
  record.fill.reset();
  record.observables.reset();
  record.outputs = {{"--frames", "film", std::vector<RecordedFrame>{}}};
  EXPECT_EQ(recordFromJson(toJson(record)), record);
  record.outputs.clear();
  EXPECT_EQ(recordFromJson(toJson(record)), record);
}

TEST(Record, OfTheStartIsATextOfItsOwn) {
  RunStart start = sampleRecord().start;
  EXPECT_EQ(startFromJson(toJson(start)), start);
  start.seconds = 0.0;
  start.workingFolder.clear();
  EXPECT_EQ(startFromJson(toJson(start)), start);
  EXPECT_THROW(startFromJson("{}"), RecordError);
  EXPECT_THROW(startFromJson(toJson(sampleRecord())), RecordError);
}

TEST(Record, HoldsOnlyUtf8) {
  EXPECT_TRUE(canBeRecorded("\xc3\xa9t\xc3\xa9 \n\x01"));
  EXPECT_FALSE(canBeRecorded("\xe9t\xe9"));
  Record record = sampleRecord();
  record.start.machine.processor = "bad \xff";
  EXPECT_EQ(recordFromJson(toJson(record)).start.machine.processor, "bad \xef\xbf\xbd");
}

TEST(ThisProgram, NamesItsBuild) {
  const Program program = thisProgram();
  EXPECT_EQ(program.name, "quorvane-batch");
  EXPECT_THAT(program.version, testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
  EXPECT_THAT(program.commit, testing::MatchesRegex("[0-9a-f]+(-dirty)?|unknown"));
  EXPECT_THAT(program.compiler, testing::MatchesRegex("(GCC|Clang) [0-9]+\\..*"));
  EXPECT_THAT(program.cLibrary, testing::MatchesRegex("glibc [0-9.]+|unknown"));
}

TEST(ThisMachine, HasAProcessorAndTheCoresOfTheSystem) {
  const Machine machine = thisMachine();
  EXPECT_FALSE(machine.processor.empty());
  EXPECT_EQ(std::to_string(machine.cores) + "\n", run("/usr/bin/getconf", {"_NPROCESSORS_ONLN"}).out);
}

}  // namespace
}  // namespace quorvane
