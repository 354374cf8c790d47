#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>
#include <random>

#include "app/MainWindow.h"

namespace quorvane {

/// Someone who does one thing after another to a window that holds a model, by mouse and keys, at random but
/// the same for the same seed. Uses only what can be seen and used; cancels every file panel.
class RandomUser {
 public:
  RandomUser(MainWindow& window, unsigned seed);

  /// One act, complete: nothing is held down and no popup or panel is open after it. Gives what was done.
  QString act();

  /// Waits until no mnemonic can act any more: one does so a tenth of a second late, and in the middle of a
  /// stroke or of full screen Run, Stop and Pause have an outcome of their own.
  void waitForMnemonics();

 private:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  bool chance(int percent) { return pick(100) < percent; }
  QPoint pointIn(const QWidget& widget, int beyond = 0);
  /// The controls of a kind that can be used now; null if there is none.
  template <class Control>
  Control* anyUsable();

  QString clickAButton();
  QString tickABox();
  QString chooseFromAList();
  QString keysOnAList();
  QString keysOnASlider();
  QString dragASlider();
  QString turnTheWheel();
  QString typeAName();
  QString pickAColor();
  QString paint();
  QString resize();
  QString visitFullScreen();
  QString pressAMnemonic();
  QString walkByTab();
  QString addARule();

  void stroke();
  void keepTheRunQuick();
  void closePopups();
  void settleDialogs();

  MainWindow& window_;
  std::mt19937 random_;
  QTimer panelCanceller_;
  QElapsedTimer sinceMnemonic_;
};

}  // namespace quorvane
