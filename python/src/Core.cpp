#include "Core.h"

#include <algorithm>
#include <string_view>

#include "Sweeping.h"
#include "checkpoint/Bytes.h"
#include "checkpoint/ModelBytes.h"
#include "checkpoint/SealedBytes.h"

namespace quorvane {
namespace {

/// Attempts between two interludes: some ten milliseconds.
constexpr std::int64_t kAtOnce = 1 << 19;

std::unique_ptr<LatticeModel> awake() {
  auto model = std::make_unique<LatticeModel>();
  model->awakeFromNib();
  return model;
}

/// Makes a number of pieces of work, not more than a number at once.
template <typename Work>
void inPortions(std::int64_t count, std::int64_t atOnce, const Core::Unlocked unlocked,
                const Core::Interlude& interlude, const Work& work) {
  while (count > 0) {
    const std::int64_t portion = std::min(count, atOnce);
    unlocked([&] { work(portion); });
    count -= portion;
    interlude();
  }
}

}  // namespace

Core::Core() : model_(awake()), sweeper_(std::make_unique<Sweeper>(model_->sweeper())) {}

Core::~Core() { forget(*this); }

LatticeModel& Core::use() {
  requireNotSwept(*this);
  return *model_;
}

LatticeModel& Core::useWithSource() {
  requireSource();
  return use();
}

void Core::sweep(std::int64_t count, Traces traces, Unlocked unlocked, const Interlude& interlude) {
  const Sweeping sweeping(*this);
  const std::int64_t sites = std::int64_t{model_->getIMax()} * model_->getJMax();
  const std::int64_t atOnce = std::max<std::int64_t>(1, kAtOnce / (sites + 1));
  inPortions(count, atOnce, unlocked, interlude,
             [&](std::int64_t sweeps) { model_->runSweeps(*sweeper_, sweeps, traces); });
}

void Core::step(std::int64_t attempts, Unlocked unlocked, const Interlude& interlude) {
  const Sweeping sweeping(*this);
  inPortions(attempts, kAtOnce, unlocked, interlude,
             [&](std::int64_t portion) { model_->runAttempts(*sweeper_, portion); });
}

std::string Core::state() {
  ByteWriter bytes;
  transferModel(bytes, use());
  return seal(bytes.bytes());
}

void Core::restore(const std::string& bytes) {
  use();
  ByteReader reader(contentOfSealed(bytes));
  auto model = awake();
  transferModel(reader, *model);
  reader.requireEnd();
  sweeper_ = std::make_unique<Sweeper>(model->sweeper());
  model_ = std::move(model);
}

}  // namespace quorvane
