#pragma once

#include <QAbstractButton>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>

/// Drives the Open and Save panels in tests by keys and clicks.
namespace quorvane::gui {

/// Calls a function that opens a file panel, and handles the panel. False if no panel opened.
bool withFilePanel(const std::function<void()>& open, const std::function<void(QFileDialog&)>& deal);

/// Clicks the button and handles the file panel that it opens. False if no panel opened.
bool withFilePanel(QAbstractButton& button, const std::function<void(QFileDialog&)>& deal);

/// Pastes a path into the panel's field for the name.
void enterPath(QFileDialog& panel, const QString& path);

/// Pastes a path into the panel and confirms it. False if the panel stayed open; it is then closed.
bool acceptFilePanel(QFileDialog& panel, const QString& path);

/// Chooses a path in the panel that the button opens. False if no panel opened or it did not accept the path.
bool choosePath(QAbstractButton& button, const QString& path);

/// Answers each message box during its lifetime by clicking one of its buttons.
class MessageAnswer {
 public:
  explicit MessageAnswer(QMessageBox::StandardButton answer);

  /// The text of the last message box; empty if there was none.
  const QString& text() const { return text_; }

 private:
  QTimer poll_;
  QString text_;
};

}  // namespace quorvane::gui
