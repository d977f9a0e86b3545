#include "host/triggers.h"

#include "host/closest.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_file.h"
#include "prefs/profiles/triggers.h"

namespace host {
namespace {

// "Wi-Fi connected" is "WiFi connected".
std::string withoutHyphens(std::string_view text) {
  std::string title(text);
  std::erase(title, '-');
  return title;
}

bool isLevel(const Trigger& trigger, std::string_view text) {
  const bool percent = text.ends_with('%') && trigger.title.ends_with('%');
  return percent && text.substr(0, text.size() - 1) == trigger.profileID;
}

}  // namespace

bool isProfilePath(std::string_view text) {
  if (!text.starts_with(prefs::kDocuments)) return false;
  const std::string_view name = text.substr(prefs::kDocuments.size());
  return name.find('/') == std::string_view::npos &&
         foundation::pathExtension(name) == prefs::kProfileExtension;
}

std::vector<Trigger> triggers() {
  std::vector<Trigger> all;
  for (const plist::Value& value : prefs::triggerValues()) {
    const std::string& id = *value.text();
    all.push_back({id, prefs::triggerTitle(id), prefs::profilePath(std::stoi(id))});
  }
  return all;
}

int batteryLevels() {
  return prefs::kBatteryLevels;
}

std::optional<Trigger> findTrigger(std::string_view text) {
  const std::string title = withoutHyphens(text);
  for (Trigger& trigger : triggers())
    if (trigger.profileID == text || equalInAnyCase(trigger.title, title) ||
        isLevel(trigger, text) || trigger.path == text)
      return std::move(trigger);
  return std::nullopt;
}

std::string profileName(std::string_view path) {
  const auto trigger = findTrigger(path);
  return trigger ? trigger->title : std::string(foundation::lastPathComponent(path));
}

Attempt<Trigger> triggerNamed(std::string_view text) {
  if (auto trigger = findTrigger(text)) return std::move(*trigger);
  std::vector<std::string> titles;
  for (const Trigger& trigger : triggers()) titles.push_back(trigger.title);
  const std::string words = "no trigger \"" + std::string(text) +
                            "\"; quorvantis triggers lists them" + didYouMean(text, titles);
  return Failure{Failure::NotFound, {.source = Source::Profiles, .words = words}};
}

Attempt<Trigger> profileNamed(std::string_view text) {
  if (isProfilePath(text) && !findTrigger(text)) return Trigger{{}, {}, std::string(text)};
  return triggerNamed(text);
}

}  // namespace host
