#include "host/snapshots.h"

#include <cerrno>

#include "host/triggers.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"

namespace host {
namespace {

using platform::Error;
using platform::Result;

constexpr std::string_view kTime = "time", kBefore = "before", kDomainBytes = "domain",
                           kProfiles = "profiles";

constexpr std::size_t kEntry = 32;  // what a file costs besides, at most

Error tooLarge() {
  return {.code = EFBIG,
          .what = "more than " + std::to_string(kLargestSnapshot >> 20) + " MB with the settings"};
}

bool namesAProfile(const std::string& name) {
  return foundation::pathExtension(name) == prefs::kProfileExtension &&
         name.find('/') == std::string::npos;
}

}  // namespace

std::string beforeWords(const std::string& before) {
  if (before == kBeforeChangesOfDay) return "before the first change of the day";
  const std::size_t id = before.find(' ') + 1;  // 0 without one
  const auto trigger = findTrigger(std::string_view(before).substr(id));
  const bool isId = trigger && trigger->profileID == before.substr(id);
  return "before \"" + (isId ? before.substr(0, id) + trigger->title : before) + "\"";
}

bool isNoFile(const Error& error) {
  return error.code == 0 || error.code == EISDIR || error.code == ELOOP || error.code == ENXIO;
}

Result<Files> readProfileFiles(const foundation::DeviceRoot& root, std::size_t domain) {
  Files files;
  if (domain > kLargestSnapshot) return tooLarge();
  const std::string folder(prefs::kDocuments);
  const auto names = root.contentsOfDirectory(folder);
  if (!names && names.error().code == ENOENT) return files;
  if (!names) return names.error();
  std::size_t together = domain;
  for (const std::string& name : *names) {
    if (!namesAProfile(name)) continue;
    auto bytes = root.read(folder + name, foundation::Links::Refuse);
    if (!bytes && isNoFile(bytes.error())) continue;
    if (!bytes) return bytes.error();
    together += bytes->size() + name.size() + kEntry;
    if (together > kLargestSnapshot) return tooLarge();
    files.emplace(name, std::move(*bytes));
  }
  return files;
}

Result<int> Snapshots::add(const Snapshot& snapshot) {
  plist::Dictionary record{{std::string(kTime), snapshot.time},
                           {std::string(kBefore), snapshot.before}};
  if (snapshot.profiles) {
    plist::Dictionary profiles;
    for (const auto& [name, bytes] : *snapshot.profiles) profiles.set(name, plist::Data{bytes});
    record.set(kProfiles, std::move(profiles));
  }
  if (snapshot.domain) record.set(kDomainBytes, plist::Data{*snapshot.domain});
  const auto locked = records_.lock(patience_);
  if (!locked) return locked.error();
  return records_.addDurably(record);
}

Result<Snapshot> Snapshots::read(int number) const {
  const auto record = records_.read(number);
  if (!record) return record.error();
  const Error foreign{.what = "snapshot " + std::to_string(number) + " is not a snapshot"};
  const plist::Value* time = record->find(kTime);
  const plist::Value* before = record->find(kBefore);
  const plist::Value* domain = record->find(kDomainBytes);
  const plist::Value* profiles = record->find(kProfiles);
  if (!time || !time->date() || !before || !before->text() || (domain && !domain->data()) ||
      (profiles && !profiles->dictionary()))
    return foreign;
  Snapshot snapshot{*time->date(), *before->text(), {}, {}};
  if (domain) snapshot.domain = domain->data()->bytes;
  if (!profiles) return snapshot;
  snapshot.profiles.emplace();
  for (const auto& [name, bytes] : *profiles->dictionary()) {
    if (!namesAProfile(name) || !bytes.data()) return foreign;
    snapshot.profiles->emplace(name, bytes.data()->bytes);
  }
  return snapshot;
}

}  // namespace host
