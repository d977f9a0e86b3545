#include "prefs/profiles/trigger_picker_lists.h"
#include "prefs/profiles/triggers.h"
#include "services/icu_collator.h"
#include "tests/prefs_profiles/profiles_device.h"

namespace {

using namespace prefs;

// Among them those that sort "ch" behind "h", vowels before consonants, or Latin letters last.
class ProfileLanguages : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    auto made = services::makeCollator(GetParam());
    ASSERT_TRUE(made) << made.error().message();
    collator = std::move(*made);
  }
  std::unique_ptr<platform::Collator> collator;
};

TEST_P(ProfileLanguages, EachRowOfTheSavePickerNamesOneTrigger) {
  const TriggerPickerLists lists = listsOfTriggers(*collator);
  ASSERT_EQ(lists.profileIDArray.size(), 108u);
  for (std::size_t row = 0; row < 108; ++row) {
    EXPECT_EQ(lists.profileNameArray[row], triggerTitle(lists.profileIDArray[row]));
    EXPECT_EQ(lists.fileNameArray[row], profilePath(std::stoi(lists.profileIDArray[row])));
  }
}

TEST_P(ProfileLanguages, DescriptionsDoNotChangeTheOrderOfTheEvents) {
  std::vector<std::string> titles = {"WiFi connected",    "Device locked - Z",
                                     "Device locked - A", "Charging stopped - Z",
                                     "Charging started",  "Battery 5% - A"};
  sortTitles(titles, *collator);
  EXPECT_EQ(titles,
            (std::vector<std::string>{"Battery 5% - A", "Charging started", "Charging stopped - Z",
                                      "Device locked - A", "Device locked - Z", "WiFi connected"}));
}

INSTANTIATE_TEST_SUITE_P(All, ProfileLanguages,
                         testing::Values("en_US", "cs_CZ", "sk_SK", "haw_US", "sv_SE", "tr_TR",
                                         "de_DE", "es_ES", "et_EE", "lt_LT", "cy_GB", "hu_HU",
                                         "da_DK", "hr_HR", "vi_VN", "ru_RU", "el_GR", "ja_JP",
                                         "zh_CN", "ar_EG", "az_AZ", "mt_MT", "lv_LV"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
