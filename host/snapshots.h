#pragma once

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
  Files profiles;
};

// Every regular file of the documents folder whose extension is a profile's, whatever it holds. An
// error when one can't be read, or when they come to more than kLargestSnapshot.
platform::Result<Files> readProfileFiles(const foundation::DeviceRoot& root);
inline constexpr std::size_t kLargestSnapshot = 32 << 20;  // bytes

// The newest 20 snapshots, kept in the host's own state and durable. A damaged one counts as none.
class Snapshots {
 public:
  static constexpr std::size_t kKept = 20;

  explicit Snapshots(foundation::DeviceRoot& state)
      : records_(state, "/snapshots/", kKept, kKept * std::uintmax_t{kLargestSnapshot}) {}

  // Whole or not at all; gives its number.
  platform::Result<int> add(const Snapshot& snapshot);

  std::vector<int> numbers() const { return records_.numbers(); }  // ascending
  platform::Result<Snapshot> read(int number) const;

 private:
  RecordFolder records_;
};

}  // namespace host
