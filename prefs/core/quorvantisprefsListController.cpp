#include "prefs/core/quorvantisprefsListController.h"

#include <algorithm>

#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/profiles/saved_profiles.h"

namespace prefs {
namespace {

// Installed clients first; the web page is the last resort, opened without a test.
struct Client {
  std::string_view test;
  std::string_view profile;
};
constexpr Client kClients[] = {
    {"tweetbot:", "tweetbot:///user_profile/zorvek_dev"},
    {"twitterrific:", "twitterrific:///profile?screen_name=zorvek_dev"},
    {"tweetings:", "tweetings:///user?screen_name=zorvek_dev"},
    {"twitter:", "twitter://user?screen_name=zorvek_dev"},
};
constexpr std::string_view kProfilePage = QUORVANTIS_WEB_FOLLOW;
constexpr std::string_view kDonationPage = QUORVANTIS_WEB_DONATE;

}  // namespace

const preferences::Operations quorvantisprefsListController::ownOperations{
    []() -> preferences::OperationTable {
      return {
          {"specifiers", &quorvantisprefsListController::loadRows},
          {"followMe:", &quorvantisprefsListController::followMe},
          {"donate:", &quorvantisprefsListController::donate},
          {"test", &quorvantisprefsListController::test},
          {"valueDataFromTarget:", &quorvantisprefsListController::valueDataFromTarget},
          {"titlesDataFromTarget:", &quorvantisprefsListController::titlesDataFromTarget},
          {"batteryLogValueDataFromTarget:",
           &quorvantisprefsListController::batteryLogValueDataFromTarget},
          {"batteryLogTitlesDataFromTarget:",
           &quorvantisprefsListController::batteryLogTitlesDataFromTarget},
          {"relodSpecifers", &quorvantisprefsListController::relodSpecifers},
          {"viewDidLoad", &quorvantisprefsListController::viewDidLoad},
      };
    },
    &PSListController::ownOperations};

quorvantisprefsListController::~quorvantisprefsListController() {
  environment().defaultCenter.removeObserver(*this);
}

const preferences::PSListController::Specifiers& quorvantisprefsListController::specifiers() {
  if (!specifiers_) specifiers_ = loadSpecifiersFromPlistNameTarget("quorvantisprefs", *this);
  return *specifiers_;
}

void quorvantisprefsListController::followMe(foundation::Object*) {
  platform::Urls& urls = environment().urls;
  auto client = std::ranges::find_if(kClients, [&](auto& each) { return urls.canOpen(each.test); });
  urls.open(client == std::end(kClients) ? kProfilePage : client->profile);
}

void quorvantisprefsListController::donate(foundation::Object*) {
  environment().urls.open(kDonationPage);
}

SavedProfiles quorvantisprefsListController::profiles() {
  return readForBoth([this] { return savedProfiles(environment(), TitleForm::WithDescription); });
}

plist::Array quorvantisprefsListController::valueDataFromTarget(foundation::Object*) {
  return asArray(profiles().paths);
}

plist::Array quorvantisprefsListController::titlesDataFromTarget(foundation::Object*) {
  return asArray(profiles().titles);
}

plist::Array quorvantisprefsListController::batteryLogValueDataFromTarget(foundation::Object*) {
  return readForBoth([this]() -> plist::Array {
    auto bytes = environment().root.read(kBatteryLog);
    if (!bytes) return {};
    auto log = unarchive(*bytes, environment().xml);
    if (!log || !log->array()) return {};
    std::ranges::reverse(*log->array());
    return std::move(*log->array());
  });
}

plist::Array quorvantisprefsListController::batteryLogTitlesDataFromTarget(
    foundation::Object* target) {
  return batteryLogValueDataFromTarget(target);
}

void quorvantisprefsListController::relodSpecifers() {
  reloadSpecifiers();
}

void quorvantisprefsListController::viewDidLoad() {
  PSListController::viewDidLoad();
  environment().defaultCenter.addObserver(*this, "reloadSpecifiers", kReloadSpecifiersNotification,
                                          nullptr);
}

}  // namespace prefs
