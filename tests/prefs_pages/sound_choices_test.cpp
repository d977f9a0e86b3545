#include "prefs/pages/choice_lists.h"

#include <dirent.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "prefs/pages/UserNotificationListController.h"
#include "tests/prefs_pages/pages_bundle.h"

namespace {

// While this names an entry, a listing doesn't hold the kinds of its entries, and reading the
// status of that entry fails.
std::string unreadableEntry;

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t getdents64(int folder, void* buffer,
                                                                     size_t size) noexcept {
  const auto length = static_cast<ssize_t>(syscall(SYS_getdents64, folder, buffer, size));
  if (unreadableEntry.empty()) return length;
  for (ssize_t at = 0; at < length;) {
    auto* entry = reinterpret_cast<dirent64*>(static_cast<char*>(buffer) + at);
    entry->d_type = DT_UNKNOWN;
    at += entry->d_reclen;
  }
  return length;
}

extern "C" __attribute__((visibility("default"))) int fstatat(int folder, const char* name,
                                                              struct stat* status,
                                                              int flags) noexcept {
  if (!unreadableEntry.empty() && name == unreadableEntry) return errno = EIO, -1;
  return static_cast<int>(syscall(SYS_newfstatat, folder, name, status, flags));
}

namespace {

namespace fs = std::filesystem;
using namespace pages_test;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

Texts texts(const plist::Array& array) {
  Texts texts;
  for (const plist::Value& value : array) texts.push_back(*value.text());
  return texts;
}

class SoundChoices : public testing::Test {
 protected:
  void file(const std::string& name) {
    const fs::path path = sounds_ / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "x";
  }
  Texts values() { return texts(opened_.page->valueDataFromTarget(nullptr)); }
  Texts titles() { return texts(opened_.page->titlesDataFromTarget(nullptr)); }

  Opened<prefs::UserNotificationListController> opened_;
  fs::path sounds_ = fs::path(opened_.device.folder.path()) / "System/Library/Audio/UISounds";
};

TEST_F(SoundChoices, AMissingFolderLeavesTheOneEntryDisabled) {
  EXPECT_THAT(values(), ElementsAre("Disabled"));
  EXPECT_THAT(titles(), ElementsAre("Disabled"));
}

TEST_F(SoundChoices, AnEmptyFolderLeavesTheOneEntryDisabled) {
  fs::create_directories(sounds_);
  EXPECT_THAT(values(), ElementsAre("Disabled"));
}

TEST_F(SoundChoices, AFileIsItsUrlAndItsName) {
  file("Tock.caf");
  EXPECT_THAT(values(), ElementsAre("Disabled", "file:///System/Library/Audio/UISounds/Tock.caf"));
  EXPECT_THAT(titles(), ElementsAre("Disabled", "Tock.caf"));
}

TEST_F(SoundChoices, ANestedFileIsListedByItsBareNameAndFoldersAreNot) {
  file("New/Deep/Bell.caf");
  EXPECT_THAT(values(),
              ElementsAre("Disabled", "file:///System/Library/Audio/UISounds/New/Deep/Bell.caf"));
  EXPECT_THAT(titles(), ElementsAre("Disabled", "Bell.caf"));
}

TEST_F(SoundChoices, ATitleShowsTheNameAsTheUrlHasIt) {
  file("a b.caf");
  EXPECT_THAT(titles(), ElementsAre("Disabled", "a%20b.caf"));
}

TEST_F(SoundChoices, NothingIsFilteredByExtensionAndHiddenFilesCount) {
  file(".hidden");
  file("notes.txt");
  file("noextension");
  EXPECT_THAT(titles(),
              testing::UnorderedElementsAre("Disabled", ".hidden", "notes.txt", "noextension"));
}

TEST_F(SoundChoices, EqualNamesInTwoFoldersAreTwoEntries) {
  file("a/x.caf");
  file("b/x.caf");
  EXPECT_THAT(titles(), ElementsAre("Disabled", "x.caf", "x.caf"));
}

TEST_F(SoundChoices, LinksAreEntriesAndNotEntered) {
  file("d/x.caf");
  fs::create_directory_symlink("d", sounds_ / "link");
  EXPECT_THAT(titles(), testing::UnorderedElementsAre("Disabled", "x.caf", "link"));
}

TEST_F(SoundChoices, AnEntryThatCanNotBeReadIsSkipped) {
  for (const char* name : {"a.caf", "b.caf", "c/d.caf"}) file(name);
  unreadableEntry = "b.caf";
  const Texts urls = values(), names = titles();
  unreadableEntry.clear();
  EXPECT_THAT(names, testing::UnorderedElementsAre("Disabled", "a.caf", "d.caf"));
  EXPECT_EQ(urls.size(), 3u);
}

TEST_F(SoundChoices, BothListsAreParallel) {
  for (int i = 0; i < 200; ++i) file(std::to_string(i % 7) + "/" + std::to_string(i) + ".caf");
  const Texts urls = values(), names = titles();
  ASSERT_EQ(urls.size(), 201u);
  ASSERT_EQ(names.size(), urls.size());
  for (std::size_t i = 1; i < urls.size(); ++i) EXPECT_TRUE(urls[i].ends_with("/" + names[i]));
}

TEST_F(SoundChoices, AreBuiltAnewAtEachCall) {
  EXPECT_EQ(values().size(), 1u);
  file("later.caf");
  EXPECT_EQ(values().size(), 2u);
}

TEST_F(SoundChoices, AreTheMachinesOwnWhereTheRootHasNone) {
  testing_support::TemporaryFolder theme;
  std::ofstream(fs::path(theme.path()) / "bell.oga") << "x";
  opened_.device.environment.soundFallback = {"/System/Library/Audio/UISounds", theme.path()};
  EXPECT_THAT(values(), ElementsAre("Disabled", "file:///System/Library/Audio/UISounds/bell.oga"));
  file("own.caf");
  EXPECT_THAT(titles(), ElementsAre("Disabled", "own.caf"));
}

TEST_F(SoundChoices, BelongToTheSoundRow) {
  file("Tock.caf");
  opened_.page->loadChoices(opened_.row("playsound"));
  EXPECT_EQ(texts(opened_.row("playsound").values()), values());
  EXPECT_EQ(opened_.row("playsound").titles(), titles());
}

}  // namespace
