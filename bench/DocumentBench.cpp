#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "EngineBench.h"
#include "Repeated.h"
#include "document/ModelDocument.h"

namespace quorvane {
namespace {

/// The largest system a document can hold.
std::unique_ptr<LatticeModel> largestModel() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  model->initializeLatticeModel(kMaxPixelTypes, kMaxSide, kMaxSide);
  for (int k = 0; k < kMaxRules; ++k) {
    model->makeNewRule("rule " + std::to_string(k), k % 4, k % kMaxPixelTypes, k * 7 % kMaxPixelTypes);
    model->setRuleParam(k, 0.01 * k);
  }
  return model;
}

void writeText(benchmark::State& state) {
  const auto model = largestModel();
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(writeDocument(*model));
}

void readText(benchmark::State& state) {
  const std::string text = writeDocument(*largestModel());
  auto model = std::make_unique<LatticeModel>();
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    model = std::make_unique<LatticeModel>();
    model->awakeFromNib();
    state.ResumeTiming();
    if (readDocument(*model, text).status != OpenStatus::kOpened) state.SkipWithError("was not read");
  }
}

std::filesystem::path temporaryFile() {
  return std::filesystem::temp_directory_path() / "engine_bench.quorvane";
}

void save(benchmark::State& state) {
  const auto model = largestModel();
  for ([[maybe_unused]] auto _ : state)
    if (!saveDocument(*model, temporaryFile()).saved) state.SkipWithError("was not saved");
  std::filesystem::remove(temporaryFile());
}

void open(benchmark::State& state) {
  if (!saveDocument(*largestModel(), temporaryFile()).saved) state.SkipWithError("was not saved");
  auto model = std::make_unique<LatticeModel>();
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    model = std::make_unique<LatticeModel>();
    model->awakeFromNib();
    state.ResumeTiming();
    if (openDocument(*model, temporaryFile()).status != OpenStatus::kOpened)
      state.SkipWithError("was not opened");
  }
  std::filesystem::remove(temporaryFile());
}

}  // namespace

void registerDocumentBenchmarks() {
  repeated("WriteText", 10, writeText);
  repeated("ReadText", 10, readText);
  repeated("Save", 10, save);
  repeated("Open", 10, open);
}

}  // namespace quorvane
