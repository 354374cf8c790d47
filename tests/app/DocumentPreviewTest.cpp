#include <sys/stat.h>

#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <QTextEdit>

#include "GuiSupport.h"
#include "PrintText.h"
#include "ProgramRun.h"
#include "app/DocumentPreview.h"
#include "document/ModelDocument.h"
#include "output/LatticePicture.h"

namespace quorvane {
namespace {

QString example(const QString& name) { return QString(EXAMPLES) + "/" + name + ".quorvane"; }

class Preview : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    model_->awakeFromNib();
    preview_ = std::make_unique<DocumentPreview>(*model_);
    ASSERT_TRUE(gui::showAndActivate(*preview_));
  }

  QString path(const QString& name) const { return folder_.filePath(name); }
  QString write(const QString& name, const QByteArray& content) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path(name);
  }
  void show(const QString& file) {
    preview_->show(file);
    EXPECT_TRUE(gui::waitUntil([&] { return preview_->shown() == file; }));
  }
  QStringList lines() const {
    return preview_->findChild<QTextEdit*>("textPreview")->toPlainText().split('\n', Qt::SkipEmptyParts);
  }
  QPixmap picture() const {
    return preview_->findChild<QLabel*>("picturePreview")->pixmap(Qt::ReturnByValue);
  }

  const std::unique_ptr<LatticeModel> model_ = std::make_unique<LatticeModel>();
  std::unique_ptr<DocumentPreview> preview_;
  QTemporaryDir folder_;
};

TEST_F(Preview, ShowsTheLatticeAsTheViewDrawsItRightAfterOpening) {
  for (const char* name : {"phase-separation", "forest-fire", "gas-through-a-hole"}) {
    show(example(name));
    const auto opened = std::make_unique<LatticeModel>();
    opened->awakeFromNib();
    ASSERT_EQ(openDocument(*opened, example(name).toStdString()).status, OpenStatus::kOpened);
    const int room = static_cast<int>(256 * preview_->devicePixelRatioF());
    const Image drawn = drawLattice(*opened, room / std::max(opened->getIMax(), opened->getJMax()));
    const QImage expected(drawn.rgb.data(), drawn.width, drawn.height, 3 * drawn.width,
                          QImage::Format_RGB888);
    EXPECT_TRUE(gui::samePixels(picture().toImage().convertToFormat(QImage::Format_RGB32),
                                expected.convertToFormat(QImage::Format_RGB32)))
        << name;
  }
}

TEST_F(Preview, NamesSizesTypesAndRules) {
  show(example("silent-carriers"));
  EXPECT_EQ(lines(),
            QStringList({"128 × 104 sites", "Pixel types: 6", "0 - Healthy", "1 - Sick", "2 - Immune",
                         "3 - Silent carrier", "4 - Isolated carrier", "5 - Wall", "Rules: 3",
                         "0 - A sick neighbour infects", "1 - The sick recover", "2 - Immunity wanes"}));
}

TEST_F(Preview, ShowsTheColourOfEachType) {
  show(example("silent-carriers"));
  const QString html = preview_->findChild<QTextEdit*>("textPreview")->toHtml();
  const auto opened = std::make_unique<LatticeModel>();
  openDocument(*opened, example("silent-carriers").toStdString());
  for (int t = 0; t < opened->getNumPixelTypes(); ++t) {
    const auto component = [](double value) { return static_cast<float>(value); };
    const QColor color =
        QColor::fromRgbF(component(opened->getPixelColorR(t)), component(opened->getPixelColorG(t)),
                         component(opened->getPixelColorB(t)));
    EXPECT_TRUE(html.contains(color.name())) << t << " " << color.name().toStdString();
  }
}

TEST_F(Preview, ShowsTheMessageOfOpeningForABrokenDocument) {
  show(write("big.quorvane", "300\n20\n2\n"));
  EXPECT_EQ(lines(),
            QStringList({"big.quorvane: line 1: number of sites across must be 1 to 256, not \"300\""}));
  EXPECT_TRUE(picture().isNull());
  show(write("odd.quorvane", "20\n20\n2\n\xC3\xA9\n"));
  EXPECT_EQ(
      lines(),
      QStringList({"odd.quorvane: cannot be read as a document: line 4, column 1: a character that is not "
                   "ASCII"}));
}

TEST_F(Preview, ShowsTheExistingPartOfADocumentThatIsCutShort) {
  const QByteArray whole = contentOf(example("silent-carriers"));
  const auto endOfLattice = whole.indexOf("Healthy");
  show(write("short.quorvane", whole.left(whole.indexOf("\nImmune"))));
  ASSERT_EQ(lines().size(), 5) << lines().join('|').toStdString();
  EXPECT_TRUE(lines()[0].startsWith("short.quorvane: line "));
  EXPECT_EQ(lines().mid(1, 4), QStringList({"128 × 104 sites", "Pixel types: 6", "0 - Healthy", "1 - Sick"}));
  EXPECT_FALSE(picture().isNull());
  show(write("shorter.quorvane", whole.left(endOfLattice / 2)));
  EXPECT_TRUE(lines()[0].startsWith("shorter.quorvane: line ")) << lines()[0].toStdString();
  EXPECT_FALSE(picture().isNull());
}

TEST_F(Preview, RefusesAnythingButARegularFileWithoutReadingIt) {
  ASSERT_EQ(mkfifo(path("pipe.quorvane").toLocal8Bit().constData(), 0600), 0);
  show(path("pipe.quorvane"));
  EXPECT_EQ(lines(), QStringList({"pipe.quorvane: is a device or a pipe, not a document"}));
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder.quorvane"));
  show(path("folder.quorvane"));
  EXPECT_EQ(lines(), QStringList({"folder.quorvane: is a folder, not a document"}));
}

/// Bytes that this process has read so far.
qint64 bytesRead() {
  const QByteArray counts = contentOf("/proc/self/io");
  const auto begin = counts.indexOf("rchar: ") + 7;
  return counts.mid(begin, counts.indexOf('\n', begin) - begin).toLongLong();
}

TEST_F(Preview, ReadsNoMoreThanTheLimitOfADocument) {
  // A sparse file.
  const QString huge = write("huge.quorvane", {});
  ASSERT_TRUE(QFile::resize(huge, qint64{1} << 36));
  const qint64 before = bytesRead();
  show(huge);
  ASSERT_GT(bytesRead(), before);
  EXPECT_LT(bytesRead() - before, 10'000'000);
  EXPECT_EQ(lines(),
            QStringList({"huge.quorvane: cannot be read as a document: is larger than a document can "
                         "be (4000000 bytes)"}));
}

TEST_F(Preview, ShowsNothingOfAFormerDocument) {
  show(example("voters"));
  ASSERT_FALSE(picture().isNull());
  preview_->show(example("epidemic"));
  EXPECT_TRUE(picture().isNull());
  EXPECT_EQ(lines(), QStringList());
  EXPECT_EQ(preview_->shown(), "");
  preview_->show({});
  EXPECT_EQ(lines(), QStringList({"Choose a document to see here what it holds."}));
  gui::processEvents();
  EXPECT_EQ(preview_->shown(), "");
}

TEST_F(Preview, ReadsOnlyTheLastDocumentWhenKeysMoveQuicklyThroughTheList) {
  for (const char* name : {"voters", "epidemic", "nucleation"}) preview_->show(example(name));
  EXPECT_TRUE(gui::waitUntil([&] { return preview_->shown() == example("nucleation"); }));
}

TEST_F(Preview, ShowsNamesLiterallyWithoutControlCharacters) {
  QByteArray text = contentOf(example("silent-carriers"));
  text.replace("Healthy\n", "<b>A & B</b>\r\n");
  show(write("odd.quorvane", text));
  EXPECT_EQ(lines().value(2), "0 - <b>A & B</b>");
}

TEST_F(Preview, IsReadByAScreenReader) {
  show(example("voters"));
  auto* text = preview_->findChild<QTextEdit*>("textPreview");
  QAccessibleInterface* read = QAccessible::queryAccessibleInterface(text);
  ASSERT_TRUE(read && read->textInterface());
  EXPECT_EQ(read->text(QAccessible::Name), "What the chosen document holds");
  EXPECT_TRUE(
      read->textInterface()->text(0, read->textInterface()->characterCount()).contains("Pixel types:"));
  EXPECT_NE(text->focusPolicy(), Qt::NoFocus);
}

}  // namespace
}  // namespace quorvane
