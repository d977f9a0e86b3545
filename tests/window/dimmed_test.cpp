#include <QGuiApplication>

#include "tests/window/bundle_window.h"

namespace {

// Rows that the page's rules have dimmed: which they are, why, and the way out.
class Dimmed : public BundleWindow {};

// What a screen reader says of the rows that are dimmed.
QStringList reasons(const Driver& driver) {
  QStringList found;
  for (QQuickItem* item : driver.items())
    if (QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(item))
      for (const QString& part : accessible->text(QAccessible::Description).split(", "))
        if (part.startsWith("dimmed") && !found.contains(part)) found << part;
  return found;
}

TEST_F(Dimmed, ADimmedRowSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
  set("vibrate", true);
  EXPECT_TRUE(driver->until([&] { return !reasons(*driver).contains(reason); }));
}

TEST_F(Dimmed, ADimmedRowSaysWhichSwitchToTurnOff) {
  open("LowPowerListController");
  set("lowpowermodeenabled", true);
  const QString reason = QString("dimmed: switch off %1 first").arg(labelOf("lowpowermodeenabled"));
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(reason); }));
}

TEST_F(Dimmed, ADimmedTextSaysWhichSwitchToTurnOn) {
  open("UserNotificationListController");
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("sendmessage"));
  for (const char* id : {"msgrecipient", "msgtext"})
    EXPECT_TRUE(driver->until([&] {
      QAccessibleInterface* accessible = driver->accessible(labelOf(id), QAccessible::EditableText);
      return accessible && accessible->text(QAccessible::Description) == reason;
    })) << id;
}

TEST_F(Dimmed, ADimmedTextIsReadAndNotEdited) {
  open("UserNotificationListController");
  ASSERT_TRUE(driver->until([this] { return !row("msgtext").usable; }));
  driver->waitUntilIdle();
  QAccessibleInterface* field = driver->accessible(labelOf("msgtext"), kText);
  ASSERT_TRUE(field && field->textInterface());
  EXPECT_EQ(field->textInterface()->text(0, field->textInterface()->characterCount()),
            "Current battery level on device %DNAME%: %BAT%");
  EXPECT_FALSE(field->state().editable);
}

TEST_F(Dimmed, ARowThatLagsBehindItsSwitchSaysHowItBecomesUsable) {
  open("UserNotificationListController");
  const auto dimmed = [this] { return !row("flashledduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  set("flashled", true);
  const QString lagging = "dimmed until you come back to this page";
  EXPECT_TRUE(driver->until([&] { return reasons(*driver).contains(lagging); }));
  EXPECT_TRUE(application->perform(host::Activate{}));
  EXPECT_TRUE(driver->until([&] { return !reasons(*driver).contains(lagging); }));
}

TEST_F(Dimmed, RulesAreEvaluatedWhenTheApplicationBecomesActive) {
  open("UserNotificationListController");
  const auto dimmed = [this] { return !row("vibrateduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  set("vibrate", true);
  emit qApp->applicationStateChanged(Qt::ApplicationInactive);
  EXPECT_TRUE(dimmed());
  emit qApp->applicationStateChanged(Qt::ApplicationActive);
  EXPECT_FALSE(dimmed());
}

TEST_F(Dimmed, TheReasonShowsWhereThePointerRests) {
  open("UserNotificationListController");
  const auto dimmed = [this] { return !row("vibrateduration").usable; };
  ASSERT_TRUE(driver->until(dimmed));
  driver->waitUntilIdle();
  for (QQuickItem* item : driver->itemsOfType("SliderRow")) {
    QTest::mouseMove(window, driver->place(item).center().toPoint());
    break;
  }
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  EXPECT_TRUE(driver->until([&] { return driver->shows(reason); }));
}

TEST_F(Dimmed, TheReasonGoesWithThePointer) {
  open("UserNotificationListController");
  ASSERT_TRUE(driver->until([this] { return !row("vibrateduration").usable; }));
  driver->waitUntilIdle();
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("vibrate"));
  const QPoint slider = driver->place(driver->itemsOfType("SliderRow").front()).center().toPoint();
  // A pointer that another window has left there would not move.
  QTest::mouseMove(window, QPoint(10, 10));
  QTest::mouseMove(window, slider);
  driver->waitUntilIdle();
  QTest::mouseClick(window, Qt::LeftButton, {}, slider);
  ASSERT_TRUE(driver->until([&] { return driver->shows(reason); }));
  QTest::mouseMove(window, QPoint(10, 10));
  EXPECT_TRUE(driver->until([&] { return !driver->shows(reason); }));
  QTest::mouseMove(window, slider);
  ASSERT_TRUE(driver->until([&] { return driver->shows(reason); }));
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(window, &leave);
  EXPECT_TRUE(driver->until([&] { return !driver->shows(reason); }));
}

TEST_F(Dimmed, TheReasonOffersTheWayOut) {
  open("PowerSavingListController");
  ASSERT_TRUE(driver->until([this] { return !row("custbright").usable; }));
  driver->waitUntilIdle();
  const QString offer = "Switch on " + labelOf("custbrightenabled");
  EXPECT_FALSE(driver->find(offer, kButton));
  driver->click(labelOf("custbright"));
  ASSERT_TRUE(driver->until([&] { return driver->find(offer, kButton) != nullptr; }));
  driver->waitUntilIdle();
  driver->click(offer, kButton);
  EXPECT_EQ(stored("custbrightenabled"), plist::Value(true));
  EXPECT_TRUE(row("custbright").usable);
  EXPECT_TRUE(driver->until([&] { return !driver->find(offer, kButton); }));
}

TEST_F(Dimmed, ReturnAndKeypadEnterTakeTheWayOut) {
  open("PowerSavingListController");
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    set("custbrightenabled", false);
    driver->waitUntilIdle();
    ASSERT_FALSE(row("custbright").usable);
    driver->find(labelOf("custbright"), kSlider)->forceActiveFocus();
    driver->key(key);
    EXPECT_TRUE(row("custbright").usable) << key;
  }
}

TEST_F(Dimmed, TheSwitchOfTheWayOutMayBeOffScreen) {
  open("LowPowerListController", 390, 600);
  set("lowpowermodeenabled", true);
  driver->scrollTo(100000);
  const auto rows = page().rows;
  const auto last = std::ranges::find_if(rows.rbegin(), rows.rend(), [](const auto& each) {
    return each.whyNot && !each.whyNot->wayOut().empty();
  });
  ASSERT_NE(last, rows.rend());
  bridge().shown()->takeWayOut(static_cast<int>(rows.rend() - last) - 1);
  EXPECT_EQ(stored("lowpowermodeenabled"), plist::Value(false));
}

class DimmedLargeFont : public BundleWindow {
 protected:
  DimmedLargeFont() {
    QFont large = before_;
    large.setPointSize(16);
    QGuiApplication::setFont(large);
  }
  ~DimmedLargeFont() override { QGuiApplication::setFont(before_); }

 private:
  QFont before_ = QGuiApplication::font();
};

TEST_F(DimmedLargeFont, RowsThatMustBeDimmedAreInALowWindow) {
  open(nullptr, 390, 600);
  driver->scrollTo(420);
  driver->click("Notifications", kButton);
  ASSERT_EQ(page().pageClass, "UserNotificationListController");
  QTest::qWait(300);  // the page applies its rules 0.1 s after it appears
  for (const char* id : {"adressbook", "msgrecipient", "msgtext"})
    EXPECT_FALSE(row(id).usable) << id;
  driver->scrollTo(300);
  for (const char* id : {"adressbook", "msgrecipient", "msgtext"})
    EXPECT_TRUE(driver->accessible(labelOf(id))->state().disabled) << id;
}

}  // namespace
