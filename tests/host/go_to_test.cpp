#include "host/go_to.h"

#include "tests/host/sample_settings.h"

namespace {

using host::goTo;
using host::RefusalCode;
using sample::refusalOf;

TEST(GoTo, OpensThePageThroughTheFirstPagesRow) {
  sample::Settings settings;
  const auto row = goTo(settings.application, "Second", "");
  ASSERT_TRUE(row);
  EXPECT_EQ(*row, -1);
  EXPECT_EQ(settings.application.shownPage()->className(), "Second");
  EXPECT_EQ(settings.application.shownPage()->specifier()->identifier(), "link");
  EXPECT_EQ(settings.application.pages().size(), 2u);
}

TEST(GoTo, GivesTheIndexOfTheRow) {
  sample::Settings settings;
  EXPECT_EQ(*goTo(settings.application, "First", "list"), 3);
}

TEST(GoTo, LeavesWhatIsOnTopOfThePage) {
  sample::Settings settings;
  const auto* first = settings.application.shownPage();
  ASSERT_TRUE(settings.application.perform(host::Tap{"list"}));
  EXPECT_EQ(*goTo(settings.application, "First", "switch"), 1);
  EXPECT_EQ(settings.application.shownPage(), first);
}

TEST(GoTo, FromAnotherPageTheWayLeadsOverTheFirst) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"table"}));
  ASSERT_TRUE(goTo(settings.application, "Second", ""));
  ASSERT_EQ(settings.application.pages().size(), 2u);
  EXPECT_EQ(settings.application.pages()[0]->className(), "First");
}

TEST(GoTo, WhatIsNotThereIsRefused) {
  sample::Settings settings;
  EXPECT_EQ(refusalOf(goTo(settings.application, "Nowhere", "")), RefusalCode::NoPage);
  EXPECT_EQ(refusalOf(goTo(settings.application, "First", "nosuchrow")), RefusalCode::NoRow);
}

TEST(GoTo, ARowThatIsNotThereLeadsToTheOneThatIsMeant) {
  sample::Settings settings;
  const auto found = goTo(settings.application, "First", "swich");
  ASSERT_FALSE(found);
  EXPECT_EQ(found.error().message,
            "no row \"swich\"; quorvantis search finds rows; did you mean \"switch\"?");
}

TEST(GoTo, WhoeverAsksForAnUnknownPageStays) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"link"}));
  EXPECT_EQ(refusalOf(goTo(settings.application, "Nowhere", "")), RefusalCode::NoPage);
  EXPECT_EQ(settings.application.shownPage()->className(), "Second");
}

TEST(GoTo, AnAlertIsAnsweredFirst) {
  sample::Settings settings;
  ASSERT_TRUE(settings.application.perform(host::Tap{"alert"}));
  EXPECT_EQ(refusalOf(goTo(settings.application, "Second", "")), RefusalCode::Modal);
  EXPECT_EQ(settings.application.shownPage()->className(), "First");
}

}  // namespace
