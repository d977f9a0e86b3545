#include "services/address_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/services/temporary_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ByteCollator : platform::Collator {
  int compare(std::string_view a, std::string_view b) override { return a.compare(b); }
};

// Ignores case.
struct CaselessCollator : platform::Collator {
  int compare(std::string_view a, std::string_view b) override {
    return strncasecmp(a.data(), b.data(), std::max(a.size(), b.size()));
  }
};

std::string card(const std::string& first, const std::string& last) {
  return "BEGIN:VCARD\nVERSION:3.0\nN:" + last + ";" + first + "\nEND:VCARD\n";
}

class AddressBook : public testing::Test {
 protected:
  std::vector<std::string> names(platform::Collator& collator) {
    services::MergedAddressBook book(root_, contacts_, collator,
                                     [this](auto& error) { problems_.push_back(error.message()); });
    std::vector<std::string> names;
    for (const auto& person : book.peopleSortedByFirstName())
      names.push_back(person.firstName + " " + person.lastName);
    book.peopleSortedByFirstName();
    return names;
  }
  std::vector<std::string> names() { return names(bytes_); }

  void write(const std::string& name, const std::string& text) {
    folder_.write("root/var/mobile/Library/AddressBook/" + name, text);
  }

  TemporaryFolder folder_;
  foundation::DeviceRoot root_{(folder_.path / "root").string()};
  std::optional<std::string> contacts_;
  ByteCollator bytes_;
  std::vector<std::string> problems_;
};

}  // namespace

TEST_F(AddressBook, AMissingFolderIsEmpty) {
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(AddressBook, PeopleAreSortedByFirstName) {
  write("1.vcf", card("Chloe", "1") + card("Ada", "2"));
  write("2.vcf", card("Bob", "3"));
  EXPECT_THAT(names(), ElementsAre("Ada 2", "Bob 3", "Chloe 1"));
}
TEST_F(AddressBook, TheOrderIsTheCollators) {
  write("1.vcf", card("b", "1") + card("C", "2") + card("A", "3"));
  CaselessCollator caseless;
  EXPECT_THAT(names(caseless), ElementsAre("A 3", "b 1", "C 2"));
}
TEST_F(AddressBook, EqualFirstNamesStayInStoredOrder) {
  write("b.vcf", card("Ada", "3") + card("Ada", "1"));
  write("a.vcf", card("Ada", "5") + card("Ada", "2") + card("Ada", "4"));
  EXPECT_THAT(names(), ElementsAre("Ada 5", "Ada 2", "Ada 4", "Ada 3", "Ada 1"));
}
TEST_F(AddressBook, FirstNamesThatTheCollatorCallsEqualDoToo) {
  write("1.vcf", card("ada", "1") + card("Bob", "2") + card("Ada", "3") + card("ada", "4"));
  CaselessCollator caseless;
  EXPECT_THAT(names(caseless), ElementsAre("ada 1", "Ada 3", "ada 4", "Bob 2"));
}
TEST_F(AddressBook, PeopleWithoutAFirstNameComeFirst) {
  write("1.vcf", card("Ada", "1") + card("", "Z") + card("", "B"));
  EXPECT_THAT(names(), ElementsAre(" Z", " B", "Ada 1"));
}
TEST_F(AddressBook, OnlyVCardFilesCount) {
  write("a.vcf", card("a", ""));
  write("b.VCF", card("b", ""));
  for (const char* name : {"c.txt", "d.vcf~", "e", "vcf", ".vcf", "._a.vcf", "sub/f.vcf"})
    write(name, card("no", name));
  EXPECT_THAT(names(), ElementsAre("a ", "b "));
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(AddressBook, ItIsReadAnewAtEachCall) {
  services::MergedAddressBook book(root_, std::nullopt, bytes_, {});
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  write("a.vcf", card("a", ""));
  EXPECT_THAT(book.peopleSortedByFirstName(), testing::SizeIs(1));
}
TEST_F(AddressBook, AnotherFolderTakesItsPlace) {
  write("a.vcf", card("device", ""));
  folder_.write("other/a.vcf", card("other", ""));
  contacts_ = (folder_.path / "other").string();
  EXPECT_THAT(names(), ElementsAre("other "));
}
TEST_F(AddressBook, AnotherFolderThatIsMissingIsReportedOnce) {
  contacts_ = (folder_.path / "other").string();
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(problems_, ElementsAre(*contacts_ + ": No such file or directory"));
}
TEST_F(AddressBook, AFileInPlaceOfTheFolderIsReported) {
  folder_.write("root/var/mobile/Library/AddressBook", "");
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(problems_, ElementsAre("/var/mobile/Library/AddressBook: Not a directory"));
}
TEST_F(AddressBook, AFileThatCannotBeReadCostsOnlyItself) {
  write("a.vcf", card("a", ""));
  write("c.vcf", card("c", ""));
  const auto folder = folder_.path / "root/var/mobile/Library/AddressBook";
  ASSERT_EQ(mkfifo((folder / "b.vcf").c_str(), 0600), 0);
  EXPECT_THAT(names(), ElementsAre("a ", "c "));
  EXPECT_THAT(problems_, ElementsAre(testing::HasSubstr("b.vcf")));
}
TEST_F(AddressBook, ALinkThatLeadsOutOfTheFolderIsNotFollowed) {
  folder_.write("secret.vcf", card("secret", ""));
  write("a.vcf", card("a", ""));
  std::filesystem::create_symlink(folder_.path / "secret.vcf",
                                  folder_.path / "root/var/mobile/Library/AddressBook/b.vcf");
  EXPECT_THAT(names(), ElementsAre("a "));
  EXPECT_THAT(problems_, ElementsAre(testing::HasSubstr("b.vcf")));
}
TEST_F(AddressBook, PeopleBringTheirNumbers) {
  write("a.vcf", "BEGIN:VCARD\nN:b;a\nTEL:1\nTEL:2\nEMAIL:x@y\nEND:VCARD\n");
  services::MergedAddressBook book(root_, std::nullopt, bytes_, {});
  const auto people = book.peopleSortedByFirstName();
  ASSERT_EQ(people.size(), 1u);
  EXPECT_THAT(people[0].phones, ElementsAre("1", "2"));
  EXPECT_THAT(people[0].emails, ElementsAre("x@y"));
}
