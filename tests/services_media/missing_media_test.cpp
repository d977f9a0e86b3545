#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "services/address_book.h"
#include "services/lazy_services.h"
#include "services/services.h"
#include "services/system_sounds.h"
#include "tests/services/temporary_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// A machine that has none of the modules.
class Missing : public testing::Environment {
 public:
  void SetUp() override { setenv("QUORVANTIS_MODULES", folder.path.c_str(), 1); }
  TemporaryFolder folder;
};

Missing* const missing = new Missing;
[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(missing);

class MissingMedia : public testing::Test {
 protected:
  std::string reason(const std::string& service, const std::string& module) {
    return service + " is not available: no quorvantis-" + module + ".so in " +
           missing->folder.path.string();
  }

  TemporaryFolder folder_;
  foundation::DeviceRoot root_{folder_.path.string()};
  services::UserCollator collator_;
  std::vector<std::string> problems_;
  platform::Report problem_ = [this](auto& error) { problems_.push_back(error.message()); };
};

}  // namespace

TEST_F(MissingMedia, TheAddressBookIsEmptyAndSaysSoOnce) {
  folder_.write("var/mobile/Library/AddressBook/a.vcf", "BEGIN:VCARD\nTEL:1\nEND:VCARD\n");
  services::MergedAddressBook book(root_, std::nullopt, collator_, problem_);
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  EXPECT_THAT(problems_, ElementsAre(reason("reading vCards", "vcards")));
}
TEST_F(MissingMedia, AnAddressBookWithoutCardsMissesNothing) {
  services::MergedAddressBook book(root_, std::nullopt, collator_, problem_);
  EXPECT_THAT(book.peopleSortedByFirstName(), IsEmpty());
  EXPECT_THAT(problems_, IsEmpty());
}
TEST_F(MissingMedia, SoundsSaySo) {
  folder_.write("a.wav", "x");
  services::DeviceSounds(root_, {}, problem_).play("file:///a.wav");
  EXPECT_THAT(problems_, ElementsAre(reason("playing sounds", "gstreamer")));
}
TEST_F(MissingMedia, NoSoundMissesNothing) {
  services::DeviceSounds(root_, {}, problem_).play(std::nullopt);
  EXPECT_THAT(problems_, IsEmpty());
}
