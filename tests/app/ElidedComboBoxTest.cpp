#include <QStyle>
#include <QStyleOptionComboBox>

#include "WindowTest.h"
#include "app/ElidedComboBox.h"

namespace quorvane {
namespace {

constexpr QSize kSize{120, 26};

QImage pictureOf(QComboBox& list, const QString& title) {
  list.resize(kSize);
  list.addItem(title);
  return list.grab().toImage();
}

int roomOf(const QComboBox& list) {
  QStyleOptionComboBox option;
  option.initFrom(&list);
  option.rect = QRect({0, 0}, kSize);
  return list.style()
      ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list)
      .width();
}

TEST(ElidedComboBox, LooksLikeAnyOtherIfTheTitleFits) {
  ElidedComboBox elided;
  QComboBox plain;
  EXPECT_TRUE(gui::samePixels(pictureOf(elided, "0 - Pixel"), pictureOf(plain, "0 - Pixel")));
}

TEST(ElidedComboBox, EndsALongTitleInAnEllipsis) {
  const QString title(60, 'W');
  ElidedComboBox elided;
  QComboBox cut, plain;
  const QString shown = plain.fontMetrics().elidedText(title, Qt::ElideRight, roomOf(plain) - 2);
  ASSERT_TRUE(shown.endsWith(QChar(0x2026)));
  const QImage picture = pictureOf(elided, title);
  EXPECT_TRUE(gui::samePixels(picture, pictureOf(plain, shown)));
  EXPECT_NE(picture, pictureOf(cut, title));
  EXPECT_EQ(elided.currentText(), title);
}

using ListsOfTheWindow = WindowTest;

TEST_F(ListsOfTheWindow, ThatShowTypesOrRulesElideTheirTitles) {
  for (const char* name : {"listPaintType", "listSelectPixelType", "listMasqueradeType", "listSelectedRule",
                           "listSelectedRuleFacPixel", "listNewRulePixelA", "listNewRulePixelB"})
    EXPECT_NE(qobject_cast<ElidedComboBox*>(&control(name)), nullptr) << name;
}

}  // namespace
}  // namespace quorvane
