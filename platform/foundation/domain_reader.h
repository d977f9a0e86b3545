#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/checksum.h"
#include "platform/foundation/device_root.h"
#include "platform/foundation/property_list.h"
#include "platform/plist/value.h"

namespace foundation {

// Where the domains' files are, one's file, and what its bytes hold.
inline constexpr std::string_view kDomainFolder = "/var/mobile/Library/Preferences";
std::string domainPath(std::string_view domain);
platform::Result<plist::Dictionary> decodeDomain(plist::Bytes bytes, const XmlReader& xml);

// Which file, and which state of it, a reading came from. Two equal stamps of which the first is
// stable mean that nothing was written in between: a file that changed only moments before it was
// read could change again within the same tick of its file system's clock, and is not stable.
struct FileStamp {
  FileStamp() = default;
  explicit FileStamp(const struct stat& status);

  std::uint64_t device = 0, inode = 0;               // 0, 0: there was no file
  std::int64_t size = 0, modified = 0, changed = 0;  // bytes, ns, ns
  bool stable = false;

  bool sameFile(const FileStamp& other) const;
  bool isOf(const struct stat& status) const;
};

// What a domain's file held: no entries without a file.
struct DomainReading {
  plist::Dictionary entries{};
  FileStamp stamp{};
  std::uint64_t checksum = checksumOf({});  // of the bytes
};
using DomainReadingPtr = std::shared_ptr<const DomainReading>;  // never null in a result

// Reads one domain's file, and parses it again only when it has changed: as long as it is the file
// of the last reading that costs one stat.
//
// Reading takes no lock: the file only ever changes by being replaced. A file that another program
// rewrites in place may be read half-written: one that has changed within the last 3 s and can't be
// parsed is looked at again, 150 ms apart: three times if it changes meanwhile or is too short to
// hold anything, else twice. What plist::storable leaves out is left out in reading too.
//
// A file that can't be read or parsed is damaged: errors about it are of the kind Damaged. One that
// can't be opened, or a folder of that name, isn't.
class DomainReader {
 public:
  // `xml` may be empty; it is looked at when it is needed.
  DomainReader(const DeviceRoot& root, std::string_view domain, const XmlReader& xml);

  platform::Result<DomainReadingPtr> read();

  // The bytes were just put in place by this process, under the lock, and `precise` says whether
  // their time of modification is one that no other writer's clock gives.
  DomainReadingPtr wrote(plist::Dictionary entries, std::uint64_t checksum,
                         const struct stat& status, bool precise);

 private:
  platform::Result<DomainReadingPtr> look(FileStamp& stamp) const;
  bool isUnchanged() const;

  const DeviceRoot& root_;
  const XmlReader& xml_;
  std::string path_, machinePath_;
  DomainReadingPtr last_;
  FileStamp damaged_;  // of the file that was found damaged last
};

}  // namespace foundation
