#include "prefs/pages/sound_choices.h"

#include "platform/foundation/directory_walk.h"
#include "platform/foundation/text.h"

namespace prefs {
namespace {

template <class Choice>
plist::Array soundChoices(const preferences::Environment& environment, Choice choice) {
  plist::Array choices{kNoSound};
  foundation::walkDirectory(environment.root, environment.soundFallback, platform::kSystemSoundPath,
                            [&](std::string_view url, bool isDirectory) {
                              if (!isDirectory) choices.emplace_back(choice(url));
                            });
  return choices;
}

}  // namespace

plist::Array soundValues(const preferences::Environment& environment) {
  return soundChoices(environment, [](std::string_view url) { return url; });
}

plist::Array soundTitles(const preferences::Environment& environment) {
  return soundChoices(environment, foundation::lastPathComponent);
}

}  // namespace prefs
