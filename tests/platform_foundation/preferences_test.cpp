#include "platform/foundation/preferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using plist::Kind;
using plist::Value;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

TEST_F(PreferencesTest, MissingRootReadsAsEmptyAndIsNotAProblem) {
  EXPECT_FALSE(preferences.copyAppValue("wifi", kDomain));
  EXPECT_THAT(preferences.copyKeyList(kDomain), IsEmpty());
  EXPECT_TRUE(preferences.copyMultiple({"wifi"}, kDomain).empty());
  EXPECT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_THAT(problems, IsEmpty());
  EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(PreferencesTest, FirstWriteMakesABinaryFileOfTheOwnersAlone) {
  ASSERT_TRUE(preferences.setAppValue("wifi", true, kDomain));
  EXPECT_EQ(folder.contents(kFile).substr(0, 8), "bplist00");
  EXPECT_EQ(modeOf(folder.at(kFile)), 0600u);
  EXPECT_EQ(modeOf(folder.at(kFolder)), 0700u);
  EXPECT_EQ(modeOf(folder.path()), 0700u);
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(PreferencesTest, EverythingItMakesIsTheOwnersAlone) {
  const mode_t mask = umask(0);
  EXPECT_TRUE(preferences.setAppValue("wifi", true, kDomain));
  umask(mask);
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
    files += entry.is_regular_file();
    EXPECT_EQ(modeOf(entry.path()), entry.is_directory() ? 0700u : 0600u) << entry.path();
  }
  EXPECT_EQ(files, 2) << "the domain and its lock";
}

TEST_F(PreferencesTest, SetIsVisibleToAnotherProcessAtOnce) {
  ASSERT_TRUE(preferences.setAppValue("alertmsg", "text", kDomain));
  EXPECT_TRUE(succeeded(startProcess([&] { return stored("alertmsg") == Value("text"); })));
}

TEST_F(PreferencesTest, SetIsVisibleToItsOwnProcessAtOnce) {
  EXPECT_FALSE(preferences.copyAppValue("wifi", kDomain));
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
}

TEST_F(PreferencesTest, ReadSeesOthersChangesOnlyAfterSynchronising) {
  storeElsewhere("wifi", 1);
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
  storeElsewhere("wifi", 2);
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
  ASSERT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(2));
}

TEST_F(PreferencesTest, OwnSetDoesNotBringInOthersChanges) {
  EXPECT_FALSE(preferences.copyAppValue("theirs", kDomain));
  storeElsewhere("theirs", 1);
  ASSERT_TRUE(preferences.setAppValue("mine", 1, kDomain));
  EXPECT_FALSE(preferences.copyAppValue("theirs", kDomain));
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_EQ(preferences.copyAppValue("theirs", kDomain), Value(1));
  EXPECT_EQ(preferences.copyAppValue("mine", kDomain), Value(1));
}

TEST_F(PreferencesTest, OthersKeysSurviveASetByAStaleReader) {
  storeElsewhere("theirs", 1);
  EXPECT_EQ(preferences.copyAppValue("theirs", kDomain), Value(1));
  storeElsewhere("theirs", 2);
  storeElsewhere("new", 3);
  ASSERT_TRUE(preferences.setAppValue("mine", 1, kDomain));
  EXPECT_EQ(stored("theirs"), Value(2));
  EXPECT_EQ(stored("new"), Value(3));
  EXPECT_EQ(stored("mine"), Value(1));
}

TEST_F(PreferencesTest, SynchroniseSeesEachOfManyQuickRewrites) {
  for (int round = 0; round < 200; ++round) {
    storeElsewhere("wifi", round % 10);
    ASSERT_TRUE(preferences.appSynchronize(kDomain));
    ASSERT_EQ(preferences.copyAppValue("wifi", kDomain), Value(round % 10));
  }
}

TEST_F(PreferencesTest, SynchroniseSeesARewriteInPlaceOfTheSameSizeAndTime) {
  storeElsewhere("wifi", 1);
  const std::string one = folder.contents(kFile);
  storeElsewhere("wifi", 2);
  const std::string two = folder.contents(kFile);
  ASSERT_EQ(one.size(), two.size());
  for (int round = 0; round < 100; ++round) {
    const auto time = fs::last_write_time(folder.at(kFile));
    folder.write(kFile, round % 2 ? two : one);
    fs::last_write_time(folder.at(kFile), time);
    ASSERT_TRUE(preferences.appSynchronize(kDomain));
    ASSERT_EQ(preferences.copyAppValue("wifi", kDomain), Value(round % 2 ? 2 : 1));
  }
}

TEST_F(PreferencesTest, SynchroniseSeesARewriteInPlaceOfWhatItHasJustWritten) {
  storeElsewhere("wifi", 1);
  const std::string one = folder.contents(kFile);
  for (int round = 0; round < 100; ++round) {
    ASSERT_TRUE(preferences.setAppValue("wifi", 2, kDomain));
    ASSERT_EQ(folder.contents(kFile).size(), one.size());
    folder.write(kFile, one);
    ASSERT_TRUE(preferences.appSynchronize(kDomain));
    ASSERT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
  }
}

TEST_F(PreferencesTest, SynchroniseSeesThatTheFileIsGone) {
  storeElsewhere("wifi", 1);
  EXPECT_TRUE(preferences.copyAppValue("wifi", kDomain));
  fs::remove(folder.at(kFile));
  ASSERT_TRUE(preferences.appSynchronize(kDomain));
  EXPECT_FALSE(preferences.copyAppValue("wifi", kDomain));
}

TEST_F(PreferencesTest, SynchroniseOfOneDomainSynchronisesAll) {
  EXPECT_FALSE(preferences.copyAppValue("wifi", kDomain));
  storeElsewhere("wifi", 1);
  ASSERT_TRUE(preferences.appSynchronize("com.example.other"));
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
}

TEST_F(PreferencesTest, DomainsAreFilesOfTheirOwn) {
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("wifi", 2, "com.example.other"));
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
  EXPECT_EQ(preferences.copyAppValue("wifi", "com.example.other"), Value(2));
  EXPECT_TRUE(root.exists("/var/mobile/Library/Preferences/com.example.other.plist"));
}

TEST_F(PreferencesTest, EqualValueOfAnotherKindChangesTheKind) {
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("wifi", 1.0, kDomain));
  EXPECT_EQ(stored("wifi").kind(), Kind::Real);
  ASSERT_TRUE(preferences.setAppValue("wifi", true, kDomain));
  EXPECT_EQ(stored("wifi").kind(), Kind::Boolean);
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  EXPECT_EQ(stored("wifi").kind(), Kind::Integer);
}

TEST_F(PreferencesTest, RealKeepsItsWidth) {
  ASSERT_TRUE(preferences.setAppValue("single", 0.1f, kDomain));
  ASSERT_TRUE(preferences.setAppValue("double", 0.1, kDomain));
  EXPECT_TRUE(stored("single").isSinglePrecision());
  EXPECT_EQ(stored("single").real(), double{0.1f});
  EXPECT_FALSE(stored("double").isSinglePrecision());
  EXPECT_EQ(stored("double").real(), 0.1);
}

TEST_F(PreferencesTest, EqualValueIsWrittenAgain) {
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  EXPECT_EQ(preferences.copyAppValue("wifi", kDomain), Value(1));
  storeElsewhere("wifi", 2);
  ASSERT_TRUE(preferences.setAppValue("wifi", 1, kDomain));
  EXPECT_EQ(stored("wifi"), Value(1));
}

TEST_F(PreferencesTest, EveryKindOfValueComesBack) {
  const Value value = plist::Dictionary{{"text", "\u00E9"},
                                        {"data", plist::Data{{0, 255}}},
                                        {"date", plist::Date{1.5}},
                                        {"array", plist::Array{1, false, -2.5}},
                                        {"", ""}};
  ASSERT_TRUE(preferences.setAppValue("", value, kDomain));
  EXPECT_EQ(stored(""), value);
}

TEST_F(PreferencesTest, NothingRemovesTheKey) {
  ASSERT_TRUE(preferences.setMultiple({{"a", 1}, {"b", 2}}, {}, kDomain));
  EXPECT_TRUE(preferences.copyAppValue("a", kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
  EXPECT_EQ(stored("a"), Value());
  EXPECT_EQ(stored("b"), Value(2));
}

TEST_F(PreferencesTest, LastKeyTakesTheFileWithIt) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  EXPECT_FALSE(fs::exists(folder.at(kFile)));
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_THAT(problems, IsEmpty());
}

TEST_F(PreferencesTest, RemovingWhatIsNotThereWritesNothing) {
  EXPECT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  EXPECT_TRUE(preferences.setMultiple({}, {"a", "b"}, kDomain));
  EXPECT_TRUE(preferences.synchronize());
  EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(PreferencesTest, KeyListAndMultipleSynchroniseFirst) {
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
  storeElsewhere("a", 1);
  EXPECT_THAT(preferences.copyKeyList(kDomain), ElementsAre("a"));
  storeElsewhere("b", 2);
  EXPECT_EQ(Value(preferences.copyMultiple({"a", "b"}, kDomain)),
            Value(plist::Dictionary{{"a", 1}, {"b", 2}}));
  EXPECT_EQ(preferences.copyAppValue("b", kDomain), Value(2));
}

TEST_F(PreferencesTest, MultipleOmitsMissingKeys) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_EQ(Value(preferences.copyMultiple({"x", "a"}, kDomain)),
            Value(plist::Dictionary{{"a", 1}}));
  EXPECT_TRUE(preferences.copyMultiple({}, kDomain).empty());
}

TEST_F(PreferencesTest, SetMultipleLeavesOtherKeys) {
  ASSERT_TRUE(preferences.setAppValue("autoupdates", 1, kDomain));
  ASSERT_TRUE(preferences.setMultiple({{"wifi", 0}, {"vpn", 1}}, {}, kDomain));
  EXPECT_EQ(stored("autoupdates"), Value(1));
  EXPECT_THAT(preferences.copyKeyList(kDomain), UnorderedElementsAre("autoupdates", "wifi", "vpn"));
}

TEST_F(PreferencesTest, SetMultipleLaysDownUnchangedKeysToo) {
  ASSERT_TRUE(preferences.setMultiple({{"wifi", 1}, {"vpn", 1}}, {}, kDomain));
  const plist::Dictionary snapshot =
      preferences.copyMultiple(preferences.copyKeyList(kDomain), kDomain);
  storeElsewhere("wifi", 2);
  ASSERT_TRUE(preferences.setMultiple(snapshot, {}, kDomain));
  EXPECT_EQ(stored("wifi"), Value(1));
}

TEST_F(PreferencesTest, SetMultipleSetsThenRemoves) {
  ASSERT_TRUE(preferences.setMultiple({{"a", 1}, {"b", 1}}, {"a", "missing"}, kDomain));
  EXPECT_EQ(stored("a"), Value());
  EXPECT_EQ(stored("b"), Value(1));
}

TEST_F(PreferencesTest, DomainThatIsNotAFileNameIsRefused) {
  for (const char* name : {"", "../x", "a/b"}) {
    EXPECT_FALSE(preferences.setAppValue("a", 1, name)) << name;
    EXPECT_FALSE(preferences.copyAppValue("a", name)) << name;
  }
  EXPECT_FALSE(fs::exists(folder.path()));
}

TEST_F(PreferencesTest, StoreIsFoundBehindALinkInsideTheRoot) {
  ASSERT_TRUE(root.createDirectory("/private/var"));
  fs::create_symlink("/private/var", folder.at("/var"));
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_TRUE(fs::exists(folder.at("/private" + std::string(kFile))));
  EXPECT_EQ(stored("a"), Value(1));
}

TEST_F(PreferencesTest, LockFileMayBeTidiedAway) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  fs::remove(folder.at(kFolder) / ".com.zorvek.quorvantis.plist.lock");
  ASSERT_TRUE(preferences.setAppValue("b", 1, kDomain));
  EXPECT_EQ(stored("a"), Value(1));
}

TEST_F(PreferencesTest, RootMayBeTidiedAway) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  fs::remove_all(folder.path());
  ASSERT_TRUE(preferences.setAppValue("b", 1, kDomain));
  EXPECT_EQ(stored("b"), Value(1));
  EXPECT_EQ(stored("a"), Value());
}

}  // namespace
}  // namespace foundation::test
