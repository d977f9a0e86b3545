#include "host/change_making.h"

#include <algorithm>
#include <utility>

#include "host/text.h"
#include "prefs/core/names.h"

namespace host {
namespace {

using platform::Error;
using platform::Result;

// The files of the change, one by one, and back again if it can't be finished.
class FileChanges {
 public:
  explicit FileChanges(foundation::DeviceRoot& root) : root_(root) {}

  // Whether the file was `from` or is `to` already.
  Result<bool> make(const FileChange& change) {
    const auto now = bytesOf(root_, change.path);
    if (!now && isNoFile(now.error())) return false;
    if (!now) return now.error();
    if (*now == change.to) return true;
    if (*now != change.from) return false;
    const auto written = putBytes(root_, change.path, change.to);
    if (!written && !isUnconfirmed(written)) return written.error();
    if (!written) unconfirmed_ = written.error();
    made_.push_back(&change);
    return true;
  }
  // What was made all the same.
  const std::optional<Error>& unconfirmed() const { return unconfirmed_; }
  // Those that stay changed, since they can't be.
  std::vector<std::string> takeBack() {
    std::vector<std::string> stay;
    for (const FileChange* change : made_) {
      const auto back = putBytes(root_, change->path, change->from);
      if (!back && !isUnconfirmed(back)) stay.push_back(change->path);
    }
    return stay;
  }

 private:
  foundation::DeviceRoot& root_;
  std::vector<const FileChange*> made_;
  std::optional<Error> unconfirmed_;
};

// `rest`: who does the rest, if anyone.
Failure takenBack(FileChanges& files, Failure cause, const std::string& rest) {
  const auto stay = files.takeBack();
  if (stay.empty()) return cause;
  return failure(cause.problem.source, Failure::PartlyDone,
                 "not done: " + cause.problem.message() +
                     "; changed all the same, since it can't be taken back: " + joined(stay) +
                     rest);
}

constexpr const char* kLater = "; the next change does the rest";

// All of it, or nothing, as apply says.
Attempt<std::vector<std::string>> make(preferences::Environment& environment, Backups& backups,
                                       const Change& change, const std::string& rest) {
  std::vector<std::string> left;
  FileChanges files(environment.root);
  static_cast<void>(backups.seenProfiles().willChange(change.files));
  // What may lack room comes before what can't be taken back without it.
  for (const bool removes : {false, true})
    for (const FileChange& file : change.files) {
      if (removes == file.to.has_value()) continue;
      const auto made = files.make(file);
      if (!made) return takenBack(files, failureOf(Source::Profiles, made.error()), rest);
      if (!*made) left.push_back(file.path);
    }
  if (!change.settings.empty()) {
    const auto exchanged = backups.store().exchange(change.settings, prefs::kDomain);
    if (!exchanged) return takenBack(files, failureOf(Source::Settings, exchanged.error()), rest);
    left.insert(left.end(), exchanged->begin(), exchanged->end());
    const auto finished = backups.store().finish();
    environment.darwinCenter.post(prefs::kPrefsNotification);
    if (!finished) return failureOf(Source::Settings, finished.error());
  }
  if (files.unconfirmed()) return failureOf(Source::Profiles, *files.unconfirmed());
  return left;
}

bool isOneStep(const Change& change) {
  return change.files.size() + (change.settings.empty() ? 0 : 1) < 2;
}

// The files are changed first.
bool isBegun(const foundation::DeviceRoot& root, const Change& change) {
  return std::ranges::any_of(change.files, [&](const FileChange& file) {
    const auto now = bytesOf(root, file.path);
    return now && *now == file.to;
  });
}

}  // namespace

Attempt<std::vector<std::string>> apply(preferences::Environment& environment, Backups& backups,
                                        const Change& change, ChangeNote::Kind kind) {
  if (isOneStep(change)) return make(environment, backups, change, "");
  const auto noted = backups.changeNote().begin(change, kind, backups.lockPatience());
  if (!noted)
    backups.warn("\"" + change.what + "\" would stay half done if it were stopped now",
                 noted.error());
  auto left = make(environment, backups, change, noted ? kLater : "");
  const bool isHalf = !left && left.error().reason == Failure::PartlyDone;
  if (noted && !isHalf) backups.changeNote().end();
  return left;
}

void finishChange(preferences::Environment& environment, Backups& backups) {
  auto begun = backups.changeNote().left();
  if (!begun) return;
  const bool isHalf = isBegun(environment.root, begun->change);
  std::vector<std::string> notMade;
  if (isHalf) {
    auto left = make(environment, backups, begun->change, kLater);
    if (!left && left.error().reason != Failure::Unconfirmed)
      return backups.warn("\"" + begun->change.what + "\" was stopped half-way and is not finished",
                          {.what = left.error().problem.message()});
    if (left) notMade = std::move(*left);
  }
  backups.changeNote().end();
  begun->held = {};  // whoever moves a change holds the history before the note
  if (!isHalf) return;
  if (begun->kind == ChangeNote::Kind::Restore)
    backups.remember(std::move(begun->change), notMade);
  else
    backups.history().settle(begun->change, begun->kind == ChangeNote::Kind::Undo
                                                ? History::Way::Undo
                                                : History::Way::Redo);
}

}  // namespace host
