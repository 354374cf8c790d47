#pragma once

#include <QLineEdit>
#include <string>

namespace quorvane {

/// The editable name of one item of a list. Remembers which item it shows, so that an edit goes to that item
/// even if another has been chosen since. Shows and accepts printable ASCII only.
class NameField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NameField(QWidget* parent = nullptr);

  /// Shows the name of an item from its beginning. If the field has the focus and already shows this name,
  /// the cursor does not move.
  void showName(int item, const std::string& name);
  /// Shows no name.
  void clearName();

  /// The item whose name is shown, -1 for none.
  int item() const { return item_; }
  /// True if the text differs from the name shown. Not a record of key presses: an undone edit is none, and
  /// assistive technology edits without keys.
  bool isEdited() const { return text() != shown_; }
  /// Emits nameEdited for an unfinished edit.
  void commit();

 signals:
  /// The user has finished an edit, by Return or by leaving the field.
  void nameEdited();

 private:
  void finishEditing();

  int item_ = -1;
  QString shown_;
};

}  // namespace quorvane
