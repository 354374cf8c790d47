#include "WindowInvariants.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/ColorWell.h"
#include "app/DoubleSlider.h"
#include "app/Stepper.h"

namespace quorvane {
namespace {

QString title(int index, const std::string& name) {
  return QString("%1 - %2").arg(QString::number(index), QString::fromStdString(name));
}

/// A snapshot of a window with a model.
class Inspection {
 public:
  explicit Inspection(MainWindow& window)
      : window_(window), model_(window.model()), numTypes_(model_.getNumPixelTypes()) {}

  QStringList run() {
    checkLimits();
    if (!found_.isEmpty()) return found_;
    checkRunControls();
    checkTypeLists();
    checkSelectedType();
    checkRuleList();
    checkNewRule();
    if (model_.getNumRules() > 0 && found_.isEmpty()) checkSelectedRule();
    return found_;
  }

 private:
  template <class Control>
  Control& get(const char* name) {
    return *window_.findChild<Control*>(QString::fromLatin1(name));
  }
  bool enabled(const char* name) { return get<QWidget>(name).isEnabled(); }
  /// Whether it is visible when its window is.
  bool shown(const char* name) { return !get<QWidget>(name).isHidden(); }
  int chosen(const char* list) { return get<QComboBox>(list).currentIndex(); }
  QString label(const char* name) { return get<QLabel>(name).text(); }

  void expect(bool holds, const QString& what) {
    if (!holds) found_ += what;
  }
  void expectValue(const char* control, double shownValue, double held) {
    expect(shownValue == held, QString("%1 shows %2, held is %3").arg(control).arg(shownValue).arg(held));
  }
  void expectType(const char* what, int type, int least) {
    expect(type >= least && type < numTypes_, QString("%1 is type %2").arg(what).arg(type));
  }
  void expectItems(const char* name, const QStringList& titles) {
    const auto& list = get<QComboBox>(name);
    QStringList items;
    for (int item = 0; item < list.count(); ++item) items += list.itemText(item);
    expect(items == titles, QString("%1 lists %2 for %3").arg(name, items.join('|'), titles.join('|')));
    expect(list.currentIndex() < list.count(), QString("%1 is beyond its end").arg(name));
  }
  void expectColor(const char* name, int type) {
    const Rgb held{model_.getPixelColorR(type), model_.getPixelColorG(type), model_.getPixelColorB(type)};
    expect(get<ColorWell>(name).rgb() == held,
           QString("%1 is not the colour of type %2").arg(name).arg(type));
  }
  /// A name that is still being typed is not in the model yet.
  void expectName(const char* field, const std::string& name) {
    const auto& edit = get<QLineEdit>(field);
    expect(edit.isModified() || edit.text() == QString::fromStdString(name),
           QString("%1 shows \"%2\"").arg(field, edit.text()));
  }
  QStringList typeTitles(int leftOut = -1) {
    QStringList titles;
    for (int type = 0; type < numTypes_; ++type)
      if (type != leftOut) titles += title(type, model_.getPixelName(type));
    return titles;
  }

  void checkLimits() {
    expect(numTypes_ >= 1 && numTypes_ <= kMaxPixelTypes, "number of types");
    expect(model_.getNumRules() >= 0 && model_.getNumRules() <= kMaxRules, "number of rules");
    expect(model_.getIMax() >= 1 && model_.getIMax() <= 256, "width");
    expect(model_.getJMax() >= 1 && model_.getJMax() <= 256, "height");
    if (!found_.isEmpty()) return;
    expectType("the brush", model_.varPaintbrushColor, 0);
    expect(sitesAreWithinTheTypes(), "a site is of no type");
    for (int type = 0; type < numTypes_; ++type) {
      expectType("a masquerade", model_.getPixelMasqueradeAs(type), -1);
      expect(model_.getPixelMasqueradeAs(type) != type, QString("type %1 passes for itself").arg(type));
      checkRow(type);
    }
    for (int rule = 0; rule < model_.getNumRules(); ++rule) {
      expectType("an end", model_.getRulePixelA(rule), -1);
      expectType("an end", model_.getRulePixelB(rule), -1);
      expectType("a facilitation", model_.getRuleFacPixel(rule), -1);
      expect(model_.getRuleFacNum(rule) >= 0 && model_.getRuleFacNum(rule) <= 8, "a facilitation number");
    }
  }

  bool sitesAreWithinTheTypes() const {
    for (int i = 0; i < model_.getIMax(); ++i)
      for (int j = 0; j < model_.getJMax(); ++j)
        if (model_.getSiteValue(i, j) < 0 || model_.getSiteValue(i, j) >= numTypes_) return false;
    return true;
  }

  void checkRow(int type) {
    const int length = model_.varAccessibleRulesForSiteIDCount[type];
    expect(length >= 0 && length <= kMaxRules, QString("row %1 has %2 rules").arg(type).arg(length));
    for (int place = 0; place < length && place < kMaxRules; ++place) {
      const int rule = model_.varAccessibleRulesForSiteID[type][place];
      expect(rule >= 0 && rule < kMaxRules, QString("row %1 names rule %2").arg(type).arg(rule));
    }
  }

  void checkRunControls() {
    const int state = model_.varMyState;
    expect(state == kStopped || state == kRunning, QString("run state %1").arg(state));
    // In full screen, keys start and stop a run while the window shows the stopped configuration.
    const bool running = state == kRunning && model_.varInFullScreen == 0;
    const QString about = QString(" in run state %1").arg(state);
    expect(enabled("buttonStopModel") == running, "buttonStopModel" + about);
    for (const char* name : {"buttonRunModel", "buttonRemakeModel", "sliderWidthHeight"})
      expect(enabled(name) == !running, name + about);
    for (const char* name : {"buttonInitialiseModel", "stepperNumPixelTypes", "buttonOpenSystem"})
      expect(!enabled(name), name);
    expect(enabled("buttonSaveSystem"), "Save");
    expect(get<QCheckBox>("checkPauseWhilePaint").isChecked() == (model_.varPauseWhilePaint == 1), "pause");
    expect(model_.varDelayAfterCycle == get<DoubleSlider>("sliderSimulationSpeed").intValue(), "speed");
    expect(label("textWidthHeight") == QString::number(get<DoubleSlider>("sliderWidthHeight").intValue()),
           "density");
  }

  void checkTypeLists() {
    expectItems("listPaintType", typeTitles());
    expectItems("listSelectPixelType", typeTitles());
    expectItems("listSelectedRuleFacPixel", typeTitles());
    expect(chosen("listPaintType") == model_.varPaintbrushColor, "the brush is not the one shown");
    expectColor("colorPaintType", model_.varPaintbrushColor);
    expect(enabled("buttonAddNewPixel") == (numTypes_ < kMaxPixelTypes), "Add Type");
    expect(get<Stepper>("stepperNumPixelTypes").value() == numTypes_, "stepper");
    expect(label("textNumPixelTypes") == QString::number(numTypes_), "text of the stepper");
  }

  void checkSelectedType() {
    const int s = chosen("listSelectPixelType");
    expectType("the selected type", s, 0);
    if (s < 0 || s >= numTypes_) return;
    expectName("textPixelName", model_.getPixelName(s));
    expectColor("colorSelectedPixelColor", s);
    expectValue("persistence", get<DoubleSlider>("sliderSelectedPixelPersistence").value(),
                model_.getPixelPersistence(s));
    expectValue("opacity", get<DoubleSlider>("sliderSelectedPixelTrans").value(), model_.getPixelAlpha(s));
    expectValue("field", get<DoubleSlider>("sliderPixelField").value(), model_.getPixelField(s));
    expect(label("textPixelField") == QString::asprintf("%.3f", model_.getPixelField(s)),
           "text of the field");
    expect(get<QCheckBox>("checkImmobilePixel").isChecked() == (model_.getPixelImmobile(s) != 0), "immobile");
    checkMasquerade(s);
  }

  void checkMasquerade(int s) {
    const int masquerade = model_.getPixelMasqueradeAs(s);
    expectItems("listMasqueradeType", typeTitles(s));
    expect(enabled("checkMasqueradePixel") == (numTypes_ >= 2), "masquerade box");
    expect(get<QCheckBox>("checkMasqueradePixel").isChecked() == (masquerade >= 0), "masquerade tick");
    expect(shown("listMasqueradeType") == (masquerade >= 0), "masquerade list");
    if (masquerade < 0) return;
    expect(chosen("listMasqueradeType") == (masquerade > s ? masquerade - 1 : masquerade), "masquerade type");
    expectColor("colorMasqueradeType", masquerade);
  }

  void checkRuleList() {
    QStringList titles;
    for (int rule = 0; rule < model_.getNumRules(); ++rule) titles += title(rule, model_.getRuleName(rule));
    expectItems("listSelectedRule", titles);
    const bool rules = model_.getNumRules() > 0;
    expect((chosen("listSelectedRule") >= 0) == rules, "selected rule");
    for (const char* name : {"listSelectedRule", "buttonDelRule", "textSelectedRuleName", "buttonZeroParam",
                             "sliderSelectedRuleParam", "checkSelectedRuleDisabled"})
      expect(enabled(name) == rules, QString("%1 and whether there is a rule").arg(name));
    if (rules) return;
    expect(label("textSelectedRuleType").isEmpty(), "a type without a rule");
    expect(label("textSelectedRuleParam") == "0.000", "a parameter without a rule");
  }

  void checkSelectedRule() {
    const int r = chosen("listSelectedRule");
    const RuleKind& kind = *ruleKind(model_.getRuleType(r));
    expect(label("textSelectedRuleType") == kind.label, "type of the rule");
    expectName("textSelectedRuleName", model_.getRuleName(r));
    const auto& parameter = get<DoubleSlider>("sliderSelectedRuleParam");
    expectValue("parameter", parameter.value(), model_.getRuleParam(r));
    expectValue("largest parameter", parameter.maximumValue(), kind.maxParameter);
    expectValue("least parameter", parameter.minimumValue(), kind.minParameter);
    expect(label("textSelectedRuleParam") == QString::asprintf("%.3f", model_.getRuleParam(r)),
           "text of the parameter");
    expect(get<QCheckBox>("checkSelectedRuleDisabled").isChecked() == (model_.getRuleDisabled(r) != 0),
           "disabled");
    expect(
        get<QCheckBox>("checkSelectedRuleIgnoreEnergy").isChecked() == (model_.getRuleIgnoreEnergy(r) != 0),
        "ignore energy");
    expect(shown("checkSelectedRuleIgnoreEnergy") == !kind.setsPairEnergy(), "ignore energy box");
    checkEnd("textSelectedRulePixelA", "colorSelectedRulePixelA", model_.getRulePixelA(r));
    checkEnd("textSelectedRulePixelB", "colorSelectedRulePixelB", model_.getRulePixelB(r));
    checkFacilitation(r, kind.flips());
  }

  void checkEnd(const char* text, const char* well, int end) {
    expect(label(text) == (end < 0 ? QString("Any pixel type") : title(end, model_.getPixelName(end))), text);
    expect(shown(well) == (end >= 0), well);
    if (end >= 0) expectColor(well, end);
  }

  void checkFacilitation(int r, bool flips) {
    expect(shown("listSelectedRuleFacNum") == flips, "list of neighbours");
    expect(shown("listSelectedRuleFacPixel") == (flips && model_.getRuleFacNum(r) >= 1),
           "list of neighbours' types");
    expect(chosen("listSelectedRuleFacNum") == model_.getRuleFacNum(r), "neighbours");
    expect(chosen("listSelectedRuleFacPixel") == model_.getRuleFacPixel(r), "type of neighbours");
    if (model_.getRuleFacPixel(r) >= 0) expectColor("colorSelectedRuleFacPixel", model_.getRuleFacPixel(r));
  }

  void checkNewRule() {
    for (const auto& [name, well] : {std::pair{"listNewRulePixelA", "colorNewRulePixelA"},
                                     std::pair{"listNewRulePixelB", "colorNewRulePixelB"}}) {
      expectItems(name, QStringList{"Any pixel type"} + typeTitles());
      const int item = chosen(name);
      expect(item >= 0, QString("%1 has nothing selected").arg(name));
      expect(shown(well) == (item > 0), well);
      if (item > 0 && item <= numTypes_) expectColor(well, item - 1);
    }
  }

  MainWindow& window_;
  const LatticeModel& model_;
  int numTypes_;
  QStringList found_;
};

}  // namespace

QStringList disagreements(MainWindow& window) { return Inspection(window).run(); }

}  // namespace quorvane
