#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "services/lazy_services.h"
#include "services/module_loader.h"
#include "services/services.h"

using testing::HasSubstr;

namespace {

bool isMapped(std::string_view library) {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    if (line.find(library) != line.npos) return true;
  return false;
}

}  // namespace

TEST(Modules, AreFoundBesideTheExecutable) {
  unsetenv("QUORVANTIS_MODULES");
  EXPECT_TRUE(services::collation()) << services::collation().error();
  EXPECT_TRUE(services::bus()) << services::bus().error();
  EXPECT_TRUE(services::urls()) << services::urls().error();
  EXPECT_TRUE(services::xmlPropertyLists()) << services::xmlPropertyLists().error();
}

// The module brings a copy of the code that indexes large dictionaries.
TEST(Modules, GiveDictionariesInWhichTheProgramFindsItsKeys) {
  const auto& xml = services::xmlPropertyLists();
  ASSERT_TRUE(xml) << xml.error();
  plist::Dictionary large;
  for (int i = 0; i < 100; ++i) large.set("key" + std::to_string(i), i);
  const auto back = (*xml)->read(*(*xml)->write(large));
  ASSERT_TRUE(back) << back.error();
  for (int i = 0; i < 100; ++i) {
    const plist::Value* found = back->dictionary()->find("key" + std::to_string(i));
    ASSERT_TRUE(found) << i;
    EXPECT_EQ(*found, plist::Value(i));
  }
}

TEST(Modules, XmlWorksAcrossTheBoundary) {
  unsetenv("QUORVANTIS_MODULES");
  const auto& xml = services::xmlPropertyLists();
  ASSERT_TRUE(xml) << xml.error();
  const plist::Value value = plist::Dictionary{{"key", plist::Array{1, 2.5, "text", true}}};
  const auto bytes = (*xml)->write(value);
  ASSERT_TRUE(bytes);
  const auto back = (*xml)->read(*bytes);
  ASSERT_TRUE(back);
  EXPECT_EQ(*back, value);
  EXPECT_FALSE((*xml)->read(plist::Bytes{}));
}

TEST(Modules, CollationWorksAcrossTheBoundary) {
  unsetenv("QUORVANTIS_MODULES");
  ASSERT_TRUE(services::collation());
  EXPECT_LT((*services::collation())->compare("résumé 9", "Résumé 10"), 0);
}

// In a process of its own, as ctest runs it, nothing else has loaded ICU.
TEST(Modules, PlainAsciiIsComparedWithoutIcu) {
  if (isMapped("libicui18n")) GTEST_SKIP() << "loaded by an earlier test of this run";
  setenv("LC_ALL", "en_US.UTF-8", 1);
  unsetenv("QUORVANTIS_MODULES");
  services::UserCollator collator;
  EXPECT_LT(collator.compare("Battery 9%", "Battery 10%"), 0);
  EXPECT_FALSE(isMapped("libicui18n"));
  EXPECT_LT(collator.compare("é", "f"), 0);
  EXPECT_TRUE(isMapped("libicui18n"));
}

TEST(Modules, AMissingLibraryIsNamed) {
  const auto own = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  setenv("QUORVANTIS_MODULES", (own / CRIPPLED_FOLDER).c_str(), 1);
  const auto loaded = services::loadModule("crippled");
  ASSERT_FALSE(loaded);
  EXPECT_EQ(loaded.error(),
            "libabsent.so: cannot open shared object file: No such file or directory");
}
