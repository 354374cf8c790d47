#pragma once

#include <QLineEdit>

namespace quorvane {

/// A text field with a prompt as ordinary text; the first click selects it, so that typing replaces it.
class PromptEdit : public QLineEdit {
  Q_OBJECT
  Q_PROPERTY(QString prompt READ prompt WRITE setPrompt)

 public:
  using QLineEdit::QLineEdit;

  const QString& prompt() const { return prompt_; }
  void setPrompt(const QString& prompt) { prompt_ = prompt; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  QString prompt_;
  bool firstPress_ = false;
};

}  // namespace quorvane
