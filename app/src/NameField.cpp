#include "app/NameField.h"

#include "app/PrintableText.h"

namespace quorvane {

NameField::NameField(QWidget* parent) : QLineEdit(parent) {
  setValidator(newPrintableValidator(this));
  connect(this, &QLineEdit::editingFinished, this, &NameField::finishEditing);
}

void NameField::showName(int item, const std::string& name) {
  item_ = item;
  shown_ = printableText(name);
  const int cursor = hasFocus() && text() == shown_ ? cursorPosition() : 0;
  setText(shown_);
  setCursorPosition(cursor);
}

void NameField::clearName() { showName(-1, {}); }

void NameField::commit() {
  if (isEdited()) emit nameEdited();
}

void NameField::finishEditing() {
  commit();
  // After the focus leaves, the field shows the beginning of the name.
  if (!hasFocus()) home(false);
}

}  // namespace quorvane
