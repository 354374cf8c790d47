#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>
#include <memory>
#include <stdexcept>

#include "GuiSupport.h"
#include "PrintText.h"
#include "app/ColorWell.h"
#include "app/DoubleSlider.h"
#include "app/MainWindow.h"
#include "app/StatusLine.h"
#include "app/Stepper.h"

namespace quorvane {

/// A main window on the screen, driven through its controls, found by object name.
class WindowTest : public ::testing::Test {
 protected:
  void SetUp() override;

  GraphicalLatticeModelGL& model() { return window_->model(); }

  template <class Control>
  Control& get(const char* name) {
    auto* control = gui::child<Control>(*window_, name);
    if (!control) throw std::runtime_error(name);
    return *control;
  }
  QWidget& control(const char* name) { return get<QWidget>(name); }
  QComboBox& list(const char* name) { return get<QComboBox>(name); }
  ColorWell& well(const char* name) { return get<ColorWell>(name); }
  DoubleSlider& slider(const char* name) { return get<DoubleSlider>(name); }
  QCheckBox& check(const char* name) { return get<QCheckBox>(name); }

  /// The text of a label or text field.
  QString text(const char* name);
  QStringList items(const char* listName);
  bool enabled(const char* name) { return control(name).isEnabled(); }
  bool visible(const char* name) { return control(name).isVisible(); }

  /// Clicks a button or check box, which must exist and be enabled.
  void click(const char* name);
  /// Opens a list by a click and chooses the item with the text by keys.
  void choose(const char* listName, const QString& item);
  /// Clicks into a field and replaces its text by keys; the field keeps the focus.
  void type(const char* field, const QString& text);
  /// Types and presses Return.
  void enter(const char* field, const QString& text);
  /// Presses a key on a control, which gets the focus first.
  void key(const char* name, int key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Moves a slider from 0 to a value by keys: a tenth or a hundredth per press, with Shift a thousandth.
  void slideTo(const char* name, double value);

  void initialise(int numTypes = 2);
  void addRule(const QString& name, const QString& type, const QString& endA, const QString& endB);

  /// The colour of a type as a colour well shows it.
  Rgb colorOf(int type);

  std::unique_ptr<MainWindow> window_;
};

inline const QString kAny = "Any pixel type";

}  // namespace quorvane
