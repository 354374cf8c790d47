#pragma once

#include <QLineEdit>
#include <string>

namespace quorvane {

/// The editable name of one item of a list. Knows which item it shows, so that an edit goes to that item also
/// where another one has been chosen meanwhile. Shows and takes printable ASCII only.
class NameField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NameField(QWidget* parent = nullptr);

  /// Shows the name of an item from its beginning. Where the user is in the field and the name is what it
  /// shows already, the cursor stays.
  void showName(int item, const std::string& name);
  /// Shows the name of no item.
  void clearName();

  /// The item whose name is shown, -1 for none.
  int item() const { return item_; }
  /// True while the text is another than the name shown: an edit that was taken back is none, and assistive
  /// programs edit without a key press.
  bool isEdited() const { return text() != shown_; }
  /// Reports an edit that is not finished yet as if it were, by nameEdited.
  void commit();

 signals:
  /// The user has edited the name and finished with Return or by leaving the field.
  void nameEdited();

 private:
  void finishEditing();

  int item_ = -1;
  QString shown_;
};

}  // namespace quorvane
