#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "platform/preferences/specifier_list.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_settings.h"
#include "prefs/resources/bundle.h"

namespace {

constexpr std::size_t kPages = 10, kLists = 9;

preferences::SpecifierList read(const preferences::ListResource& resource) {
  auto root = plist::readBinary(resource.bytes);
  EXPECT_TRUE(root) << resource.name;
  auto list = preferences::readSpecifierList(*root);
  EXPECT_TRUE(list) << resource.name;
  return *list;
}

TEST(Lists, AreThereForEveryPageThatNamesOne) {
  ASSERT_EQ(prefs::bundle().pages.size(), kPages);
  for (const auto& page : prefs::bundle().pages)
    EXPECT_TRUE(page.list.empty() || prefs::bundle().list(page.list)) << page.name;
}

TEST(Lists, NameOnlyClassesAndOperationsThatExist) {
  std::size_t lists = 0;
  for (const auto& page : prefs::bundle().pages) {
    if (page.list.empty()) continue;
    auto list = read(*prefs::bundle().list(page.list));
    EXPECT_FALSE(list.title.empty()) << page.list;
    for (auto& error : preferences::validate(list, *page.operations, prefs::bundle()))
      ADD_FAILURE() << page.list << ": row " << error.row << ": " << error.what;
    ++lists;
  }
  EXPECT_EQ(lists, kLists);
}

TEST(Lists, HoldEachSettingOfAProfileOnceWithItsDefaultAndItsKind) {
  std::multimap<std::string, std::shared_ptr<preferences::PSSpecifier>> rows;
  for (const auto& resource : prefs::bundle().lists)
    for (const auto& row : read(resource).specifiers)
      if (const auto key = row->propertyForKey("key"); key.text()) rows.emplace(*key.text(), row);
  ASSERT_FALSE(prefs::profileKeys().empty());
  for (std::string_view key : prefs::profileKeys()) {
    ASSERT_EQ(rows.count(std::string(key)), 1u) << key;
    const auto& row = rows.find(std::string(key))->second;
    EXPECT_EQ(row->propertyForKey("defaults"), plist::Value(prefs::kDomain)) << key;
    // Without a default a setting shows as one that leaves all as it is.
    EXPECT_EQ(row->propertyForKey("default"), prefs::profileDefault(key).value_or(0)) << key;
  }
}

// An operation takes as many arguments as its selector has colons.
TEST(Lists, HavePagesWhoseOperationsTakeAsManyArgumentsAsTheirSelectorsHaveColons) {
  ASSERT_EQ(prefs::bundle().pages.size(), kPages);
  for (const auto& page : prefs::bundle().pages) {
    ASSERT_FALSE(page.operations->own().empty()) << page.name;
    for (const auto& operation : page.operations->own())
      EXPECT_EQ(std::ranges::count(operation.selector(), ':'), operation.arity())
          << page.name << " " << operation.selector();
  }
}

}  // namespace
