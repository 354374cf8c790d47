#pragma once

#include <QAccessibleWidget>
#include <QComboBox>

namespace quorvane {

class CaptionedLabel;

/// A label as assistive technology meets it: its name is "caption: text".
class AccessibleLabel : public QAccessibleWidget {
 public:
  AccessibleLabel(CaptionedLabel& label, QAccessible::Role role);

  QString text(QAccessible::Text kind) const override;
};

/// A pop-up list as assistive technology meets it: its name is "accessible name: chosen item". The items are
/// children while the list is open; before that the list that pops up does not know what is chosen.
class AccessibleList : public QAccessibleWidget {
 public:
  explicit AccessibleList(QComboBox& list);

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  /// Without the label of a named list, which would be read in place of the name.
  QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation match) const override;

  int childCount() const override { return openItems() ? 1 : 0; }
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QComboBox& list() const;
  /// The items, or null while the list is closed.
  QWidget* openItems() const;
};

}  // namespace quorvane
