#pragma once

#include <QAccessibleWidget>
#include <QCheckBox>

namespace quorvane {

class ColorWell;

/// A check box as assistive technology meets it. Toggling it is a user's click, which the handlers hear of.
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

/// A colour well as assistive technology meets it: a button if it can be edited, else a picture, named with
/// the colour that it shows.
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
