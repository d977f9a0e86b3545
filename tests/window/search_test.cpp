#include <QElapsedTimer>

#include "apps/window/tools.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kProfile20 = "/var/mobile/Documents/Quorvantis/profile_20.qvx";

class SearchView : public BundleWindow {
 protected:
  void search(const QString& words) {
    driver->key(Qt::Key_F, Qt::ControlModifier);
    driver->type(words);
  }
  // The labels of the results, and where each leads.
  QStringList results() const {
    QStringList labels;
    for (QQuickItem* item : driver->itemsOfType("EntryRow"))
      labels << item->property("label").toString() + " | " + item->property("detail").toString();
    return labels;
  }
  // The label of the row that is marked.
  QString marked() const {
    for (QQuickItem* row : driver->items())
      if (row->objectName() == "found")
        for (QQuickItem* up = row; up; up = up->parentItem())
          if (up->property("control").isValid())
            return up->property("entry").value<window::Row>().label;
    return {};
  }
};

TEST_F(SearchView, ResultsFollowWhatIsTypedBestFirst) {
  open();
  search("custom v");
  ASSERT_FALSE(results().isEmpty());
  EXPECT_EQ(results().front(), "Custom Volume | Sounds > Volume");
  driver->type("zzzzzz");
  EXPECT_TRUE(results().isEmpty());
  EXPECT_TRUE(driver->shows("Nothing found"));
}

TEST_F(SearchView, ATypoAndAnotherOrderOfWordsAreForgiven) {
  open();
  search("volune custm");
  ASSERT_FALSE(results().isEmpty());
  EXPECT_EQ(results().front(), "Custom Volume | Sounds > Volume");
}

TEST_F(SearchView, ReturnOpensThePageAtTheRowAndMarksIt) {
  open(nullptr, 390, 600);
  search("fireincall");
  driver->key(Qt::Key_Return);
  ASSERT_TRUE(driver->until([&] { return page().pageClass == "ConditionsListController"; }));
  driver->waitUntilIdle();
  EXPECT_EQ(marked(), labelOf("fireincall"));
  EXPECT_EQ(driver->focused(), labelOf("fireincall"));
  const QRectF place = driver->place(driver->find(labelOf("fireincall")));
  EXPECT_GE(place.top(), 0);
  EXPECT_LE(place.bottom(), 600);
  driver->key(Qt::Key_Escape);
  EXPECT_EQ(page().pageClass, "quorvantisprefsListController");
}

TEST_F(SearchView, AClickOpensAResultFromAnotherPageToo) {
  open("SoundsListController");
  search("bluetooth");
  driver->clickItem(driver->itemsOfType("EntryRow").front());
  EXPECT_TRUE(driver->until([&] { return page().pageClass == "PowerSavingListController"; }));
  driver->waitUntilIdle();
  EXPECT_EQ(marked(), labelOf("bluetooth"));
  EXPECT_EQ(scene().pages.size(), 2u);
}

TEST_F(SearchView, ArrowsChooseAmongTheResults) {
  open();
  search("battery");
  const QStringList found = results();
  ASSERT_GE(found.size(), 2);
  driver->key(Qt::Key_Down);
  const auto rows = driver->itemsOfType("EntryRow");
  EXPECT_FALSE(rows[0]->property("current").toBool());
  EXPECT_TRUE(rows[1]->property("current").toBool());
}

TEST_F(SearchView, TypingOnTheFirstPageBeginsASearch) {
  open();
  driver->type("vib");
  EXPECT_EQ(driver->find("Search all pages", kText)->property("text").toString(), "vib");
  EXPECT_FALSE(results().isEmpty());
}

TEST_F(SearchView, TypingOnAnotherPageDoesNot) {
  open("SoundsListController");
  driver->type("v");
  EXPECT_EQ(driver->find("Search all pages", kText), nullptr);
}

TEST_F(SearchView, ASavedProfileIsFoundAndOpened) {
  write(kProfile20, Dictionary{{"profilepercentage", "20"}, {"profiledescription", "Expedition"}});
  open();
  search("expediton");
  EXPECT_THAT(results(), testing::Contains("Battery 20% - Expedition | Saved Profiles"));
  driver->key(Qt::Key_Return);
  EXPECT_FALSE(driver->itemsOfType("ProfileView").empty());
}

TEST_F(SearchView, EscClosesItAndTheKeysAreOnThePageAgain) {
  open();
  driver->key(Qt::Key_Tab);
  const QString before = driver->focused();
  search("x");
  driver->key(Qt::Key_Escape);
  driver->key(Qt::Key_Escape);
  EXPECT_TRUE(driver->itemsOfType("SearchView").empty());
  EXPECT_EQ(driver->focused(), before);
}

TEST_F(SearchView, TheFirstWordIsAnsweredWithinATenthOfASecond) {
  open();
  window::SearchTool& tool = *bridge().tools()->search();
  QElapsedTimer timer;
  timer.start();
  tool.setWords("volume");
  const auto took = timer.elapsed();
  EXPECT_FALSE(tool.results().isEmpty());
  RecordProperty("milliseconds", static_cast<int>(took));
  EXPECT_LT(took, 100 * (QString(qgetenv("ASAN_OPTIONS")).isEmpty() ? 1 : 10));
}

TEST_F(SearchView, ShowRowMarksARowOfTheFirstPage) {
  open();
  settings->showRow("batterylog");
  driver->waitUntilIdle();
  EXPECT_EQ(marked(), "Battery Log");
}

}  // namespace
