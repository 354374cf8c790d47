#include <QApplication>
#include <QGroupBox>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <array>

#include "WindowTest.h"
#include "app/ElidedLabel.h"
#include "view/GraphicalPlot.h"

namespace quorvane {
namespace {

/// A window in which every control is visible, on a desktop with a font of a given size.
class Layout : public WindowTest, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    QApplication::setFont(fontOf(GetParam()));
    WindowTest::SetUp();
  }
  void TearDown() override { QApplication::setFont(desktopFont_); }

  static QFont fontOf(int points) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    return font;
  }

  void showEverything() {
    initialise(3);
    addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
    choose("listSelectedRuleFacNum", "1");
    choose("listNewRulePixelA", "1 - Pixel");
    choose("listNewRulePixelB", "2 - Pixel");
    click("checkMasqueradePixel");
    key("sliderSimulationSpeed", Qt::Key_End);
  }

  void resizeTo(QSize size) {
    window_->resize(size);
    ASSERT_TRUE(gui::waitUntil([&] {
      return model().getWidth() == window_->width() - 556 && model().getHeight() == window_->height() - 234;
    }));
  }

  QList<QWidget*> controls() {
    QList<QWidget*> found;
    for (QWidget* widget : window_->findChildren<QWidget*>()) {
      if (!widget->isVisible() || qobject_cast<QSpinBox*>(widget->parentWidget())) continue;
      if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
          qobject_cast<QLabel*>(widget) || qobject_cast<QLineEdit*>(widget) ||
          qobject_cast<QSlider*>(widget) || qobject_cast<QSpinBox*>(widget) ||
          qobject_cast<GraphicalPlot*>(widget) || widget == &model())
        found += widget;
    }
    return found;
  }

  QRect place(const QWidget* widget) { return {widget->mapTo(window_.get(), QPoint(0, 0)), widget->size()}; }

  /// The rectangle of a name and its colour well, if that is visible.
  QRect roomOf(const char* name, const char* well) {
    const QRect room = place(&control(name));
    return visible(well) ? room | place(&control(well)) : room;
  }

  void expectNothingOverlaps() {
    const QList<QWidget*> all = controls();
    EXPECT_GT(all.size(), 60);
    for (int a = 0; a < all.size(); ++a) {
      EXPECT_TRUE(window_->rect().contains(place(all[a]))) << all[a]->objectName().toStdString();
      for (int b = a + 1; b < all.size(); ++b)
        EXPECT_FALSE(place(all[a]).intersects(place(all[b])))
            << all[a]->objectName().toStdString() << " and " << all[b]->objectName().toStdString();
    }
    for (const QGroupBox* group : window_->findChildren<QGroupBox*>()) {
      for (QWidget* inside : group->findChildren<QWidget*>()) {
        if (!all.contains(inside)) continue;
        EXPECT_TRUE(place(group).contains(place(inside))) << inside->objectName().toStdString();
      }
    }
  }

  void expectNothingScrolls() {
    for (const QScrollBar* bar : window_->findChildren<QScrollBar*>())
      EXPECT_FALSE(bar->isVisible()) << bar->parentWidget()->parentWidget()->objectName().toStdString();
  }

  static int widthOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
  }

  static bool isWhole(const QLabel& label) {
    const QRect room = label.contentsRect();
    if (label.wordWrap()) return room.height() >= label.heightForWidth(room.width());
    return room.width() >= widthOf(label, label.text()) && room.height() >= label.fontMetrics().height();
  }
  static bool isWhole(const QPushButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const QRect room = button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    return room.width() >= widthOf(button, button.text()) && room.height() >= button.fontMetrics().height();
  }
  static bool isWhole(const QCheckBox& box) {
    return box.width() >= box.sizeHint().width() && box.height() >= box.sizeHint().height();
  }
  static bool isWhole(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect room =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    for (int item = 0; item < box.count(); ++item)
      if (room.width() < box.fontMetrics().horizontalAdvance(box.itemText(item))) return false;
    return room.height() >= box.fontMetrics().height();
  }
  static bool isWhole(const QLineEdit& field) {
    // A line edit keeps two points free on either side of its text.
    return field.contentsRect().width() - 4 >= field.fontMetrics().horizontalAdvance(field.text());
  }

  void expectEveryTextIsWhole() {
    for (const QWidget* widget : controls()) {
      bool whole = true;
      if (const auto* label = qobject_cast<const QLabel*>(widget)) whole = isWhole(*label);
      if (const auto* button = qobject_cast<const QPushButton*>(widget)) whole = isWhole(*button);
      if (const auto* box = qobject_cast<const QCheckBox*>(widget)) whole = isWhole(*box);
      if (const auto* list = qobject_cast<const QComboBox*>(widget)) whole = isWhole(*list);
      if (const auto* field = qobject_cast<const QLineEdit*>(widget)) whole = isWhole(*field);
      EXPECT_TRUE(whole) << widget->objectName().toStdString();
    }
    for (const QGroupBox* group : window_->findChildren<QGroupBox*>())
      EXPECT_GE(group->width(), widthOf(*group, group->title())) << group->objectName().toStdString();
  }

 private:
  const QFont desktopFont_ = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(Points, Layout, ::testing::Values(9, 11, 14),
                         [](const auto& test) { return std::to_string(test.param); });

TEST_P(Layout, IsRightAtItsDefaultSize) {
  showEverything();
  expectNothingScrolls();
  expectNothingOverlaps();
  expectEveryTextIsWhole();
}

TEST_P(Layout, IsRightAtItsSmallestSize) {
  showEverything();
  resizeTo(QSize(1, 1));
  EXPECT_LT(window_->width(), 1180);
  EXPECT_LT(window_->height(), 760);
  EXPECT_GE(model().width(), 400);
  EXPECT_GE(model().height(), 400);
  expectNothingScrolls();
  expectNothingOverlaps();
  expectEveryTextIsWhole();
}

TEST_P(Layout, IsRightOnALargeScreen) {
  showEverything();
  resizeTo(QSize(1900, 1000));
  expectNothingScrolls();
  expectNothingOverlaps();
  expectEveryTextIsWhole();
}

TEST_P(Layout, FitsASmallScreenInsideAWindowFrame) {
  const QSize smallest = window_->minimumSizeHint();
  EXPECT_LE(smallest.width(), 1280 - 20);
  EXPECT_LE(smallest.height(), 800 - 60);
}

TEST_P(Layout, DoesNotMoveWhenControlsAreShownAndHidden) {
  initialise(3);
  const auto places = [this] {
    QList<QRect> found;
    for (const QGroupBox* group : window_->findChildren<QGroupBox*>()) found += place(group);
    found += place(&control("buttonZeroParam"));
    found += place(&control("checkMasqueradePixel"));
    return found;
  };
  const QList<QRect> before = places();
  addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
  choose("listSelectedRuleFacNum", "1");
  click("checkMasqueradePixel");
  gui::processEvents();
  EXPECT_EQ(places(), before);
  addRule("bond", "Pixel-Pixel Interaction", kAny, kAny);
  gui::processEvents();
  EXPECT_EQ(places(), before);
}

TEST_P(Layout, TheEndsOfARuleUseTheSpaceOfAHiddenWell) {
  showEverything();
  addRule("turn", "Reversible Flip", kAny, "1 - Pixel");
  gui::processEvents();
  const auto ends = [this](const char* nameA, const char* wellA, const char* nameB, const char* wellB) {
    return std::array{roomOf(nameA, wellA), roomOf(nameB, wellB)};
  };
  const auto selected = [&] {
    return ends("textSelectedRulePixelA", "colorSelectedRulePixelA", "textSelectedRulePixelB",
                "colorSelectedRulePixelB");
  };
  const auto added = [&] {
    return ends("listNewRulePixelA", "colorNewRulePixelA", "listNewRulePixelB", "colorNewRulePixelB");
  };
  EXPECT_FALSE(visible("colorSelectedRulePixelA"));
  EXPECT_TRUE(visible("colorSelectedRulePixelB"));
  EXPECT_EQ(place(&control("textSelectedRulePixelA")).left(),
            place(&control("sliderSelectedRuleParam")).left());
  const auto oneHidden = selected();
  choose("listSelectedRule", "0 - grow");
  gui::processEvents();
  EXPECT_TRUE(visible("colorSelectedRulePixelA"));
  EXPECT_EQ(selected(), oneHidden);
  EXPECT_EQ(place(&control("colorSelectedRulePixelA")).left(),
            place(&control("sliderSelectedRuleParam")).left());

  const auto bothHidden = added();
  EXPECT_FALSE(visible("colorNewRulePixelA") || visible("colorNewRulePixelB"));
  EXPECT_EQ(place(&control("listNewRulePixelB")).right(), place(&control("buttonAddNewRule")).right());
  for (const char* list : {"listNewRulePixelA", "listNewRulePixelB"}) choose(list, "1 - Pixel");
  gui::processEvents();
  EXPECT_TRUE(visible("colorNewRulePixelA") && visible("colorNewRulePixelB"));
  EXPECT_EQ(added(), bothHidden);
}

TEST_P(Layout, LongNamesMoveNothing) {
  showEverything();
  const QSize smallest = window_->minimumSizeHint();
  const QRect button = place(&control("buttonDelRule"));
  choose("listSelectPixelType", "1 - Pixel");
  enter("textPixelName", QString(120, 'W'));
  enter("textSelectedRuleName", QString(120, 'W'));
  choose("listPaintType", "1 - " + QString(120, 'W'));
  gui::processEvents();
  EXPECT_EQ(window_->minimumSizeHint(), smallest);
  EXPECT_EQ(place(&control("buttonDelRule")), button);
  expectNothingOverlaps();
}

TEST_P(Layout, KeepsRoomForEveryValueThatALabelCanShow) {
  showEverything();
  addRule("bond", "Pixel-Pixel Interaction", kAny, kAny);
  for (const char* name : {"sliderWidthHeight", "sliderSelectedPixelPersistence", "sliderSelectedPixelTrans"})
    key(name, Qt::Key_End);
  for (const char* name : {"sliderPixelField", "sliderSelectedRuleParam"}) key(name, Qt::Key_Home);
  resizeTo(QSize(1, 1));
  EXPECT_EQ(text("textWidthHeight"), "256");
  EXPECT_EQ(text("textPixelField"), "-10.000");
  EXPECT_EQ(text("textSelectedRuleParam"), "-10.000");
  expectNothingOverlaps();
  expectEveryTextIsWhole();
}

TEST_P(Layout, FollowsTheFontOfTheDesktop) {
  showEverything();
  const double before = control("buttonRunModel").font().pointSizeF();
  QApplication::setFont(fontOf(18));
  gui::processEvents();
  EXPECT_EQ(window_->font().pointSizeF(), 18.0);
  resizeTo(QSize(1, 1));
  expectNothingScrolls();
  expectNothingOverlaps();
  expectEveryTextIsWhole();
  QApplication::setFont(fontOf(GetParam()));
  gui::processEvents();
  EXPECT_EQ(control("buttonRunModel").font().pointSizeF(), before);
  resizeTo(QSize(1, 1));
  expectNothingOverlaps();
  expectEveryTextIsWhole();
}

TEST_P(Layout, NeitherEnlargesTheFontNorMakesItHardToRead) {
  const double used = control("buttonRunModel").font().pointSizeF();
  EXPECT_LE(used, GetParam());
  EXPECT_GE(used, 9.0);
}

TEST_P(Layout, TakesItsColoursFromThePalette) {
  QPalette dark = window_->palette();
  dark.setColor(QPalette::Window, QColor(40, 40, 44));
  dark.setColor(QPalette::WindowText, Qt::white);
  window_->setPalette(dark);
  gui::processEvents();
  const QImage shown = window_->grab().toImage();
  EXPECT_EQ(shown.pixelColor(3, window_->height() - 3), QColor(40, 40, 44));
  EXPECT_EQ(shown.pixelColor(window_->width() - 3, 3), QColor(40, 40, 44));
}

}  // namespace
}  // namespace quorvane
