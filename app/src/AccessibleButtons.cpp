#include "AccessibleButtons.h"

#include <algorithm>

#include "app/ColorWell.h"
#include "app/FixedDecimals.h"

namespace quorvane {
namespace {

/// A colour component as it is read, with two decimals.
QString share(double component) { return fixedDecimals(std::clamp(component, 0.0, 1.0), 2); }

}  // namespace

AccessibleCheckBox::AccessibleCheckBox(QCheckBox& box) : QAccessibleWidget(&box, QAccessible::CheckBox) {}

QCheckBox& AccessibleCheckBox::box() const { return static_cast<QCheckBox&>(*widget()); }

QString AccessibleCheckBox::text(QAccessible::Text kind) const {
  QString text = QAccessibleWidget::text(kind);
  return kind == QAccessible::Name && text.isEmpty() ? box().text().remove('&') : text;
}

QAccessible::State AccessibleCheckBox::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.checkable = true;
  state.checked = box().checkState() == Qt::Checked;
  state.checkStateMixed = box().checkState() == Qt::PartiallyChecked;
  return state;
}

QStringList AccessibleCheckBox::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (box().isEnabled()) names.prepend(toggleAction());
  return names;
}

void AccessibleCheckBox::doAction(const QString& name) {
  if (name == toggleAction())
    box().click();
  else
    QAccessibleWidget::doAction(name);
}

AccessibleColorWell::AccessibleColorWell(ColorWell& well) : QAccessibleWidget(&well) {}

ColorWell& AccessibleColorWell::well() const { return static_cast<ColorWell&>(*widget()); }

QAccessible::Role AccessibleColorWell::role() const {
  return well().isEditable() ? QAccessible::Button : QAccessible::Graphic;
}

QString AccessibleColorWell::text(QAccessible::Text kind) const {
  QString text = QAccessibleWidget::text(kind);
  if (kind != QAccessible::Name) return text;
  if (!well().color().isValid()) return ColorWell::tr("%1: none").arg(text);
  const auto [red, green, blue] = well().rgb();
  return ColorWell::tr("%1: red %2, green %3, blue %4").arg(text, share(red), share(green), share(blue));
}

bool AccessibleColorWell::canBePressed() const { return well().isEditable() && well().isEnabled(); }

QStringList AccessibleColorWell::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (canBePressed()) names.prepend(pressAction());
  return names;
}

void AccessibleColorWell::doAction(const QString& name) {
  if (name != pressAction()) return QAccessibleWidget::doAction(name);
  if (canBePressed()) well().click();
}

}  // namespace quorvane
