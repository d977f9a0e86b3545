#include "services/vcard_splitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::vector<std::string> cardsOf(std::string_view file) {
  std::vector<std::string> cards;
  services::splitCards(file, [&](const std::string& card) { cards.push_back(card); });
  return cards;
}

// What a card with these properties becomes, without BEGIN and END.
std::string propertiesOf(const std::string& properties) {
  const auto cards = cardsOf("BEGIN:VCARD\r\n" + properties + "END:VCARD\r\n");
  if (cards.size() != 1) return std::to_string(cards.size()) + " cards";
  constexpr std::size_t kBegin = 13, kEnd = 11;
  return cards[0].substr(kBegin, cards[0].size() - kBegin - kEnd);
}

}  // namespace

TEST(VCardSplitter, KeepsTheCardsInOrder) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\nBEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n",
                          "BEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\n"));
}
TEST(VCardSplitter, NothingIsNotACard) {
  EXPECT_THAT(cardsOf(""), IsEmpty());
  EXPECT_THAT(cardsOf("\r\n\n"), IsEmpty());
  EXPECT_THAT(cardsOf("no card\nTEL:1\nEND:VCARD\n"), IsEmpty());
}
TEST(VCardSplitter, ACardMayBeEmpty) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nEND:VCARD"), ElementsAre("BEGIN:VCARD\r\nEND:VCARD\r\n"));
}
TEST(VCardSplitter, LinesMayEndWithLineFeedAlone) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nTEL:1\nEND:VCARD\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n"));
}
TEST(VCardSplitter, TheLastLineNeedsNoEnd) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD"), SizeIs(1));
}
TEST(VCardSplitter, AByteOrderMarkIsPassedOver) {
  EXPECT_THAT(cardsOf("\xEF\xBB\xBF"
                      "BEGIN:VCARD\nEND:VCARD\n"),
              SizeIs(1));
}
TEST(VCardSplitter, MarksMayBeInAnyCaseAndEndInBlanks) {
  EXPECT_THAT(cardsOf("begin:vCard \nTEL:1\nEnd:VCARD\t\n"), SizeIs(1));
}
TEST(VCardSplitter, OtherObjectsAreNoCards) {
  EXPECT_THAT(cardsOf("BEGIN:VCALENDAR\nTEL:1\nEND:VCALENDAR\n"), IsEmpty());
}

TEST(VCardSplitter, ACardWithoutEndCostsOnlyItself) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nTEL:1\nBEGIN:VCARD\nTEL:2\nEND:VCARD\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\n"));
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nTEL:1\nEND:VCARD\nBEGIN:VCARD\nTEL:2\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n"));
}
TEST(VCardSplitter, ACardWithoutBeginCostsOnlyItself) {
  EXPECT_THAT(cardsOf("TEL:1\nEND:VCARD\nBEGIN:VCARD\nTEL:2\nEND:VCARD\n"), SizeIs(1));
}
TEST(VCardSplitter, AnAgentsCardIsLeftOut) {
  EXPECT_EQ(
      propertiesOf("TEL:1\nAGENT:\nBEGIN:VCARD\nTEL:2\nAGENT:\nBEGIN:VCARD\nTEL:3\nEND:VCARD\n"
                   "END:VCARD\nTEL:4\n"),
      "TEL:1\r\nTEL:4\r\n");
}
TEST(VCardSplitter, AnAgentWithoutEndCostsOnlyItsCard) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nAGENT:\nBEGIN:VCARD\nTEL:1\nEND:VCARD\n"
                      "BEGIN:VCARD\nTEL:2\nEND:VCARD\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\n"));
}
TEST(VCardSplitter, AnAgentThatIsAUrlHasNoCard) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nAGENT:x\nBEGIN:VCARD\nTEL:2\nEND:VCARD\n"),
              ElementsAre("BEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\n"));
}

TEST(VCardSplitter, OnlyWhatMakesAPersonIsKept) {
  EXPECT_EQ(
      propertiesOf("VERSION:3.0\nN:a;b\nFN:b a\nTEL:1\nEMAIL:x@y\nNOTE:TEL\nTELEX:2\nX-TEL:3\n"
                   "URL:TEL:4\n"),
      "N:a;b\r\nFN:b a\r\nTEL:1\r\nEMAIL:x@y\r\n");
}
TEST(VCardSplitter, NamesMayBeInAnyCaseAndGrouped) {
  EXPECT_EQ(propertiesOf("tel:1\nitem1.TEL;type=cell:2\na.b.Email:3\n"),
            "tel:1\r\nitem1.TEL;type=cell:2\r\na.b.Email:3\r\n");
}
TEST(VCardSplitter, ALineWithoutAColonIsLeftOut) {
  EXPECT_EQ(propertiesOf("TEL\nTEL;HOME\nTEL;X=\":1\"\nTEL:2\n"), "TEL:2\r\n");
}
TEST(VCardSplitter, APropertyThatContinuesAnEmptyLineCostsOnlyItself) {
  EXPECT_EQ(propertiesOf("\n  TEL:1\r\nTEL:2\r\n"), "TEL:2\r\n");
}
TEST(VCardSplitter, AColonInQuotesIsPartOfTheParameter) {
  EXPECT_EQ(propertiesOf("TEL;LABEL=\"a:b\":1\n"), "TEL;LABEL=\"a:b\":1\r\n");
}
TEST(VCardSplitter, APropertyThatIsTooLongIsLeftOut) {
  EXPECT_EQ(propertiesOf("TEL:" + std::string(1020, '1') + "\n").size(), 1026u);
  EXPECT_EQ(propertiesOf("TEL:" + std::string(1021, '1') + "\nTEL:2\n"), "TEL:2\r\n");
  EXPECT_EQ(propertiesOf("TEL;" + std::string(9000, 'x') + ":1\nTEL:2\n"), "TEL:2\r\n");
}
TEST(VCardSplitter, LongPicturesAreNoHindrance) {
  EXPECT_EQ(
      propertiesOf("PHOTO;ENCODING=b:" + std::string(100'000, 'A') + "==\r\n QQ==\r\nTEL:2\n"),
      "TEL:2\r\n");
}

TEST(VCardSplitter, FoldedLinesAreJoined) {
  EXPECT_EQ(propertiesOf("TEL;TYPE=\r\n cell:1\r\n\t2\r\n  3\r\n"), "TEL;TYPE=cell:12 3\r\n");
}
TEST(VCardSplitter, FoldedLinesOfLeftOutPropertiesAreToo) {
  EXPECT_EQ(propertiesOf("NOTE:a\n TEL:1\nTEL:2\n"), "TEL:2\r\n");
}
TEST(VCardSplitter, AFoldMayBreakACharacter) {
  EXPECT_EQ(propertiesOf("N:B\xC3\n \xB6\n"), "N:Bö\r\n");
}
TEST(VCardSplitter, AnIndentedEndIsPartOfALine) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nTEL:1\n END:VCARD\n"), IsEmpty());
}

TEST(VCardSplitter, SoftLineBreaksAreJoined) {
  EXPECT_EQ(propertiesOf("N;ENCODING=QUOTED-PRINTABLE:a=\r\n=C3=B6=\r\n  b\r\n"),
            "N;ENCODING=QUOTED-PRINTABLE:a=C3=B6  b\r\n");
  EXPECT_EQ(propertiesOf("N;quoted-printable:a=\nb\n"), "N;quoted-printable:ab\r\n");
}
TEST(VCardSplitter, WhatFollowsTheSoftBreakOfANoteIsNotAProperty) {
  EXPECT_EQ(propertiesOf("NOTE;ENCODING=QUOTED-PRINTABLE:a=\nTEL:1\nTEL:2\n"), "TEL:2\r\n");
}
TEST(VCardSplitter, OnlyQuotedPrintableHasSoftBreaks) {
  EXPECT_EQ(propertiesOf("EMAIL:a=\nTEL:2\n"), "EMAIL:a=\r\nTEL:2\r\n");
  EXPECT_EQ(propertiesOf("EMAIL:QUOTED-PRINTABLE=\nTEL:2\n"),
            "EMAIL:QUOTED-PRINTABLE=\r\nTEL:2\r\n");
}
TEST(VCardSplitter, ASoftBreakDoesNotSwallowTheEnd) {
  EXPECT_THAT(cardsOf("BEGIN:VCARD\nN;QUOTED-PRINTABLE:a=\nEND:VCARD\nBEGIN:VCARD\nEND:VCARD\n"),
              SizeIs(2));
}

TEST(VCardSplitter, TextOutsideAsciiIsKept) {
  EXPECT_EQ(propertiesOf("N:Müller;李\n"), "N:Müller;李\r\n");
  EXPECT_EQ(propertiesOf("N;CHARSET=utf-8:Müller\n"), "N;CHARSET=utf-8:Müller\r\n");
}
TEST(VCardSplitter, BytesThatAreNoUtf8AreReplaced) {
  EXPECT_EQ(propertiesOf("N:M\xFCller\n"), "N:M\uFFFDller\r\n");
  EXPECT_EQ(propertiesOf("N;CHARSET=UTF-8:\xC3\n"), "N;CHARSET=UTF-8:\uFFFD\r\n");
}
TEST(VCardSplitter, AZeroByteIsReplaced) {
  using namespace std::string_literals;
  EXPECT_EQ(propertiesOf("TEL:1\0\0002\n"s), "TEL:1\uFFFD\uFFFD2\r\n");
}
TEST(VCardSplitter, BytesOfAnotherCharsetAreWrittenQuotedPrintable) {
  EXPECT_EQ(propertiesOf("N;CHARSET=ISO-8859-1:M\xFCller=;J\xF6rg\n"),
            "N;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:M=FCller=3D;J=F6rg\r\n");
  EXPECT_EQ(propertiesOf("N;ENCODING=QUOTED-PRINTABLE;CHARSET=latin1:M\xFCller;J=F6rg\n"),
            "N;ENCODING=QUOTED-PRINTABLE;CHARSET=latin1:M=FCller;J=F6rg\r\n");
}
TEST(VCardSplitter, AsciiOfAnotherCharsetStays) {
  EXPECT_EQ(propertiesOf("N;CHARSET=ISO-8859-1:a=;b\n"), "N;CHARSET=ISO-8859-1:a=;b\r\n");
}
