#include "tests/window/bundle_window.h"

namespace {

// A walk through every row of a page by one key, in a window that holds few of them.
class Walk : public BundleWindow, public testing::WithParamInterface<const char*> {
 protected:
  static constexpr int kHeight = 600;  // pixels
  static constexpr int kButtonsOfTheBar = 4;

  void SetUp() override {
    write("/var/mobile/Documents/Quorvantis/profile_7.qvx",
          plist::Dictionary{{"profilepercentage", "7"}});
    open(GetParam(), 390, kHeight);
    QTest::qWait(300);  // the page applies its rules 0.1 s after it appears
  }
  // The labels of all rows that take the keyboard, dimmed or not.
  QStringList labels() const {
    QStringList labels;
    for (const host::RowView& row : page().rows) {
      using host::RowKind;
      const bool takes =
          row.kind != RowKind::Group && row.kind != RowKind::Value && row.kind != RowKind::Static;
      if (takes) labels << QString::fromStdString(row.label);
    }
    return labels;
  }
  bool isInSight() const {
    const QRectF place = driver->place(window->activeFocusItem());
    return place.top() >= 0 && place.bottom() <= kHeight;
  }
  QStringList walk(Qt::Key key, int steps, Qt::KeyboardModifiers modifiers = {}) {
    QStringList visited;
    for (int i = 0; i < steps; ++i) {
      driver->key(key, modifiers);
      visited << driver->focused();
      EXPECT_EQ(driver->rings(), 1) << visited.last().toStdString();
      EXPECT_TRUE(isInSight()) << visited.last().toStdString();
    }
    return visited;
  }
  static QStringList reversed(QStringList list) {
    std::ranges::reverse(list);
    return list;
  }
};

TEST_P(Walk, TabAndDownVisitTheSameRowsEachWithARingAndInSight) {
  const QStringList all = labels();
  const int count = static_cast<int>(all.size());
  EXPECT_EQ(walk(Qt::Key_Down, count), all);
  for (int i = 0; i < kButtonsOfTheBar && driver->focused() != all.first(); ++i)
    driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->focused(), all.first());
  EXPECT_EQ(walk(Qt::Key_Tab, count - 1), all.mid(1));
}

TEST_P(Walk, BacktabAndUpVisitThemTheOtherWay) {
  const QStringList back = reversed(labels());
  const int count = static_cast<int>(back.size());
  driver->key(Qt::Key_End);
  EXPECT_EQ(driver->focused(), back.first());
  EXPECT_EQ(walk(Qt::Key_Up, count - 1), back.mid(1));
  driver->key(Qt::Key_End);
  EXPECT_EQ(walk(Qt::Key_Backtab, count - 1, Qt::ShiftModifier), back.mid(1));
}

TEST_P(Walk, TabLeavesTheRowsAtTheirEndAndEntersThemAgainThere) {
  const QStringList all = labels();
  driver->key(Qt::Key_End);
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->focused(), "Back");
  driver->key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(driver->focused(), all.last());
  driver->key(Qt::Key_Tab);
  for (int i = 0; i < kButtonsOfTheBar && driver->focused() != all.first(); ++i)
    driver->key(Qt::Key_Tab);
  EXPECT_EQ(driver->focused(), all.first());
}

TEST_P(Walk, PageDownAndPageUpReachTheEnds) {
  const QStringList all = labels();
  driver->key(Qt::Key_Home);
  for (int i = 0; i < 12 && driver->focused() != all.last(); ++i)
    driver->key(Qt::Key_PageDown, Qt::NoModifier);
  if (driver->focused() != all.last()) driver->key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(driver->focused(), all.last());
}

// Everything that is to be found from the window on, as a screen reader walks.
void collect(QAccessibleInterface* from, std::vector<QAccessibleInterface*>& found) {
  for (int i = 0; i < from->childCount(); ++i) {
    QAccessibleInterface* child = from->child(i);
    EXPECT_EQ(from->indexOfChild(child), i) << child->text(QAccessible::Name).toStdString();
    found.push_back(child);
    collect(child, found);
  }
}

TEST_P(Walk, AScreenReaderFindsEveryRowOnceAndWhyItCantBeUsed) {
  std::vector<QAccessibleInterface*> found;
  collect(QAccessible::queryAccessibleInterface(window), found);
  for (const host::RowView& row : page().rows) {
    const QString label = QString::fromStdString(row.label);
    if (label.isEmpty() || row.kind == host::RowKind::Text) continue;
    std::vector<QAccessibleInterface*> named;
    for (QAccessibleInterface* each : found)
      if (each->text(QAccessible::Name) == label) named.push_back(each);
    const auto same = std::ranges::count(page().rows, row.label, &host::RowView::label);
    ASSERT_GE(std::ssize(named), same) << row.label;
    if (same > 1 || row.usable) continue;
    EXPECT_TRUE(named.front()->state().disabled) << row.label;
    EXPECT_THAT(named.front()->text(QAccessible::Description).toStdString(),
                testing::HasSubstr(row.whyNot->words()));
  }
}

TEST_P(Walk, TheReasonOfADimmedRowIsShownWhileItHasTheKeyboard) {
  for (int i = 0; i < labels().size(); ++i) {
    driver->key(Qt::Key_Down);
    const auto rows = page().rows;
    const auto row =
        std::ranges::find(rows, driver->focused().toStdString(), &host::RowView::label);
    if (row == rows.end() || row->usable) continue;
    const QString reason = QString::fromStdString(row->whyNot->words());
    EXPECT_TRUE(driver->until([&] { return driver->shows(reason); })) << row->label;
    return;
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, Walk,
                         testing::Values("GeneralSettingsController", "PowerSavingListController",
                                         "LowPowerListController", "SoundsListController",
                                         "UserNotificationListController",
                                         "ConditionsListController", "ExtrasListController",
                                         "ProfilesListController"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
