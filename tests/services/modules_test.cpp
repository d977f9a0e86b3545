#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "services/lazy_services.h"
#include "services/module.h"
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
  EXPECT_TRUE(services::find<platform::Collator>())
      << services::find<platform::Collator>().error().message();
  EXPECT_TRUE(services::find<services::Bus>()) << services::find<services::Bus>().error().message();
  EXPECT_TRUE(services::find<platform::Urls>())
      << services::find<platform::Urls>().error().message();
  EXPECT_TRUE(services::find<platform::XmlPropertyLists>())
      << services::find<platform::XmlPropertyLists>().error().message();
}

// The module brings a copy of the code that indexes large dictionaries.
TEST(Modules, GiveDictionariesInWhichTheProgramFindsItsKeys) {
  const auto& xml = services::find<platform::XmlPropertyLists>();
  ASSERT_TRUE(xml) << xml.error().message();
  plist::Dictionary large;
  for (int i = 0; i < 100; ++i) large.set("key" + std::to_string(i), i);
  const auto back = (*xml)->read(*(*xml)->write(large));
  ASSERT_TRUE(back) << back.error().message();
  for (int i = 0; i < 100; ++i) {
    const plist::Value* found = back->dictionary()->find("key" + std::to_string(i));
    ASSERT_TRUE(found) << i;
    EXPECT_EQ(*found, plist::Value(i));
  }
}

TEST(Modules, XmlWorksAcrossTheBoundary) {
  unsetenv("QUORVANTIS_MODULES");
  const auto& xml = services::find<platform::XmlPropertyLists>();
  ASSERT_TRUE(xml) << xml.error().message();
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
  ASSERT_TRUE(services::find<platform::Collator>());
  EXPECT_LT((*services::find<platform::Collator>())->compare("résumé 9", "Résumé 10"), 0);
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

namespace {

auto loadCrippled(const char* module) {
  const auto own = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  setenv("QUORVANTIS_MODULES", (own / CRIPPLED_FOLDER).c_str(), 1);
  return services::loadModule(module);
}

}  // namespace

TEST(Modules, AMissingLibraryIsNamed) {
  const auto loaded = loadCrippled("crippled");
  ASSERT_FALSE(loaded);
  EXPECT_EQ(loaded.error().message(),
            "libabsent.so: cannot open shared object file: No such file or directory");
}

TEST(Modules, OneOfAnotherVersionIsRefused) {
  const auto loaded = loadCrippled("foreign");
  ASSERT_FALSE(loaded);
  EXPECT_EQ(loaded.error().message(),
            "quorvantis-foreign.so has version 999 of the services, not " +
                std::to_string(services::kModuleAbi));
}

TEST(Modules, OneWithoutAVersionIsRefused) {
  const auto loaded = loadCrippled("nameless");
  ASSERT_FALSE(loaded);
  EXPECT_THAT(loaded.error().message(), HasSubstr("undefined symbol: quorvantis_service_abi"));
}
