#pragma once

#include <QAccessibleWidget>
#include <QComboBox>

namespace quorvane {

class CaptionedLabel;

/// The accessible interface of a label; its name is "caption: text".
class AccessibleLabel : public QAccessibleWidget {
 public:
  AccessibleLabel(CaptionedLabel& label, QAccessible::Role role);

  QString text(QAccessible::Text kind) const override;
};

/// The accessible interface of a combo box; its name is "accessible name: chosen item". The items are
/// children only while the list is open, because the closed popup does not know the chosen item.
class AccessibleList : public QAccessibleWidget {
 public:
  explicit AccessibleList(QComboBox& list);

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  /// Without the buddy label, which would be read instead of the name.
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
