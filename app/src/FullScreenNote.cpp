#include "app/FullScreenNote.h"

#include <QEvent>

namespace quorvane {

FullScreenNote::FullScreenNote(GraphicalLatticeModelGL& view) : QLabel(view.parentWidget()), view_(view) {
  setObjectName("fullScreenNote");
  setText(tr("The lattice fills the screen. Full Screen takes you there, Escape brings it back."));
  setAlignment(Qt::AlignCenter);
  setWordWrap(true);
  // In the colours of the view, to mark its place.
  QPalette colors = palette();
  colors.setColor(QPalette::Window, Qt::black);
  colors.setColor(QPalette::WindowText, Qt::lightGray);
  setPalette(colors);
  setAutoFillBackground(true);
  hide();
  connect(&view, &GraphicalLatticeModelGL::fullScreenEntered, this, [this] {
    place();
    show();
  });
  connect(&view, &GraphicalLatticeModelGL::fullScreenLeft, this, &QWidget::hide);
  window()->installEventFilter(this);
}

bool FullScreenNote::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window() && event->type() == QEvent::Resize) place();
  return QLabel::eventFilter(watched, event);
}

void FullScreenNote::place() { setGeometry(view_.placeInWindow()); }

}  // namespace quorvane
