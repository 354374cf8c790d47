// The main window in a separate process, which saves repeatedly while its model runs, until it is killed.
//
//   saving_window OPENED SAVED

#include <QApplication>
#include <QSurfaceFormat>
#include <QTimer>
#include <cstdio>

#include "app/MainWindow.h"
#include "document/ModelDocument.h"
#include "engine/f_ran0.h"
#include "view/GraphicalLatticeModelGL.h"

int main(int argc, char** argv) {
  using namespace quorvane;
  if (argc != 3) return 2;
  qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
  processRandomSource.lookAtPlatform();
  QSurfaceFormat::setDefaultFormat(GraphicalLatticeModelGL::surfaceFormat());
  const QApplication application(argc, argv);
  MainWindow window;
  window.show();
  LatticeModel& model = window.model();
  if (openDocument(model, argv[1]).status != OpenStatus::kOpened) return 1;
  model.runLatticeModelInBackground();

  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (const SaveResult result = saveDocument(model, argv[2]); !result.saved) {
      std::fprintf(stderr, "%s\n", result.reason.c_str());
      QApplication::exit(1);
    }
  });
  timer.start(0);
  return QApplication::exec();
}
