#include <QApplication>
#include <QKeyEvent>
#include <QTest>

#include "WindowTest.h"

namespace quorvane {
namespace {

class NameFields : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    initialise(3);
    addRule("grow", "Irreversible Flip", "1 - Pixel", "2 - Pixel");
    addRule("mix", "Swap", kAny, kAny);
  }
  /// What the platform sends for a letter of any keyboard.
  void typeLetter(const char* field, const char* letter) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8(letter));
    QApplication::sendEvent(&control(field), &press);
  }
};

TEST_F(NameFields, ANameGoesToTheRuleItWasTypedForWhenAnotherIsPicked) {
  type("textSelectedRuleName", "diffuse");
  EXPECT_EQ(model().getRuleName(1), "mix");
  choose("listSelectedRule", "0 - grow");
  EXPECT_EQ(model().getRuleName(0), "grow");
  EXPECT_EQ(model().getRuleName(1), "diffuse");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - diffuse"}));
  EXPECT_EQ(list("listSelectedRule").currentText(), "0 - grow");
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
}

TEST_F(NameFields, ANameGoesToTheRuleItWasTypedForWhenOneIsAdded) {
  type("textSelectedRuleName", "diffuse");
  click("buttonAddNewRule");
  EXPECT_EQ(model().getRuleName(1), "diffuse");
  EXPECT_EQ(model().getRuleName(2), "(Enter New Rule Name)");
  EXPECT_EQ(list("listSelectedRule").currentIndex(), 2);
}

TEST_F(NameFields, ANameGoesWithTheRuleThatIsDeleted) {
  type("textSelectedRuleName", "diffuse");
  click("buttonDelRule");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow"}));
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
}

TEST_F(NameFields, ANameGoesToThePixelTypeItWasTypedFor) {
  type("textPixelName", "gas");
  choose("listSelectPixelType", "2 - Pixel");
  EXPECT_EQ(model().getPixelName(0), "gas");
  EXPECT_EQ(model().getPixelName(2), "Pixel");
  EXPECT_EQ(text("textPixelName"), "Pixel");
}

TEST_F(NameFields, AButtonPressedByItsMnemonicTakesTheNameAlong) {
  type("textPixelName", "gas");
  QTest::keyClick(&control("textPixelName"), Qt::Key_A, Qt::AltModifier);
  ASSERT_TRUE(gui::waitUntil([this] { return model().getNumPixelTypes() == 4; }));
  EXPECT_EQ(model().getPixelName(0), "gas");
  EXPECT_EQ(model().getPixelName(3), "New Pixel");
  EXPECT_EQ(text("textPixelName"), "New Pixel");
}

TEST_F(NameFields, AreTakenAlongWhereButtonsTakeNoFocus) {
  // On some desktops a click on a button leaves the focus where it is.
  for (const char* button : {"buttonAddNewPixel", "buttonAddNewRule", "buttonDelRule"})
    control(button).setFocusPolicy(Qt::TabFocus);
  type("textPixelName", "gas");
  click("buttonAddNewPixel");
  EXPECT_TRUE(control("textPixelName").hasFocus());
  EXPECT_EQ(model().getPixelName(0), "gas");
  EXPECT_EQ(text("textPixelName"), "New Pixel");

  type("textSelectedRuleName", "diffuse");
  click("buttonAddNewRule");
  EXPECT_EQ(model().getRuleName(1), "diffuse");
  type("textSelectedRuleName", "last");
  click("buttonDelRule");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - diffuse"}));
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
}

TEST_F(NameFields, NothingIsRewrittenWhenNothingWasTyped) {
  const std::string* const typeName = &model().getPixelName(0);
  const std::string* const ruleName = &model().getRuleName(1);
  for (const char* field : {"textSelectedRuleName", "textPixelName"}) {
    gui::click(control(field), control(field).rect().center());
    QTest::keyClick(&control(field), Qt::Key_Return);
    click("checkPauseWhilePaint");
  }
  EXPECT_EQ(&model().getPixelName(0), typeName);
  EXPECT_EQ(&model().getRuleName(1), ruleName);
}

TEST_F(NameFields, ShowALongNameFromItsBeginning) {
  const QString name(120, 'W');
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    enter(field, name);
    click("checkPauseWhilePaint");
    EXPECT_EQ(get<QLineEdit>(field).cursorPosition(), 0) << field;
  }
  choose("listSelectPixelType", "1 - Pixel");
  choose("listSelectPixelType", "0 - " + name);
  choose("listSelectedRule", "0 - grow");
  choose("listSelectedRule", "1 - " + name);
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    EXPECT_EQ(text(field), name);
    EXPECT_EQ(get<QLineEdit>(field).cursorPosition(), 0) << field;
  }
}

TEST_F(NameFields, LeaveTheCursorWhereTheUserTypes) {
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    enter(field, "abcd");
    EXPECT_EQ(get<QLineEdit>(field).cursorPosition(), 4) << field;
    QTest::keyClick(&control(field), Qt::Key_Left);
    QTest::keyClick(&control(field), Qt::Key_X);
    QTest::keyClick(&control(field), Qt::Key_Return);
    QTest::keyClick(&control(field), Qt::Key_Y);
    EXPECT_EQ(text(field), "abcxyd");
  }
}

TEST_F(NameFields, TakePrintableAsciiOnly) {
  for (const char* field : {"textPixelName", "textSelectedRuleName", "textNewRuleName"}) {
    type(field, "a");
    for (const char* letter : {"é", "€", "~", " ", "!", "\t", "b"}) typeLetter(field, letter);
    EXPECT_EQ(text(field), "a~ !b") << field;
  }
}

TEST_F(NameFields, AClickIntoThePromptLetsTypingReplaceIt) {
  QWidget& field = control("textNewRuleName");
  gui::click(field, QPoint(20, field.height() / 2));
  QTest::keyClicks(&field, "decay");
  EXPECT_EQ(text("textNewRuleName"), "decay");
  gui::click(control("textPixelName"), QPoint(20, 8));
  gui::click(field, QPoint(2, field.height() / 2));
  QTest::keyClicks(&field, "slow ");
  EXPECT_EQ(text("textNewRuleName"), "slow decay");
}

}  // namespace
}  // namespace quorvane
