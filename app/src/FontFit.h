#pragma once

#include <QMainWindow>
#include <QString>
#include <QWidget>
#include <vector>

namespace Ui {
class MainWindow;
}

namespace quorvane {

/// Keeps every text of the controls whole in the room that the lattice view's fixed margins leave, whatever
/// font the desktop asks for.
class FontFit {
 public:
  /// Both must outlive it.
  FontFit(QMainWindow& window, Ui::MainWindow& ui);

  /// Gives the controls the window's font, or the nearest smaller size of it that fits.
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
  std::vector<Room> rooms_;
};

}  // namespace quorvane
