#include <gtest/gtest.h>

#include <algorithm>

#include "platform/preferences/specifier_list.h"
#include "prefs/resources/bundle.h"

namespace {

preferences::SpecifierList read(const preferences::ListResource& resource) {
  auto root = plist::readBinary(resource.bytes);
  EXPECT_TRUE(root) << resource.name;
  auto list = preferences::readSpecifierList(*root);
  EXPECT_TRUE(list) << resource.name;
  return *list;
}

TEST(Lists, AreThereForEveryPageThatNamesOne) {
  for (const auto& page : prefs::bundle().pages)
    EXPECT_TRUE(page.list.empty() || prefs::bundle().list(page.list)) << page.name;
}

TEST(Lists, NameOnlyClassesAndOperationsThatExist) {
  for (const auto& page : prefs::bundle().pages) {
    if (page.list.empty()) continue;
    auto list = read(*prefs::bundle().list(page.list));
    EXPECT_FALSE(list.title.empty()) << page.list;
    for (auto& error : preferences::validate(list, *page.operations, prefs::bundle()))
      ADD_FAILURE() << page.list << ": row " << error.row << ": " << error.what;
  }
}

// What a selector says, by its colons, is what its operation takes.
TEST(Lists, ComeWithPagesWhoseOperationsTakeWhatTheirSelectorsSay) {
  for (const auto& page : prefs::bundle().pages)
    for (const auto& operation : page.operations->own())
      EXPECT_EQ(std::ranges::count(operation.selector(), ':'), operation.arity())
          << page.name << " " << operation.selector();
}

}  // namespace
