#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTest>

#include "FilePanel.h"
#include "WindowTest.h"
#include "document/ModelDocument.h"

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
  /// The event that the platform sends for a letter of any keyboard.
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

TEST_F(NameFields, ANameTypedForADeletedRuleIsDropped) {
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

TEST_F(NameFields, AButtonPressedByItsMnemonicAppliesTheName) {
  type("textPixelName", "gas");
  QTest::keyClick(&control("textPixelName"), Qt::Key_A, Qt::AltModifier);
  ASSERT_TRUE(gui::waitUntil([this] { return model().getNumPixelTypes() == 4; }));
  EXPECT_EQ(model().getPixelName(0), "gas");
  EXPECT_EQ(model().getPixelName(3), "New Pixel");
  EXPECT_EQ(text("textPixelName"), "New Pixel");
}

TEST_F(NameFields, AreAppliedByButtonsThatTakeNoFocus) {
  // On some desktops clicking a button does not move the focus.
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

TEST_F(NameFields, AcceptPrintableAsciiOnly) {
  for (const char* field : {"textPixelName", "textSelectedRuleName", "textNewRuleName"}) {
    type(field, "a");
    for (const char* letter : {"é", "€", "~", " ", "!", "\t", "b"}) typeLetter(field, letter);
    EXPECT_EQ(text(field), "a~ !b") << field;
  }
}

TEST_F(NameFields, ANameGoesToTheTypeOrRuleItWasTypedForIfTheFocusStays) {
  // Assistive technology and some desktops choose an item without moving the focus.
  const auto chooseWithoutFocus = [this](const char* listName, int item) {
    list(listName).setCurrentIndex(item);
    emit list(listName).activated(item);
  };
  type("textPixelName", "gas");
  chooseWithoutFocus("listSelectPixelType", 2);
  EXPECT_EQ(model().getPixelName(0), "gas");
  EXPECT_EQ(model().getPixelName(2), "Pixel");
  EXPECT_EQ(list("listSelectPixelType").currentText(), "2 - Pixel");
  EXPECT_EQ(text("textPixelName"), "Pixel");

  type("textSelectedRuleName", "diffuse");
  chooseWithoutFocus("listSelectedRule", 0);
  EXPECT_EQ(model().getRuleName(1), "diffuse");
  EXPECT_EQ(model().getRuleName(0), "grow");
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
}

TEST_F(NameFields, ANameOfARuleIsKeptWhileOneOfATypeIsStored) {
  get<QLineEdit>("textSelectedRuleName").setText("diffuse");
  get<QLineEdit>("textPixelName").setText("gas");
  click("buttonAddNewPixel");
  EXPECT_EQ(model().getRuleName(1), "diffuse");
  EXPECT_EQ(model().getPixelName(0), "gas");

  get<QLineEdit>("textSelectedRuleName").setText("mingle");
  enter("textPixelName", "wind");
  EXPECT_EQ(model().getRuleName(1), "mingle");
  EXPECT_EQ(text("textSelectedRuleName"), "mingle");
}

TEST_F(NameFields, AcceptTextFromAssistiveTechnology) {
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    control(field).setFocus();
    QAccessible::queryAccessibleInterface(&control(field))->setText(QAccessible::Value, "spoken");
    QTest::keyClick(&control(field), Qt::Key_Return);
  }
  EXPECT_EQ(model().getPixelName(0), "spoken");
  EXPECT_EQ(model().getRuleName(1), "spoken");
}

/// A document with line endings of another system, so that each name ends with a carriage return.
class NamesOfADocument : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    ASSERT_TRUE(folder_.isValid());
    auto source = std::make_unique<LatticeModel>();
    source->initializeLatticeModel(2, 3, 3);
    source->setPixelName(0, "soil\r");
    source->setPixelName(1, "\x1b[1mgr\tass\x7f\r");
    source->makeNewRule("grow\r", kIrreversibleFlip, 0, 1);
    source->makeNewRule("die\r", kIrreversibleFlip, 1, 0);
    QFile file(path("in.quorvane"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(writeDocument(*source)));
    file.close();
    ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonOpenSystem"), path("in.quorvane")));
    ASSERT_EQ(model().getPixelName(0), "soil\r");
    ASSERT_EQ(model().getRuleName(1), "die\r");
    ASSERT_TRUE(gui::waitUntil([this] { return window_->isActiveWindow(); }));
  }
  QString path(const QString& name) const { return folder_.filePath(name); }

  QTemporaryDir folder_;
};

TEST_F(NamesOfADocument, AreShownWithoutInvisibleCharacters) {
  EXPECT_EQ(text("textPixelName"), "soil");
  EXPECT_EQ(text("textSelectedRuleName"), "grow");
  EXPECT_EQ(items("listSelectPixelType"), QStringList({"0 - soil", "1 - [1mgrass"}));
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - grow", "1 - die"}));
  EXPECT_EQ(text("textSelectedRulePixelB"), "1 - [1mgrass");
  choose("listSelectPixelType", "1 - [1mgrass");
  EXPECT_EQ(text("textPixelName"), "[1mgrass");
}

TEST_F(NamesOfADocument, AreSavedUnchangedUntilEdited) {
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    gui::click(control(field), control(field).rect().center());
    QTest::keyClick(&control(field), Qt::Key_Return);
  }
  choose("listSelectPixelType", "1 - [1mgrass");
  choose("listSelectedRule", "1 - die");
  ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), path("out.quorvane")));
  QFile before(path("in.quorvane")), after(path("out.quorvane"));
  ASSERT_TRUE(before.open(QIODevice::ReadOnly) && after.open(QIODevice::ReadOnly));
  EXPECT_EQ(after.readAll(), before.readAll());
}

TEST_F(NamesOfADocument, AreUnchangedAfterAnEditThatWasUndone) {
  gui::click(control("textPixelName"), control("textPixelName").rect().center());
  QTest::keyClick(&control("textPixelName"), Qt::Key_X);
  QTest::keyClick(&control("textPixelName"), Qt::Key_Backspace);
  QTest::keyClick(&control("textPixelName"), Qt::Key_Tab);
  EXPECT_EQ(model().getPixelName(0), "soil\r");
}

TEST_F(NamesOfADocument, AreStoredAtReturn) {
  type("textPixelName", "earth");
  QTest::keyClick(&control("textPixelName"), Qt::Key_Return);
  EXPECT_EQ(model().getPixelName(0), "earth");
  EXPECT_EQ(items("listSelectPixelType"), QStringList({"0 - earth", "1 - [1mgrass"}));
  type("textSelectedRuleName", "spread");
  QTest::keyClick(&control("textSelectedRuleName"), Qt::Key_Return);
  EXPECT_EQ(model().getRuleName(0), "spread");
  EXPECT_EQ(items("listSelectedRule"), QStringList({"0 - spread", "1 - die"}));
}

TEST_F(NamesOfADocument, AreStoredWhenTheFieldIsLeft) {
  for (const char* field : {"textPixelName", "textSelectedRuleName"}) {
    gui::click(control(field), control(field).rect().center());
    QTest::keyClick(&control(field), Qt::Key_End);
    QTest::keyClick(&control(field), Qt::Key_X);
    QTest::keyClick(&control(field), Qt::Key_Tab);
  }
  EXPECT_EQ(model().getPixelName(0), "soilx");
  EXPECT_EQ(model().getRuleName(0), "growx");
}

TEST_F(NamesOfADocument, AreStoredWhenAnotherTypeOrRuleIsChosen) {
  type("textPixelName", "earth");
  choose("listSelectPixelType", "1 - [1mgrass");
  EXPECT_EQ(model().getPixelName(0), "earth");
  EXPECT_EQ(model().getPixelName(1), "\x1b[1mgr\tass\x7f\r");
  type("textSelectedRuleName", "spread");
  choose("listSelectedRule", "1 - die");
  EXPECT_EQ(model().getRuleName(0), "spread");
  EXPECT_EQ(model().getRuleName(1), "die\r");
}

TEST_F(NamesOfADocument, AreStoredAtSave) {
  type("textPixelName", "earth");
  // The shortcut does not move the focus.
  control("buttonSaveSystem").setFocusPolicy(Qt::NoFocus);
  ASSERT_TRUE(gui::choosePath(get<QPushButton>("buttonSaveSystem"), path("out.quorvane")));
  EXPECT_EQ(model().getPixelName(0), "earth");
  auto saved = std::make_unique<LatticeModel>();
  ASSERT_EQ(openDocument(*saved, path("out.quorvane").toStdString()).status, OpenStatus::kOpened);
  EXPECT_EQ(saved->getPixelName(0), "earth");
  EXPECT_EQ(saved->getRuleName(0), "grow\r");
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
