#include <gmock/gmock.h>

#include "prefs/pages/option_pages.h"
#include "tests/platform_foundation/system_calls.h"
#include "tests/prefs_pages/pages_bundle.h"

// The pattern of pages whose rows depend on one another, on the power-saving page.
namespace {

using namespace pages_test;
using prefs::PowerSavingListController;
using Page = Opened<PowerSavingListController>;

// Counts the evaluations that its hooks cause.
class CountingPage : public PowerSavingListController {
 public:
  using PowerSavingListController::PowerSavingListController;
  int evaluations = 0;

  const preferences::Operations& operations() const override {
    static const preferences::Operations counting{
        []() -> preferences::OperationTable {
          return {{"setSliderEnableDisable", &CountingPage::evaluate}};
        },
        &PowerSavingListController::ownOperations};
    return counting;
  }

 protected:
  void evaluate() override { ++evaluations, PowerSavingListController::evaluate(); }
};

TEST(DependentPage, LoadsTheListOfItsClassNameOnce) {
  Page opened;
  EXPECT_EQ(opened.page->loadError(), "");
  EXPECT_EQ(opened.page->title, "Power Saving");
  const auto* first = opened.page->specifiers().front().get();
  EXPECT_EQ(opened.page->specifiers().front().get(), first);
  EXPECT_EQ(opened.row("custbright").target, opened.page.get());
}

TEST(DependentPage, FindsControlAndCellOfABuiltRow) {
  Page opened;
  opened.build();
  auto& row = opened.row("custbright");
  EXPECT_EQ(opened.page->getViewForID("custbright"), row.control());
  EXPECT_EQ(opened.page->getCellForID("custbright"), row.cellObject());
  EXPECT_NE(row.control(), nullptr);
}

TEST(DependentPage, FindsNothingBeforeTheRowIsBuilt) {
  Page opened;
  EXPECT_EQ(opened.page->getViewForID("custbright"), nullptr);
  EXPECT_EQ(opened.page->getCellForID("custbright"), nullptr);
}

TEST(DependentPage, FindsNothingForAnUnknownRow) {
  Page opened;
  opened.build();
  EXPECT_EQ(opened.page->getViewForID("nosuchrow"), nullptr);
  EXPECT_EQ(opened.page->getCellForID("nosuchrow"), nullptr);
}

TEST(DependentPage, DimsTheBrightnessFromATenthOfASecondAfterItIsShown) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.device.queue.advance(kTenthOfASecond - foundation::Nanoseconds(1));
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.device.queue.advance(foundation::Nanoseconds(1));
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, DimmedOpacityIsSinglePrecision) {
  EXPECT_EQ(prefs::kDimmedOpacity, 0.30000001192092896);
}

TEST(DependentPage, LeavesTheBrightnessUsableWhenItsSwitchIsStoredOn) {
  Page opened;
  opened.store("custbrightenabled", true);
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
}

TEST(DependentPage, EvaluationTouchesOnlyTheDependentCell) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  for (auto& row : opened.page->specifiers())
    EXPECT_EQ(looksEnabled(*row->cellObject()), row->identifier() != "custbright");
}

TEST(DependentPage, DimmingKeepsTheShownAndTheStoredValue) {
  Page opened;
  opened.store("custbright", 70.0);
  opened.build();
  opened.page->setSliderEnableDisable();
  EXPECT_EQ(dynamic_cast<uikit::Slider&>(*opened.row("custbright").control()).value(), 70.0f);
  EXPECT_EQ(opened.stored("custbright"), plist::Value(70.0));
}

TEST(DependentPage, FlippingTheSwitchStoresRedrawsAndEnablesAtOnce) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.switchOf("custbrightenabled").setOn(true);
  const auto before = opened.cell("custbrightenabled").shared_from_this();
  opened.change("custbrightenabled", true);
  EXPECT_EQ(opened.stored("custbrightenabled"), plist::Value(true));
  EXPECT_NE(&opened.cell("custbrightenabled"), before.get());
  EXPECT_TRUE(opened.switchOf("custbrightenabled").isOn());
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.change("custbrightenabled", false);
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, EveryChangedRowIsFollowedByAnEvaluation) {
  Page opened;
  opened.build();
  opened.change("wifi", 1);
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
  EXPECT_EQ(opened.stored("wifi"), plist::Value(1));
}

TEST(DependentPage, PostsTheRowsNotificationOncePerChange) {
  Page opened;
  opened.build();
  opened.change("wifi", 2);
  EXPECT_EQ(opened.device.darwin.posted, std::vector<std::string>{"com.zorvek.quorvantis.prefs"});
}

TEST(DependentPage, TheSetterFlushesAllDomains) {
  Page opened;
  opened.build();
  EXPECT_TRUE(opened.flushes([&] { opened.change("wifi", 1); }));
}

TEST(DependentPage, TheSetterFlushesBeforeItEvaluates) {
  Page opened;
  opened.build();
  auto& governed = opened.cell("custbright");
  opened.change("wifi", 2);  // makes the folders, which are flushed at once
  governed.setAlpha(0.5);
  std::optional<double> atFlush;
  foundation::test::systemCalls().atNextFsync = [&] { atFlush = governed.alpha(); };
  opened.change("wifi", 1);
  EXPECT_EQ(atFlush, 0.5);
  EXPECT_TRUE(looksDimmed(governed));
}

struct LookingCenter : platform::DarwinNotificationCenter {
  void post(std::string_view) override { look(); }
  std::function<void()> look;
};

TEST(DependentPage, StoresBeforeItPostsAndRedrawsAfterwards) {
  testing_support::TestDevice device(prefs::bundle());
  LookingCenter center;
  preferences::Environment environment{
      device.root, device.preferences, device.center, device.queue, center,         device.collator,
      device.urls, device.addressBook, device.sounds, device.xml,   prefs::bundle()};
  auto page = std::make_shared<PowerSavingListController>(environment);
  page->viewDidLoad();
  for (auto& row : page->specifiers()) page->buildRow(*row);
  preferences::PSSpecifier& row = *page->specifierForID("custbrightenabled");
  const auto old = row.cellObject()->shared_from_this();
  bool looked = false;
  center.look = [&] {
    foundation::Preferences extension(device.root);
    EXPECT_EQ(extension.copyAppValue("custbrightenabled", "com.zorvek.quorvantis"),
              plist::Value(true));
    EXPECT_EQ(row.cellObject(), old.get());
    looked = true;
  };
  page->userChanged(row, true);
  EXPECT_TRUE(looked);
  EXPECT_NE(row.cellObject(), old.get());
}

TEST(DependentPage, EvaluatesWheneverTheApplicationBecomesActiveWhileShown) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.activate();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
  opened.switchOf("custbrightenabled").setOn(true);
  opened.activate();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
}

TEST(DependentPage, DoesNotEvaluateOnActivationBeforeItAppearedOrAfterItDisappeared) {
  Page opened;
  opened.build();
  opened.activate();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  opened.activate();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
}

TEST(DependentPage, EvaluatesOnAnActivationPostedWithASender) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.device.center.postNotificationName("UIApplicationDidBecomeActiveNotification",
                                            &opened.row("wifi"));
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, DisappearingRemovesThePageAsObserverOfThatNotificationOnly) {
  Page opened;
  opened.build();
  opened.device.center.addObserver(*opened.page, "setSliderEnableDisable", "another", nullptr);
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  opened.activate();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.device.center.postNotificationName("another", nullptr);
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, DoesNotEvaluateOnAppearingScrollingRedrawingStoringOrDisappearing) {
  Page opened;
  opened.build();
  const bool evaluated = evaluates(opened.cell("custbright"), [&] {
    opened.page->viewWillAppear(false);
    opened.page->scrollViewDidScroll(nullptr);
    opened.page->reloadSpecifier(opened.page->specifierForID("custbrightenabled"));
    opened.page->setPreferenceValueSpecifier(1, opened.page->specifierForID("wifi"));
    opened.page->viewWillDisappear(false);
  });
  EXPECT_FALSE(evaluated);
}

TEST(DependentPage, EachAppearanceSchedulesOneEvaluation) {
  Opened<CountingPage> opened;
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  opened.page->viewWillAppear(false);
  EXPECT_EQ(opened.page->evaluations, 0);
  opened.device.queue.advance(std::chrono::seconds(10));
  EXPECT_EQ(opened.page->evaluations, 2);
}

TEST(DependentPage, AppearingTwiceEvaluatesTwiceOnActivationAndOneDisappearanceRemovesBoth) {
  Opened<CountingPage> opened;
  opened.page->viewWillAppear(false);
  opened.page->viewWillAppear(false);
  opened.activate();
  EXPECT_EQ(opened.page->evaluations, 2);
  opened.page->viewWillDisappear(false);
  opened.activate();
  EXPECT_EQ(opened.page->evaluations, 2);
}

TEST(DependentPage, RepeatedCyclesStayBalanced) {
  Opened<CountingPage> opened;
  for (int cycle = 0; cycle < 3; ++cycle) {
    opened.page->viewWillAppear(true);
    opened.page->viewWillDisappear(true);
  }
  opened.page->viewWillAppear(true);
  opened.activate();
  EXPECT_EQ(opened.page->evaluations, 1);
}

TEST(DependentPage, DisappearingKeepsTheScheduledEvaluation) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, TheScheduledTaskHoldsThePageUntilItHasRun) {
  Page opened;
  opened.page->viewWillAppear(false);
  opened.page->viewWillDisappear(false);
  const std::weak_ptr<foundation::Object> life = opened.page;
  opened.page.reset();
  EXPECT_FALSE(life.expired());
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(life.expired());
}

TEST(DependentPage, EvaluationLeavesTheRowsBeforeAReloadAlone) {
  Page opened;
  opened.build();
  opened.page->viewWillAppear(false);
  const auto before = opened.page->specifiers();
  const auto cell = opened.cell("custbright").shared_from_this();
  opened.page->reloadSpecifiers();
  opened.device.queue.advance(kTenthOfASecond);
  EXPECT_TRUE(looksEnabled(dynamic_cast<uikit::TableViewCell&>(*cell)));
}

TEST(DependentPage, EvaluatesTheRowsOfAReloadedList) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.page->reloadSpecifiers();
  opened.build();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, WithoutTheSwitchRowTheDependentIsAlwaysDimmed) {
  const ChangedBundle changed(
      "PowerSavingListController",
      without(readList("PowerSavingListController"), {"custbrightenabled"}));
  Page opened(changed.bundle());
  opened.store("custbrightenabled", true);
  opened.build();
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, WithoutTheDependentRowEvaluationDoesNothing) {
  const ChangedBundle changed("PowerSavingListController",
                              without(readList("PowerSavingListController"), {"custbright"}));
  Page opened(changed.bundle());
  opened.build();
  opened.page->setSliderEnableDisable();
  for (auto& row : opened.page->specifiers()) EXPECT_TRUE(looksEnabled(*row->cellObject()));
}

TEST(DependentPage, ASwitchThatIsNotBuiltIsOff) {
  Page opened;
  opened.store("custbrightenabled", true);
  opened.page->buildRow(opened.row("custbright"));
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, AControlThatIsNotASwitchIsOff) {
  plist::Value list = readList("PowerSavingListController");
  for (plist::Value& item : *list.dictionary()->find("items")->array())
    if (*item.dictionary()->find("id") == plist::Value("custbrightenabled")) {
      item.dictionary()->set("cell", "PSEditTextCell");
      item.dictionary()->remove("cellClass");
    }
  const ChangedBundle changed("PowerSavingListController", list);
  Page opened(changed.bundle());
  opened.build();
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, ReadsTheLiveSwitchAndNotTheStore) {
  Page opened;
  opened.build();
  opened.switchOf("custbrightenabled").setOn(true);
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksEnabled(opened.cell("custbright")));
  EXPECT_FALSE(opened.stored("custbrightenabled"));
}

TEST(DependentPage, EvaluatingAgainChangesNothing) {
  Page opened;
  opened.build();
  opened.page->setSliderEnableDisable();
  opened.page->setSliderEnableDisable();
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, TheSetterWithoutARowStoresNothingAndEvaluates) {
  Page opened;
  opened.build();
  opened.page->setValueForSpecifier(1, nullptr);
  EXPECT_TRUE(opened.device.darwin.posted.empty());
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

TEST(DependentPage, NamesTheSwitchThatDimsARow) {
  Page opened;
  opened.build();
  EXPECT_EQ(opened.page->dimmingOf("custbright").by, "");
  opened.page->setSliderEnableDisable();
  EXPECT_EQ(opened.page->dimmingOf("custbright").by, "custbrightenabled");
  EXPECT_EQ(opened.page->dimmingOf("wifi").by, "");
  EXPECT_EQ(opened.page->dimmingOf("nosuchrow").by, "");
  opened.change("custbrightenabled", true);
  EXPECT_EQ(opened.page->dimmingOf("custbright").by, "");
}

TEST(DependentPage, ARowThatIsNotBuiltIsDimmedByNothing) {
  Page opened;
  EXPECT_EQ(opened.page->dimmingOf("custbright").by, "");
}

TEST(DependentPage, ItsOperationsAreCalledBySelector) {
  Page opened;
  opened.build();
  for (const char* selector :
       {"specifiers", "getViewForID:", "getCellForID:", "setSliderEnableDisable",
        "setValue:forSpecifier:", "viewWillAppear:", "viewWillDisappear:"})
    EXPECT_NE(opened.page->operations().find(selector), nullptr) << selector;
  const preferences::Argument id[] = {plist::Value("custbright")};
  const auto found = opened.page->operations().find("getCellForID:")->run(*opened.page, id);
  EXPECT_EQ(std::get<foundation::Object*>(*found), &opened.cell("custbright"));
  EXPECT_TRUE(opened.page->operations().find("setSliderEnableDisable")->run(*opened.page, {}));
  EXPECT_TRUE(looksDimmed(opened.cell("custbright")));
}

}  // namespace
