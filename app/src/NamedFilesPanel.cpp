#include "app/NamedFilesPanel.h"

#include <QFileSystemModel>
#include <QLineEdit>
#include <QToolButton>

#include "app/ExampleFolder.h"
#include "app/FileIcons.h"

namespace quorvane {

// Qt lists the first folder with its own icon provider, which reads files, before another can be set. So the
// first folder is an empty one.
NamedFilesPanel::NamedFilesPanel(QWidget* parent, const QString& title, const QString& folder,
                                 const QTemporaryDir& placeholder)
    : QFileDialog(parent, title, placeholder.path()),
      folder_(QDir(folder).exists() ? folder : QDir::homePath()),
      placeholder_(placeholder.path()) {
  setOption(DontUseNativeDialog);
  // Created after the list of files, so that it is destroyed after it.
  setIconProvider(new FileIcons(this));
  setDirectory(folder_);
  name_ = findChild<QLineEdit*>("fileNameEdit");
  // So that the back button does not lead to the placeholder.
  findChild<QToolButton*>("backButton")->setEnabled(false);
  connect(findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this,
          [this](const QString& path) {
            if (!placeholder_.isEmpty() && path == placeholder_) setDirectory(folder_);
          });
  addPlaces();
}

NamedFilesPanel::~NamedFilesPanel() {
  // Qt stores the side bar for the panels of other programs.
  QList<QUrl> places = sidebarUrls();
  for (const QUrl& place : ownPlaces_) places.removeAll(place);
  setSidebarUrls(places);
}

QString NamedFilesPanel::choose() { return exec() == Accepted ? chosen_ : QString(); }

QString NamedFilesPanel::pathMeant() const {
  const QStringList paths = selectedFiles();
  return name_->text().isEmpty() || paths.isEmpty() ? QString() : paths.constFirst();
}

void NamedFilesPanel::acceptPath(const QString& path) {
  chosen_ = path;
  done(Accepted);
}

void NamedFilesPanel::addPlaces() {
  const QString home = QDir::homePath();
  if (!sidebarUrls().contains(QUrl::fromLocalFile(home))) addPlace(home, PlaceAt::kTop);
  if (const QString examples = exampleFolder(); !examples.isEmpty()) addPlace(examples, PlaceAt::kTop);
}

void NamedFilesPanel::addPlace(const QString& folder, PlaceAt end) {
  QList<QUrl> places = sidebarUrls();
  const QUrl place = QUrl::fromLocalFile(folder);
  if (places.removeAll(place) == 0) ownPlaces_ += place;
  places.insert(end == PlaceAt::kTop ? 0 : places.size(), place);
  setSidebarUrls(places);
}

}  // namespace quorvane
