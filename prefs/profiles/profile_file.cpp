#include "prefs/profiles/profile_file.h"

#include <algorithm>
#include <cerrno>

#include "platform/foundation/text.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"

namespace prefs {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

Error profileError(const foundation::DeviceRoot& root, const std::string& path,
                   const Error& error) {
  if (error.code == ENOENT && root.hasEntry(path))
    return {.path = path, .what = std::string(kDeadLink)};
  return error;
}

Error at(const std::string& path, Error error) {
  error.path = path;
  return error;
}

}  // namespace

std::string profilePath(int profileID) {
  std::string name = "profile_" + std::to_string(profileID) + ".qvx";
  std::ranges::replace(name, ' ', '_');
  return std::string(kDocuments) + name;
}

Result<plist::Dictionary> readProfile(const preferences::Environment& environment,
                                      const std::string& path) {
  const std::string name(foundation::lastPathComponent(path));
  auto folder = environment.root.openDirectory(path.substr(0, path.rfind('/') + 1));
  if (!folder) return profileError(environment.root, path, folder.error());
  // Through the folder, as the listing does, so that a link can't lead out of it.
  auto bytes = folder->read(name);
  if (!bytes) return profileError(environment.root, path, bytes.error());
  auto root = unarchive(*bytes, environment.xml);
  if (!root) return at(path, root.error());
  if (!root->dictionary()) return plist::Dictionary();
  return std::move(*root->dictionary());
}

Result<Done> writeProfile(const preferences::Environment& environment, const std::string& path,
                          const plist::Dictionary& profile, foundation::Existing existing,
                          preferences::ProfileStep::What what) {
  const auto bytes = archive::archive(profile, archive::Mutability::Mutable);
  if (!bytes) return at(path, bytes.error());
  const auto guarded = environment.guard({what, path, *bytes});
  return environment.root.writeDurably(path, *bytes, existing);
}

Result<Done> deleteProfile(const preferences::Environment& environment, const std::string& path,
                           foundation::Folders folders) {
  if (const auto readable = readableSettings(environment.preferences); !readable) return readable;
  const auto guarded = environment.guard({preferences::ProfileStep::Delete, path});
  return environment.root.remove(path, folders);
}

}  // namespace prefs
