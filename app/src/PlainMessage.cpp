#include "app/PlainMessage.h"

#include <QMessageBox>

namespace quorvane {

void warn(QWidget* parent, const QString& title, const QString& line) {
  QMessageBox box(QMessageBox::Warning, title, line, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

bool confirm(QWidget* parent, const QString& title, const QString& question) {
  QMessageBox box(QMessageBox::Question, title, question, QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace quorvane
