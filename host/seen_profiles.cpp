#include "host/seen_profiles.h"

#include <algorithm>

#include "platform/foundation/checksum.h"

namespace host {
namespace {

plist::Value checksum(const std::vector<std::uint8_t>& bytes) {
  return plist::Value(foundation::checksumOf(bytes));
}

bool holdsOneOf(const plist::Value& checksums, const std::vector<std::uint8_t>& bytes) {
  const plist::Array* known = checksums.array();
  return known && std::ranges::find(*known, checksum(bytes)) != known->end();
}

}  // namespace

// Where the latest record was lost in a power cut an earlier one would accuse others of this
// program's own change.
plist::Dictionary SeenProfiles::latest() const {
  auto record = records_.newest();
  return record ? std::move(*record) : plist::Dictionary();
}

platform::Result<platform::Done> SeenProfiles::willChange(std::span<const FileChange> changes) {
  if (changes.empty()) return platform::Done{};
  const auto locked = records_.lock(patience_);
  if (!locked) return locked.error();
  plist::Dictionary seen = latest();
  for (const auto& [path, from, to] : changes) {
    plist::Array checksums;
    for (const FileChange::Bytes* bytes : {&from, &to})
      if (*bytes) checksums.push_back(checksum(**bytes));
    if (to)
      seen.set(path, std::move(checksums));
    else
      seen.remove(path);
  }
  const auto added = records_.add(seen);
  if (!added) return added.error();
  return platform::Done{};
}

std::vector<std::string> SeenProfiles::changedOutside(const foundation::DeviceRoot& root) const {
  std::vector<std::string> changed;
  for (const auto& [path, checksums] : latest()) {
    const auto bytes = bytesOf(root, path);
    if (bytes && *bytes && !holdsOneOf(checksums, **bytes)) changed.push_back(path);
  }
  std::ranges::sort(changed);
  return changed;
}

}  // namespace host
