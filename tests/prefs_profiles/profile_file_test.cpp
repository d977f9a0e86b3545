#include "prefs/profiles/profile_file.h"

#include <sys/stat.h>

#include "prefs/profiles/saved_profiles.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace {

using namespace prefs;
using platform::Result;

class ProfileFile : public testing::Test {
 protected:
  Result<plist::Dictionary> read(const std::string& name) {
    return readProfile(device.environment, std::string(kDocuments) + name);
  }
  void expectRefused(const std::string& name) {
    auto profile = read(name);
    ASSERT_FALSE(profile) << name;
    EXPECT_NE(profile.error().code, ENOENT) << name;
    EXPECT_NE(profile.error().message().find(name), std::string::npos) << profile.error().message();
  }
  std::filesystem::path at(const std::string& name) { return device.at(kDocuments) / name; }
  static std::vector<std::uint8_t> bytes(std::string_view text) {
    return {text.begin(), text.end()};
  }
  profiles_test::ProfilesDevice device;
};

TEST_F(ProfileFile, IsNamedAfterItsID) {
  EXPECT_EQ(profilePath(7), "/var/mobile/Documents/Quorvantis/profile_7.qvx");
  EXPECT_EQ(profilePath(55), "/var/mobile/Documents/Quorvantis/profile_55.qvx");
  EXPECT_EQ(profilePath(121), "/var/mobile/Documents/Quorvantis/profile_121.qvx");
  EXPECT_EQ(profilePath(-1), "/var/mobile/Documents/Quorvantis/profile_-1.qvx");
}

TEST_F(ProfileFile, KeepsEveryKindOfValue) {
  const plist::Dictionary values{{"integer", 1},
                                 {"negative", -5},
                                 {"single", 50.5f},
                                 {"real", 0.1},
                                 {"boolean", true},
                                 {"text", "\u00e9\u2713"},
                                 {"empty", ""},
                                 {"data", plist::Data{{0, 255}}},
                                 {"date", plist::Date{1.5}},
                                 {"list", plist::Array{1, 1.0, true, "1"}},
                                 {"dictionary", plist::Dictionary{{"a", plist::Array{}}}}};
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), values));
  auto profile = read("profile_1.qvx");
  ASSERT_TRUE(profile);
  EXPECT_EQ(plist::Value(*profile), plist::Value(values));
}

TEST_F(ProfileFile, IsReadableByItsOwnerOnlyInFoldersOfItsOwnersOnly) {
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), {}));
  struct stat status {};
  ASSERT_EQ(stat(at("profile_1.qvx").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
  for (auto folder :
       {"/var", "/var/mobile", "/var/mobile/Documents", "/var/mobile/Documents/Quorvantis"}) {
    ASSERT_EQ(stat(device.at(folder).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u) << folder;
  }
}

TEST_F(ProfileFile, LeavesNoTemporaryFileBehind) {
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), {}));
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), {}));
  EXPECT_EQ(device.root.contentsOfDirectory(kDocuments)->size(), 1u);
}

TEST_F(ProfileFile, IsAKeyedArchiveOfAMutableDictionary) {
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), {{"profilepercentage", "1"}}));
  auto list = plist::readBinary(*device.root.read(profilePath(1)));
  ASSERT_TRUE(list);
  EXPECT_EQ(*list->dictionary()->find("$archiver"), plist::Value("NSKeyedArchiver"));
  EXPECT_EQ(*list->dictionary()->find("$version"), plist::Value(100000));
  const auto& objects = *list->dictionary()->find("$objects")->array();
  EXPECT_EQ(*objects.back().dictionary()->find("$classname"), plist::Value("NSMutableDictionary"));
}

TEST_F(ProfileFile, IsReadInXmlFormToo) {
  seed::write(device, "profile_1.qvx", bytes(R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
  <key>$version</key><integer>100000</integer>
  <key>$archiver</key><string>NSKeyedArchiver</string>
  <key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict></dict>
  <key>$objects</key><array>
    <string>$null</string>
    <dict>
      <key>NS.keys</key><array><dict><key>CF$UID</key><integer>2</integer></dict></array>
      <key>NS.objects</key><array><dict><key>CF$UID</key><integer>3</integer></dict></array>
      <key>$class</key><dict><key>CF$UID</key><integer>4</integer></dict>
    </dict>
    <string>wifi</string><integer>1</integer>
    <dict><key>$classname</key><string>NSDictionary</string>
      <key>$classes</key><array><string>NSDictionary</string><string>NSObject</string></array></dict>
  </array></dict></plist>)"));
  auto profile = read("profile_1.qvx");
  ASSERT_TRUE(profile) << profile.error().message();
  EXPECT_EQ(plist::Value(*profile), plist::Value(plist::Dictionary{{"wifi", 1}}));
}

TEST_F(ProfileFile, OfAnotherRootIsEmpty) {
  seed::archive(device, "profile_1.qvx", plist::Array{"wifi", 1});
  seed::archive(device, "profile_2.qvx", "text");
  seed::archive(device, "profile_3.qvx", plist::Value());
  for (auto name : {"profile_1.qvx", "profile_2.qvx", "profile_3.qvx"}) {
    auto profile = read(name);
    ASSERT_TRUE(profile) << name;
    EXPECT_TRUE(profile->empty()) << name;
  }
}

TEST_F(ProfileFile, IsMissingWhereNothingIs) {
  auto profile = read("profile_1.qvx");
  ASSERT_FALSE(profile);
  EXPECT_EQ(profile.error().code, ENOENT);
  seed::profile(device, "2");
  profile = read("profile_1.qvx");
  ASSERT_FALSE(profile);
  EXPECT_EQ(profile.error().code, ENOENT);
}

TEST_F(ProfileFile, IsRefusedNotMissingWhereALinkLeadsNowhere) {
  seed::profile(device, "1");
  std::filesystem::create_symlink("nowhere", at("profile_2.qvx"));
  expectRefused("profile_2.qvx");
}

TEST_F(ProfileFile, SaysThatItIsNotAnArchiveAndWhereOnlyInItsOwnBytes) {
  seed::write(device, "profile_1.qvx", bytes("<plist><dict/></plist>"));
  seed::write(device, "profile_2.qvx", *plist::writeBinary(plist::Dictionary{{"wifi", 1}}));
  EXPECT_EQ(read("profile_1.qvx").error().message(),
            "/var/mobile/Documents/Quorvantis/profile_1.qvx: not a keyed archive: not written by a "
            "keyed archiver");
  EXPECT_NE(read("profile_2.qvx").error().message().find("keyed archiver at byte "),
            std::string::npos);
}

TEST_F(ProfileFile, IsRefusedWhenDamaged) {
  auto whole = *archive::archive(plist::Dictionary{{"wifi", 1}}, archive::Mutability::Mutable);
  whole.resize(whole.size() - 1);
  seed::write(device, "profile_1.qvx", whole);
  seed::write(device, "profile_2.qvx", {});
  expectRefused("profile_1.qvx");
  expectRefused("profile_2.qvx");
}

TEST_F(ProfileFile, IsRefusedWhenForeign) {
  seed::write(device, "profile_1.qvx", bytes("junk"));
  seed::write(device, "profile_2.qvx", *plist::writeBinary(plist::Dictionary{{"wifi", 1}}));
  seed::write(device, "profile_3.qvx", bytes("<plist><dict/></plist>"));
  expectRefused("profile_1.qvx");
  expectRefused("profile_2.qvx");
  expectRefused("profile_3.qvx");
}

TEST_F(ProfileFile, IsRefusedWhenNoFile) {
  std::filesystem::create_directories(at("profile_9.qvx"));
  ASSERT_EQ(mkfifo(at("profile_10.qvx").c_str(), 0600), 0);
  expectRefused("profile_9.qvx");
  expectRefused("profile_10.qvx");
}

TEST_F(ProfileFile, IsRefusedWhenALinkLeavesTheFolder) {
  seed::profile(device, "1");
  std::filesystem::create_directories(device.at("/elsewhere"));
  std::filesystem::copy(at("profile_1.qvx"), device.at("/elsewhere/whole.qvx"));
  std::filesystem::create_symlink("/elsewhere/whole.qvx", at("profile_2.qvx"));
  std::filesystem::create_symlink("../../../../elsewhere/whole.qvx", at("profile_3.qvx"));
  expectRefused("profile_2.qvx");
  expectRefused("profile_3.qvx");
  std::filesystem::create_symlink("profile_1.qvx", at("profile_4.qvx"));
  EXPECT_TRUE(read("profile_4.qvx")) << "a link that stays inside";
}

TEST_F(ProfileFile, OfAValueThatNoArchiveCanHoldIsNotWritten) {
  seed::profile(device, "1");
  auto before = *device.root.read(profilePath(1));
  auto written = writeProfile(device.environment, profilePath(1), {{"wifi", plist::Uid{1}}});
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().path, profilePath(1));
  EXPECT_EQ(*device.root.read(profilePath(1)), before);
}

TEST_F(ProfileFile, TakesThePlaceOfALink) {
  seed::profile(device, "1");
  std::filesystem::create_symlink("profile_1.qvx", at("profile_2.qvx"));
  ASSERT_TRUE(writeProfile(device.environment, profilePath(2), {{"wifi", 2}}));
  EXPECT_FALSE(std::filesystem::is_symlink(at("profile_2.qvx")));
  EXPECT_FALSE(device.profile("1").find("wifi"));
}

TEST_F(ProfileFile, IsDeletedWhateverItHolds) {
  seed::write(device, "profile_1.qvx", bytes("junk"));
  std::filesystem::create_symlink("/nowhere", at("profile_2.qvx"));
  EXPECT_TRUE(deleteProfile(device.environment, profilePath(1)));
  EXPECT_TRUE(deleteProfile(device.environment, profilePath(2)));
  EXPECT_TRUE(device.root.contentsOfDirectory(kDocuments)->empty());
}

TEST_F(ProfileFile, ReportsWhyItCannotBeDeleted) {
  auto deleted = deleteProfile(device.environment, profilePath(1));
  ASSERT_FALSE(deleted);
  EXPECT_EQ(deleted.error().code, ENOENT);
  EXPECT_FALSE(device.root.exists(kDocuments)) << "only a save makes the folder";
}

TEST_F(ProfileFile, ThousandsAreListedAsAFewAre) {
  constexpr int kCount = 6000;
  ASSERT_TRUE(writeProfile(device.environment, profilePath(1), {{"profilepercentage", "1"}}));
  for (int number = 2; number <= kCount; ++number)
    if (number % 1000 == 0)
      std::ofstream(at("profile_" + std::to_string(number) + ".qvx")) << "damaged";
    else
      std::filesystem::create_hard_link(at("profile_1.qvx"),
                                        at("profile_" + std::to_string(number) + ".qvx"));
  const ProfileFiles found = profileFiles(device.environment);
  std::vector<std::string> skipped;
  for (const auto& error : found.skipped) skipped.push_back(error.path);
  EXPECT_EQ(skipped, (std::vector{profilePath(1000), profilePath(2000), profilePath(3000),
                                  profilePath(4000), profilePath(5000), profilePath(6000)}));
  ASSERT_EQ(found.files.size(), kCount - skipped.size());
  EXPECT_EQ(found.files.front().path, profilePath(1));
  EXPECT_EQ(found.files.back().path, profilePath(5999));
  for (const auto& file : found.files) ASSERT_EQ(file.trigger, plist::Value("1")) << file.path;
}

}  // namespace
