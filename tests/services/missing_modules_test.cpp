#include <gtest/gtest.h>

#include "services/lazy_services.h"
#include "services/services.h"
#include "tests/services/temporary_folder.h"

namespace {

// A machine that has none of the modules.
class Missing : public testing::Environment {
 public:
  void SetUp() override {
    setenv("QUORVANTIS_MODULES", folder.path.c_str(), 1);
    setenv("LC_ALL", "en_US.UTF-8", 1);
  }
  TemporaryFolder folder;
};

Missing* const missing = new Missing;
[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(missing);

std::string reason(const std::string& service, const std::string& module) {
  return service + " is not available: no quorvantis-" + module + ".so in " +
         missing->folder.path.string();
}

}  // namespace

TEST(MissingModules, CollationSaysSo) {
  ASSERT_FALSE(services::find<platform::Collator>());
  EXPECT_EQ(services::find<platform::Collator>().error().message(), reason("collation", "icu"));
}
TEST(MissingModules, TheBusSaysSo) {
  ASSERT_FALSE(services::find<services::Bus>());
  EXPECT_EQ(services::find<services::Bus>().error().message(), reason("the session bus", "bus"));
}
TEST(MissingModules, UrlsSaySo) {
  ASSERT_FALSE(services::find<platform::Urls>());
  EXPECT_EQ(services::find<platform::Urls>().error().message(), reason("opening URLs", "gio"));
}
TEST(MissingModules, XmlSaysSo) {
  ASSERT_FALSE(services::find<platform::XmlPropertyLists>());
  EXPECT_EQ(services::find<platform::XmlPropertyLists>().error().message(),
            reason("reading and writing XML", "xml"));
}
TEST(MissingModules, TitlesAreStillInOrder) {
  services::UserCollator collator;
  EXPECT_LT(collator.compare("Battery 9%", "Battery 10%"), 0);
}
TEST(MissingModules, OtherTextIsInTheOrderOfItsBytes) {
  services::UserCollator collator;
  EXPECT_LT(collator.compare("a", "é"), 0);
  EXPECT_EQ(collator.compare("é", "é"), 0);
}
TEST(MissingModules, WhyItIsIsReportedOnceAndOnlyForSuchText) {
  std::vector<std::string> reported;
  services::UserCollator collator(
      [&](const platform::Error& error) { reported.push_back(error.message()); });
  collator.compare("Battery 9%", "Battery 10%");
  EXPECT_TRUE(reported.empty());
  collator.compare("a", "é");
  collator.compare("b", "é");
  EXPECT_EQ(reported, std::vector{reason("collation", "icu")});
}
TEST(MissingModules, PostsAreDropped) {
  testing::internal::CaptureStderr();
  services::SessionNotificationCenter().post("name");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
TEST(MissingModules, NoUrlHasAnApplication) {
  services::DesktopUrls urls;
  EXPECT_FALSE(urls.canOpen("https://example.org/"));
  EXPECT_FALSE(urls.open("https://example.org/"));
}
