#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/record_folder.h"
#include "platform/preferences/environment.h"

namespace host {

// The bytes of files by their names.
using Files = std::map<std::string, std::vector<std::uint8_t>>;

// The settings and the profiles as they were, byte for byte.
struct Snapshot {
  plist::Date time;
  std::string before;                               // what it was taken before: "load 55", "daily"
  std::optional<std::vector<std::uint8_t>> domain;  // nothing: there was no settings file
  std::optional<Files> profiles;                    // nothing: they were too large to be kept
};

inline constexpr const char* kBeforeChangesOfDay = "daily";

// `before "load Battery 20%"` of "load 20", `before the first change of the day` of "daily".
std::string beforeWords(const std::string& before);

// What a snapshot with profiles holds at most, in bytes: settings, profiles and their names.
inline constexpr std::size_t kLargestSnapshot = 32 << 20;

// Whether that error of reading a file says that a folder, a link or a device stands in its place.
bool isNoFile(const platform::Error& error);

// Every regular file of the documents folder whose extension is a profile's, whatever it holds. An
// error when one can't be read, or (EFBIG) when they don't fit into a snapshot that holds `domain`
// bytes of settings.
platform::Result<Files> readProfileFiles(const foundation::DeviceRoot& root,
                                         std::size_t domain = 0);

// The newest 20 snapshots, kept in the host's own state and durable. A damaged one counts as none.
class Snapshots {
 public:
  static constexpr std::size_t kKept = 20;

  // `patience`: how long another process that takes one is waited for.
  Snapshots(foundation::DeviceRoot& state, std::chrono::milliseconds patience)
      : records_(state, "/snapshots/", "the snapshots", kKept,
                 kKept * std::uintmax_t{kLargestSnapshot}),
        patience_(patience) {}

  // Whole or not at all, under their lock; gives its number.
  platform::Result<int> add(const Snapshot& snapshot);

  // Ascending.
  platform::Result<std::vector<int>> numbers() const { return records_.numbers(); }
  platform::Result<Snapshot> read(int number) const;

 private:
  RecordFolder records_;
  std::chrono::milliseconds patience_;
};

}  // namespace host
