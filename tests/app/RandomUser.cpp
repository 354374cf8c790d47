#include "RandomUser.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <array>

#include "GuiSupport.h"
#include "app/ColorWell.h"
#include "app/DoubleSlider.h"

namespace quorvane {
namespace {

const QStringList& oddNames() {
  static const QStringList names = {"",
                                    " ",
                                    "wall",
                                    "0 - Pixel",
                                    "Any pixel type",
                                    "&File && more",
                                    "%s%n%d %1",
                                    "-1",
                                    "1e999",
                                    "a\tb",
                                    "\"quoted\"",
                                    "caf\u00e9",
                                    "(Enter New Rule Name)",
                                    "<b>bold</b>",
                                    "back\\slash",
                                    "  blanks at both ends  ",
                                    QString(300, 'W')};
  return names;
}

constexpr std::array kMoves = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                               Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};

}  // namespace

RandomUser::RandomUser(MainWindow& window, unsigned seed) : window_(window), random_(seed) {
  QObject::connect(&panelCanceller_, &QTimer::timeout, &panelCanceller_, [] {
    if (auto* panel = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
      QTest::keyClick(panel, Qt::Key_Escape);
  });
  panelCanceller_.start(10);
}

QString RandomUser::act() {
  struct Choice {
    int weight;
    QString (RandomUser::*act)();
  };
  static constexpr std::array choices = {
      Choice{18, &RandomUser::clickAButton},   Choice{10, &RandomUser::tickABox},
      Choice{3, &RandomUser::chooseFromAList}, Choice{20, &RandomUser::keysOnAList},
      Choice{12, &RandomUser::keysOnASlider},  Choice{8, &RandomUser::dragASlider},
      Choice{6, &RandomUser::turnTheWheel},    Choice{10, &RandomUser::typeAName},
      Choice{1, &RandomUser::pickAColor},      Choice{8, &RandomUser::paint},
      Choice{1, &RandomUser::resize},          Choice{1, &RandomUser::visitFullScreen},
      Choice{5, &RandomUser::pressAMnemonic},  Choice{5, &RandomUser::walkByTab},
      Choice{10, &RandomUser::addARule}};
  int total = 0;
  for (const Choice& choice : choices) total += choice.weight;
  int place = pick(total);
  auto choice = choices.begin();
  for (; place >= choice->weight; ++choice) place -= choice->weight;
  const QString done = (this->*choice->act)();
  closePopups();
  settleDialogs();
  keepTheRunQuick();
  if (chance(15)) gui::processEvents();
  return done;
}

QPoint RandomUser::pointIn(const QWidget& widget, int beyond) {
  return {pick(widget.width() + 2 * beyond) - beyond, pick(widget.height() + 2 * beyond) - beyond};
}

template <class Control>
Control* RandomUser::anyUsable() {
  QList<Control*> usable;
  for (Control* control : window_.findChildren<Control*>())
    if (control->isVisible() && control->isEnabled() && !control->objectName().isEmpty() &&
        !control->objectName().startsWith("qt_"))
      usable += control;
  return usable.isEmpty() ? nullptr : usable[pick(static_cast<int>(usable.size()))];
}

QString RandomUser::clickAButton() {
  auto* button = anyUsable<QPushButton>();
  const QString name = button->objectName();
  // Panels take long, and full screen has a separate action.
  if (name == "buttonFullScreen" || (name == "buttonSaveSystem" && chance(90))) return "nothing";
  gui::click(*button, button->rect().center());
  return "clicked " + name;
}

QString RandomUser::tickABox() {
  auto* box = anyUsable<QCheckBox>();
  gui::click(*box, QPoint(8, box->height() / 2));
  return "ticked " + box->objectName();
}

QString RandomUser::chooseFromAList() {
  auto* list = anyUsable<QComboBox>();
  gui::click(*list, list->rect().center());
  QAbstractItemView* view = list->view();
  EXPECT_TRUE(gui::waitUntil([view] { return view->isVisible(); })) << list->objectName().toStdString();
  for (int moves = pick(6); moves > 0; --moves)
    QTest::keyClick(view, kMoves[static_cast<std::size_t>(pick(static_cast<int>(kMoves.size())))]);
  QTest::keyClick(view, chance(80) ? Qt::Key_Return : Qt::Key_Escape);
  return "chose from " + list->objectName();
}

QString RandomUser::keysOnAList() {
  auto* list = anyUsable<QComboBox>();
  list->setFocus(Qt::TabFocusReason);
  for (int moves = 1 + pick(3); moves > 0; --moves) {
    if (chance(20))
      QTest::keyClicks(list, QString::number(pick(10)));
    else
      QTest::keyClick(list, kMoves[static_cast<std::size_t>(pick(static_cast<int>(kMoves.size())))]);
  }
  return "keys on " + list->objectName();
}

QString RandomUser::keysOnASlider() {
  auto* slider = anyUsable<DoubleSlider>();
  slider->setFocus(Qt::TabFocusReason);
  for (int moves = 1 + pick(5); moves > 0; --moves)
    QTest::keyClick(slider, kMoves[static_cast<std::size_t>(pick(static_cast<int>(kMoves.size())))],
                    chance(30) ? Qt::ShiftModifier : Qt::NoModifier);
  return "keys on " + slider->objectName();
}

QString RandomUser::dragASlider() {
  auto* slider = anyUsable<DoubleSlider>();
  gui::press(*slider, pointIn(*slider));
  for (int moves = pick(5); moves > 0; --moves) gui::drag(*slider, pointIn(*slider, 30));
  gui::release(*slider, pointIn(*slider));
  return "dragged " + slider->objectName();
}

QString RandomUser::turnTheWheel() {
  auto* control = anyUsable<QWidget>();
  const QPoint position = pointIn(*control);
  if (chance(80) && control->focusPolicy() != Qt::NoFocus) control->setFocus();
  QWheelEvent event(position, control->mapToGlobal(position), {}, {0, chance(50) ? 120 : -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(control, &event);
  return "turned the wheel on " + control->objectName();
}

QString RandomUser::typeAName() {
  auto* field = anyUsable<QLineEdit>();
  gui::click(*field, field->rect().center());
  if (chance(80)) QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  for (const QChar letter : oddNames()[pick(static_cast<int>(oddNames().size()))])
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), Qt::NoModifier);
  if (chance(10)) QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
  // The others keep the typed name until something else takes the focus.
  if (chance(40)) QTest::keyClick(field, chance(50) ? Qt::Key_Return : Qt::Key_Tab);
  return "typed into " + field->objectName();
}

QString RandomUser::pickAColor() {
  auto* well = window_.findChild<ColorWell*>("colorSelectedPixelColor");
  gui::click(*well, well->rect().center());
  QColorDialog* dialog = nullptr;
  EXPECT_TRUE(
      gui::waitUntil([&] { return (dialog = well->findChild<QColorDialog*>()) && dialog->isVisible(); }));
  if (!dialog) return "found no colour dialog";
  for (int colors = pick(3); colors > 0; --colors)
    dialog->setCurrentColor(QColor(pick(256), pick(256), pick(256)));
  QTest::keyClick(dialog, chance(50) ? Qt::Key_Return : Qt::Key_Escape);
  return "picked a colour";
}

QString RandomUser::paint() {
  stroke();
  return "painted";
}

void RandomUser::stroke() {
  waitForMnemonics();
  QWidget& view = window_.model();
  gui::press(view, pointIn(view, 1));
  for (int moves = pick(8); moves > 0; --moves) {
    gui::drag(view, pointIn(view, 40));
    if (chance(10)) gui::processEvents();
  }
  gui::release(view, pointIn(view, 40));
}

QString RandomUser::resize() {
  const QSize least = window_.minimumSizeHint().expandedTo(window_.minimumSize());
  window_.resize(least.width() + pick(300), least.height() + pick(200));
  gui::processEvents();
  return "resized";
}

QString RandomUser::visitFullScreen() {
  waitForMnemonics();
  auto* button = window_.findChild<QPushButton*>("buttonFullScreen");
  QWidget& view = window_.model();
  gui::click(*button, button->rect().center());
  EXPECT_TRUE(gui::waitUntil([&] { return view.isWindow() && view.isVisible(); }));
  for (int acts = pick(6); acts > 0; --acts) {
    if (chance(50))
      QTest::keyClick(&view, chance(80) ? Qt::Key_Space : Qt::Key_R);
    else
      stroke();
    gui::processEvents();
  }
  if (chance(20))
    view.close();
  else
    QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_TRUE(gui::waitUntil([&] { return !view.isWindow(); }));
  EXPECT_TRUE(comeBack());
  return "visited full screen";
}

bool RandomUser::comeBack() {
  // A window manager may refuse the request while the view, as it knows it, still fills the screen. A person
  // would click the window again.
  constexpr int tries = 30;
  for (int k = 0; k < tries; ++k) {
    window_.activateWindow();
    if (gui::waitUntil([&] { return window_.isActiveWindow(); }, gui::kDeadline / tries)) return true;
  }
  return false;
}

QString RandomUser::pressAMnemonic() {
  // Full screen has a separate action.
  static const QString letters = "XDMVRSEWGTANCPYLZBQUH";
  const QChar letter = letters[pick(static_cast<int>(letters.size()))];
  if (letter == 'V' && chance(90)) return "nothing";
  QTest::keyClick(&window_, static_cast<Qt::Key>(letter.unicode()), Qt::AltModifier);
  sinceMnemonic_.start();
  return QString("pressed Alt and ") + letter;
}

void RandomUser::waitForMnemonics() {
  constexpr qint64 milliseconds = 150;
  if (!sinceMnemonic_.isValid()) return;
  gui::waitUntil([this] { return sinceMnemonic_.hasExpired(milliseconds); });
  gui::processEvents();
  sinceMnemonic_.invalidate();
}

QString RandomUser::walkByTab() {
  for (int steps = 1 + pick(5); steps > 0; --steps)
    QTest::keyClick(&window_, Qt::Key_Tab, chance(30) ? Qt::ShiftModifier : Qt::NoModifier);
  QWidget* focused = window_.focusWidget();
  if (!focused) return "walked by Tab";
  const QString name = focused->objectName();
  if (name != "buttonFullScreen" && name != "buttonSaveSystem" && name != "colorSelectedPixelColor")
    QTest::keyClick(focused, chance(50) ? Qt::Key_Space : Qt::Key_Down);
  return "walked by Tab to " + name;
}

QString RandomUser::addARule() {
  for (const char* name : {"listNewRuleType", "listNewRulePixelA", "listNewRulePixelB"}) {
    auto* list = window_.findChild<QComboBox*>(QString::fromLatin1(name));
    list->setFocus(Qt::TabFocusReason);
    QTest::keyClick(list, Qt::Key_Home);
    for (int steps = pick(list->count()); steps > 0; --steps) QTest::keyClick(list, Qt::Key_Down);
  }
  auto* button = window_.findChild<QPushButton*>("buttonAddNewRule");
  gui::click(*button, button->rect().center());
  return "added a rule";
}

void RandomUser::keepTheRunQuick() {
  // At low speeds a stopped loop keeps a core busy until its wait is over.
  auto* speed = window_.findChild<DoubleSlider*>("sliderSimulationSpeed");
  if (speed->value() < 1e6) QTest::keyClick(speed, Qt::Key_End);
  // Large lattices take long to draw.
  auto* density = window_.findChild<DoubleSlider*>("sliderWidthHeight");
  if (density->isEnabled() && density->value() > 60.0) {
    QTest::keyClick(density, Qt::Key_Home);
    QTest::keyClick(density, Qt::Key_PageUp);
  }
  auto* run = window_.findChild<QPushButton*>("buttonRunModel");
  if (run->isEnabled() && chance(30)) gui::click(*run, run->rect().center());
}

void RandomUser::closePopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

void RandomUser::settleDialogs() {
  if (auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget()))
    QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_TRUE(gui::waitUntil([] { return QApplication::activeModalWidget() == nullptr; }));
}

}  // namespace quorvane
