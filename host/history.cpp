#include "host/history.h"

#include <cerrno>
#include <utility>

namespace host {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr std::string_view kWhat = "what", kTime = "time", kSettings = "settings", kFiles = "files",
                           kName = "name", kFrom = "from", kTo = "to";

const std::string* textIn(const plist::Dictionary& record, std::string_view key) {
  const plist::Value* value = record.find(key);
  return value ? value->text() : nullptr;
}

void setBytes(std::string_view key, const FileChange::Bytes& bytes, plist::Dictionary& record) {
  if (bytes) record.set(key, plist::Data{*bytes});
}

FileChange::Bytes bytesIn(const plist::Dictionary& record, std::string_view key) {
  const plist::Value* value = record.find(key);
  return value && value->data() ? std::optional(value->data()->bytes) : std::nullopt;
}

std::optional<plist::Value> valueIn(const plist::Dictionary& record, std::string_view key) {
  const plist::Value* value = record.find(key);
  return value ? std::optional(*value) : std::nullopt;
}

}  // namespace

Result<FileChange::Bytes> bytesOf(const foundation::DeviceRoot& root, const std::string& path) {
  auto bytes = root.read(path, foundation::Links::Refuse);
  if (bytes) return FileChange::Bytes(std::move(*bytes));
  if (bytes.error().code == ENOENT) return FileChange::Bytes();
  return bytes.error();
}

Result<Done> putBytes(foundation::DeviceRoot& root, const std::string& path,
                      const FileChange::Bytes& bytes) {
  return bytes ? root.writeDurably(path, *bytes) : root.remove(path);
}

bool isUnconfirmed(const Result<Done>& written) {
  return !written && written.error().kind == platform::ErrorKind::Unconfirmed;
}

plist::Dictionary recordOf(const Change& change) {
  plist::Array settings, files;
  for (const auto& [key, from, to] : change.settings) {
    plist::Dictionary entry{{std::string(kName), key}};
    if (from) entry.set(kFrom, *from);
    if (to) entry.set(kTo, *to);
    settings.emplace_back(std::move(entry));
  }
  for (const auto& [path, from, to] : change.files) {
    plist::Dictionary entry{{std::string(kName), path}};
    setBytes(kFrom, from, entry);
    setBytes(kTo, to, entry);
    files.emplace_back(std::move(entry));
  }
  return {{std::string(kWhat), change.what},
          {std::string(kTime), change.time},
          {std::string(kSettings), std::move(settings)},
          {std::string(kFiles), std::move(files)}};
}

std::optional<Change> changeIn(const plist::Dictionary& record) {
  const std::string* what = textIn(record, kWhat);
  const plist::Value *time = record.find(kTime), *settings = record.find(kSettings),
                     *files = record.find(kFiles);
  if (!what || !time || !time->date() || !settings || !settings->array() || !files ||
      !files->array())
    return std::nullopt;
  Change change{*what, *time->date(), {}, {}};
  for (const plist::Value& each : *settings->array()) {
    const plist::Dictionary* entry = each.dictionary();
    const std::string* key = entry ? textIn(*entry, kName) : nullptr;
    if (!key) return std::nullopt;
    change.settings.push_back({*key, valueIn(*entry, kFrom), valueIn(*entry, kTo)});
  }
  for (const plist::Value& each : *files->array()) {
    const plist::Dictionary* entry = each.dictionary();
    const std::string* path = entry ? textIn(*entry, kName) : nullptr;
    if (!path) return std::nullopt;
    change.files.push_back({*path, bytesIn(*entry, kFrom), bytesIn(*entry, kTo)});
  }
  return change;
}

Result<Done> History::add(const Change& change) {
  const auto locked = lock();
  if (!locked) return locked.error();
  undone_.clear();
  const auto added = done_.add(recordOf(change));
  if (!added) return added.error();
  return Done{};
}

History::Latest History::next(Way way) const {
  const RecordFolder& records = recordsFor(way);
  const auto numbers = records.numbers();
  if (!numbers) return numbers.error();
  for (auto number = numbers->rbegin(); number != numbers->rend(); ++number) {
    const auto record = records.read(*number);
    if (!record && !isLost(record.error())) return record.error();
    if (!record) continue;
    if (auto change = changeIn(*record)) return std::optional(Entry{*number, std::move(*change)});
  }
  return std::optional<Entry>();
}

bool History::isEmpty(Way way) const {
  const auto numbers = recordsFor(way).numbers();
  return numbers && numbers->empty();
}

std::optional<Error> History::takeDamaged(Way way) {
  RecordFolder& records = recordsFor(way);
  const auto numbers = records.numbers();
  if (!numbers || numbers->empty()) return std::nullopt;
  const auto record = records.read(numbers->back());
  const bool isDamaged = !record && record.error().code == 0;
  if (!isDamaged || !records.remove(numbers->back())) return std::nullopt;
  return record.error();
}

// Put there first: one that stands on both sides is only found done already.
Result<Done> History::move(int number, Way way) {
  RecordFolder& from = recordsFor(way);
  RecordFolder& to = recordsFor(way == Way::Undo ? Way::Redo : Way::Undo);
  const auto record = from.read(number);
  if (!record) return record.error();
  if (const auto added = to.add(*record); !added) return added.error();
  return from.remove(number);
}

void History::settle(const Change& made, Way way) {
  const auto locked = lock();
  const auto found = next(way);
  if (!locked || !found || !*found) return;
  const auto& [number, change] = **found;
  if (change.what == made.what && change.time.seconds == made.time.seconds)
    static_cast<void>(move(number, way));
}

Change reversed(Change change) {
  for (auto& setting : change.settings) std::swap(setting.from, setting.to);
  for (auto& file : change.files) std::swap(file.from, file.to);
  return change;
}

}  // namespace host
