#include "host/plain_words.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using host::Source;
using platform::Error;
using platform::ErrorKind;

constexpr char kProfile[] = "/var/mobile/Documents/Quorvantis/profile_7.qvx";

Error notSaved(int code) {
  return Error{.what = "not saved"}.because(Error{kProfile, code, "rename"});
}

TEST(PlainWords, SayWhatFailedAndWhy) {
  EXPECT_EQ(host::plainWords(Source::Profiles, notSaved(ENOSPC)),
            "The profile was not saved: the disk is full.");
  EXPECT_EQ(host::plainWords(Source::Profiles, notSaved(EACCES)),
            "The profile was not saved: no permission.");
  EXPECT_EQ(host::plainWords(Source::Settings, Error{"/x", EIO, "write"}),
            "The settings can't be read or changed: the disk reports an error.");
  EXPECT_EQ(host::plainWords(Source::Request, Error{"/x/y.plist", EEXIST, "open"}),
            "The file can't be read or written: it exists already.");
}

TEST(PlainWords, SayWhatIsStoredButNotConfirmed) {
  EXPECT_EQ(host::plainWords(Source::Profiles, notSaved(EIO).as(ErrorKind::Unconfirmed)),
            "The profile is stored, but a power cut may undo that: the disk reports an error.");
}

TEST(PlainWords, OfWhatIsKeptSayWhatFailedOfIt) {
  const Error full{"/state/snapshots/1", ENOSPC, "write"};
  EXPECT_EQ(host::plainWords(Source::Backups,
                             Error{.what = "the daily snapshot was not kept"}.because(full)),
            "The daily snapshot was not kept: the disk is full.");
  EXPECT_EQ(host::plainWords(Source::Backups,
                             Error{.what = "\"delete 20\" can't be undone"}.because(full)),
            "\"delete 20\" can't be undone: the disk is full.");
  EXPECT_EQ(host::plainWords(Source::Backups, full),
            "What is kept of earlier settings can't be read or changed: the disk is full.");
}

TEST(PlainWords, SayWhichProfilesCantBeReadWithoutTheReasons) {
  const Error skipped = Error{.path = "/var/mobile/Documents/Quorvantis/",
                              .what = "no profile can be read from profile_7.qvx and 2 more"}
                            .because(Error{.code = EACCES, .what = "open"});
  EXPECT_EQ(host::plainWords(Source::Profiles, skipped),
            "No profile can be read from profile_7.qvx and 2 more.");
  EXPECT_EQ(host::fileOf(skipped), "/var/mobile/Documents/Quorvantis/");
}

TEST(PlainWords, SayThatAProfilesFileIsDamaged) {
  EXPECT_EQ(host::plainWords(Source::Profiles, Error{kProfile, 0, "not a keyed archive"}),
            "The profile can't be read: its file is damaged.");
  EXPECT_EQ(host::plainWords(Source::Profiles, Error{kProfile, 0, "a link that leads nowhere"}),
            "The profile can't be read: its file is a link that leads nowhere.");
  EXPECT_EQ(host::plainWords(Source::Settings, Error{kProfile, 0, "not a keyed archive"}), "");
}

TEST(PlainWords, OfAProfileThatIsNotAnArchiveDoNotSayThatItWasNot) {
  const auto error = Error{.what = "not a keyed archive"}.because(Error{kProfile, EIO, "read"});
  EXPECT_EQ(host::plainWords(Source::Profiles, error),
            "The profiles can't be read or changed: the disk reports an error.");
}

TEST(PlainWords, HaveNoWordsOfTheSystem) {
  for (int code = 1; code < 134; ++code) {
    const std::string words = host::plainWords(Source::Profiles, notSaved(code));
    EXPECT_EQ(words.find(std::generic_category().message(code)), std::string::npos) << code;
    EXPECT_TRUE(words.ends_with(".")) << code;
  }
}

TEST(PlainWords, AreNotNeededForAnErrorInWords) {
  EXPECT_EQ(host::plainWords(Source::Profiles, Error{.what = "nothing was saved"}), "");
}

TEST(PlainWords, TheFileIsTheOneThatLiesBehind) {
  EXPECT_EQ(host::fileOf(notSaved(EIO)), kProfile);
  EXPECT_EQ(host::fileOf(Error{.what = "x"}), "");
}

}  // namespace
