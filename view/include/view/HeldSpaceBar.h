#pragma once

#include <QObject>

namespace quorvane {

/// Takes a space bar that is held down for one press, in all windows of the application.
///
/// Drops repeated presses, also those that the window system does not mark as such: it sends them in the same
/// instant as the release before them. Events without a time are taken as they come. A text field that took
/// the first press takes the repeats too; one that came under the key by that press does not.
class HeldSpaceBar : public QObject {
  Q_OBJECT

 public:
  /// Watches from now on. Needs the application object; once is enough.
  static void watchApplication();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;

  quint64 lastRelease_ = 0;
  bool typing_ = false;
};

}  // namespace quorvane
