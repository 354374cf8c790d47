#include "app/PictureDialogs.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QSpinBox>
#include <stdexcept>
#include <vector>

#include "QtImage.h"
#include "app/SavePanel.h"
#include "output/Png.h"
#include "view/GraphicalLatticeModelGL.h"

namespace quorvane {
namespace {

/// Shows the wait cursor during its lifetime.
class Busy {
 public:
  Busy() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Busy() { QGuiApplication::restoreOverrideCursor(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

/// A panel for pictures with a field for the scale and the resulting size.
class PicturePanel : public SavePanel {
 public:
  PicturePanel(QWidget* parent, const SuggestedFile& suggested, const LatticeModel& model, int scale)
      : SavePanel(parent, PictureDialogs::tr("Save the picture"), suggested, PictureDialogs::tr("Pictures"),
                  "png"),
        pixels_(new QSpinBox(this)) {
    auto* caption = new QLabel(PictureDialogs::tr("&Pixels a site:"), this);
    caption->setBuddy(pixels_);
    pixels_->setObjectName("pixelsASite");
    pixels_->setAccessibleName(PictureDialogs::tr("Pixels a site"));
    pixels_->setRange(1, kMaxScale);

    auto* size = new QLabel(this);
    size->setObjectName("sizeOfPicture");
    const auto showSize = [size, imax = model.getIMax(), jmax = model.getJMax()](int pixels) {
      size->setText(PictureDialogs::tr("%1 × %2 pixels").arg(imax * pixels).arg(jmax * pixels));
    };
    QObject::connect(pixels_, &QSpinBox::valueChanged, size, showSize);
    pixels_->setValue(scale);
    showSize(scale);

    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(pixels_);
    layout->addWidget(size);
    layout->addStretch();
    addRow(caption, row);
  }

  int scale() const { return pixels_->value(); }

 private:
  QSpinBox* pixels_;
};

}  // namespace

QString PictureDialogs::copyPicture() const {
  const Busy busy;
  const QImage picture = toQImage(drawLattice(view_, scale_));
  QGuiApplication::clipboard()->setImage(picture);
  return tr("The picture is on the clipboard, %1 × %2 pixels").arg(picture.width()).arg(picture.height());
}

WriteResult PictureDialogs::savePicture() {
  // The view's window, which in full screen is the view itself.
  const SuggestedFile suggested = suggestedFile(folder_, window_.windowFilePath(), tr("lattice"));
  PicturePanel panel(view_.window(), suggested, view_, scale_);
  const QString path = panel.choose();
  if (path.isEmpty()) return {};
  folder_ = QFileInfo(path).absolutePath();
  scale_ = panel.scale();
  return write(path);
}

WriteResult PictureDialogs::write(const QString& path) const {
  const Busy busy;
  std::vector<PngText> texts = {{"Software", "Quorvane " QUORVANE_VERSION},
                                {"Sweeps", std::to_string(view_.sweepsDone())}};
  const QString document = QFileInfo(window_.windowFilePath()).fileName();
  if (!document.isEmpty()) texts.push_back({"Document", document.toStdString()});
  try {
    return writeResult(path, encodePng(drawLattice(view_, scale_), texts));
  } catch (const std::exception& error) {
    return {false, notSaved(path, QString::fromLocal8Bit(error.what()))};
  }
}

}  // namespace quorvane
