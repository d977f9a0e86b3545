#include "platform/uikit/alert_controller.h"
#include "tests/window/bundle_window.h"

namespace {

class AlertWindow : public BundleWindow {
 protected:
  void openSheet(int width) {
    open("ProfilesListController", width);
    driver->click("Compose", kButton);
  }
  QRectF dialog() const {
    return driver->place(driver->find("Profile manager", QAccessible::Dialog));
  }
  void alert(const std::string& title, std::vector<uikit::AlertAction> actions) {
    auto shown =
        std::make_shared<uikit::AlertController>(title, "What now?", uikit::AlertStyle::Alert);
    for (uikit::AlertAction& action : actions) shown->addAction(std::move(action));
    device->screen().present(std::move(shown));
    application->buildVisibleRows();
    driver->waitUntilIdle();
  }
  std::function<void()> note(const std::string& what) {
    return [this, what] { pressed.push_back(what); };
  }
  std::vector<std::string> pressed;
};

TEST_F(AlertWindow, ASheetIsAtTheBottomOfANarrowWindow) {
  openSheet(390);
  EXPECT_NEAR(dialog().bottom(), 1400 - 8, 1);
  EXPECT_GE(dialog().left(), 0);
  EXPECT_LE(dialog().right(), 390);
}

TEST_F(AlertWindow, ASheetIsAPopoverBelowItsBarButtonInAWideWindow) {
  openSheet(820);
  QRectF button = driver->place(driver->find("Compose", kButton));
  EXPECT_GE(dialog().top(), button.bottom());
  EXPECT_LT(dialog().top(), button.bottom() + 30);
  EXPECT_LE(dialog().right(), 820);
  EXPECT_GT(dialog().right(), button.left());
  EXPECT_LT(dialog().width(), 820 * 0.7);
}

TEST_F(AlertWindow, ASheetIsAPopoverAtTheRowThatOpenedIt) {
  open("ProfilesListController", 820);
  driver->click("Profile Manager", kButton);
  QRectF row = driver->place(driver->find("Profile Manager", kButton));
  EXPECT_GE(dialog().top(), row.bottom());
  EXPECT_LT(dialog().top(), row.bottom() + 100);  // the footer is between
}

TEST_F(AlertWindow, ASheetFollowsTheWindowsWidth) {
  openSheet(390);
  driver->resize(820, 1400);
  EXPECT_LT(dialog().top(), 200);
}

TEST_F(AlertWindow, AClickBesideASheetCancels) {
  openSheet(390);
  QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(195, 300));
  driver->waitUntilIdle();
  EXPECT_TRUE(alerts().empty());
}

TEST_F(AlertWindow, AClickBesideAnAlertDoesNothing) {
  open();
  alert("Question", {{"No", uikit::ButtonRole::Cancel, note("No")}});
  QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(195, 100));
  driver->waitUntilIdle();
  EXPECT_EQ(alerts().size(), 1u);
  EXPECT_EQ(scene().pages.size(), 1u);
}

TEST_F(AlertWindow, DestructiveButtonsLookSo) {
  openSheet(390);
  auto color = [this](const char* button) {
    QQuickItem* item = driver->find(button, kButton);
    return item->property("contentItem").value<QQuickItem*>()->property("color").value<QColor>();
  };
  EXPECT_GT(color("Delete").red(), 2 * color("Delete").green());
  EXPECT_NE(color("Delete"), color("Load"));
}

TEST_F(AlertWindow, ArrowsMoveWithinASheetAndReturnPresses) {
  openSheet(390);
  for (const char* next : {"Delete", "Save", "Load"}) {
    driver->key(Qt::Key_Up);
    EXPECT_EQ(driver->focused(), next);
  }
  driver->key(Qt::Key_Down);
  EXPECT_EQ(driver->focused(), "Save");
  driver->key(Qt::Key_Up);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(alerts().back().title, "Error");
}

TEST_F(AlertWindow, TabStaysWithinTheAlert) {
  openSheet(390);
  for (const char* next : {"Load", "Save", "Delete", "Cancel", "Load"}) {
    driver->key(Qt::Key_Tab);
    EXPECT_EQ(driver->focused(), next);
  }
}

TEST_F(AlertWindow, EscCancelsASheetAndStaysOnThePage) {
  openSheet(390);
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(alerts().empty());
  EXPECT_EQ(scene().pages.size(), 2u);
}

TEST_F(AlertWindow, TheFirstFocusOfASheetCancelsAndShowsARingAfterAKey) {
  open("ProfilesListController", 390);
  driver->key(Qt::Key_End);
  while (driver->focused() != "Profile Manager") driver->key(Qt::Key_Up);
  driver->key(Qt::Key_Return);
  ASSERT_EQ(alerts().size(), 1u);
  EXPECT_EQ(driver->focused(), "Cancel");
  EXPECT_EQ(driver->rings(), 1);
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(alerts().empty());
}

TEST_F(AlertWindow, TheFirstFocusHasNoRingAfterAClick) {
  openSheet(390);
  EXPECT_EQ(driver->focused(), "Cancel");
  EXPECT_EQ(driver->rings(), 0);
}

TEST_F(AlertWindow, ReturnFirstPressesTheButtonThatChangesNothing) {
  open();
  alert("Question", {{"No", uikit::ButtonRole::Cancel, note("No")},
                     {"Erase", uikit::ButtonRole::Destructive, note("Erase")},
                     {"Keep", uikit::ButtonRole::Default, note("Keep")}});
  driver->key(Qt::Key_Return);
  EXPECT_THAT(pressed, testing::ElementsAre("No"));
}

TEST_F(AlertWindow, ReturnPressesTheButtonThatHasTheKeyboard) {
  open();
  alert("Question", {{"No", uikit::ButtonRole::Cancel, note("No")},
                     {"Yes", uikit::ButtonRole::Default, note("Yes")}});
  driver->key(Qt::Key_Right);
  ASSERT_EQ(driver->focused(), "Yes");
  EXPECT_EQ(driver->rings(), 1);
  driver->key(Qt::Key_Return);
  EXPECT_THAT(pressed, testing::ElementsAre("Yes"));
}

TEST_F(AlertWindow, ReturnAndEscPressTheOnlyButtonThereIs) {
  open();
  for (Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    alert("Note", {{"Fine", uikit::ButtonRole::Default, note("Fine")}});
    driver->key(key);
  }
  EXPECT_THAT(pressed, testing::ElementsAre("Fine", "Fine"));
}

TEST_F(AlertWindow, AlertsStack) {
  open();
  alert("First", {{"One", uikit::ButtonRole::Cancel, note("One")}});
  alert("Second", {{"Two", uikit::ButtonRole::Cancel, note("Two")}});
  driver->key(Qt::Key_Return);
  EXPECT_FALSE(driver->find("Second", QAccessible::Dialog));
  ASSERT_TRUE(driver->find("First", QAccessible::Dialog));
  driver->key(Qt::Key_Return);
  EXPECT_THAT(pressed, testing::ElementsAre("Two", "One"));
  EXPECT_FALSE(driver->find("First", QAccessible::Dialog));
}

TEST_F(AlertWindow, TheKeyboardComesBackToThePage) {
  open("ProfilesListController");
  for (int i = 0; i < 20 && driver->focused() != "Profile Manager"; ++i) driver->key(Qt::Key_Down);
  driver->key(Qt::Key_Return);
  ASSERT_EQ(alerts().size(), 1u);
  driver->key(Qt::Key_Escape);
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Trigger to Start With");
}

TEST_F(AlertWindow, ADialogHasItsNameAndMessage) {
  open();
  alert("Question", {{"No", uikit::ButtonRole::Cancel, {}}});
  QAccessibleInterface* accessible = driver->accessible("Question", QAccessible::Dialog);
  ASSERT_TRUE(accessible);
  EXPECT_EQ(accessible->text(QAccessible::Description), "What now?");
}

TEST_F(AlertWindow, AProblemThatAnotherThreadReportsIsABanner) {
  open();
  std::thread([this] { settings->report({.words = "can't play /x.wav"}); }).join();
  driver->waitUntilIdle();
  EXPECT_TRUE(driver->accessible("can't play /x.wav", QAccessible::AlertMessage));
}

TEST_F(AlertWindow, TheProfileSwitchIsGreenWhileOnAndRedWhileOff) {
  open("ProfilesListController");
  auto ground = [this] {
    QQuickItem* button = driver->find("Profile Active", QAccessible::CheckBox);
    return button->property("indicator").value<QQuickItem*>()->property("color").value<QColor>();
  };
  EXPECT_EQ(ground(), QColor(46, 204, 113, 180));
  driver->click("Profile Active", QAccessible::CheckBox);
  // Darker than the red that the page gave, so that it differs from the green to everybody.
  EXPECT_TRUE(driver->until([&] { return 2 * ground().red() > 3 * ground().green(); }));
  EXPECT_LE(ground().red(), 231);
}

}  // namespace
