#include "app/ColorWell.h"

#include <QAccessible>
#include <QColorDialog>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

namespace quorvane {
namespace {

/// The components as fractions of the colour's 16 bits in double precision; those of QColor have single
/// precision.
Rgb componentsOf(const QColor& color) {
  const QRgba64 bits = color.toRgb().rgba64();
  constexpr double full = 65535.0;
  return {bits.red() / full, bits.green() / full, bits.blue() / full};
}

float clamped(double component) { return static_cast<float>(std::clamp(component, 0.0, 1.0)); }

}  // namespace

ColorWell::ColorWell(QWidget* parent) : QAbstractButton(parent) {
  setEditable(false);
  connect(this, &QAbstractButton::clicked, this, &ColorWell::chooseColor);
}

void ColorWell::setRgb(const Rgb& rgb) {
  if (hasColor_ && rgb_ == rgb) return;
  rgb_ = rgb;
  hasColor_ = true;
  showColor();
}

QColor ColorWell::color() const {
  if (!hasColor_) return {};
  return QColor::fromRgbF(clamped(rgb_.red), clamped(rgb_.green), clamped(rgb_.blue));
}

void ColorWell::setColor(const QColor& color) { setRgb(componentsOf(color)); }

void ColorWell::clear() {
  hasColor_ = false;
  showColor();
}

void ColorWell::showColor() {
  update();
  QAccessibleEvent event(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

void ColorWell::setEditable(bool editable) {
  editable_ = editable;
  setFocusPolicy(editable ? Qt::StrongFocus : Qt::NoFocus);
  update();
}

void ColorWell::pick(const Rgb& rgb) {
  setRgb(rgb);
  emit picked();
}

void ColorWell::chooseColor() {
  if (!editable_) return;
  auto* dialog = new QColorDialog(color(), this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(accessibleName());
  const auto follow = [this](const QColor& chosen) { pick(componentsOf(chosen)); };
  const auto goBack = [this, former = rgb_] {
    if (rgb_ != former) pick(former);
  };
  connect(dialog, &QColorDialog::currentColorChanged, this, follow);
  connect(dialog, &QDialog::rejected, this, goBack);
  dialog->open();
}

void ColorWell::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QRect swatch = rect();
  if (editable_) {
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    swatch.adjust(5, 5, -5, -5);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(isEnabled() ? 1.0 : 0.4);
  QColor line = palette().color(QPalette::WindowText);
  line.setAlphaF(0.35F);
  painter.setPen(line);
  painter.setBrush(hasColor_ ? QBrush(color()) : QBrush(Qt::NoBrush));
  painter.drawRoundedRect(QRectF(swatch).adjusted(0.5, 0.5, -0.5, -0.5), 2.5, 2.5);
}

}  // namespace quorvane
