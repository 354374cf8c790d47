#pragma once

#include "app/NamedFilesPanel.h"
#include "model/LatticeModel.h"

QT_BEGIN_NAMESPACE
class QFileSystemModel;
QT_END_NAMESPACE

namespace quorvane {

class DocumentPreview;

/// The panel for choosing a document to open, with a preview. Reads only the chosen document.
class DocumentPanel : public NamedFilesPanel {
  Q_OBJECT

 public:
  /// The model outlives the panel.
  DocumentPanel(QWidget* parent, const QString& folder, const LatticeModel& model);

 protected:
  void accept() override;

 private:
  void addPreview(const LatticeModel& model);
  void followChoice();

  QFileSystemModel* files_;
  DocumentPreview* preview_ = nullptr;
};

}  // namespace quorvane
