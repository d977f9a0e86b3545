#include "host/record_folder.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "host/text.h"
#include "platform/foundation/checksum.h"
#include "platform/foundation/file_lock.h"
#include "platform/foundation/file_reading.h"

namespace host {
namespace {

using foundation::checksumOf;
using platform::Done;
using platform::Error;
using platform::Result;

constexpr std::string_view kRecord = "record", kChecksum = "checksum";
constexpr const char* kLockedName = "records";
constexpr int kAttempts = 100;

Result<std::vector<std::uint8_t>> encodeRecord(const plist::Dictionary& record) {
  auto inner = plist::writeBinary(record);
  if (!inner) return Error(inner.error());
  const std::uint64_t checksum = checksumOf(*inner);
  auto outer = plist::writeBinary(plist::Dictionary{
      {std::string(kChecksum), checksum}, {std::string(kRecord), plist::Data{std::move(*inner)}}});
  if (!outer) return Error(outer.error());
  return std::move(*outer);
}

std::optional<plist::Dictionary> decodeRecord(plist::Bytes bytes) {
  const auto outer = plist::readBinary(bytes);
  if (!outer || !outer->dictionary()) return std::nullopt;
  const plist::Value* record = outer->dictionary()->find(kRecord);
  const plist::Value* checksum = outer->dictionary()->find(kChecksum);
  if (!record || !record->data() || !checksum) return std::nullopt;
  if (checksum->unsignedInteger() != checksumOf(record->data()->bytes)) return std::nullopt;
  auto inner = plist::readBinary(record->data()->bytes);
  if (!inner || !inner->dictionary()) return std::nullopt;
  return std::move(*inner->dictionary());
}

// The place on this machine of a path below the state.
Error located(const foundation::DeviceRoot& state, Error error) {
  if (error.path.starts_with('/') && !error.path.starts_with(state.directory()))
    error.path = state.directory() + error.path;
  return error;
}

// In ascending order.
std::vector<int> numbersIn(const std::vector<std::string>& names) {
  std::vector<int> numbers;
  for (const std::string& name : names)
    if (const auto number = numberIn<int>(name); number && std::to_string(*number) == name)
      numbers.push_back(*number);
  std::ranges::sort(numbers);
  return numbers;
}

}  // namespace

Result<plist::Dictionary> readRecord(const foundation::DeviceRoot& state, const std::string& path) {
  const auto bytes = state.read(path, foundation::Links::Refuse);
  if (!bytes) return located(state, bytes.error());
  auto record = decodeRecord(*bytes);
  if (!record) return Error{state.directory() + path, 0, "damaged"};
  return std::move(*record);
}

Result<Done> writeRecord(foundation::DeviceRoot& state, const std::string& path,
                         const plist::Dictionary& record) {
  const auto bytes = encodeRecord(record);
  if (!bytes) return bytes.error();
  if (bytes->size() > foundation::kLargestFile) return Error{state.directory() + path, EFBIG};
  const auto written = state.writeDurably(path, *bytes);
  if (!written) return located(state, written.error());
  return Done{};
}

Result<foundation::Descriptor> lockRecord(foundation::DeviceRoot& state, const std::string& path,
                                          std::chrono::milliseconds patience,
                                          std::string_view called) {
  const std::size_t name = path.rfind('/') + 1;
  const auto folder = state.openOrCreateDirectory(path.substr(0, name));
  if (!folder) return located(state, folder.error());
  auto locked = foundation::takeLock(*folder, path.substr(name), patience, called);
  if (!locked) return located(state, locked.error());
  return locked;
}

bool isLost(const Error& error) {
  constexpr int kCodes[] = {0, ENOENT, EISDIR, ELOOP, ENXIO, EFBIG};
  return std::ranges::find(kCodes, error.code) != std::end(kCodes);
}

RecordFolder::RecordFolder(foundation::DeviceRoot& state, std::string path, std::string_view called,
                           std::size_t kept, std::uintmax_t largest)
    : state_(state), path_(std::move(path)), called_(called), kept_(kept), largest_(largest) {}

Result<std::vector<int>> RecordFolder::numbers() const {
  const auto names = state_.contentsOfDirectory(path_);
  if (!names && names.error().code != ENOENT) return located(state_, names.error());
  return names ? numbersIn(*names) : std::vector<int>();
}

Result<plist::Dictionary> RecordFolder::read(int number) const {
  return readRecord(state_, fileOf(number));
}

// Another process may remove the one that was the newest.
Result<plist::Dictionary> RecordFolder::newest() const {
  const auto found = numbers();
  if (!found) return found.error();
  for (auto number = found->rbegin(); number != found->rend(); ++number) {
    auto record = read(*number);
    if (record || record.error().code != ENOENT) return record;
  }
  return plist::Dictionary();
}

Result<foundation::Descriptor> RecordFolder::lock(std::chrono::milliseconds patience) {
  return lockRecord(state_, path_ + kLockedName, patience, called_);
}

Result<int> RecordFolder::addDurably(const plist::Dictionary& record) {
  return add(record, [](foundation::PendingFile& file, const foundation::Directory& folder) {
    const auto placed = file.takeName();
    return placed ? foundation::flushFolder(folder) : placed;
  });
}

Result<int> RecordFolder::add(const plist::Dictionary& record) {
  return add(record, [](foundation::PendingFile& file, const foundation::Directory&) {
    return file.takeNameUnflushed();
  });
}

// Whoever adds without the lock may take the number first.
Result<int> RecordFolder::add(const plist::Dictionary& record, Put put) {
  const auto bytes = encodeRecord(record);
  if (!bytes) return bytes.error();
  if (bytes->size() > largest_) return Error{.what = "too large to be kept"};
  const auto folder = state_.openOrCreateDirectory(path_);
  if (!folder) return located(state_, folder.error());
  const auto names = folder->names();
  if (!names) return located(state_, names.error());
  foundation::removeLeftovers(*folder, *names);
  std::vector<int> taken = numbersIn(*names);
  const int first = taken.empty() ? 1 : taken.back() + 1;
  for (int number = first; number < first + kAttempts; ++number) {
    auto pending = foundation::PendingFile::write(*folder, std::to_string(number), *bytes);
    if (!pending) return located(state_, pending.error());
    const auto added = put(*pending, *folder);
    if (!added && added.error().code == EEXIST) continue;
    const bool isThere = added || added.error().kind == platform::ErrorKind::Unconfirmed;
    if (isThere) taken.push_back(number);
    if (isThere && (taken.size() > kept_ || bytes->size() > largest_ / kept_))
      removeOld(*folder, taken);
    if (!added) return located(state_, added.error());
    return number;
  }
  return Error{state_.directory() + path_, EEXIST, "create"};
}

void RecordFolder::removeOld(const foundation::Directory& folder,
                             const std::vector<int>& numbers) const {
  std::uintmax_t together = 0;
  std::size_t newer = 0;
  for (auto number = numbers.rbegin(); number != numbers.rend(); ++number, ++newer) {
    const std::string name = std::to_string(*number);
    together += folder.size(name).value_or(0);
    if (newer > 0 && (newer >= kept_ || together > largest_))
      static_cast<void>(folder.remove(name, foundation::Folders::Refuse));
  }
}

Result<Done> RecordFolder::remove(int number) {
  const auto folder = state_.openDirectory(path_);
  if (!folder) return located(state_, folder.error());
  const int code = folder->remove(std::to_string(number), foundation::Folders::Refuse);
  if (code != 0) return Error{state_.directory() + fileOf(number), code, "remove"};
  return Done{};
}

void RecordFolder::clear() {
  const auto found = numbers();
  if (!found) return;
  for (const int number : *found) static_cast<void>(remove(number));
}

}  // namespace host
