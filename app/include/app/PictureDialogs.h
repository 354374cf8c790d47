#pragma once

#include <QCoreApplication>
#include <QString>

#include "app/SavePanel.h"
#include "output/LatticePicture.h"

class QWidget;

namespace quorvane {

class GraphicalLatticeModelGL;

/// Copies and saves the lattice's picture as drawLattice makes it: whole sites, whatever the size of the
/// view. Main thread only; also during a run.
class PictureDialogs {
  Q_DECLARE_TR_FUNCTIONS(PictureDialogs)

 public:
  /// window: its windowFilePath names the document. Both must outlive it.
  PictureDialogs(const QWidget& window, GraphicalLatticeModelGL& view) : window_(window), view_(view) {}

  /// Copies the picture to the clipboard, at the scale of the picture saved last. Reports it in a line.
  QString copyPicture() const;
  /// Asks for a file and a scale, then writes a PNG of the current lattice, with the sweeps done, the
  /// document and the program as text fields. No line if the user cancels.
  WriteResult savePicture();

 private:
  WriteResult write(const QString& path) const;

  const QWidget& window_;
  GraphicalLatticeModelGL& view_;
  QString folder_;
  int scale_ = kDefaultScale;
};

}  // namespace quorvane
