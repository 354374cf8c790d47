#pragma once

#include <QAccessibleWidget>
#include <QCheckBox>

namespace quorvane {

class ColorWell;

/// The accessible interface of a check box. Toggling it acts as a click, which calls the handlers.
class AccessibleCheckBox : public QAccessibleWidget {
 public:
  explicit AccessibleCheckBox(QCheckBox& box);

  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QCheckBox& box() const;
};

/// The accessible interface of a colour well: a button if it is editable, else an image; its name includes
/// the colour.
class AccessibleColorWell : public QAccessibleWidget {
 public:
  explicit AccessibleColorWell(ColorWell& well);

  QAccessible::Role role() const override;
  QString text(QAccessible::Text kind) const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  ColorWell& well() const;
  bool canBePressed() const;
};

}  // namespace quorvane
