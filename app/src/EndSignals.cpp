#include "app/EndSignals.h"

#include "process/StopSignals.h"

namespace quorvane {

EndSignals::EndSignals(QObject* parent)
    : QObject(parent), notifier_(stopSignalDescriptor(), QSocketNotifier::Read) {
  // Without a descriptor a caught signal would go unnoticed.
  if (stopSignalDescriptor() < 0) return;
  connect(&notifier_, &QSocketNotifier::activated, this, [this] {
    notifier_.setEnabled(false);
    emit received(stopSignal());
  });
  watchStopSignals();
}

}  // namespace quorvane
