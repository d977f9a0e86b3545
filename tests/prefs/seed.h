#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "tests/support/environment.h"

// Files as the extension and the profile manager leave them.
namespace seed {

inline void write(testing_support::TestDevice& device, const std::string& name,
                  const std::vector<std::uint8_t>& bytes) {
  std::filesystem::path folder = device.folder.path() + std::string(prefs::kDocuments);
  std::filesystem::create_directories(folder);
  std::ofstream(folder / name, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// A file in place of the profiles' folder, so that no profile can be written.
inline void noFolder(testing_support::TestDevice& device) {
  const std::filesystem::path folder = device.folder.path() + std::string(prefs::kDocuments);
  const std::filesystem::path name = folder.parent_path();  // without the slash
  std::filesystem::create_directories(name.parent_path());
  std::ofstream(name) << "no folder";
}

inline void archive(testing_support::TestDevice& device, const std::string& name,
                    const plist::Value& root) {
  write(device, name, *archive::archive(root, archive::Mutability::Mutable));
}

inline void profile(testing_support::TestDevice& device, const std::string& code,
                    const plist::Value& description = {}) {
  plist::Dictionary values{{"profilepercentage", code}};
  if (!description.isNothing()) values.set("profiledescription", description);
  archive(device, "profile_" + code + ".qvx", std::move(values));
}

}  // namespace seed
