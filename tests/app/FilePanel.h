#pragma once

#include <QAbstractButton>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>

/// Open and Save panels in a test, dealt with by keys and clicks.
namespace quorvane::gui {

/// Calls what opens a file panel and deals with the panel. False if no panel came.
bool withFilePanel(const std::function<void()>& open, const std::function<void(QFileDialog&)>& deal);

/// Clicks the button and deals with the file panel that it opens. False if no panel came.
bool withFilePanel(QAbstractButton& button, const std::function<void(QFileDialog&)>& deal);

/// Pastes a path into the panel's field for the name.
void enterPath(QFileDialog& panel, const QString& path);

/// Pastes a path into the panel and confirms it. False if the panel stays, which it then no longer does.
bool acceptFilePanel(QFileDialog& panel, const QString& path);

/// Chooses a path in the panel that the button opens. False if the panel did not come or did not take it.
bool choosePath(QAbstractButton& button, const QString& path);

/// Answers each message box that comes while it lives by a click on one of its buttons.
class MessageAnswer {
 public:
  explicit MessageAnswer(QMessageBox::StandardButton answer);

  /// What the last message said; empty if none came.
  const QString& text() const { return text_; }

 private:
  QTimer poll_;
  QString text_;
};

}  // namespace quorvane::gui
