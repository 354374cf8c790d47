#include "AccessibleTexts.h"

#include <QAbstractItemView>

#include "app/CaptionedLabel.h"

namespace quorvane {
namespace {

QString captioned(const QString& caption, const QString& text) {
  if (caption.isEmpty()) return text;
  return text.isEmpty() ? caption : CaptionedLabel::tr("%1: %2").arg(caption, text);
}

}  // namespace

AccessibleLabel::AccessibleLabel(CaptionedLabel& label, QAccessible::Role role)
    : QAccessibleWidget(&label, role) {}

QString AccessibleLabel::text(QAccessible::Text kind) const {
  if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
  const auto& label = static_cast<const CaptionedLabel&>(*widget());
  return captioned(label.caption().isEmpty() ? label.accessibleName() : label.caption(), label.text());
}

AccessibleList::AccessibleList(QComboBox& list) : QAccessibleWidget(&list, QAccessible::ComboBox) {}

QComboBox& AccessibleList::list() const { return static_cast<QComboBox&>(*widget()); }

QWidget* AccessibleList::openItems() const {
  auto* items = list().findChild<QAbstractItemView*>();
  return items && items->isVisible() ? items : nullptr;
}

QString AccessibleList::text(QAccessible::Text kind) const {
  switch (kind) {
    case QAccessible::Name:
      return captioned(list().accessibleName(), list().currentText());
    case QAccessible::Value:
      return list().currentText();
    default:
      return QAccessibleWidget::text(kind);
  }
}

QAccessible::State AccessibleList::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.hasPopup = true;
  state.expandable = true;
  state.expanded = openItems() != nullptr;
  state.collapsed = !state.expanded;
  return state;
}

QList<QPair<QAccessibleInterface*, QAccessible::Relation>> AccessibleList::relations(
    QAccessible::Relation match) const {
  if (!list().accessibleName().isEmpty()) match &= ~QAccessible::Relation(QAccessible::Label);
  return QAccessibleWidget::relations(match);
}

QAccessibleInterface* AccessibleList::child(int index) const {
  QWidget* items = index == 0 ? openItems() : nullptr;
  if (!items) return nullptr;
  if (items->accessibleName().isEmpty()) items->setAccessibleName(list().accessibleName());
  return QAccessible::queryAccessibleInterface(items);
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
  return child && openItems() && child->object() == openItems() ? 0 : -1;
}

QStringList AccessibleList::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (list().isEnabled()) names.prepend(showMenuAction());
  return names;
}

void AccessibleList::doAction(const QString& name) {
  if (name != showMenuAction()) return QAccessibleWidget::doAction(name);
  if (!list().isEnabled()) return;
  if (openItems())
    list().hidePopup();
  else
    list().showPopup();
}

}  // namespace quorvane
