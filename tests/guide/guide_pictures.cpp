// Makes the pictures of docs/guide.md: guide_pictures EXAMPLES FOLDER, on a display with a window manager.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <cstdio>
#include <stdexcept>

#include "GuideCamera.h"
#include "engine/f_ran0.h"

namespace quorvane {
namespace {

class Album {
 public:
  Album(QString examples, QString folder) : examples_(std::move(examples)), folder_(std::move(folder)) {}

  QString example(const char* name) const { return examples_ + '/' + name + ".quorvane"; }

  void add(const char* name, const QImage& picture) const {
    const QString path = folder_ + '/' + name + ".png";
    if (!picture.save(path, "PNG", 0)) throw std::runtime_error(path.toStdString());
    std::printf("%s\n", qPrintable(path));
  }

 private:
  QString examples_, folder_;
};

/// Pictures of equal height side by side.
QImage sideBySide(const QImage& left, const QImage& right) {
  constexpr int gap = 8;
  QImage both(left.width() + gap + right.width(), left.height(), QImage::Format_RGB32);
  both.fill(Qt::white);
  QPainter painter(&both);
  painter.drawImage(0, 0, left);
  painter.drawImage(left.width() + gap, 0, right);
  return both;
}

void showStart(const Album& album) { album.add("start", GuideCamera().wholeWindow()); }

void showWindowAndPanels(const Album& album) {
  GuideCamera camera;
  camera.open(album.example("silent-carriers"));
  camera.choose("listSelectPixelType", "3 - Silent carrier");
  album.add("pixel-type", camera.partOfWindow("groupPixelType"));
  album.add("rule-flip", camera.partOfWindow("groupSelectedRule"));
  camera.choose("listSelectPixelType", "1 - Sick");
  camera.choose("listPaintType", "2 - Immune");
  camera.runTo(250);
  album.add("window", camera.wholeWindow());
  album.add("bottom", camera.partOfWindow("bottomStrip"));
  album.add("plot", camera.partOfWindow("groupPlot"));
}

/// For the first page.
void showTwoRuns(const Album& album) {
  const auto show = [&album](const char* document, const char* type, int sweeps) {
    GuideCamera camera;
    camera.open(album.example(document));
    camera.choose("listSelectPixelType", type);
    camera.runTo(sweeps);
    album.add(document, camera.wholeWindow());
  };
  show("phase-separation", "1 - Oil", 200);
  show("facilitated-flips", "1 - Mobile", 180);
}

void showNewRule(const Album& album) {
  GuideCamera camera;
  camera.press("stepperNumPixelTypes", Qt::Key_Up);
  camera.click("buttonInitialiseModel");
  camera.type("textPixelName", "Water");
  camera.choose("listSelectPixelType", "1 - Pixel");
  camera.type("textPixelName", "Oil");
  camera.type("textNewRuleName", "Oil and water trade places");
  camera.choose("listNewRuleType", "Swap");
  camera.choose("listNewRulePixelA", "1 - Oil");
  camera.choose("listNewRulePixelB", "0 - Water");
  album.add("new-rule", camera.partOfWindow("groupNewRule"));
}

void showPairEnergy(const Album& album) {
  GuideCamera camera;
  camera.open(album.example("phase-separation"));
  camera.choose("listSelectedRule", "1 - Oil and water repel");
  album.add("rule-pair-energy", camera.partOfWindow("groupSelectedRule"));
}

void showPainting(const Album& album) {
  GuideCamera camera;
  camera.open(album.example("facilitated-flips"));
  camera.choose("listPaintType", "1 - Mobile");
  camera.click("checkPauseWhilePaint");
  camera.runTo(150);
  camera.paintStroke({{8, 62}, {9, 63}, {10, 64}, {11, 65}, {12, 66}, {16, 67}, {20, 66}, {24, 64}});
  album.add("painting", camera.partOfWindow(QRect(0, 0, 420, 400)));
  camera.endStroke();
}

/// One run with a slow trace and one sweep later without: with persistence 0 a trace is gone after one sweep.
void showTrace(const Album& album) {
  const QRect part(110, 230, 300, 220);
  GuideCamera camera;
  camera.open(album.example("facilitated-flips"));
  camera.choose("listSelectPixelType", "1 - Mobile");
  camera.sweep(300);
  const QImage slow = camera.partOfWindow(part);
  camera.press("sliderSelectedPixelPersistence", Qt::Key_Home);
  camera.sweep(1);
  album.add("trace", sideBySide(camera.partOfWindow(part), slow));
}

void showRefusal(const Album& album) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("by-hand.quorvane");
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("a temporary file");
  file.write("3\n3\n2\n0\n1\n0\n2\n");
  file.close();
  GuideCamera camera;
  camera.openRefused(path);
  album.add("refused", camera.partOfWindow(QRect(0, 0, 640, 29)));
}

int makeAll(const Album& album) {
  try {
    for (const auto show : {showStart, showWindowAndPanels, showTwoRuns, showNewRule, showPairEnergy,
                            showPainting, showTrace, showRefusal})
      show(album);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "guide_pictures: %s failed\n", error.what());
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  quorvane::processRandomSource.lookAtPlatform();
  QSurfaceFormat::setDefaultFormat(quorvane::GraphicalLatticeModelGL::surfaceFormat());
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) return 2;
  QDir().mkpath(arguments.at(2));
  return quorvane::makeAll({QDir(arguments.at(1)).absolutePath(), arguments.at(2)});
}
