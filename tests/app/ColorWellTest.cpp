#include <gtest/gtest.h>

#include <QColorDialog>
#include <QSignalSpy>
#include <QTest>

#include "GuiSupport.h"
#include "PrintText.h"
#include "app/ColorWell.h"

namespace quorvane {
namespace {

class ColorWellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    well_.resize(60, 30);
    well_.setRgb(kFormer);
    ASSERT_TRUE(gui::showAndActivate(well_));
  }
  QColorDialog* openDialog() {
    gui::click(well_, well_.rect().center());
    QColorDialog* dialog = nullptr;
    EXPECT_TRUE(
        gui::waitUntil([&] { return (dialog = well_.findChild<QColorDialog*>()) && dialog->isVisible(); }));
    return dialog;
  }

  static constexpr Rgb kFormer{0.1234567, 1.0 / 3.0, 0.9};
  ColorWell well_;
  QSignalSpy picked_{&well_, &ColorWell::picked};
};

TEST_F(ColorWellTest, ShowsItsColour) {
  well_.setRgb({1.0, 0.5, 0.0});
  EXPECT_EQ(well_.grab().toImage().pixelColor(30, 15), QColor(255, 128, 0));
  well_.setEditable(true);
  EXPECT_EQ(well_.grab().toImage().pixelColor(30, 15), QColor(255, 128, 0));
}

TEST_F(ColorWellTest, ShowsNoColourWhenCleared) {
  well_.clear();
  EXPECT_FALSE(well_.color().isValid());
  EXPECT_EQ(well_.grab().toImage().pixelColor(30, 15), well_.palette().color(QPalette::Window));
}

TEST_F(ColorWellTest, AColourFromCodeIsKeptExactlyAndCallsNoHandler) {
  EXPECT_EQ(well_.rgb(), kFormer);
  EXPECT_EQ(picked_.count(), 0);
}

TEST_F(ColorWellTest, ShowsTheNearestColourWithinTheRange) {
  well_.setRgb({-1.0, 2.0, 0.0});
  EXPECT_EQ(well_.color(), QColor(0, 255, 0));
}

TEST_F(ColorWellTest, ReadOnlyOpensNothingAndTakesNoFocus) {
  gui::click(well_, well_.rect().center());
  gui::processEvents();
  EXPECT_EQ(well_.findChild<QColorDialog*>(), nullptr);
  EXPECT_EQ(well_.focusPolicy(), Qt::NoFocus);
}

TEST_F(ColorWellTest, FollowsTheDialogLive) {
  well_.setEditable(true);
  QColorDialog* dialog = openDialog();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->currentColor().name(), well_.color().name());
  EXPECT_EQ(picked_.count(), 0);
  dialog->setCurrentColor(QColor(51, 102, 255));
  EXPECT_EQ(well_.rgb(), (Rgb{0.2, 0.4, 1.0}));
  EXPECT_EQ(picked_.count(), 1);
  dialog->accept();
  EXPECT_EQ(well_.rgb(), (Rgb{0.2, 0.4, 1.0}));
}

TEST_F(ColorWellTest, CancellingRestoresTheFormerColourExactly) {
  well_.setEditable(true);
  QColorDialog* dialog = openDialog();
  ASSERT_NE(dialog, nullptr);
  dialog->setCurrentColor(Qt::blue);
  QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_EQ(well_.rgb(), kFormer);
  EXPECT_EQ(picked_.count(), 2);
}

TEST_F(ColorWellTest, OpeningAndClosingTheDialogChangesNothing) {
  well_.setEditable(true);
  for (const auto close : {&QDialog::accept, &QDialog::reject}) {
    QColorDialog* dialog = openDialog();
    ASSERT_NE(dialog, nullptr);
    (dialog->*close)();
    gui::processEvents();
  }
  EXPECT_EQ(well_.rgb(), kFormer);
  EXPECT_EQ(picked_.count(), 0);
}

TEST_F(ColorWellTest, OpensByTheKeyboard) {
  well_.setEditable(true);
  well_.setFocus();
  QTest::keyClick(&well_, Qt::Key_Space);
  EXPECT_TRUE(gui::waitUntil([this] { return well_.findChild<QColorDialog*>() != nullptr; }));
}

}  // namespace
}  // namespace quorvane
