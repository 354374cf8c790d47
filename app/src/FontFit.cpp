#include "FontFit.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontInfo>
#include <QLayout>
#include <QLocale>
#include <algorithm>

#include "ScrollingPanels.h"
#include "engine/RuleKinds.h"
#include "ui_MainWindow.h"

namespace quorvane {
namespace {

constexpr double kStep = 0.5;
/// Smaller text is hard to read; a desktop font that is smaller still is kept.
constexpr double kSmallestPointSize = 9.0;
/// With a window frame this fits a screen of 1280 by 800; the window starts larger.
constexpr QSize kLargestSmallestWindow{1170, 740};
constexpr int kButtonPadding = 16;
constexpr int kFieldPadding = 12;

QString longestRuleLabel() {
  QString longest;
  for (const RuleKind& kind : kRuleKinds)
    if (const QString label = kind.label; label.size() > longest.size()) longest = label;
  return longest;
}

}  // namespace

FontFit::FontFit(QMainWindow& window, Ui::MainWindow& ui, const ScrollingPanels& panels)
    : window_(window), ui_(ui), panels_(panels) {
  for (QPushButton* button : ui.centralwidget->findChildren<QPushButton*>())
    keepRoom(button, button->text(), kButtonPadding);
  for (QLabel* caption :
       {ui.captionListSelectPixelType, ui.captionListSelectedRule, ui.captionTextNewRuleName})
    keepRoom(caption, caption->text());

  keepRoom(ui.textNumPixelTypes, "10");
  keepRoom(ui.textWidthHeight, "256");
  keepRoom(ui.textSimulationSpeed, QLocale().toString(1'000'000'000));
  for (QLabel* value : {ui.textSelectedPixelPersistence, ui.textSelectedPixelTrans, ui.textPixelField,
                        ui.textSelectedRuleParam})
    keepRoom(value, "-10.000");
  keepRoom(ui.textSelectedRuleType, longestRuleLabel());
  keepRoom(ui.textNewRuleName, ui.textNewRuleName->prompt(), kFieldPadding);
}

void FontFit::keepRoom(QWidget* widget, const QString& longestText, int padding) {
  rooms_.push_back({widget, longestText, padding, widget->minimumWidth()});
}

void FontFit::fit() {
  // A font may be given in pixels and then has no point size.
  double pointSize = window_.font().pointSizeF();
  if (pointSize <= 0.0) pointSize = QFontInfo(window_.font()).pointSizeF();
  use(pointSize);
  while (!fits() && pointSize > kSmallestPointSize)
    use(pointSize = std::max(pointSize - kStep, kSmallestPointSize));
}

void FontFit::use(double pointSize) {
  QFont font;
  font.setPointSizeF(pointSize);
  ui_.centralwidget->setFont(font);
  for (const auto& [widget, longestText, padding, least] : rooms_) {
    const int width = widget->fontMetrics().size(Qt::TextShowMnemonic, longestText).width();
    widget->setMinimumWidth(std::max(least, width + padding));
  }
  // A combo box caches its minimum size until the style changes.
  for (QComboBox* list : ui_.centralwidget->findChildren<QComboBox*>()) {
    QEvent restyle(QEvent::StyleChange);
    QCoreApplication::sendEvent(list, &restyle);
  }
  // Otherwise the layouts would use the new font only in the event loop.
  for (QWidget* widget : ui_.centralwidget->findChildren<QWidget*>()) widget->updateGeometry();
  for (QLayout* layout : ui_.centralwidget->findChildren<QLayout*>()) layout->invalidate();
}

bool FontFit::fits() const {
  const QSize smallest = panels_.smallestSize();
  return smallest.width() <= kLargestSmallestWindow.width() &&
         smallest.height() <= kLargestSmallestWindow.height() && panels_.fitTheMargins();
}

}  // namespace quorvane
