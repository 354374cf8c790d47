#include "app/WorkKeeper.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "app/EndSignals.h"
#include "app/KeptFolder.h"
#include "app/MainWindow.h"
#include "process/StopSignals.h"

namespace quorvane {
namespace {

WorkKeeper* keeperAtExit = nullptr;

}  // namespace

WorkKeeper::WorkKeeper(MainWindow& window, std::filesystem::path folder, std::chrono::milliseconds period)
    : window_(window), copy_(std::move(folder)) {
  const MainViewController& controller = window.controller();
  connect(&controller, &MainViewController::systemStarted, this, [this] {
    saved_ = writeDocument(window_.model());
    copy_.leave();
  });
  connect(&controller, &MainViewController::systemSaved, this, [this](const std::string& document) {
    saved_ = document;
    copy_.discard();
  });
  connect(&timer_, &QTimer::timeout, this, &WorkKeeper::keep);
  timer_.start(period);
}

WorkKeeper::~WorkKeeper() {
  if (keeperAtExit == this) keeperAtExit = nullptr;
}

void WorkKeeper::tellOfEarlierWork() {
  const std::vector<std::filesystem::path> copies = takeUntoldCopies(copy_.folder());
  if (copies.empty()) return;
  window_.controller().offerKeptWork(QString::fromStdString(copies.front().string()),
                                     static_cast<int>(copies.size()) - 1);
}

bool WorkKeeper::keep() {
  const GraphicalLatticeModelGL& model = window_.model();
  if (model.varMyState == kNotInitialised) return false;
  std::string document = writeDocument(model);
  if (document == saved_) {
    copy_.discard();
    return false;
  }
  if (document == kept_ && copy_.isThere()) return true;
  if (const SaveResult result = copy_.write(document); !result.saved) {
    complain(result.reason);
    return false;
  }
  kept_ = std::move(document);
  return true;
}

bool WorkKeeper::keepAtEnd() {
  window_.controller().commitTypedNames();
  return keep();
}

void WorkKeeper::keepAtSignalsAndExit() {
  auto* endSignals = new EndSignals(this);
  connect(endSignals, &EndSignals::received, this, &WorkKeeper::endBy);
  keeperAtExit = this;
  std::atexit(onExit);
}

/// When Qt loses its display it calls exit. The window still exists then, since main is not unwound, but its
/// controls have no display, and objects that log may be destroyed.
void WorkKeeper::onExit() {
  WorkKeeper* keeper = std::exchange(keeperAtExit, nullptr);
  if (keeper && keeper->keep()) keeper->tellWhere();
}

void WorkKeeper::endBy(int signal) {
  if (keepAtEnd()) tellWhere();
  endBySignal(signal);
}

void WorkKeeper::tellWhere() const {
  std::fprintf(stderr, "Quorvane has kept the unsaved work in %s\n", copy_.path().c_str());
}

void WorkKeeper::complain(const std::string& reason) {
  if (std::exchange(complained_, true)) return;
  std::fprintf(stderr, "Quorvane cannot keep unsaved work%s%s: %s\n", copy_.folder().empty() ? "" : " in ",
               copy_.folder().c_str(), reason.c_str());
}

}  // namespace quorvane
