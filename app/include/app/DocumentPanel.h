#pragma once

#include <QList>
#include <QUrl>
#include <memory>

#include "app/NamedFilesPanel.h"
#include "model/LatticeModel.h"

QT_BEGIN_NAMESPACE
class QFileSystemModel;
class QLineEdit;
QT_END_NAMESPACE

namespace quorvane {

class DocumentPreview;

/// The modal panel in which the user chooses a document to open or a name to save under. Lists documents and
/// folders, has the examples' folder at its side, and reads no file but the chosen document, for its preview.
class DocumentPanel : public NamedFilesPanel {
  Q_OBJECT

 public:
  /// The panel of Open, with a preview of what the model would open. The model outlives the panel.
  static std::unique_ptr<DocumentPanel> toOpen(QWidget* parent, const QString& folder,
                                               const LatticeModel& model);
  /// The panel of Save, which asks before it lets a document be replaced.
  static std::unique_ptr<DocumentPanel> toSave(QWidget* parent, const QString& folder);

  ~DocumentPanel() override;

  /// Runs the panel. The document's path, or an empty string if the user has cancelled.
  QString choose();

 protected:
  void accept() override;

 private:
  DocumentPanel(QWidget* parent, const QString& title, const QString& folder);

  void addExamplesToSideBar();
  void addPreview(const LatticeModel& model);
  void followChoice();
  /// The path that stands for the name in the field, made one of a document where that is what is meant.
  QString documentMeant() const;

  QString document_;
  QList<QUrl> formerPlaces_;
  QFileSystemModel* files_;
  QLineEdit* name_;
  DocumentPreview* preview_ = nullptr;
};

}  // namespace quorvane
