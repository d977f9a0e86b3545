#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "tests/platform_foundation/preferences_fixture.h"

namespace foundation::test {
namespace {

using plist::Value;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct DamagedDomain : PreferencesTest {
  static constexpr char kAside[] = "com.zorvek.quorvantis.plist.unreadable-1";

  std::string aside() { return folder.contents(std::string(kFolder) + "/" + kAside); }
};

TEST_F(DamagedDomain, IsKeptAsideByASetAndReportedOnce) {
  folder.write(kFile, "bplist00 garbage");
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  ASSERT_TRUE(preferences.setAppValue("b", 1, kDomain));
  ASSERT_TRUE(preferences.synchronize());
  EXPECT_EQ(aside(), "bplist00 garbage");
  EXPECT_EQ(stored("a"), Value(1));
  EXPECT_EQ(stored("b"), Value(1));
  EXPECT_THAT(problems, ElementsAre(AllOf(HasSubstr(kFile), HasSubstr(kAside))));
}

TEST_F(DamagedDomain, IsLeftInPlaceByReadsAndReportedOnce) {
  folder.write(kFile, "bplist00 garbage");
  EXPECT_FALSE(preferences.copyAppValue("a", kDomain));
  EXPECT_FALSE(preferences.appSynchronize(kDomain));
  EXPECT_THAT(preferences.copyKeyList(kDomain), IsEmpty());
  EXPECT_THAT(problems, ElementsAre(HasSubstr(kFile)));
  EXPECT_EQ(folder.contents(kFile), "bplist00 garbage");
  EXPECT_THAT(otherNames(), IsEmpty());
}

TEST_F(DamagedDomain, IsLeftInPlaceByARemoval) {
  folder.write(kFile, "bplist00 garbage");
  EXPECT_TRUE(preferences.setAppValue("a", Value(), kDomain));
  EXPECT_EQ(folder.contents(kFile), "bplist00 garbage");
}

TEST_F(DamagedDomain, IsNeverKeptOverAnother) {
  for (const char* text : {"first", "second"}) {
    folder.write(kFile, text);
    ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  }
  EXPECT_THAT(otherNames(), ElementsAre(kAside, "com.zorvek.quorvantis.plist.unreadable-2"));
  EXPECT_EQ(aside(), "first");
  EXPECT_THAT(problems, SizeIs(2));
}

TEST_F(DamagedDomain, EmptyFileIsOne) {
  folder.write(kFile, "");
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_THAT(otherNames(), ElementsAre(kAside));
}

TEST_F(DamagedDomain, TopThatIsNotADictionaryIsOne) {
  const auto bytes = plist::writeBinary(plist::Array{1});
  ASSERT_TRUE(bytes);
  folder.write(kFile, textOf(*bytes));
  ASSERT_TRUE(preferences.setAppValue("a", 1, kDomain));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("its top is not a dictionary")));
  EXPECT_THAT(otherNames(), ElementsAre(kAside));
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

TEST_F(DamagedDomain, IsKeptInPlaceWhenTheNewOneCannotBeWritten) {
  folder.write(kFile, "garbage");
  EXPECT_TRUE(succeeded(startProcess([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{16, 16};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto set = preferences.setAppValue("a", 1, kDomain);
    return !set && set.error().code == EFBIG;
  })));
  EXPECT_EQ(folder.contents(kFile), "garbage");
  EXPECT_THAT(otherNames(), IsEmpty());
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
