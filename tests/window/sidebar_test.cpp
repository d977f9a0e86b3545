#include "apps/window/tools.h"
#include "tests/window/bundle_window.h"

namespace {

class Sidebar : public BundleWindow {
 protected:
  void openWide() { open(nullptr, 1000, 700); }
  QQuickItem* entry(const QString& label) const {
    for (QQuickItem* item : driver->itemsOfType("SidebarRow"))
      if (accessibleName(item) == label) return item;
    return nullptr;
  }
  void choose(const QString& label) {
    QQuickItem* item = entry(label);
    ASSERT_TRUE(item) << label.toStdString();
    driver->clickItem(item);
  }
  QString saysOf(const QString& label) const {
    return QAccessible::queryAccessibleInterface(entry(label))->text(QAccessible::Description);
  }
};

TEST_F(Sidebar, AWideWindowHasTheFirstPageAtTheLeftAndAPageBesideIt) {
  openWide();
  ASSERT_TRUE(entry("Power Saving"));
  EXPECT_EQ(title(), "General");
  EXPECT_TRUE(driver->find("Enabled", kCheckBox));
  EXPECT_LT(driver->place(entry("General")).right(), driver->place(driver->find("Enabled")).left());
  EXPECT_FALSE(driver->find("Back", kButton));
}

TEST_F(Sidebar, ANarrowWindowHasNone) {
  open(nullptr, 699, 700);
  EXPECT_TRUE(driver->itemsOfType("SidebarRow").empty());
  EXPECT_EQ(page().pageClass, "quorvantisprefsListController");
}

TEST_F(Sidebar, AChoiceReplacesThePageThatWasOpen) {
  openWide();
  choose("Sounds");
  EXPECT_EQ(title(), "Sounds");
  EXPECT_EQ(application->pages().size(), 2u);
  EXPECT_TRUE(entry("Sounds")->property("opened").toBool());
  EXPECT_FALSE(entry("General")->property("opened").toBool());
}

TEST_F(Sidebar, APageOpenedFromAPageHasAWayBackToThatAndNoFurther) {
  openWide();
  driver->click("Hold", kButton);
  EXPECT_EQ(title(), "Hold");
  driver->click("Back", kButton);
  EXPECT_EQ(title(), "General");
  EXPECT_FALSE(driver->find("Back", kButton));
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(title(), "General");
}

TEST_F(Sidebar, AButtonRunsItsActionAndLeavesThePageOpen) {
  openWide();
  choose("Sounds");
  choose("Reload Lists");
  EXPECT_EQ(title(), "Sounds");
}

TEST_F(Sidebar, ANarrowerWindowKeepsThePageAndGetsAWayBack) {
  openWide();
  choose("Sounds");
  driver->resize(390, 700);
  EXPECT_EQ(title(), "Sounds");
  driver->click("Back", kButton);
  EXPECT_EQ(page().pageClass, "quorvantisprefsListController");
  driver->resize(1000, 700);
  EXPECT_EQ(application->pages().size(), 2u);
}

TEST_F(Sidebar, EveryLinkHasAPicture) {
  openWide();
  ASSERT_GE(driver->itemsOfType("SidebarRow").size(), 10u);
  for (QQuickItem* item : driver->itemsOfType("SidebarRow")) {
    bool drawn = false;
    for (QQuickItem* child : item->childItems())
      if (child->inherits("QQuickImage")) drawn = child->property("paintedWidth").toDouble() > 10;
    EXPECT_TRUE(drawn) << accessibleName(item).toStdString();
  }
}

TEST_F(Sidebar, ArrowsMoveWithinItAndReturnOpens) {
  openWide();
  entry("Sounds")->forceActiveFocus(Qt::TabFocusReason);
  driver->key(Qt::Key_Down);
  EXPECT_EQ(driver->focused(), "Notifications");
  EXPECT_EQ(title(), "General");
  driver->key(Qt::Key_Return);
  EXPECT_EQ(title(), "Notifications");
  EXPECT_EQ(driver->focused(), "Notifications");
}

TEST_F(Sidebar, IsOneStopOfTheTabKeyWhateverWasOpened) {
  openWide();
  entry("Sounds")->forceActiveFocus(Qt::TabFocusReason);
  driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Up);
  driver->key(Qt::Key_Up);
  int stops = 0;
  for (QQuickItem* item : driver->itemsOfType("SidebarRow")) stops += item->activeFocusOnTab();
  EXPECT_EQ(stops, 1);
  choose("Notifications");
  driver->key(Qt::Key_Tab);
  bridge().tools()->open("ConditionsListController", "");
  driver->waitUntilIdle();
  EXPECT_EQ(title(), "Conditions");
  for (QQuickItem* item : driver->itemsOfType("SidebarRow"))
    EXPECT_EQ(item->activeFocusOnTab(), item == entry("Conditions"))
        << accessibleName(item).toStdString();
}

TEST_F(Sidebar, TypingInItBeginsASearch) {
  openWide();
  entry("Sounds")->forceActiveFocus(Qt::TabFocusReason);
  driver->type("v");
  EXPECT_FALSE(driver->itemsOfType("SearchView").empty());
}

TEST_F(Sidebar, RowsAreAtMost48PixelsHigh) {
  openWide();
  for (const char* label :
       {"Power Saving", "Low Power Mode", "Sounds", "Notifications", "Conditions"}) {
    choose(label);
    for (const char* type :
         {"SwitchRow", "SegmentRow", "SliderRow", "LinkRow", "TextRow", "ButtonRow"})
      for (QQuickItem* row : driver->itemsOfType(type))
        EXPECT_LE(row->property("cardHeight").toDouble(), 48)
            << label << ": " << qPrintable(row->property("entry").value<window::Row>().label);
  }
  for (QQuickItem* row : driver->itemsOfType("SidebarRow")) EXPECT_LE(row->height(), 48);
}

TEST_F(Sidebar, SegmentsStandAtTheRightOfTheirLabel) {
  openWide();
  choose("Power Saving");
  const QRectF chosen = driver->place(driver->find("Leave", kRadioButton));
  for (QQuickItem* text : driver->itemsOfType("QQuickText"))
    if (text->property("text") == "Auto-Brightness") {
      EXPECT_LT(driver->place(text).right(), chosen.left());
      EXPECT_NEAR(driver->place(text).center().y(), chosen.center().y(), 2);
    }
}

class Summary : public Sidebar, public testing::WithParamInterface<int> {
 protected:
  QString words(const QString& label) const {
    if (entry(label)) return saysOf(label);
    return driver->accessible(label, kButton)->text(QAccessible::Description);
  }
  void store(const char* key, const plist::Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, "com.zorvek.quorvantis"));
  }
};

TEST_P(Summary, SaysWhetherAPageIsOn) {
  store("enabled", false);
  store("lowpowermodeenabled", true);
  open(nullptr, GetParam(), 1400);
  EXPECT_EQ(words("General"), "Off");
  EXPECT_EQ(words("Low Power Mode"), "On");
  EXPECT_EQ(words("Manage Profiles"), "On");
}

TEST_P(Summary, SaysWhatDiffersFromItsDefaultTwoSettingsAtMost) {
  store("wifi", 2);
  store("custbrightenabled", true);
  store("custbright", 20.0);
  store("bluetooth", 1);
  store("vpn", 2);
  store("vibrate", true);
  open(nullptr, GetParam(), 1400);
  EXPECT_EQ(words("Power Saving"), "Brightness 20 %, Wi-Fi off, 2 more");
  EXPECT_EQ(words("Notifications"), "Vibration 5 seconds");
  EXPECT_EQ(words("Sounds"), "");
}

TEST_P(Summary, LeavesOutASliderWhoseSwitchIsOff) {
  store("custbright", 20.0);
  open(nullptr, GetParam(), 1400);
  EXPECT_EQ(words("Power Saving"), "");
}

TEST_P(Summary, CountsWhatIsReadFromFiles) {
  for (const char* level : {"7", "20"})
    write(std::string("/var/mobile/Documents/Quorvantis/profile_") + level + ".qvx",
          plist::Dictionary{{"profilepercentage", level}});
  write("/var/mobile/Documents/Quorvantis/quorvantis.log", plist::Array{"first"});
  open(nullptr, GetParam(), 1400);
  EXPECT_EQ(words("Saved Profiles"), "2 profiles");
  EXPECT_EQ(words("Battery Log"), "1 entry");
}

TEST_F(Sidebar, TheSummaryFollowsAChange) {
  openWide();
  EXPECT_EQ(saysOf("General"), "On");
  driver->click("Enabled", kCheckBox);
  EXPECT_EQ(saysOf("General"), "Off");
}

INSTANTIATE_TEST_SUITE_P(In, Summary, testing::Values(390, 1000),
                         testing::PrintToStringParamName());

}  // namespace
