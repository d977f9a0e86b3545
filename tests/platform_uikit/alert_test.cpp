#include <gtest/gtest.h>

#include "platform/uikit/alert_controller.h"
#include "platform/uikit/alert_view.h"
#include "platform/uikit/screen.h"

using namespace uikit;

namespace {

// Offers its rows in one wheel, and records the calls that it gets.
struct Owner : AlertViewDelegate, PickerViewDataSource, PickerViewDelegate {
  void alertViewClickedButtonAtIndex(AlertView* alert, int index) override {
    clicked.emplace_back(alert->tag, index);
    onScreenAtClick = screen ? static_cast<int>(screen->alerts().size()) : -1;
    if (screen && next) screen->present(std::move(next));
  }
  int numberOfComponentsInPickerView(PickerView*) override { return 1; }
  int pickerViewNumberOfRowsInComponent(PickerView*, int) override {
    return static_cast<int>(rows.size());
  }
  std::string pickerViewTitleForRowForComponent(PickerView*, int row, int) override {
    return rows[static_cast<std::size_t>(row)];
  }
  void pickerViewDidSelectRowInComponent(PickerView*, int row, int) override {
    turned.push_back(row);
  }

  std::vector<std::pair<int, int>> clicked;
  int onScreenAtClick = -1;
  std::vector<std::string> rows;
  std::vector<int> turned;
  Screen* screen = nullptr;
  std::shared_ptr<Alert> next;
};

std::shared_ptr<AlertView> alertOf(const std::shared_ptr<Owner>& owner, int tag = 0) {
  auto alert = std::make_shared<AlertView>("Title", "Message", owner, "Cancel",
                                           std::vector<std::string>{"Go"});
  alert->tag = tag;
  return alert;
}

std::shared_ptr<PickerView> pickerOf(const std::shared_ptr<Owner>& owner) {
  auto picker = std::make_shared<PickerView>();
  picker->dataSource = owner;
  picker->delegate = owner;
  return picker;
}

}  // namespace

TEST(AlertView, HasItsCancelButtonFirst) {
  const AlertView alert("Title", "Message", {}, "Cancel", {"One", "Two"});
  const auto buttons = alert.buttons();
  ASSERT_EQ(buttons.size(), 3u);
  EXPECT_EQ(buttons[0].title, "Cancel");
  EXPECT_EQ(buttons[0].role, ButtonRole::Cancel);
  EXPECT_EQ(buttons[1].title, "One");
  EXPECT_EQ(buttons[1].role, ButtonRole::Default);
  EXPECT_EQ(buttons[2].title, "Two");
}

TEST(AlertView, IsAnAlertWithTagZeroAndNoPicker) {
  const AlertView alert("Title", "Message", {}, "Ok");
  EXPECT_EQ(alert.style(), AlertStyle::Alert);
  EXPECT_EQ(alert.tag, 0);
  EXPECT_EQ(alert.picker(), nullptr);
}

TEST(AlertView, FindsAButtonByItsTitle) {
  const AlertView alert("Title", "Message", {}, "Cancel", {"Go", "Go"});
  EXPECT_EQ(alert.buttonTitled("Cancel"), 0);
  EXPECT_EQ(alert.buttonTitled("Go"), 1);
  EXPECT_EQ(alert.buttonTitled("go"), std::nullopt);
}

TEST(AlertView, KeepsItsPickerAlive) {
  AlertView alert("Title", "Message", {}, "Cancel");
  auto picker = std::make_shared<PickerView>();
  alert.setAccessoryView(picker);
  const std::weak_ptr<PickerView> watch = picker;
  picker.reset();
  EXPECT_EQ(alert.picker(), watch.lock().get());
  EXPECT_FALSE(watch.expired());
}

TEST(Screen, ShowsTheTopmostAlertLast) {
  Screen screen;
  EXPECT_EQ(screen.topmost(), nullptr);
  auto owner = std::make_shared<Owner>();
  screen.present(alertOf(owner, 1));
  screen.present(alertOf(owner, 2));
  ASSERT_EQ(screen.alerts().size(), 2u);
  EXPECT_EQ(screen.alerts()[0]->tag, 1);
  EXPECT_EQ(screen.topmost()->tag, 2);
}

TEST(Screen, PressesTheTopmostAlertAndNotifiesItsDelegate) {
  Screen screen;
  auto owner = std::make_shared<Owner>();
  screen.present(alertOf(owner, 1));
  screen.present(alertOf(owner, 2));
  EXPECT_TRUE(screen.press(1));
  EXPECT_TRUE(screen.press(0));
  EXPECT_EQ(owner->clicked, (std::vector<std::pair<int, int>>{{2, 1}, {1, 0}}));
}

TEST(Screen, TakesAnAlertAwayBeforeItsActionRuns) {
  Screen screen;
  auto owner = std::make_shared<Owner>();
  owner->screen = &screen;
  owner->next = alertOf(owner, 9);
  screen.present(alertOf(owner, 1));
  EXPECT_TRUE(screen.press(1));
  EXPECT_EQ(owner->onScreenAtClick, 0);
  ASSERT_EQ(screen.alerts().size(), 1u);
  EXPECT_EQ(screen.topmost()->tag, 9) << "what the action shows stays";
}

TEST(Screen, RefusesAButtonThatIsNotThere) {
  Screen screen;
  EXPECT_FALSE(screen.press(0));
  auto owner = std::make_shared<Owner>();
  screen.present(alertOf(owner));
  EXPECT_FALSE(screen.press(2));
  EXPECT_FALSE(screen.press(-1));
  EXPECT_EQ(screen.alerts().size(), 1u);
  EXPECT_TRUE(owner->clicked.empty());
}

TEST(Screen, ClosesAnAlertWhoseDelegateIsGone) {
  Screen screen;
  auto owner = std::make_shared<Owner>();
  screen.present(alertOf(owner));
  owner.reset();
  EXPECT_TRUE(screen.press(1));
  EXPECT_TRUE(screen.alerts().empty());
}

TEST(Screen, DismissesAllWithoutPressingAnything) {
  Screen screen;
  auto owner = std::make_shared<Owner>();
  screen.present(alertOf(owner, 1));
  screen.present(alertOf(owner, 2));
  screen.dismissAll();
  EXPECT_TRUE(screen.alerts().empty());
  EXPECT_TRUE(owner->clicked.empty());
}

TEST(AlertController, RunsTheHandlerOfThePressedAction) {
  Screen screen;
  auto sheet = std::make_shared<AlertController>("Title", "Message", AlertStyle::ActionSheet);
  std::string ran;
  sheet->addAction({"Save", ButtonRole::Default, [&] { ran = "save"; }});
  sheet->addAction({"Delete", ButtonRole::Destructive, [&] { ran = "delete"; }});
  sheet->addAction({"Cancel", ButtonRole::Cancel, {}});
  EXPECT_EQ(sheet->style(), AlertStyle::ActionSheet);
  EXPECT_EQ(sheet->buttons()[1].role, ButtonRole::Destructive);
  screen.present(sheet);
  EXPECT_TRUE(screen.press(1));
  EXPECT_EQ(ran, "delete");
}

TEST(AlertController, DoesNothingForAnActionWithoutHandler) {
  Screen screen;
  auto sheet = std::make_shared<AlertController>("", "", AlertStyle::Alert);
  sheet->addAction({"Cancel", ButtonRole::Cancel, {}});
  screen.present(sheet);
  EXPECT_TRUE(screen.press(0));
  EXPECT_TRUE(screen.alerts().empty());
}

TEST(PickerView, AsksItsSourceForRowsAndItsDelegateForTitles) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a", "b"};
  auto picker = pickerOf(owner);
  EXPECT_EQ(picker->numberOfComponents(), 1);
  EXPECT_EQ(picker->titlesInComponent(0), owner->rows);
  EXPECT_EQ(picker->numberOfRowsInComponent(1), 0);
  EXPECT_EQ(picker->numberOfRowsInComponent(-1), 0);
}

TEST(PickerView, StandsOnItsFirstRow) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a", "b"};
  EXPECT_EQ(pickerOf(owner)->selectedRowInComponent(0), 0);
}

TEST(PickerView, HasNoSelectedRowWithoutRows) {
  auto owner = std::make_shared<Owner>();
  auto picker = pickerOf(owner);
  EXPECT_EQ(picker->selectedRowInComponent(0), -1);
  owner->rows = {"a", "b"};
  picker->selectRowInComponent(1, 0, false);
  owner->rows.clear();
  EXPECT_EQ(picker->selectedRowInComponent(0), -1) << "the rows went after it was turned";
}

TEST(PickerView, HasNoRowsWithoutItsSource) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a"};
  auto picker = pickerOf(owner);
  owner.reset();
  EXPECT_EQ(picker->numberOfRowsInComponent(0), 0);
  EXPECT_EQ(picker->selectedRowInComponent(0), -1);
  EXPECT_EQ(picker->titleForRowForComponent(0, 0), "");
}

TEST(PickerView, IsSelectedByCodeWithoutTellingTheDelegate) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a", "b", "c"};
  auto picker = pickerOf(owner);
  picker->selectRowInComponent(2, 0, false);
  EXPECT_EQ(picker->selectedRowInComponent(0), 2);
  picker->selectRowInComponent(3, 0, false);
  picker->selectRowInComponent(-1, 0, false);
  EXPECT_EQ(picker->selectedRowInComponent(0), 2) << "rows that aren't there";
  EXPECT_TRUE(owner->turned.empty());
}

TEST(PickerView, NotifiesTheDelegateOfTheRowThatTheUserTurnsItTo) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a", "b"};
  auto picker = pickerOf(owner);
  EXPECT_TRUE(picker->turn(1, 0));
  EXPECT_FALSE(picker->turn(2, 0));
  EXPECT_EQ(owner->turned, std::vector<int>{1});
  EXPECT_EQ(picker->selectedRowInComponent(0), 1);
}

TEST(PickerView, KeepsItsSelectionAmongFewerRows) {
  auto owner = std::make_shared<Owner>();
  owner->rows = {"a", "b", "c"};
  auto picker = pickerOf(owner);
  picker->turn(2, 0);
  owner->rows.pop_back();
  EXPECT_EQ(picker->selectedRowInComponent(0), 1);
}
