#include "app/NamedFilesPanel.h"

#include <QFileSystemModel>
#include <QToolButton>

#include "app/FileIcons.h"

namespace quorvane {

// Qt lists the first folder with icons of its own, for which it reads files, before others can be given. So
// the first folder is an empty one.
NamedFilesPanel::NamedFilesPanel(QWidget* parent, const QString& title, const QString& folder,
                                 const QTemporaryDir& placeholder)
    : QFileDialog(parent, title, placeholder.path()),
      folder_(QDir(folder).exists() ? folder : QDir::homePath()),
      placeholder_(placeholder.path()) {
  setOption(DontUseNativeDialog);
  // A child made after the list of files, so that it goes after it.
  setIconProvider(new FileIcons(this));
  setDirectory(folder_);
  // The way back ends where the user began.
  findChild<QToolButton*>("backButton")->setEnabled(false);
  connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
          [this](const QString& path) {
            if (path == placeholder_) setDirectory(folder_);
          });
}

}  // namespace quorvane
