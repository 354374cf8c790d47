#include "app/DocumentPreview.h"

#include <QFileInfo>
#include <QLabel>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <memory>

#include "DocumentSummary.h"
#include "QtImage.h"
#include "app/DocumentFile.h"
#include "document/DocumentFile.h"
#include "document/ParsedDocument.h"
#include "output/LatticePicture.h"

namespace quorvane {
namespace {

/// The side of the square for the picture, in points; the largest lattice fits.
constexpr int kPictureSide = kMaxSide;

/// Rendered at the largest whole scale that fits into the square.
QImage drawWithin(const LatticeModel& model, int side) {
  const int scale = std::max(side / std::max(model.getIMax(), model.getJMax()), 1);
  return toQImage(drawLattice(model, scale));
}

}  // namespace

DocumentPreview::DocumentPreview(const LatticeModel& model, QWidget* parent)
    : QWidget(parent), model_(model), picture_(new QLabel(this)), text_(new QTextEdit(this)) {
  picture_->setObjectName("picturePreview");
  picture_->setAccessibleName(tr("Picture of the chosen document's lattice"));
  picture_->setAlignment(Qt::AlignCenter);
  picture_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  const int side = kPictureSide + 2 * picture_->frameWidth();
  picture_->setFixedSize(side, side);
  text_->setObjectName("textPreview");
  text_->setAccessibleName(tr("What the chosen document holds"));
  text_->setReadOnly(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setTabChangesFocus(true);
  text_->setFixedWidth(side);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(picture_);
  layout->addWidget(text_);

  whenIdle_.setSingleShot(true);
  connect(&whenIdle_, &QTimer::timeout, this, &DocumentPreview::read);
  clear();
}

void DocumentPreview::show(const QString& path) {
  if (path == wanted_) return;
  wanted_ = path;
  whenIdle_.stop();
  clear();
  if (!path.isEmpty()) whenIdle_.start(0);
}

void DocumentPreview::clear() {
  shown_.clear();
  picture_->clear();
  text_->setPlainText(wanted_.isEmpty() ? tr("Choose a document to see here what it holds.") : QString());
}

void DocumentPreview::read() {
  const auto refuse = [this](const QString& reason) {
    text_->setPlainText(QFileInfo(wanted_).fileName() + ": " + reason);
  };
  shown_ = wanted_;
  if (const QString reason = whyNoDocument(wanted_); !reason.isEmpty()) return refuse(reason);
  std::string text;
  const std::filesystem::path file(wanted_.toStdU16String());
  if (const auto error = readDocumentFile(file, DocumentSource::kFile, text))
    return text_->setPlainText(openingMessage(wanted_, {OpenStatus::kUnreadable, {}, error.message()}));
  showDocument(text);
}

void DocumentPreview::showDocument(const std::string& text) {
  const auto [result, document] = inspectDocument(model_, text);
  QString message;
  if (result.status != OpenStatus::kOpened) message = openingMessage(shown_, result);
  text_->setHtml(summaryOf(document, message));
  if (document.header) showPicture(document);
}

void DocumentPreview::showPicture(const ParsedDocument& document) {
  // Six megabytes, but only the pages of the lattice are touched.
  const auto scratch = std::make_unique<LatticeModel>();
  layOutLattice(*scratch, document);
  const qreal ratio = devicePixelRatioF();
  QPixmap picture = QPixmap::fromImage(drawWithin(*scratch, static_cast<int>(kPictureSide * ratio)));
  picture.setDevicePixelRatio(ratio);
  picture_->setPixmap(picture);
}

}  // namespace quorvane
