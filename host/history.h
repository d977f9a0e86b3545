#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/record_folder.h"
#include "platform/foundation/preferences.h"

namespace host {

// A profile's file, byte for byte, before and after a change; nothing: there was none.
struct FileChange {
  using Bytes = std::optional<std::vector<std::uint8_t>>;
  std::string path;  // the platform's
  Bytes from, to;
};

// One change that this user made: a row, or all that a load has set.
struct Change {
  std::string what{};  // in words: "set wifi", "load 55"
  plist::Date time{};
  foundation::KeyChanges settings{};
  std::vector<FileChange> files{};

  bool empty() const { return settings.empty() && files.empty(); }
};

// This user's changes, by window or shell, in their order: those that can be undone, and those that
// were undone and can be done again, until there is a new one. The newest 200 stay, or as many as
// come to 4 MB. They outlive the program, but the latest need not outlive a power cut: no change
// waits for the disk on their account. A damaged record counts as none.
class History {
 public:
  explicit History(foundation::DeviceRoot& state)
      : done_(state, "/history/", kKept, kLargest), undone_(state, "/undone/", kKept, kLargest) {}
  static constexpr std::size_t kKept = 200;
  static constexpr std::uintmax_t kLargest = 4 << 20;  // bytes

  // Forgets what was undone. A change of more than kLargest is an error.
  platform::Result<platform::Done> add(const Change& change);

  // What an undo, or a redo, is about; nothing: there is none.
  using Latest = platform::Result<std::optional<Change>>;
  Latest lastDone() const { return newest(done_); }
  Latest lastUndone() const { return newest(undone_); }
  // Moves that one to the other side.
  platform::Result<platform::Done> setUndone() { return moveNewest(done_, undone_); }
  platform::Result<platform::Done> setRedone() { return moveNewest(undone_, done_); }

 private:
  static Latest newest(const RecordFolder& records);
  static platform::Result<platform::Done> moveNewest(RecordFolder& from, RecordFolder& to);

  RecordFolder done_, undone_;
};

// The change in the opposite direction.
Change reversed(Change change);

}  // namespace host
