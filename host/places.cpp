#include "host/places.h"

#include "platform/foundation/user_file.h"
#include "prefs/core/names.h"

namespace host {

Places placesOf(const preferences::Environment& environment, const std::string& contacts,
                const std::string& state) {
  const std::string root = foundation::absolutePath(environment.root.directory());
  const foundation::FallbackFolder& desktop = environment.soundFallback;
  const bool ownSounds = desktop.path.empty() || environment.root.exists(desktop.path);
  std::string profiles = root + std::string(prefs::kDocuments);
  profiles.pop_back();
  return {
      .root = root,
      .settings = root + foundation::domainPath(prefs::kDomain),
      .profiles = profiles,
      .log = root + std::string(prefs::kBatteryLog),
      .contacts = foundation::absolutePath(contacts),
      .sounds = ownSounds ? root + platform::kSystemSoundPath : desktop.machineDirectory,
      .state = state.empty() ? state : foundation::absolutePath(state),
  };
}

std::string platformPath(const preferences::Environment& environment, const std::string& path) {
  const std::string root = foundation::absolutePath(environment.root.directory());
  return path.starts_with(root + "/") ? path.substr(root.size()) : path;
}

}  // namespace host
