#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <string>

#include "app/KeptCopy.h"

namespace quorvane {

class MainWindow;

/// Keeps the unsaved work of a window: every two minutes, and when the program ends.
///
/// Work is unsaved if the system's document differs from that of the last Initialise, Open or Save. The
/// window has one copy, which is replaced each time and removed after a save. Makes no draws and does not
/// change the system. A failure is reported once, in one line on standard error. Main thread only.
class WorkKeeper : public QObject {
  Q_OBJECT

 public:
  static constexpr std::chrono::minutes kPeriod{2};

  /// The window outlives the keeper.
  WorkKeeper(MainWindow& window, std::filesystem::path folder, std::chrono::milliseconds period = kPeriod);
  ~WorkKeeper() override;

  /// Reports kept work of earlier windows that was not reported before in the status line, and makes Open
  /// start there.
  void tellOfEarlierWork();

  /// Updates the copy. True if there is one.
  bool keep();
  /// The same, after applying typed names that are not in the model yet.
  bool keepAtEnd();

  /// Also keeps the work when a signal ends the program or Qt loses its display, and reports the file on
  /// standard error. For one keeper per process.
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
  std::string saved_;  // the document of the last Initialise, Open or Save
  std::string kept_;   // the content of the copy
  bool complained_ = false;
};

}  // namespace quorvane
