#pragma once

#include <QMainWindow>
#include <QString>
#include <QWidget>
#include <vector>

namespace Ui {
class MainWindow;
}

namespace quorvane {

class ScrollingPanels;

/// Keeps the text of all controls within the space that the lattice view's fixed margins leave, by reducing
/// the desktop's font as long as it stays easy to read; what still does not fit scrolls.
class FontFit {
 public:
  /// All must outlive it.
  FontFit(QMainWindow& window, Ui::MainWindow& ui, const ScrollingPanels& panels);

  /// Gives the controls the window's font, or the next smaller size that fits, down to 9 points.
  void fit();

 private:
  /// Reserves space for a text in a widget whose size hint does not.
  struct Room {
    QWidget* widget;
    QString longestText;
    int padding;
    int least;
  };

  void keepRoom(QWidget* widget, const QString& longestText, int padding = 0);
  void use(double pointSize);
  bool fits() const;

  QMainWindow& window_;
  Ui::MainWindow& ui_;
  const ScrollingPanels& panels_;
  std::vector<Room> rooms_;
};

}  // namespace quorvane
