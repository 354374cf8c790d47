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

/// Keeps every text of the controls whole in the room that the lattice view's fixed margins leave, whatever
/// font the desktop asks for, as long as the text is still easy to read: what does not fit then scrolls.
class FontFit {
 public:
  /// All must outlive it.
  FontFit(QMainWindow& window, Ui::MainWindow& ui, const ScrollingPanels& panels);

  /// Gives the controls the window's font, or the nearest smaller size of it that fits, down to 9 points.
  void fit();

 private:
  /// The room of a text in a widget that does not ask for it by itself.
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
