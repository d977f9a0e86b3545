#include "host/device.h"

#include <utility>

#include "prefs/resources/bundle.h"
#include "services/services.h"

namespace host {
namespace {

const foundation::FallbackFolder& desktopSounds() {
  static const foundation::FallbackFolder kSounds{platform::kSystemSoundPath,
                                                  services::kDesktopSounds};
  return kSounds;
}

}  // namespace

Device::Device(const DeviceOptions& options, std::unique_ptr<foundation::MainQueue> mainQueue,
               const Substitutes& substitutes)
    : collator_(tellingInto(warnings_)),
      urls_(desktop_, problems()),
      root_(options.root),
      addressBook_(root_, options.contacts, collator_, tellingInto(warnings_)),
      sounds_(root_, desktopSounds(), problems()),
      preferences_(root_, options.lockPatience),
      mainQueue_(std::move(mainQueue)),
      environment_{
          .root = root_,
          .preferences = preferences_,
          .defaultCenter = center_,
          .mainQueue = *mainQueue_,
          .darwinCenter = substitutes.darwinCenter ? *substitutes.darwinCenter : darwinCenter_,
          .collator = collator_,
          .urls = substitutes.urls ? *substitutes.urls : urls_,
          .addressBook = addressBook_,
          .sounds = substitutes.sounds ? *substitutes.sounds : sounds_,
          .xml = xml_,
          .bundle = prefs::bundle(),
          .idiom = options.idiom,
          .soundFallback = desktopSounds(),
          .screen = &screen_,
          .problemHandler = problems(),
      } {
  preferences_.setXmlReader([this](plist::Bytes bytes) { return xml_.read(bytes); });
  preferences_.setProblemHandler(problems());
}

// Tasks that wait and alerts hold pages, and those need the device until they are gone.
Device::~Device() {
  screen_.setObserver({});
  screen_.dismissAll();
  mainQueue_.reset();
}

std::function<void(const std::string&)> Device::tellingInto(Messages& kept) {
  return [this, &kept](const std::string& message) {
    const std::lock_guard lock(mutex_);
    if (problemHandler_)
      problemHandler_(message);
    else
      kept.push_back(message);
  };
}

void Device::setProblemHandler(std::function<void(const std::string&)> handler) {
  const std::lock_guard lock(mutex_);
  problemHandler_ = std::move(handler);
  if (!problemHandler_) return;
  for (Messages* kept : {&problems_, &warnings_})
    for (const std::string& message : std::exchange(*kept, {})) problemHandler_(message);
}

std::vector<std::string> Device::takeProblems() {
  const std::lock_guard lock(mutex_);
  return std::exchange(problems_, {});
}

std::vector<std::string> Device::takeWarnings() {
  const std::lock_guard lock(mutex_);
  return std::exchange(warnings_, {});
}

platform::Result<platform::Done> Device::watch(
    const std::vector<std::string>& names,
    const std::function<bool(std::string_view name)>& posted) {
  const auto& bus = services::find<services::Bus>();
  if (!bus) return bus.error();
  auto listener = (*bus)->listen({names.begin(), names.end()});
  if (!listener) return listener.error();
  for (bool wanted = true; wanted;) {
    const auto waited =
        (*listener)->wait([&](std::string_view name) { wanted = wanted && posted(name); });
    if (!waited) return waited.error();
  }
  return platform::Done{};
}

}  // namespace host
