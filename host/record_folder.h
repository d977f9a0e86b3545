#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/device_root.h"
#include "platform/foundation/durable_file.h"
#include "platform/plist/value.h"

namespace host {

// Numbered files in a folder of the host's own state, mode 0600 in folders of 0700, the newest with
// the highest number. Each holds a dictionary and its checksum, so that one that was cut short or
// damaged is an error and never taken for another.
class RecordFolder {
 public:
  // `path` is below `state`, with a slash at both ends; `called` names the records in messages
  // ("the history"). After each addition only the newest `kept` stay, and of those no more than
  // come to `largest` bytes together, but always the newest.
  RecordFolder(foundation::DeviceRoot& state, std::string path, std::string_view called,
               std::size_t kept, std::uintmax_t largest);

  platform::Result<std::vector<int>> numbers() const;  // ascending; none where there is no folder
  platform::Result<plist::Dictionary> read(int number) const;
  // The one with the highest number; empty where there is none, an error where it can't be read.
  platform::Result<plist::Dictionary> newest() const;

  // Keeps other processes that take it from changing the folder, as long as it is held. Waited for
  // no longer than `patience`.
  platform::Result<foundation::Descriptor> lock(std::chrono::milliseconds patience);

  // Both give its number, which is the next one above all others, and leave nothing behind when
  // they fail; one that is larger than `largest` is an error. It is there whole or not at all. The
  // first is durable, or there and the error of the kind Unconfirmed; the second outlives this
  // process, but not a power cut.
  platform::Result<int> addDurably(const plist::Dictionary& record);
  platform::Result<int> add(const plist::Dictionary& record);

  // Neither is durable.
  platform::Result<platform::Done> remove(int number);
  void clear();

 private:
  using Put = platform::Result<platform::Done> (*)(foundation::PendingFile& file,
                                                   const foundation::Directory& folder);
  platform::Result<int> add(const plist::Dictionary& record, Put put);
  std::string fileOf(int number) const { return path_ + std::to_string(number); }
  void removeOld(const foundation::Directory& folder, const std::vector<int>& numbers) const;

  foundation::DeviceRoot& state_;
  std::string path_, called_;
  std::size_t kept_;
  std::uintmax_t largest_;
};

// A single record of that path, in the same form and durable; one that is too large to be read is
// not written. Errors name the file's place on this machine.
platform::Result<plist::Dictionary> readRecord(const foundation::DeviceRoot& state,
                                               const std::string& path);
platform::Result<platform::Done> writeRecord(foundation::DeviceRoot& state, const std::string& path,
                                             const plist::Dictionary& record);

// Keeps other processes from taking it, whose record it is, as long as it is held; as takeLock.
platform::Result<foundation::Descriptor> lockRecord(foundation::DeviceRoot& state,
                                                    const std::string& path,
                                                    std::chrono::milliseconds patience,
                                                    std::string_view called);

// Whether it couldn't be read since it is damaged, gone by now, or nothing that is ever written as
// a record; else the system failed, and it may well be there.
bool isLost(const platform::Error& error);

}  // namespace host
