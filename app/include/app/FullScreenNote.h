#pragma once

#include <QLabel>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

/// Takes the place of the lattice view while that fills the screen, and says where it is and how to bring it
/// back.
class FullScreenNote : public QLabel {
  Q_OBJECT

 public:
  /// The view must be in its window and outlive the note, which gets the same parent.
  explicit FullScreenNote(GraphicalLatticeModelGL& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  GraphicalLatticeModelGL& view_;
};

}  // namespace quorvane
