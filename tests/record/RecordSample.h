#pragma once

#include "record/Record.h"

namespace quorvane {

/// A record with a different value in every field.
inline Record sampleRecord() {
  Record record;
  record.start.program = {"quorvane-batch", "1.2.3", "0123abcd-dirty", "GCC 1.2", "glibc 3.4"};
  record.start.machine = {"A processor", 12};
  record.start.started = "2026-11-22T23:40:01Z";
  record.start.seconds = 0.1 + 0.2;
  record.start.drawsMade = 9'007'199'254'740'993;
  record.start.commandLine = {"quorvane-batch", "in \"quotes\"\n", "--sweeps", "100"};
  record.start.workingFolder = "/home/\xc3\xa9t\xc3\xa9";
  record.start.document = {"in.quorvane", fingerprintOf("document")};
  record.seed = 4711;
  record.settings = {"rule A parameter=0.5", "type #1 field=-1"};
  record.remake = "128x64";
  record.fill = "#0=0.25,#1=0.75";
  record.observables = "energy,counts";
  record.every = 10;
  record.scale = 3;
  record.trace = true;
  record.sweepsAsked = 9'000'000'000'000'000'000;
  record.sweepsDone = 90;
  record.outputs = {{"--output", "-", fingerprintOf("output")},
                    {"--frames", "film",
                     std::vector<RecordedFrame>{{"frame-000000.png", fingerprintOf("0")},
                                                {"frame-000001.png", fingerprintOf("1")}}}};
  return record;
}

}  // namespace quorvane
