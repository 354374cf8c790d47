#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "PrintText.h"
#include "app/ExampleFolder.h"

namespace quorvane {
namespace {

class ExampleFolder : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(root_.isValid()); }

  QString path(const QString& name) const { return QDir(root_.path()).filePath(name); }
  QString makeFolder(const QString& name) const {
    EXPECT_TRUE(QDir(root_.path()).mkpath(name));
    return path(name);
  }
  void makeFile(const QString& name) const { EXPECT_TRUE(QFile(path(name)).open(QIODevice::WriteOnly)); }

  QTemporaryDir root_;
};

TEST_F(ExampleFolder, IsTheInstalledOne) {
  const QString program = makeFolder("usr/bin"), examples = makeFolder("usr/share/quorvane/examples");
  EXPECT_EQ(exampleFolder(program), "");
  makeFile("usr/share/quorvane/examples/one.quorvane");
  EXPECT_EQ(exampleFolder(program), examples);
}

TEST_F(ExampleFolder, IsThatOfTheSourceTreeForABuild) {
  const QString program = makeFolder("tree/build/release/app"), examples = makeFolder("tree/examples");
  makeFile("tree/examples/one.quorvane");
  EXPECT_EQ(exampleFolder(program), "") << "any folder of this name";
  makeFile("tree/CMakePresets.json");
  EXPECT_EQ(exampleFolder(program), examples);
}

TEST_F(ExampleFolder, OfThisBuildIsFound) { EXPECT_EQ(exampleFolder(), EXAMPLES); }

}  // namespace
}  // namespace quorvane
