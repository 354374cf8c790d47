#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <QTimer>
#include <random>

#include "app/MainWindow.h"

namespace quorvane {

/// Performs random actions by mouse and keys on a window with a model, the same for the same seed. Uses only
/// visible and enabled controls; cancels every file panel.
class RandomUser {
 public:
  RandomUser(MainWindow& window, unsigned seed);

  /// One complete action: after it no key or button is down and no popup or panel is open. Returns its
  /// description.
  QString act();

  /// Waits until no mnemonic is pending: they act a tenth of a second late, and in the middle of a stroke or
  /// of full screen Run, Stop and Pause have other effects.
  void waitForMnemonics();

 private:
  int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
  bool chance(int percent) { return pick(100) < percent; }
  QPoint pointIn(const QWidget& widget, int beyond = 0);
  /// The enabled controls of a kind; null if there is none.
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
  /// Activates the window. False if the window manager never lets it be.
  bool comeBack();
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
