#include "AccessibleFactory.h"

#include <QAccessible>

#include "AccessibleButtons.h"
#include "AccessibleTexts.h"
#include "AccessibleValues.h"
#include "app/CaptionedLabel.h"
#include "app/ColorWell.h"
#include "app/DoubleSlider.h"
#include "app/StatusLine.h"
#include "app/Stepper.h"
#include "view/GraphicalLatticeModelGL.h"
#include "view/GraphicalPlot.h"

namespace quorvane {
namespace {

/// Qt asks for an object's class first and then for its base classes.
bool is(const QString& name, const QMetaObject& type) { return name == QLatin1String(type.className()); }

QAccessibleInterface* make(const QString& className, QObject* object) {
  if (!object || !object->isWidgetType()) return nullptr;
  auto* widget = static_cast<QWidget*>(object);
  const auto named = [&](const QMetaObject& type) { return is(className, type); };
  if (named(DoubleSlider::staticMetaObject)) return new AccessibleSlider(static_cast<DoubleSlider&>(*widget));
  if (named(Stepper::staticMetaObject)) return new AccessibleStepper(static_cast<Stepper&>(*widget));
  if (named(ColorWell::staticMetaObject)) return new AccessibleColorWell(static_cast<ColorWell&>(*widget));
  if (named(QCheckBox::staticMetaObject)) return new AccessibleCheckBox(static_cast<QCheckBox&>(*widget));
  if (named(QComboBox::staticMetaObject)) {
    auto& list = static_cast<QComboBox&>(*widget);
    return list.isEditable() ? nullptr : new AccessibleList(list);
  }
  if (named(StatusLine::staticMetaObject))
    return new AccessibleLabel(static_cast<CaptionedLabel&>(*widget), QAccessible::StatusBar);
  if (named(CaptionedLabel::staticMetaObject))
    return new AccessibleLabel(static_cast<CaptionedLabel&>(*widget), QAccessible::StaticText);
  if (named(GraphicalPlot::staticMetaObject)) return new QAccessibleWidget(widget, QAccessible::Chart);
  if (named(GraphicalLatticeModelGL::staticMetaObject))
    return new QAccessibleWidget(widget, QAccessible::Graphic);
  return nullptr;
}

}  // namespace

void installAccessibleFactory() { QAccessible::installFactory(make); }

}  // namespace quorvane
