#pragma once

#include <chrono>
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
// What `from` and `to` are of; links are refused.
platform::Result<FileChange::Bytes> bytesOf(const foundation::DeviceRoot& root,
                                            const std::string& path);
// Makes the file hold these bytes; nothing removes it.
platform::Result<platform::Done> putBytes(foundation::DeviceRoot& root, const std::string& path,
                                          const FileChange::Bytes& bytes);
// Whether it was done all the same.
bool isUnconfirmed(const platform::Result<platform::Done>& written);

// One change that this user made: a row, or all that a load has set.
struct Change {
  std::string what{};  // in words, a verb first: "set wifi", "load 55"
  plist::Date time{};
  foundation::KeyChanges settings{};
  std::vector<FileChange> files{};

  bool empty() const { return settings.empty() && files.empty(); }
};

// This user's changes, by window or shell, in their order: those that can be undone, and those that
// were undone and can be done again, until there is a new one. The newest 200 of each stay, or as
// many as come to 4 MB. They outlive the program, but the latest need not outlive a power cut: no
// change waits for the disk on their account. A damaged record counts as none.
class History {
 public:
  // `patience`: how long another process that holds the history is waited for.
  History(foundation::DeviceRoot& state, std::chrono::milliseconds patience)
      : done_(state, "/history/", kCalled, kKept, kLargest),
        undone_(state, "/undone/", kCalled, kKept, kLargest),
        patience_(patience) {}
  static constexpr std::size_t kKept = 200;
  static constexpr std::uintmax_t kLargest = 4 << 20;  // bytes, of records

  // Under the lock; forgets what was undone. A change whose record is larger than kLargest is an
  // error.
  platform::Result<platform::Done> add(const Change& change);

  // For the time from looking to moving: nobody adds or moves a change as long as it is held.
  platform::Result<foundation::Descriptor> lock() { return done_.lock(patience_); }

  struct Entry {
    int number = 0;
    Change change;
  };
  enum class Way { Undo, Redo };
  // What an undo, or a redo, is about; nothing: there is none.
  using Latest = platform::Result<std::optional<Entry>>;
  Latest next(Way way) const;
  // Whether there is no record for it, readable or not.
  bool isEmpty(Way way) const;
  // The newest record, if it is damaged; it is removed then, so that the next look is about the one
  // before it.
  std::optional<platform::Error> takeDamaged(Way way);
  // That one was undone, or done again: it moves to the other side.
  platform::Result<platform::Done> move(int number, Way way);
  // Likewise the next one if it is that change, by a process that was stopped before it could.
  void settle(const Change& made, Way way);

 private:
  static constexpr std::string_view kCalled = "the history";
  const RecordFolder& recordsFor(Way way) const { return way == Way::Undo ? done_ : undone_; }
  RecordFolder& recordsFor(Way way) { return way == Way::Undo ? done_ : undone_; }

  RecordFolder done_, undone_;
  std::chrono::milliseconds patience_;
};

// As records hold it; nothing: the record holds no change.
plist::Dictionary recordOf(const Change& change);
std::optional<Change> changeIn(const plist::Dictionary& record);

// The change in the opposite direction.
Change reversed(Change change);

}  // namespace host
