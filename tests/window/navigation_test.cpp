#include "tests/window/sample_window.h"

namespace {

class Navigation : public SampleWindow {};

TEST_F(Navigation, ALinkOpensItsPageAndTheBarNamesTheWayBack) {
  driver->click("A long page");
  EXPECT_EQ(title(), "A long page");
  EXPECT_TRUE(driver->shows("A long page"));
  EXPECT_TRUE(driver->shows("Sample"));
  EXPECT_EQ(window->title(), "A long page");
}

TEST_F(Navigation, TheFirstPageHasNoWayBack) {
  EXPECT_FALSE(driver->find("Back"));
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Navigation, TheBackButtonGoesBack) {
  driver->click("A long page");
  driver->click("Back", kButton);
  EXPECT_EQ(title(), "Sample");
  EXPECT_TRUE(driver->shows("Custom level"));
}

TEST_F(Navigation, KeysGoBack) {
  struct Way {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
  };
  for (auto [key, modifiers] : {Way{Qt::Key_Escape, {}}, Way{Qt::Key_Backspace, {}},
                                Way{Qt::Key_Left, Qt::AltModifier}, Way{Qt::Key_Back, {}}}) {
    driver->click("A long page");
    ASSERT_EQ(title(), "A long page");
    driver->key(key, modifiers);
    EXPECT_EQ(title(), "Sample") << key;
  }
}

TEST_F(Navigation, TheBackButtonOfAMouseGoesBack) {
  driver->click("A long page");
  driver->clickItem(driver->find("Row 5"), Qt::BackButton);
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Navigation, BackspaceInATextEditsTheText) {
  driver->click("Tone");
  driver->key(Qt::Key_Escape);
  driver->click("Name", kText);
  driver->type("Ann");
  driver->key(Qt::Key_Backspace);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("name"), plist::Value("An"));
}

TEST_F(Navigation, TheListIsWhereItWasAfterGoingBack) {
  driver->resize(390, 700);
  driver->scrollTo(700);
  double before = driver->place(driver->find("A long page")).top();
  driver->click("A long page");
  driver->click("Back", kButton);
  EXPECT_EQ(driver->place(driver->find("A long page")).top(), before);
}

TEST_F(Navigation, APageThatCantBeShownSaysWhy) {
  driver->click("A page that can't be shown");
  EXPECT_TRUE(driver->shows("This page can't be shown"));
  EXPECT_TRUE(driver->shows("Broken: row 0: unknown cell type \"PSNoSuchCell\""));
  driver->click("Back", kButton);
  EXPECT_EQ(title(), "Sample");
}

TEST_F(Navigation, PagesThatWereLeftAreDestroyed) {
  driver->click("A long page");
  std::weak_ptr<preferences::PSViewController> page = application->pages().back();
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(page.expired());
  EXPECT_TRUE(
      driver->until([&] { return bridge().findChildren<window::PageModel*>().size() == 1; }));
}

TEST_F(Navigation, ComingToTheForegroundIsPostedToThePages) {
  std::vector<std::string> posted;
  device.center.setWitness([&](const auto& notification) { posted.push_back(notification.name); });
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  EXPECT_THAT(posted, testing::IsEmpty());
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  EXPECT_THAT(posted, testing::ElementsAre("UIApplicationDidBecomeActiveNotification"));
}

TEST_F(Navigation, AProblemStaysOnScreenUntilItIsDismissed) {
  application->report({.words = "The disk is full."});
  application->report({.words = "The disk is full."});
  driver->waitUntilIdle();
  EXPECT_EQ(driver->itemsOfType("MessageBar").size(), 1u);
  driver->click("Tone");
  EXPECT_TRUE(driver->shows("The disk is full."));
  driver->click("Dismiss", kButton);
  EXPECT_FALSE(driver->shows("The disk is full."));
}

TEST_F(Navigation, ABannerStandsBelowThePageWhichStaysWhereItIs) {
  const QRectF before = driver->place(driver->find("Tone"));
  application->report({.words = "The disk is full."});
  driver->waitUntilIdle();
  EXPECT_EQ(driver->place(driver->itemsOfType("MessageBar").front()).bottom(), window->height());
  EXPECT_EQ(driver->place(driver->find("Tone")), before);
}

TEST_F(Navigation, ARefusalStandsUntilSomethingElseIsDone) {
  application->report({.words = "The disk is full."});
  bridge().shown()->select(10000);
  bridge().shown()->setNumber(0, 1);
  const auto problems = bridge().problems();
  ASSERT_EQ(problems.size(), 2);
  driver->click("Stays as it is");
  EXPECT_EQ(bridge().problems(), QStringList{"The disk is full."});
}

}  // namespace
