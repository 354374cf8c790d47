#pragma once

#include <QCoreApplication>
#include <QString>

#include "app/SavePanel.h"
#include "output/LatticePicture.h"

class QWidget;

namespace quorvane {

class GraphicalLatticeModelGL;

/// Takes the lattice's picture out of the window, as drawLattice makes it: whole sites, whatever the size of
/// the view. Main thread only; a run goes on meanwhile.
class PictureDialogs {
  Q_DECLARE_TR_FUNCTIONS(PictureDialogs)

 public:
  /// window: names the document, by its windowFilePath. Both must outlive it.
  PictureDialogs(const QWidget& window, GraphicalLatticeModelGL& view) : window_(window), view_(view) {}

  /// Puts the picture on the clipboard, at the pixels a site of the picture that was saved last. Says so.
  QString copyPicture() const;
  /// Asks for a file and the pixels a site and writes a PNG of the moment after, with the sweeps done, the
  /// document and the program as text fields. No line where the user has cancelled.
  WriteResult savePicture();

 private:
  WriteResult write(const QString& path) const;

  const QWidget& window_;
  GraphicalLatticeModelGL& view_;
  QString folder_;
  int scale_ = kDefaultScale;
};

}  // namespace quorvane
