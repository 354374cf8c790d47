#include "app/LatticeMenu.h"

#include <QAbstractSlider>
#include <QKeyEvent>

#include "MenuKey.h"
#include "app/PlainMessage.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

LatticeMenu::LatticeMenu(QMainWindow& window, GraphicalLatticeModelGL& view)
    : window_(window), view_(view), pictures_(window, view), menu_(new QMenu(tr("Lattice"), &view)) {
  menu_->setObjectName("menuLattice");
  menu_->setAccessibleName(tr("Lattice"));
  // The click that closes the menu must not paint.
  menu_->setAttribute(Qt::WA_NoMouseReplay);
  oneSweep_ = add(tr("One &Sweep"), "actionOneSweep", Qt::CTRL | Qt::Key_Right);
  menu_->addSeparator();
  copyPicture_ = add(tr("&Copy Picture"), "actionCopyPicture", Qt::CTRL | Qt::SHIFT | Qt::Key_C);
  savePicture_ = add(tr("Save &Picture…"), "actionSavePicture", Qt::CTRL | Qt::SHIFT | Qt::Key_P);
  copyPicture_->setAutoRepeat(false);
  savePicture_->setAutoRepeat(false);

  connect(oneSweep_, &QAction::triggered, this, &LatticeMenu::makeOneSweep);
  connect(copyPicture_, &QAction::triggered, this, &LatticeMenu::copyPicture);
  connect(savePicture_, &QAction::triggered, this, &LatticeMenu::savePicture);
  // The model does not signal its state, so the entries are updated only while they are visible.
  connect(menu_, &QMenu::aboutToShow, this, &LatticeMenu::enableWhatMakesSense);
  connect(menu_, &QMenu::aboutToHide, this, &LatticeMenu::enableAll);

  view_.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&view_, &QWidget::customContextMenuRequested, this, &LatticeMenu::open);
  openMenuByShiftF10(view_);
  for (auto* slider : window_.findChildren<QAbstractSlider*>()) slider->installEventFilter(this);
}

QAction* LatticeMenu::add(const QString& text, const char* objectName, const QKeySequence& shortcut) {
  QAction* action = menu_->addAction(text);
  action->setObjectName(objectName);
  action->setShortcut(shortcut);
  action->setShortcutVisibleInContextMenu(true);
  // In full screen the view is a window of its own.
  window_.addAction(action);
  view_.addAction(action);
  return action;
}

bool LatticeMenu::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (QKeySequence(key.keyCombination()) == oneSweep_->shortcut()) {
      event->accept();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

void LatticeMenu::open(QPoint position) {
  // A menu grabs the mouse, so the stroke would never end.
  if (!isPainting()) menu_->popup(view_.mapToGlobal(position));
}

void LatticeMenu::enableWhatMakesSense() {
  oneSweep_->setEnabled(view_.varMyState == kStopped);
  copyPicture_->setEnabled(hasLattice());
  savePicture_->setEnabled(hasLattice());
}

void LatticeMenu::enableAll() {
  for (QAction* action : menu_->actions()) action->setEnabled(true);
}

void LatticeMenu::makeOneSweep() {
  if (view_.sweepOnce()) emit sweepMade();
}

void LatticeMenu::copyPicture() {
  if (hasLattice()) emit told(pictures_.copyPicture());
}

void LatticeMenu::savePicture() {
  // A panel grabs the mouse like a menu.
  if (!hasLattice() || isPainting()) return;
  const auto [saved, line] = pictures_.savePicture();
  // The window with the status line is behind the view.
  if (!saved && !line.isEmpty() && view_.isWindow()) warn(&view_, tr("Save the picture"), line);
  if (!line.isEmpty()) emit told(line);
}

bool LatticeMenu::hasLattice() const { return view_.varMyState > kNotInitialised; }

bool LatticeMenu::isPainting() const { return view_.varPainting == 1; }

}  // namespace quorvane
