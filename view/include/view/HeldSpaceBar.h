#pragma once

#include <QObject>

namespace quorvane {

/// Makes holding the space bar down count as one press, in all windows of the application.
///
/// Filters repeated presses. Some window systems do not mark these as repeats, but give them the time stamp
/// of the release before them. Events without a time stamp pass. A text field that got the first press gets
/// the repeats too; one that got the focus through that press does not.
class HeldSpaceBar : public QObject {
  Q_OBJECT

 public:
  /// Installs the filter. Needs the application object; further calls have no effect.
  static void watchApplication();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;

  quint64 lastRelease_ = 0;
  bool typing_ = false;
};

}  // namespace quorvane
