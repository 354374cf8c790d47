#include <QAccessible>
#include <QSet>

#include "WindowTest.h"

namespace quorvane {
namespace {

constexpr const char* kOutlets[] = {"stepperNumPixelTypes",
                                    "textNumPixelTypes",
                                    "buttonInitialiseModel",
                                    "buttonRemakeModel",
                                    "sliderWidthHeight",
                                    "textWidthHeight",
                                    "buttonOpenSystem",
                                    "buttonSaveSystem",
                                    "sliderSimulationSpeed",
                                    "buttonRunModel",
                                    "buttonStopModel",
                                    "listPaintType",
                                    "colorPaintType",
                                    "labelPainterHelp",
                                    "checkPauseWhilePaint",
                                    "buttonFullScreen",
                                    "listSelectPixelType",
                                    "listMasqueradeType",
                                    "textPixelName",
                                    "labelMasqueradeType",
                                    "textPixelField",
                                    "colorSelectedPixelColor",
                                    "colorMasqueradeType",
                                    "sliderSelectedPixelPersistence",
                                    "sliderSelectedPixelTrans",
                                    "sliderPixelField",
                                    "checkImmobilePixel",
                                    "checkMasqueradePixel",
                                    "buttonAddNewPixel",
                                    "buttonZeroPixelField",
                                    "listSelectedRule",
                                    "listSelectedRuleFacPixel",
                                    "listSelectedRuleFacNum",
                                    "listNewRuleType",
                                    "listNewRulePixelA",
                                    "listNewRulePixelB",
                                    "textSelectedRuleName",
                                    "textSelectedRuleType",
                                    "textSelectedRulePixelA",
                                    "textSelectedRulePixelB",
                                    "textSelectedRuleParam",
                                    "labelSelectedRuleFacPixel",
                                    "labelSelectedRuleFacNum",
                                    "textNewRuleName",
                                    "colorSelectedRulePixelA",
                                    "colorSelectedRulePixelB",
                                    "colorSelectedRuleFacPixel",
                                    "colorNewRulePixelA",
                                    "colorNewRulePixelB",
                                    "sliderSelectedRuleParam",
                                    "checkSelectedRuleDisabled",
                                    "checkSelectedRuleIgnoreEnergy",
                                    "buttonZeroParam",
                                    "buttonDelRule",
                                    "buttonAddNewRule"};

class Outlets : public WindowTest {
 protected:
  QString accessibleName(const char* name) {
    return QAccessible::queryAccessibleInterface(&control(name))->text(QAccessible::Name);
  }
  /// Every widget that the Tab key can focus, in tab order.
  QList<QWidget*> tabOrder() {
    QList<QWidget*> order;
    QWidget* const first = &control("stepperNumPixelTypes");
    QWidget* widget = first;
    do {
      if (widget->focusPolicy() & Qt::TabFocus && widget->isEnabled() && widget->isVisible() &&
          window_->isAncestorOf(widget))
        order += widget;
      widget = widget->nextInFocusChain();
    } while (widget != first);
    return order;
  }
};

TEST_F(Outlets, ExistWithTheirNameAndKind) {
  for (const char* name : kOutlets) {
    const QByteArray outlet = name;
    const QWidget* widget = window_->findChild<QWidget*>(name);
    ASSERT_NE(widget, nullptr) << name;
    if (outlet.startsWith("button")) {
      EXPECT_NE(qobject_cast<const QPushButton*>(widget), nullptr) << name;
    } else if (outlet.startsWith("check")) {
      EXPECT_NE(qobject_cast<const QCheckBox*>(widget), nullptr) << name;
    } else if (outlet.startsWith("list")) {
      EXPECT_NE(qobject_cast<const QComboBox*>(widget), nullptr) << name;
    } else if (outlet.startsWith("slider")) {
      EXPECT_NE(qobject_cast<const DoubleSlider*>(widget), nullptr) << name;
    } else if (outlet.startsWith("color")) {
      EXPECT_NE(qobject_cast<const ColorWell*>(widget), nullptr) << name;
    } else if (outlet.startsWith("label")) {
      EXPECT_NE(qobject_cast<const QLabel*>(widget), nullptr) << name;
    }
  }
  EXPECT_EQ(&get<GraphicalLatticeModelGL>("myGraphicalLatticeModel"), &model());
}

TEST_F(Outlets, AreAllControlsOfTheWindow) {
  const QSet<QByteArray> outlets(std::begin(kOutlets), std::end(kOutlets));
  for (const QWidget* widget : window_->findChildren<QWidget*>()) {
    const QByteArray name = widget->objectName().toUtf8();
    for (const char* kind : {"button", "check", "list", "slider", "stepper", "color"})
      EXPECT_TRUE(!name.startsWith(kind) || outlets.contains(name)) << name.constData();
  }
}

TEST_F(Outlets, OnlyNamesCanBeTyped) {
  QSet<QString> fields;
  for (const QLineEdit* field : window_->findChildren<QLineEdit*>())
    if (!field->objectName().startsWith("qt_")) fields += field->objectName();
  EXPECT_EQ(fields, QSet<QString>({"textPixelName", "textSelectedRuleName", "textNewRuleName"}));
}

TEST_F(Outlets, EachHasAnAccessibleNameAndOneSentenceOfHelp) {
  for (const char* name : kOutlets) {
    EXPECT_FALSE(accessibleName(name).isEmpty()) << name;
    const QString tip = control(name).toolTip();
    EXPECT_TRUE(tip.endsWith('.')) << name;
    EXPECT_FALSE(tip.contains(". ")) << name;
  }
}

TEST_F(Outlets, AccessibleNamesAreUnique) {
  QSet<QString> names;
  for (const char* name : kOutlets) {
    EXPECT_FALSE(names.contains(accessibleName(name))) << name;
    names += accessibleName(name);
  }
}

TEST_F(Outlets, NoMnemonicIsUsedTwice) {
  QStringList given;
  for (const QWidget* widget : window_->findChildren<QWidget*>()) {
    QString title;
    if (const auto* label = qobject_cast<const QLabel*>(widget)) title = label->buddy() ? label->text() : "";
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) title = button->text();
    const QKeySequence mnemonic = QKeySequence::mnemonic(title);
    if (!mnemonic.isEmpty()) given += mnemonic.toString();
  }
  EXPECT_GE(given.size(), 20);
  EXPECT_EQ(given.removeDuplicates(), 0) << given.join(" ").toStdString();
}

TEST_F(Outlets, TheTabKeyReachesEveryControlGroupByGroup) {
  initialise(3);
  addRule("grow", "Irreversible Flip", kAny, kAny);
  choose("listSelectedRuleFacNum", "1");
  click("checkMasqueradePixel");
  const QList<QWidget*> order = tabOrder();
  for (const char* name : kOutlets) {
    QWidget& outlet = control(name);
    const bool reachable = outlet.focusPolicy() & Qt::TabFocus && outlet.isEnabled();
    EXPECT_EQ(order.contains(&outlet), reachable) << name;
  }
  QStringList groups;
  for (const QWidget* widget : order) {
    const QWidget* group = widget->parentWidget();
    while (group && !group->objectName().startsWith("group")) group = group->parentWidget();
    if (group && (groups.isEmpty() || groups.last() != group->objectName())) groups += group->objectName();
  }
  EXPECT_EQ(groups, QStringList({"groupModel", "groupRun", "groupPaint", "groupPixelType",
                                 "groupSelectedRule", "groupNewRule", "groupPlot"}));
}

}  // namespace
}  // namespace quorvane
