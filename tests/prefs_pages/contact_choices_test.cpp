#include <gmock/gmock.h>

#include "prefs/pages/UserNotificationListController.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

using namespace pages_test;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

class ContactChoices : public testing::Test {
 protected:
  static Texts texts(const plist::Array& array) {
    Texts texts;
    for (const plist::Value& value : array) texts.push_back(*value.text());
    return texts;
  }
  Texts values() { return texts(opened_.page->contactsValueDataFromTarget(nullptr)); }
  Texts titles() { return texts(opened_.page->contactsTitlesDataFromTarget(nullptr)); }
  std::vector<platform::Person>& people() { return opened_.device.addressBook.people; }

  Opened<prefs::UserNotificationListController> opened_;
};

TEST_F(ContactChoices, AreEmptyWithoutPersons) {
  EXPECT_THAT(values(), IsEmpty());
  EXPECT_THAT(titles(), IsEmpty());
}

TEST_F(ContactChoices, NumbersComeBeforeAddressesPersonAfterPerson) {
  people() = {{"Ann", "Lee", {"+1 (555) 1", "2"}, {"ann@example.org"}},
              {"Bob", "Ray", {}, {"bob@example.org"}},
              {"Cyd", "Sim", {"3"}, {}}};
  EXPECT_THAT(values(), ElementsAre("+1 (555) 1", "2", "ann@example.org", "bob@example.org", "3"));
  EXPECT_THAT(titles(),
              ElementsAre("Ann Lee (+1 (555) 1)", "Ann Lee (2)", "Ann Lee (ann@example.org)",
                          "Bob Ray (bob@example.org)", "Cyd Sim (3)"));
}

TEST_F(ContactChoices, KeepTheOrderInWhichTheAddressBookYieldsThePersons) {
  people() = {{"Zoe", "A", {"1"}, {}}, {"Amy", "B", {"2"}, {}}};
  EXPECT_THAT(values(), ElementsAre("1", "2"));
}

TEST_F(ContactChoices, APersonWithoutNamesIsOneBlank) {
  people() = {{"", "", {"5"}, {}}};
  EXPECT_THAT(titles(), ElementsAre("  (5)"));
}

TEST_F(ContactChoices, AMissingNameLeavesItsBlank) {
  people() = {{"", "Lee", {"5"}, {}}, {"Ann", "", {"6"}, {}}};
  EXPECT_THAT(titles(), ElementsAre(" Lee (5)", "Ann  (6)"));
}

TEST_F(ContactChoices, APersonWithoutNumberAndAddressHasNoEntry) {
  people() = {{"Ann", "Lee", {}, {}}};
  EXPECT_THAT(values(), IsEmpty());
}

TEST_F(ContactChoices, ValuesAreNotNormalised) {
  people() = {{"Ann", "Lee", {" 00 49-1 "}, {"Ann@EXAMPLE.org"}}};
  EXPECT_THAT(values(), ElementsAre(" 00 49-1 ", "Ann@EXAMPLE.org"));
}

TEST_F(ContactChoices, AreBuiltAnewAtEachCall) {
  EXPECT_THAT(values(), IsEmpty());
  people() = {{"Ann", "Lee", {"1"}, {}}};
  EXPECT_THAT(values(), ElementsAre("1"));
}

TEST_F(ContactChoices, BelongToTheContactRow) {
  people() = {{"Ann", "Lee", {"1"}, {}}};
  opened_.page->loadChoices(opened_.row("adressbook"));
  EXPECT_EQ(opened_.row("adressbook").titles(), titles());
}

}  // namespace
