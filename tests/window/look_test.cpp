#include <QStyleHints>
#include <cmath>

#include "apps/window/tools.h"
#include "host/window_state.h"
#include "tests/window/bundle_window.h"

namespace {

class Look : public BundleWindow {
 protected:
  void store(const char* key, const plist::Value& value) {
    foundation::DeviceRoot root(folder.path().toStdString());
    ASSERT_TRUE(foundation::Preferences(root).setAppValue(key, value, "com.zorvek.quorvantis"));
  }
  QQuickItem* text(const QString& words) const {
    for (QQuickItem* item : driver->itemsOfType("QQuickText"))
      if (item->property("text") == words) return item;
    return nullptr;
  }
  const std::string long_ = "At night, while nobody needs the phone, everything may be off";
};

TEST_F(Look, AChoiceThatLeavesAllAsItIsIsPlainAndOneThatActsStandsOut) {
  store("wifi", 2);
  open("PowerSavingListController", 390, 2600);
  QColor plain, acting;
  for (QQuickItem* row : driver->itemsOfType("SegmentRow")) {
    const auto entry = row->property("entry").value<window::Row>();
    (entry.id == "wifi" ? acting : plain) = row->property("chosenColor").value<QColor>();
  }
  EXPECT_EQ(plain, QColor("#FFFFFF"));
  EXPECT_NE(acting, plain);
  EXPECT_LT(acting.lightnessF(), 0.4);
}

TEST_F(Look, ThePointerOnASegmentLeavesTheFrameAroundItWhole) {
  QStyleHints& hints = *QGuiApplication::styleHints();
  const bool before = hints.useHoverEffects();
  hints.setUseHoverEffects(true);
  open("SoundsListController");
  QQuickItem* segment = driver->find("Silent", kRadioButton);
  const QPoint center = driver->place(segment).center().toPoint();
  const auto colorAt = [&](int y) {
    const QImage image = window->grabWindow();
    const auto scaled = [&](int place) { return qRound(place * image.devicePixelRatio()); };
    return image.pixelColor(scaled(center.x()), scaled(y));
  };
  const int top = static_cast<int>(std::ceil(driver->place(segment).top()));
  const QColor frame = colorAt(top), face = colorAt(top + 4);
  QTest::mouseMove(window, center);
  EXPECT_TRUE(driver->until([&] { return colorAt(top + 4) != face; }));
  EXPECT_EQ(colorAt(top), frame);
  EXPECT_NE(frame, colorAt(top + 4));
  hints.setUseHoverEffects(before);
}

TEST_F(Look, ControlsGrowWithTheText) {
  open("GeneralSettingsController");
  const auto height = [this] {
    QQuickItem* button = driver->find(labelOf("enabled"), kCheckBox);
    return button->property("indicator").value<QQuickItem*>()->height();
  };
  const double before = height();
  const QFont font = QGuiApplication::font();
  QFont large = font;
  large.setPixelSize(26);
  QGuiApplication::setFont(large);
  EXPECT_TRUE(driver->until([&] { return height() >= 1.9 * before; }));
  QGuiApplication::setFont(font);
}

TEST_F(Look, TheNarrowestWindowNamesTheWayBack) {
  for (const char* link :
       {"General", "Power Saving", "Low Power Mode", "Manage Profiles", "Notifications"}) {
    open(nullptr, 320, 700);
    driver->find(link, kButton)->forceActiveFocus(Qt::TabFocusReason);
    driver->key(Qt::Key_Return);
    ASSERT_EQ(scene().pages.size(), 2u) << link;
    QStringList words;
    const QQuickItem* bar = driver->itemsOfType("NavigationBar").back();
    for (const QQuickItem* item : driver->itemsOfType("QQuickText")) {
      if (!bar->isAncestorOf(item)) continue;
      words << item->property("text").toString();
      EXPECT_FALSE(item->property("truncated").toBool()) << words.last().toStdString();
    }
    EXPECT_TRUE(words.contains("Quorvantis") || words.contains("Back")) << link;
    EXPECT_TRUE(words.contains(link)) << link;
    closeAll();
  }
}

TEST_F(Look, ATextThatIsCutOffInAMenuIsSaidWholeWhereThePointerRests) {
  const QString words = QString::fromStdString(long_ + " ").repeated(8).trimmed();
  for (const char* id : {"20", "30"})
    write(
        "/var/mobile/Documents/Quorvantis/profile_" + std::string(id) + ".qvx",
        plist::Dictionary{{"profilepercentage", id}, {"profiledescription", words.toStdString()}});
  open();
  emit bridge().tools()->profileWanted("/var/mobile/Documents/Quorvantis/profile_20.qvx");
  driver->waitUntilIdle();
  driver->click("Compare With…", kButton);
  QQuickItem* cut = text("Battery 30% - " + words);
  ASSERT_TRUE(cut);
  ASSERT_TRUE(cut->property("truncated").toBool());
  QTest::mouseMove(window, driver->place(cut).center().toPoint());
  EXPECT_TRUE(driver->until([&] {
    const auto hints = driver->itemsOfType("TruncatedHint");
    return std::ranges::any_of(hints, [&](const QQuickItem* hint) {
      return hint->property("words") == "Battery 30% - " + words;
    });
  }));
}

TEST_F(Look, ATextThatIsCutOffIsSaidWholeWhereThePointerRests) {
  const QString words = QString::fromStdString(long_ + " ").repeated(8).trimmed();
  store("profiledescription", words.toStdString());
  open("ProfilesListController");
  QQuickItem* cut = text(words);
  ASSERT_TRUE(cut);
  ASSERT_TRUE(cut->property("truncated").toBool());
  QTest::mouseMove(window, driver->place(cut).center().toPoint());
  EXPECT_TRUE(driver->until([&] {
    for (QObject* item : window->findChildren<QObject*>())
      if (item->inherits("QQuickToolTip") && item->property("visible").toBool() &&
          item->property("text") == words)
        return true;
    return false;
  }));
}

TEST_F(Look, ADimmedRowWhoseTextIsCutOffHasOneHintForBoth) {
  const QString words = QString::fromStdString(long_ + " ").repeated(8).trimmed();
  store("msgtext", words.toStdString());
  open("UserNotificationListController");
  ASSERT_TRUE(driver->until([this] { return !row("msgtext").usable; }));
  driver->waitUntilIdle();
  QQuickItem* cut = text(words);
  ASSERT_TRUE(cut);
  ASSERT_TRUE(cut->property("truncated").toBool());
  const QString reason = QString("dimmed: switch on %1 first").arg(labelOf("sendmessage"));
  QTest::mouseMove(window, driver->place(cut).center().toPoint());
  EXPECT_TRUE(driver->until([&] { return driver->shows(words + "\n" + reason); }));
  ASSERT_FALSE(driver->itemsOfType("TruncatedHint").empty());
  for (const QQuickItem* hint : driver->itemsOfType("TruncatedHint"))
    EXPECT_EQ(hint->property("words"), "");
}

TEST_F(Look, AnEmptyListSaysWhatWouldFillIt) {
  open();
  driver->click("Battery Log");
  EXPECT_TRUE(driver->shows("No entries"));
  EXPECT_TRUE(driver->shows("Entries are written while Keep Battery Log, below Extras, is on."));
}

TEST_F(Look, F1ShowsTheKeysUntilEscape) {
  open();
  driver->key(Qt::Key_F1);
  EXPECT_TRUE(driver->shows("Keys"));
  driver->key(Qt::Key_Escape);
  EXPECT_FALSE(driver->shows("Keys"));
  EXPECT_EQ(page().pageClass, "quorvantisprefsListController");
}

QStringList messages;

TEST_F(Look, HelpThatIsOpenAsTheWindowClosesReportsNothing) {
  open();
  driver->key(Qt::Key_F1);
  ASSERT_TRUE(driver->shows("Keys"));
  messages.clear();
  const auto before = qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& words) { messages << words; });
  closeAll();
  qInstallMessageHandler(before);
  EXPECT_EQ(messages, QStringList());
}

// What others have written would be drawn as markup, and pictures in it be fetched.
TEST_F(Look, NoTextIsTakenForMarkup) {
  write("/var/mobile/Documents/Quorvantis/profile_20.qvx",
        plist::Dictionary{{"profilepercentage", "20"}, {"profiledescription", "<b>Night</b>"}});
  const auto check = [this](const char* where) {
    for (const QQuickItem* item : driver->itemsOfType("QQuickText"))
      EXPECT_EQ(item->property("textFormat").toInt(), static_cast<int>(Qt::PlainText))
          << where << ": " << item->property("text").toString().toStdString();
  };
  for (const char* page : {"GeneralSettingsController", "PowerSavingListController"}) {
    open(page);
    check(page);
    emit bridge().tools()->profilesWanted();
    driver->waitUntilIdle();
    check("profiles");
    emit bridge().tools()->profileWanted("/var/mobile/Documents/Quorvantis/profile_20.qvx");
    driver->waitUntilIdle();
    check("a profile");
    closeAll();
  }
  open();
  driver->key(Qt::Key_F1);
  check("help");
}

TEST_F(Look, KeysCloseTheWindow) {
  for (const Qt::Key key : {Qt::Key_Q, Qt::Key_W}) {
    open();
    driver->key(key, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible()) << key;
    closeAll();
  }
}

TEST(WindowState, IsReadAsItWasWritten) {
  QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  const host::WindowState state{1000, 700, "sounds"};
  ASSERT_TRUE(host::writeWindowState(path, state));
  EXPECT_EQ(host::readWindowState(path), state);
}

TEST(WindowState, ThatIsDamagedOrAbsurdCountsAsNone) {
  QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  EXPECT_EQ(host::readWindowState(path), host::WindowState());
  ASSERT_TRUE(host::writeWindowState(path, {-5, 700, "sounds"}));
  EXPECT_EQ(host::readWindowState(path).width, 0);
  EXPECT_EQ(host::readWindowState(path).height, 0);
  QFile file(folder.filePath("window"));
  ASSERT_TRUE(file.open(QFile::WriteOnly));
  file.write("rubbish");
  file.close();
  EXPECT_EQ(host::readWindowState(path), host::WindowState());
}

}  // namespace
