#pragma once

#include <QLabel>

#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {

/// Stands where the lattice view was while the view fills the screen, and says where it is and how it comes
/// back.
class FullScreenNote : public QLabel {
  Q_OBJECT

 public:
  /// The view must stand in its window and outlive the note, which gets the same parent.
  explicit FullScreenNote(GraphicalLatticeModelGL& view);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  GraphicalLatticeModelGL& view_;
};

}  // namespace quorvane
