#include "SystemReport.h"

#include <QComboBox>

namespace quorvane {
namespace {

QString exact(double value) { return QString::asprintf("%a", value); }

void reportPairEnergies(const LatticeModel& model, QStringList& report) {
  for (int a = 0; a < kMaxPixelTypes; ++a)
    for (int b = 0; b < kMaxPixelTypes; ++b) {
      report += QString("active %1 %2: %3").arg(a).arg(b).arg(exact(model.getPixelIntConstant(a, b)));
      report += QString("backup %1 %2: %3").arg(a).arg(b).arg(exact(model.getPixelIntConstantBCK(a, b)));
    }
}

void reportRows(const LatticeModel& model, QStringList& report) {
  for (int type = 0; type < kMaxPixelTypes; ++type) {
    QString row = QString("row %1:").arg(type);
    for (int place = 0; place < model.varAccessibleRulesForSiteIDCount[type]; ++place)
      row += ' ' + QString::number(model.varAccessibleRulesForSiteID[type][place]);
    report += row;
  }
}

void reportTraces(const LatticeModel& model, QStringList& report) {
  for (int type = 0; type < model.getNumPixelTypes(); ++type) {
    report += QString("largest trace %1: %2").arg(type).arg(exact(model.varMobileHistoryMax[type]));
    for (int i = 0; i < model.getIMax(); ++i) {
      QString column = QString("trace %1 %2:").arg(type).arg(i);
      for (int j = 0; j < model.getJMax(); ++j) column += ' ' + exact(model.varMobileHistory[type][i][j]);
      report += column;
    }
  }
}

void reportLists(MainWindow& window, QStringList& report) {
  for (const char* name : {"listPaintType", "listSelectPixelType", "listMasqueradeType", "listSelectedRule",
                           "listSelectedRuleFacPixel", "listNewRulePixelA", "listNewRulePixelB"}) {
    const auto* list = window.findChild<QComboBox*>(QString::fromLatin1(name));
    for (int item = 0; item < list->count(); ++item)
      report += QString("%1 %2: %3").arg(name).arg(item).arg(list->itemText(item));
    report += QString("%1 shows %2").arg(name).arg(list->currentIndex());
  }
}

}  // namespace

QStringList reportSystem(MainWindow& window) {
  QStringList report;
  reportPairEnergies(window.model(), report);
  reportRows(window.model(), report);
  reportTraces(window.model(), report);
  reportLists(window, report);
  return report;
}

}  // namespace quorvane
