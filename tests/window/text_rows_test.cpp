#include <QClipboard>

#include "tests/window/sample_window.h"

namespace {

class TextRows : public SampleWindow {};

TEST_F(TextRows, AnEmptyTextShowsItsPlaceholder) {
  EXPECT_TRUE(driver->shows("Somebody"));
  driver->click("Name", kText);
  EXPECT_TRUE(driver->shows("Somebody"));
  driver->type("A");
  EXPECT_FALSE(driver->shows("Somebody"));
}

TEST_F(TextRows, TextIsStoredWhenReturnEndsIt) {
  driver->click("Name", kText);
  driver->type("Ann");
  EXPECT_TRUE(device.stored("name").isNothing());
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(TextRows, TextIsStoredWhenThePageIsLeft) {
  driver->click("A long page");
  driver->key(Qt::Key_Escape);
  driver->click("Name", kText);
  driver->type("Ann");
  driver->click("Tone");
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(TextRows, TextIsStoredWhenTheWindowIsClosed) {
  driver->click("Name", kText);
  driver->type("Ann");
  window->close();
  EXPECT_EQ(device.stored("name"), plist::Value("Ann"));
}

TEST_F(TextRows, ATextThatDoesNotFitBesideItsLabelStandsBelowItAndWraps) {
  QQuickItem* field = driver->find("Name", kText);
  QQuickItem* card = field;
  while (!card->property("cardHeight").isValid()) card = card->parentItem();
  const auto labelOfRow = [&] {
    for (QQuickItem* text : driver->itemsOfType("QQuickText"))
      if (text->property("text") == "Name") return driver->place(text);
    return QRectF();
  };
  EXPECT_GT(driver->place(field).left(), labelOfRow().right());
  const double height = card->height();
  driver->click("Name", kText);
  driver->type("A name that is so long that no row of a phone has room for all of it");
  EXPECT_GE(driver->place(field).top(), labelOfRow().bottom() - 1);
  EXPECT_GT(card->height(), height * 1.6) << "it is seen whole while it is typed";
  driver->key(Qt::Key_Return);
  driver->click("A long page");
  driver->key(Qt::Key_Escape);
  for (QQuickItem* text : driver->itemsOfType("QQuickText")) {
    const bool isIt = text->property("text").toString().startsWith("A name that");
    EXPECT_FALSE(isIt && text->property("truncated").toBool());
  }
}

TEST_F(TextRows, ATextOfOneLineTakesAPastedTextAsOneLine) {
  QGuiApplication::clipboard()->setText("Ann\n  and Bo");
  driver->click("Name", kText);
  driver->key(Qt::Key_V, Qt::ControlModifier);
  driver->key(Qt::Key_Return);
  EXPECT_EQ(device.stored("name"), plist::Value("Ann and Bo"));
}

TEST_F(TextRows, ATextThatNobodyEditedStaysAsItIsStored) {
  const std::string odd =
      "a\xC2\xA0"
      "b\nc";
  ASSERT_TRUE(device.preferences.setAppValue("name", plist::Value(odd), sample::kDomain));
  bridge().activate();
  driver->waitUntilIdle();
  driver->click("Name", kText);
  driver->key(Qt::Key_Tab);
  EXPECT_EQ(device.stored("name"), plist::Value(odd));
}

TEST_F(TextRows, ArrowsLeaveATextAtItsFirstAndLastLine) {
  driver->click("Name", kText);
  driver->key(Qt::Key_Down);
  EXPECT_NE(driver->focused(), "Name");
  driver->key(Qt::Key_Up);
  EXPECT_EQ(driver->focused(), "Name");
}

TEST_F(TextRows, EscapeGivesBackTheTextThatWasThere) {
  driver->click("Password", kText);
  driver->type("x");
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(driver->find("Password", kText)->property("text").toString(), "secret");
  driver->key(Qt::Key_Return);
  EXPECT_TRUE(device.stored("secret").isNothing());
}

TEST_F(TextRows, ASecretIsMasked) {
  EXPECT_FALSE(driver->find("Password", kText)->property("displayText").toString().contains("s"));
}

}  // namespace
