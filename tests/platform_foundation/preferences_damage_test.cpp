#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using platform::ErrorKind;
using plist::Value;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kGarbage[] = "bplist00 garbage that is longer than the shortest property list";

std::string textOfDomain(const plist::Dictionary& entries) {
  return textOf(*plist::writeBinary(entries));
}

struct DamagedDomain : PreferencesTest {
  static constexpr char kAside[] = "com.zorvek.quorvantis.plist.unreadable-";

  void damage(std::string_view text = kGarbage) { folder.write(kFile, text); }
  std::string aside(int number) {
    return folder.contents(std::string(kFolder) + "/" + kAside + std::to_string(number));
  }
  bool isDamaged(const platform::Result<platform::Done>& result) {
    return !result && result.error().kind == ErrorKind::Damaged && result.error().path == kFile &&
           folder.contents(kFile) == kGarbage && otherNames().empty();
  }
};

TEST_F(DamagedDomain, RefusesASetAndStaysAsItIs) {
  damage();
  EXPECT_TRUE(isDamaged(preferences.setAppValue("a", 1, kDomain)));
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
}

TEST_F(DamagedDomain, RefusesARemovalAndStaysAsItIs) {
  damage();
  EXPECT_TRUE(isDamaged(preferences.setAppValue("a", Value(), kDomain)));
}

TEST_F(DamagedDomain, RefusesAWholeDomainWriteAndStaysAsItIs) {
  damage();
  EXPECT_TRUE(isDamaged(preferences.setMultiple({{"a", 1}, {"b", 2}}, {"c"}, kDomain)));
}

TEST_F(DamagedDomain, FailsASynchroniseWithChanges) {
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  damage();
  EXPECT_TRUE(isDamaged(preferences.appSynchronize(kDomain)));
}

TEST_F(DamagedDomain, IsReportedWithEachSet) {
  damage();
  EXPECT_FALSE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_FALSE(preferences.synchronize());
  EXPECT_THAT(problems, ElementsAre(HasSubstr(kFile)));
  EXPECT_FALSE(preferences.setAppValue("b", 1, kDomain));
  EXPECT_THAT(problems, ElementsAre(HasSubstr(kFile), problems.front()));
}

TEST_F(DamagedDomain, KeepsNoSetEvenWhereFailedOnesAreKept) {
  Preferences keeping(root, kLockPatience, Preferences::FailedSets::Keep);
  damage();
  EXPECT_FALSE(keeping.setAppValue("a", 1, kDomain));
  EXPECT_FALSE(keeping.unfinished());
  EXPECT_FALSE(keeping.copyAppValue("a", kDomain));
}

TEST_F(DamagedDomain, IsLeftInPlaceByReadsAndReportedOnce) {
  damage();
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(preferences.copyKeyList(kDomain), IsEmpty());
  EXPECT_THAT(problems, ElementsAre(HasSubstr(kFile)));
  EXPECT_EQ(folder.contents(kFile), kGarbage);
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(DamagedDomain, EmptyFileIsOne) {
  damage("");
  EXPECT_FALSE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_TRUE(preferences.damage(kDomain));
  EXPECT_EQ(folder.contents(kFile), "");
}

TEST_F(DamagedDomain, TopThatIsNotADictionaryIsOne) {
  damage(textOf(*plist::writeBinary(plist::Array{1})));
  EXPECT_FALSE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("its top is not a dictionary")));
}

TEST_F(DamagedDomain, SaysWhyItCanNotBeRead) {
  EXPECT_FALSE(preferences.damage(kDomain));
  storeElsewhere("a", 1);
  EXPECT_FALSE(preferences.damage(kDomain));
  damage();
  const auto damage = preferences.damage(kDomain);
  ASSERT_TRUE(damage);
  EXPECT_EQ(damage->kind, ErrorKind::Damaged);
  EXPECT_EQ(damage->path, kFile);
}

TEST_F(DamagedDomain, ThatIsTooLargeIsRefusedByItsSizeAndStays) {
  damage();
  fs::resize_file(folder.at(kFile), std::uintmax_t{1} << 40);
  const auto set = preferences.setAppValue("a", 1, kDomain);
  ASSERT_FALSE(set);
  EXPECT_EQ(
      set.error().message(),
      std::string(kFile) + ": 1099511627776 bytes, at most 67108864 are read: File too large");
  EXPECT_EQ(fs::file_size(folder.at(kFile)), std::uintmax_t{1} << 40);
}

TEST_F(DamagedDomain, IsKeptAsideWhenTheDomainIsReplaced) {
  damage();
  ASSERT_TRUE(preferences.replaceDomain({{"a", 1}}, kDomain));
  EXPECT_EQ(aside(1), kGarbage);
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  EXPECT_TRUE(preferences.setAppValue("b", 2, kDomain));
  EXPECT_EQ(modeOf(folder.at(kFile)), 0600u);
}

TEST_F(DamagedDomain, IsReplacedByAnEmptyOne) {
  damage();
  ASSERT_TRUE(preferences.replaceDomain({}, kDomain));
  EXPECT_EQ(aside(1), kGarbage);
  EXPECT_FALSE(preferences.damage(kDomain));
  EXPECT_THAT(preferences.copyKeyList(kDomain), IsEmpty());
}

TEST_F(DamagedDomain, FiveOfThemAreKept) {
  for (int round = 1; round <= 7; ++round) {
    damage(kGarbage + std::to_string(round));
    ASSERT_TRUE(preferences.replaceDomain({}, kDomain));
  }
  EXPECT_THAT(otherNames(), SizeIs(5));
  EXPECT_EQ(aside(3), kGarbage + std::string("3"));
  EXPECT_EQ(aside(7), kGarbage + std::string("7"));
}

TEST_F(DamagedDomain, KeepsItsOnlyNameWhenItCanNotBeReplaced) {
  damage();
  EXPECT_TRUE(succeeded(startProcess([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{16, 16};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto replaced = preferences.replaceDomain({{"a", 1}}, kDomain);
    return !replaced && replaced.error().code == EFBIG;
  })));
  EXPECT_EQ(folder.contents(kFile), kGarbage);
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(PreferencesTest, AReadableDomainIsNotReplaced) {
  EXPECT_FALSE(preferences.replaceDomain({{"b", 3}}, kDomain));
  EXPECT_FALSE(root.exists(kFile));
  ASSERT_TRUE(preferences.setMultiple({{"a", 1}, {"b", 2}}, {}, kDomain));
  EXPECT_FALSE(preferences.replaceDomain({{"b", 3}}, kDomain));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_EQ(stored("b"), Value(2));
  EXPECT_THAT(otherNames(), IsEmpty());
}

// Another process that rewrites the file in place: it truncates it, and writes it bit by bit.
TEST_F(PreferencesTest, FileThatIsBeingRewrittenInPlaceIsNotDamaged) {
  const std::string whole = textOfDomain({{"theirs", 1}});
  folder.write(kFile, "");
  const pid_t writer = startProcess([&] {
    for (const std::size_t left : {20, 1, 0}) {
      poll(nullptr, 0, 110);
      folder.write(kFile, whole.substr(0, whole.size() - left));
    }
    return true;
  });
  EXPECT_TRUE(preferences.setAppValue("mine", 2, kDomain));
  EXPECT_EQ(preferences.copyAppValue("theirs", kDomain), Value(1));
  EXPECT_TRUE(succeeded(writer));
}

// One that pauses after most of it.
TEST_F(PreferencesTest, FileWhoseWriterPausesIsNotDamaged) {
  const std::string whole = textOfDomain({{"theirs", std::string(100, 'x')}});
  folder.write(kFile, whole.substr(0, whole.size() - 20));
  const pid_t writer = startProcess([&] {
    poll(nullptr, 0, 200);
    folder.write(kFile, whole);
    return true;
  });
  EXPECT_TRUE(preferences.setAppValue("mine", 2, kDomain));
  EXPECT_TRUE(preferences.copyAppValue("theirs", kDomain));
  EXPECT_TRUE(succeeded(writer));
}

TEST_F(DamagedDomain, IsNotWaitedForAgainOnceItIsKnown) {
  damage("");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  const auto start = std::chrono::steady_clock::now();
  for (int round = 0; round < 5; ++round) EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(150));
}

TEST_F(DamagedDomain, LeavesWhatWasReadBefore) {
  storeElsewhere("a", 1);
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  folder.write(kFile, "garbage");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
}

TEST_F(DamagedDomain, IsReportedAgainWhenItWasWellInBetween) {
  folder.write(kFile, "garbage");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  fs::remove(folder.at(kFile));
  EXPECT_TRUE(preferences.appSynchronize(kDomain));
  folder.write(kFile, "garbage");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(problems, SizeIs(2));
}

TEST_F(DamagedDomain, XmlIsOneWithoutAReader) {
  folder.write(kFile, "<plist/>");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("not a binary property list")));
}

TEST_F(PreferencesTest, XmlIsReadByTheReaderAndWrittenBackAsBinary) {
  folder.write(kFile, "<plist/>");
  preferences.setXmlReader([](plist::Bytes bytes) -> platform::Result<plist::Value> {
    if (textOf(bytes) != "<plist/>") return platform::Error{.what = "line 1: no list"};
    return Value(plist::Dictionary{{"theirs", 1}});
  });
  EXPECT_EQ(preferences.copyAppValue("theirs", kDomain), Value(1));
  ASSERT_TRUE(preferences.setAppValue("mine", 2, kDomain));
  EXPECT_EQ(stored("theirs"), Value(1));
  EXPECT_EQ(stored("mine"), Value(2));

  folder.write(kFile, "<plist>");
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("line 1: no list")));
}

TEST_F(PreferencesTest, ValueThatCannotBeStoredFailsTheSetAndChangesNothing) {
  storeElsewhere("a", 1);
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  Value tooDeep = 1;
  for (int depth = 0; depth < 1'000; ++depth) tooDeep = plist::Array{tooDeep};
  EXPECT_FALSE(preferences.setAppValue("a", tooDeep, kDomain));
  EXPECT_EQ(preferences.copyAppValue("a", kDomain), Value(1));
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("can't be stored")));
}

TEST_F(PreferencesTest, FolderInPlaceOfTheFileFailsTheSetAndStays) {
  fs::create_directories(folder.at(kFile));
  const auto set = preferences.setAppValue("a", 1, kDomain);
  ASSERT_FALSE(set);
  EXPECT_EQ(set.error().code, EISDIR);
  EXPECT_EQ(set.error().kind, ErrorKind::Failed);
  EXPECT_EQ(set.error().path, kFile);
  EXPECT_TRUE(fs::is_directory(folder.at(kFile)));
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(problems, SizeIs(1));
}

TEST_F(PreferencesTest, FileInPlaceOfTheFolderFailsTheSet) {
  folder.write("/var/mobile", "file");
  EXPECT_EQ(preferences.setAppValue("a", 1, kDomain).error().code, ENOTDIR);
  EXPECT_EQ(folder.contents("/var/mobile"), "file");
}

TEST_F(PreferencesTest, FifoInPlaceOfTheFileFailsAndDoesNotBlock) {
  fs::create_directories(folder.at(kFolder));
  ASSERT_EQ(mkfifo(folder.at(kFile).c_str(), 0600), 0);
  EXPECT_FALSE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_TRUE(fs::is_fifo(folder.at(kFile)));
}

TEST_F(PreferencesTest, FileWithoutPermissionFailsTheSetAndStays) {
  EXPECT_TRUE(succeedsUnprivileged([] {
    TemporaryRoot own;
    DeviceRoot root(own.path());
    Preferences preferences(root);
    std::vector<std::string> reported;
    preferences.setProblemHandler(
        [&](const platform::Error& error) { reported.push_back(error.message()); });
    if (!preferences.setAppValue("a", 1, kDomain)) return false;
    const std::string before = own.contents(kFile);
    fs::permissions(own.at(kFile), fs::perms(0));
    const auto set = preferences.setAppValue("a", 2, kDomain);
    const bool refused = !set && set.error().code == EACCES && reported.size() == 1;
    fs::permissions(own.at(kFile), fs::perms(0600));
    return refused && own.contents(kFile) == before;
  }));
}

TEST_F(PreferencesTest, DiskThatIsFullFailsTheSetAndLeavesTheOldFile) {
  storeElsewhere("a", 1);
  const std::string before = folder.contents(kFile);
  EXPECT_TRUE(succeeded(startProcess([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{16, 16};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto set = preferences.setAppValue("a", 2, kDomain);
    return !set && set.error().code == EFBIG && set.error().path == kFile &&
           set.error().what == "write" && problems.size() == 1 &&
           preferences.copyAppValue("a", kDomain) == Value(1);
  })));
  EXPECT_EQ(folder.contents(kFile), before);
  EXPECT_THAT(otherNames(), IsEmpty());
}

}  // namespace
}  // namespace foundation::test
