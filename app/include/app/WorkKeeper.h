#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <string>

#include "app/KeptCopy.h"

namespace quorvane {

class MainWindow;

/// Keeps the work in a window that was not saved as a document: every two minutes, and when the program ends.
///
/// Work is a system whose document is another than when it was initialised, opened or saved last. The window
/// has one copy, which the next one replaces and which goes once everything is saved. Draws nothing and
/// leaves the system as it is. What cannot be kept is told in one line on standard error, once. Main thread
/// only.
class WorkKeeper : public QObject {
  Q_OBJECT

 public:
  static constexpr std::chrono::minutes kPeriod{2};

  /// The window outlives the keeper.
  WorkKeeper(MainWindow& window, std::filesystem::path folder, std::chrono::milliseconds period = kPeriod);
  ~WorkKeeper() override;

  /// Tells in the status line what earlier windows have kept and nobody was told of, and lets Open begin
  /// there.
  void tellOfEarlierWork();

  /// Makes the copy what it should be now. True if there is one.
  bool keep();
  /// The same with names that were typed and not yet handed to the model.
  bool keepAtEnd();

  /// Also keeps the work when a signal ends the program, or the toolkit where its display is lost, and tells
  /// on standard error where. For one keeper of the process.
  void keepAtSignalsAndExit();

  const KeptCopy& copy() const { return copy_; }

 private:
  static void onExit();

  void endBy(int signal);
  void tellWhere() const;
  void complain(const std::string& reason);

  MainWindow& window_;
  KeptCopy copy_;
  QTimer timer_;
  std::string saved_;  // the document as the user has it elsewhere, or can have it again
  std::string kept_;   // what stands in the copy
  bool complained_ = false;
};

}  // namespace quorvane
