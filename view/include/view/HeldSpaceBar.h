#pragma once

#include <QObject>

namespace quorvane {

/// Takes a held space bar for one press, as an event filter of the widgets that the space bar presses. One
/// filter serves all widgets between which a press may move the focus.
///
/// Drops repeated presses, also those that the window system does not mark as such: it sends them in the same
/// instant as the release before them. Events without a time are taken as they come.
class HeldSpaceBar : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  quint64 lastRelease_ = 0;
};

}  // namespace quorvane
