#include <QMimeData>

#include "tests/window/profile_window.h"

namespace {

// Export to files, and import of them.
class ProfileFiles : public ProfileWindow {
 protected:
  void drop(const QString& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    const QPoint at(100, 300);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &drop);
    driver->waitUntilIdle();
  }
  int questions() const {
    int count = 0;
    for (const QObject* each : window->findChildren<QObject*>())
      count += QByteArray(each->metaObject()->className()).startsWith("AskPopup_QML");
    return count;
  }
};

TEST_F(ProfileFiles, WhatIsExportedIsImportedAgain) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  ASSERT_TRUE(opened().remove());
  ASSERT_FALSE(exists(kProfile20));
  bridge().tools()->profiles()->importFile(exported("p.plist"), false);
  EXPECT_TRUE(exists(kProfile20));
}

TEST_F(ProfileFiles, AnExportAsksBeforeItReplacesAFile) {
  openWithProfiles();
  show(kProfile20);
  QFile file(exported("p.plist"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("mine");
  file.close();
  const auto content = [&] {
    return file.open(QFile::ReadOnly) ? QFile::decodeName(file.readAll()) : QString();
  };
  EXPECT_FALSE(opened().exportTo(exported("p.plist"), false));
  driver->waitUntilIdle();
  ASSERT_TRUE(driver->shows("Replace This File?") && driver->shows(exported("p.plist")));
  EXPECT_EQ(driver->focused(), "Cancel");
  EXPECT_EQ(content(), "mine");
  file.close();
  driver->click("Replace", kButton);
  EXPECT_TRUE(content().startsWith("<?xml"));
  EXPECT_TRUE(driver->shows("Exported to " + exported("p.plist")));
  EXPECT_TRUE(bridge().problems().isEmpty());
}

TEST_F(ProfileFiles, ADroppedFileIsImportedAndAsksBeforeItReplacesOne) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  ASSERT_TRUE(opened().describe("Other"));
  driver->key(Qt::Key_Escape);

  drop(exported("p.plist"));
  ASSERT_TRUE(driver->shows("Replace Battery 20%?"));
  EXPECT_EQ(driver->focused(), "Cancel");
  driver->click("Replace", kButton);
  driver->waitUntilIdle();
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
  EXPECT_EQ(opened().description(), "Night");
  EXPECT_TRUE(bridge().problems().isEmpty()) << "the question said it";
}

TEST_F(ProfileFiles, AFileThatIsDroppedOnAQuestionAsksNoOther) {
  openWithProfiles();
  show(kProfile20);
  ASSERT_TRUE(opened().exportTo(exported("p.plist"), false));
  drop(exported("p.plist"));
  ASSERT_EQ(questions(), 1);
  drop(exported("p.plist"));
  EXPECT_EQ(questions(), 1);
}

TEST_F(ProfileFiles, OfSeveralDroppedFilesTheFirstIsImportedAndThatIsSaid) {
  openWithProfiles();
  show(kProfile101);
  ASSERT_TRUE(opened().exportTo(exported("one.plist"), false));
  ASSERT_TRUE(opened().remove());
  driver->waitUntilIdle();
  bridge().tools()->profiles()->importUrls(
      {QUrl::fromLocalFile(exported("one.plist")), QUrl::fromLocalFile(exported("other.plist"))});
  EXPECT_TRUE(exists(kProfile101));
  EXPECT_EQ(bridge().problems(), QStringList{"One file is imported at a time: one.plist."});
}

TEST_F(ProfileFiles, AFileThatIsNoProfileIsReported) {
  openWithProfiles();
  QFile file(exported("x.plist"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("no property list");
  file.close();
  bridge().tools()->profiles()->importFile(exported("x.plist"), false);
  EXPECT_EQ(bridge().problems().size(), 1);
}

}  // namespace
