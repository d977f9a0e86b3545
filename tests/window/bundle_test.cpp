#include <QFile>

#include "tests/window/bundle_window.h"

namespace {

TEST_F(BundleWindow, TheFirstPageHasTheRowsOfItsList) {
  open();
  const host::PageView shown = page();
  ASSERT_FALSE(shown.rows.empty());
  for (const host::RowView& row : shown.rows)
    EXPECT_TRUE(row.label.empty() || driver->shows(QString::fromStdString(row.label)));
  EXPECT_TRUE(driver->shows(title()));
}

TEST_F(BundleWindow, EveryPageOfTheBundleIsShownWithoutError) {
  std::size_t shown = 0;
  for (const auto& known : prefs::bundle().pages) {
    if (known.list.empty()) continue;
    open();
    ASSERT_TRUE(application->perform(host::Launch{std::string(known.name)}));
    driver->waitUntilIdle();
    EXPECT_EQ(bridge().shown()->error().toStdString(), "") << known.name;
    EXPECT_GT(bridge().shown()->rows()->rowCount(), 0) << known.name;
    closeAll();
    ++shown;
  }
  EXPECT_EQ(shown, 9u);
}

TEST_F(BundleWindow, AWriteThatFailsIsReportedOnScreen) {
  open();
  driver->click("General");
  // The folder of the store can't be made where a file stands.
  QFile file(folder.filePath("var"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  driver->click("Enabled");
  EXPECT_FALSE(driver->itemsOfType("MessageBar").empty());
}

TEST_F(BundleWindow, AWriteThatFailsIsMadeUpForAndItsBannerGoesOnceTheFaultHasGone) {
  open();
  driver->click("General");
  QFile file(folder.filePath("var"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  const plist::Value before = stored("enabled");
  driver->click("Enabled");
  ASSERT_FALSE(bridge().problems().isEmpty());
  const plist::Value shown = stored("enabled");
  EXPECT_FALSE(shown == before);
  ASSERT_TRUE(file.remove());
  EXPECT_TRUE(driver->until([&] { return bridge().problems().isEmpty(); }));
  foundation::DeviceRoot root(folder.path().toStdString());
  EXPECT_EQ(foundation::Preferences(root).copyAppValue("enabled", "com.zorvek.quorvantis"), shown);
}

TEST_F(BundleWindow, TabIntoATextPutsTheCursorAtItsEnd) {
  open("UserNotificationListController");
  set("alertmsg", "Come home");
  driver->waitUntilIdle();
  for (int i = 0; i < 40 && driver->focused() != labelOf("alertmsg"); ++i) driver->key(Qt::Key_Tab);
  ASSERT_EQ(driver->focused(), labelOf("alertmsg"));
  driver->type("!");
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(stored("alertmsg"), plist::Value("Come home!"));
}

}  // namespace
