#include "FilePanel.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "GuiSupport.h"

namespace quorvane::gui {

namespace {

/// The window system returns the focus with a delay, or to no window if a panel closed together with a
/// message box above it.
void waitForTheKeyboard() {
  const auto someWindowHasIt = [] { return QApplication::activeWindow() != nullptr; };
  if (waitUntil(someWindowHasIt, std::chrono::milliseconds(1500))) return;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) window->activateWindow();
  waitUntil(someWindowHasIt);
}

}  // namespace

bool withFilePanel(const std::function<void()>& open, const std::function<void(QFileDialog&)>& deal) {
  // The panel runs an event loop until it is closed.
  bool dealt = false;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
    auto* panel = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!panel || dealt) return;
    dealt = true;
    deal(*panel);
  });
  poll.start(20);
  open();
  waitForTheKeyboard();
  return dealt;
}

bool withFilePanel(QAbstractButton& button, const std::function<void(QFileDialog&)>& deal) {
  return withFilePanel([&button] { click(button, button.rect().center()); }, deal);
}

void enterPath(QFileDialog& panel, const QString& path) {
  auto* name = panel.findChild<QLineEdit*>("fileNameEdit");
  if (!name) return;
  // Typing replaces a suggestion only if the field has the focus.
  name->setFocus();
  waitUntil([name] { return name->hasFocus(); });
  // Pasted: while letters are typed, the panel completes them from names that it reads in the background.
  QApplication::clipboard()->setText(path);
  QTest::keyClick(name, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(name, Qt::Key_V, Qt::ControlModifier);
  if (QWidget* completions = QApplication::activePopupWidget()) completions->close();
}

bool acceptFilePanel(QFileDialog& panel, const QString& path) {
  enterPath(panel, path);
  if (auto* buttons = panel.findChild<QDialogButtonBox*>("buttonBox")) {
    const bool saves = panel.acceptMode() == QFileDialog::AcceptSave;
    QPushButton* confirm = buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    // The panel reads the folder in the background before it accepts a name.
    if (confirm && waitUntil([confirm] { return confirm->isEnabled(); }))
      click(*confirm, confirm->rect().center());
  }
  const bool accepted = !panel.isVisible();
  if (!accepted) panel.reject();
  return accepted;
}

bool choosePath(QAbstractButton& button, const QString& path) {
  bool accepted = false;
  return withFilePanel(button, [&](QFileDialog& panel) { accepted = acceptFilePanel(panel, path); }) &&
         accepted;
}

MessageAnswer::MessageAnswer(QMessageBox::StandardButton answer) {
  QObject::connect(&poll_, &QTimer::timeout, &poll_, [this, answer] {
    auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QAbstractButton* button = message ? message->button(answer) : nullptr;
    if (!button || !button->isVisible()) return;
    text_ = message->text();
    click(*button, button->rect().center());
  });
  poll_.start(20);
}

}  // namespace quorvane::gui
