#include "services/vcards.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "services/services.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::vector<platform::Person> personsOf(std::string_view file) {
  const auto& reader = services::find<services::VCards>();
  EXPECT_TRUE(reader) << reader.error().message();
  return reader ? (*reader)->persons(file) : std::vector<platform::Person>{};
}

platform::Person personOf(const std::string& properties) {
  auto persons = personsOf("BEGIN:VCARD\r\n" + properties + "\r\nEND:VCARD\r\n");
  EXPECT_THAT(persons, SizeIs(1));
  return persons.empty() ? platform::Person{} : persons[0];
}

std::string nameOf(const platform::Person& person) {
  return person.firstName + "|" + person.lastName;
}

}  // namespace

TEST(VCards, Version21) {
  const auto person = personOf(
      "VERSION:2.1\r\nN:Lovelace;Ada;;;\r\nTEL;CELL;PREF:+44 20 1\r\nTEL;HOME:020/2\r\n"
      "EMAIL;INTERNET:ada@example.org");
  EXPECT_EQ(nameOf(person), "Ada|Lovelace");
  EXPECT_THAT(person.phones, ElementsAre("+44 20 1", "020/2"));
  EXPECT_THAT(person.emails, ElementsAre("ada@example.org"));
}
TEST(VCards, Version30) {
  const auto person = personOf(
      "VERSION:3.0\r\nN:Lovelace;Ada;;;\r\nFN:Ada Lovelace\r\nitem1.TEL;TYPE=CELL,VOICE:+44 20 "
      "1\r\n"
      "item1.X-ABLabel:Work\r\nEMAIL;TYPE=INTERNET:ada@example.org");
  EXPECT_EQ(nameOf(person), "Ada|Lovelace");
  EXPECT_THAT(person.phones, ElementsAre("+44 20 1"));
  EXPECT_THAT(person.emails, ElementsAre("ada@example.org"));
}
TEST(VCards, Version40) {
  const auto person = personOf(
      "VERSION:4.0\r\nN:Lovelace;Ada;;;\r\nTEL;VALUE=uri;TYPE=\"voice,home\":tel:+44-20-1;ext="
      "102\r\n"
      "TEL:Tel:2\r\nEMAIL:mailto:ada@example.org");
  EXPECT_EQ(nameOf(person), "Ada|Lovelace");
  EXPECT_THAT(person.phones, ElementsAre("+44-20-1;ext=102", "2"));
  EXPECT_THAT(person.emails, ElementsAre("ada@example.org"));
}
TEST(VCards, ManyCardsInAFileKeepTheirOrder) {
  std::string file;
  for (int i = 0; i < 1000; ++i)
    file += "BEGIN:VCARD\nVERSION:3.0\nN:;" + std::to_string(i) + "\nEND:VCARD\n";
  const auto persons = personsOf(file);
  ASSERT_THAT(persons, SizeIs(1000));
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(persons[i].firstName, std::to_string(i));
}
TEST(VCards, ABrokenCardCostsOnlyItself) {
  const auto persons = personsOf(
      "BEGIN:VCARD\nN:;a\nEND:VCARD\nBEGIN:VCARD\nN:;broken\nTEL:1\n"
      "BEGIN:VCARD\nN:;b\nTEL:2\nEND:VCARD\n");
  ASSERT_THAT(persons, SizeIs(2));
  EXPECT_EQ(persons[0].firstName, "a");
  EXPECT_EQ(persons[1].firstName, "b");
  EXPECT_THAT(persons[1].phones, ElementsAre("2"));
}
TEST(VCards, NothingIsNobody) {
  EXPECT_THAT(personsOf(""), IsEmpty());
  EXPECT_THAT(personsOf("garbage"), IsEmpty());
}

TEST(VCards, FamilyAndGivenNameMayBeAlone) {
  EXPECT_EQ(nameOf(personOf("N:Lovelace\r\nFN:x")), "|Lovelace");
  EXPECT_EQ(nameOf(personOf("N:;Ada;;;\r\nFN:x")), "Ada|");
  EXPECT_EQ(nameOf(personOf("N:Lovelace;;Additional;Dr.;\r\nFN:x")), "|Lovelace");
}
TEST(VCards, TheFormattedNameStandsInForAMissingOne) {
  EXPECT_EQ(nameOf(personOf("FN:Example\\, Inc.")), "Example, Inc.|");
  EXPECT_EQ(nameOf(personOf("VERSION:4.0\r\nFN:Example; Inc.\r\nFN:other")), "Example; Inc.|");
}
TEST(VCards, ANameThatIsEmptyStaysEmpty) {
  for (const char* name : {"N:;;;;", "N:;", "N:"})
    EXPECT_EQ(nameOf(personOf(std::string(name) + "\r\nFN:Example")), "|") << name;
  EXPECT_EQ(nameOf(personOf("FN:Example\r\nN:;;;;")), "|");
}
TEST(VCards, APersonMayHaveNoName) {
  const auto person = personOf("TEL:1");
  EXPECT_EQ(nameOf(person), "|");
  EXPECT_THAT(person.phones, ElementsAre("1"));
}
TEST(VCards, TheFirstNameOfSeveralCounts) {
  EXPECT_EQ(nameOf(personOf("N;LANGUAGE=de:a;b\r\nN;LANGUAGE=ja:c;d")), "b|a");
  EXPECT_EQ(nameOf(personOf("N:;;;;\r\nN:a;b\r\nN:c;d")), "b|a");
}

TEST(VCards, EscapesAreUndone) {
  EXPECT_EQ(nameOf(personOf("N:a\\;b\\,c;d\\\\e\\nf")), "d\\e\nf|a;b,c");
}
TEST(VCards, ValuesAreNotNormalised) {
  EXPECT_THAT(personOf("TEL: (0)20-1 \r\nTEL:call me\r\nTEL:0800,1;2").phones,
              ElementsAre(" (0)20-1 ", "call me", "0800,1;2"));
}
TEST(VCards, EqualValuesAreKept) {
  EXPECT_THAT(personOf("TEL;HOME:1\r\nTEL;WORK:1").phones, ElementsAre("1", "1"));
}
TEST(VCards, EmptyValuesAreLeftOut) {
  const auto person = personOf("TEL:\r\nTEL:tel:\r\nTEL;HOME:1\r\nEMAIL:\r\nEMAIL:mailto:");
  EXPECT_THAT(person.phones, ElementsAre("1"));
  EXPECT_THAT(person.emails, IsEmpty());
}
TEST(VCards, AFoldedValueIsWhole) {
  EXPECT_THAT(personOf("EMAIL:a.very.long.address\r\n @example.org").emails,
              ElementsAre("a.very.long.address@example.org"));
}

TEST(VCards, Utf8) {
  EXPECT_EQ(nameOf(personOf("N:Müller;李😀")), "李😀|Müller");
}
TEST(VCards, QuotedPrintableOfVersion21) {
  EXPECT_EQ(
      nameOf(personOf("VERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCll=\r\n"
                      "er;J=C3=B6rg")),
      "Jörg|Müller");
  EXPECT_EQ(nameOf(personOf("VERSION:2.1\r\nN;QUOTED-PRINTABLE;CHARSET=UTF-8:a;=E6=9D=8E")),
            "李|a");
}
TEST(VCards, OtherCharsetsOfVersion21) {
  EXPECT_EQ(nameOf(personOf("N;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:M=FCller;J=F6rg")),
            "Jörg|Müller");
  EXPECT_EQ(nameOf(personOf("N;CHARSET=ISO-8859-1:M\xFCller;J\xF6rg")), "Jörg|Müller");
  EXPECT_EQ(nameOf(personOf("N;CHARSET=windows-1251:\xCF;a=b")), "a=b|П");
}
TEST(VCards, WhatCannotBeReadIsReplaced) {
  EXPECT_EQ(nameOf(personOf("N:M\xFCller;J")), "J|M\uFFFDller");
  EXPECT_EQ(nameOf(personOf("N;CHARSET=no-such:M\xFCller;J")), "J|M\uFFFDller");
  EXPECT_THAT(personOf("EMAIL;ENCODING=QUOTED-PRINTABLE:a=FFb").emails, ElementsAre("a\uFFFDb"));
}
TEST(VCards, TheReaderIsSilent) {
  testing::internal::CaptureStderr();
  personsOf(
      "BEGIN:VCARD\n.TEL:1\nTEL.:2\n;TEL:3\nTEL;;=:4\nT\xC3\xB6.TEL:5\nTEL;=\xFF;:6\nEND:VCARD\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
