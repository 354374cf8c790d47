#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QObject>

#include "app/PictureDialogs.h"

namespace quorvane {

class GraphicalLatticeModelGL;

/// The lattice view's context menu: one sweep, and its picture to the clipboard or into a file.
///
/// Opens by the right button and, while the view has the focus, by the menu key and Shift+F10; not during a
/// stroke. Its shortcuts work in the whole window, and in the view in full screen, unless the focused control
/// uses the keys itself. Main thread only.
class LatticeMenu : public QObject {
  Q_OBJECT

 public:
  /// Both must outlive it.
  LatticeMenu(QMainWindow& window, GraphicalLatticeModelGL& view);

 signals:
  /// A sweep was made.
  void sweepMade();
  /// One line for the user about the result.
  void told(const QString& message);

 protected:
  /// Leaves a slider its own keys.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAction* add(const QString& text, const char* objectName, const QKeySequence& shortcut);
  void open(QPoint position);
  void enableWhatMakesSense();
  void enableAll();

  void makeOneSweep();
  void copyPicture();
  void savePicture();
  bool hasLattice() const;
  bool isPainting() const;

  QMainWindow& window_;
  GraphicalLatticeModelGL& view_;
  PictureDialogs pictures_;
  QMenu* menu_;
  QAction *oneSweep_, *copyPicture_, *savePicture_;
};

}  // namespace quorvane
