#include "host/undo.h"

#include <cerrno>

#include "prefs/core/names.h"

namespace host {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

Failure failure(Failure::Reason reason, Source source, std::string words) {
  return {reason, {.source = source, .words = std::move(words)}};
}

// Nothing where there is no file; what can't be read is neither the one nor the other.
Result<FileChange::Bytes> bytesNow(const foundation::DeviceRoot& root, const std::string& path) {
  auto bytes = root.read(path, foundation::Links::Refuse);
  if (bytes) return FileChange::Bytes(std::move(*bytes));
  if (bytes.error().code == ENOENT) return FileChange::Bytes();
  return bytes.error();
}

Result<Done> put(foundation::DeviceRoot& root, const std::string& path,
                 const FileChange::Bytes& bytes) {
  return bytes ? root.writeDurably(path, *bytes) : root.remove(path);
}

// The files of the change, one by one, and back again if it can't be finished.
class FileChanges {
 public:
  explicit FileChanges(foundation::DeviceRoot& root) : root_(root) {}

  // Whether the file was `from` or is `to` already.
  Result<bool> make(const FileChange& change) {
    const auto now = bytesNow(root_, change.path);
    if (now && *now == change.to) return true;
    if (!now || *now != change.from) return false;
    const auto written = put(root_, change.path, change.to);
    const bool unconfirmed = !written && written.error().kind == platform::ErrorKind::Unconfirmed;
    if (!written && !unconfirmed) return written.error();
    if (unconfirmed) unconfirmed_ = written.error();
    made_.push_back(&change);
    return true;
  }
  // What was made all the same.
  const std::optional<Error>& unconfirmed() const { return unconfirmed_; }
  void takeBack() {
    for (const FileChange* change : made_)
      static_cast<void>(put(root_, change->path, change->from));
  }

 private:
  foundation::DeviceRoot& root_;
  std::vector<const FileChange*> made_;
  std::optional<Error> unconfirmed_;
};

using Move = Result<Done> (History::*)();

Attempt<Undone> make(preferences::Environment& environment, Backups& backups, const Change& change,
                     Move move) {
  auto left = apply(environment, backups, change);
  if (!left && left.error().reason != Failure::Unconfirmed) return left.error();
  const auto moved = (backups.history().*move)();
  if (!left) return left.error();
  if (!moved)
    return failure(Failure::Unconfirmed, Source::Backups,
                   "done, but not remembered: " + moved.error().message());
  return Undone{change.what, std::move(*left)};
}

}  // namespace

Attempt<std::vector<std::string>> apply(preferences::Environment& environment, Backups& backups,
                                        const Change& change) {
  std::vector<std::string> left;
  FileChanges files(environment.root);
  for (const FileChange& file : change.files) {
    const auto made = files.make(file);
    if (!made) {
      files.takeBack();
      return failureOf(Source::Profiles, made.error());
    }
    if (!*made) left.push_back(file.path);
  }
  if (!change.settings.empty()) {
    const auto exchanged = backups.store().exchange(change.settings, prefs::kDomain);
    if (!exchanged) {
      files.takeBack();
      return failureOf(Source::Settings, exchanged.error());
    }
    left.insert(left.end(), exchanged->begin(), exchanged->end());
    const auto finished = backups.store().finish();
    environment.darwinCenter.post(prefs::kPrefsNotification);
    if (!finished) return failureOf(Source::Settings, finished.error());
  }
  if (files.unconfirmed()) return failureOf(Source::Profiles, *files.unconfirmed());
  return left;
}

Attempt<Undone> undo(preferences::Environment& environment, Backups& backups) {
  backups.prepare();
  const auto last = backups.history().lastDone();
  if (!last) return failureOf(Source::Backups, last.error());
  if (!*last) return failure(Failure::NotFound, Source::Backups, "there is nothing to undo");
  return make(environment, backups, reversed(**last), &History::setUndone);
}

Attempt<Undone> redo(preferences::Environment& environment, Backups& backups) {
  backups.prepare();
  const auto last = backups.history().lastUndone();
  if (!last) return failureOf(Source::Backups, last.error());
  if (!*last) return failure(Failure::NotFound, Source::Backups, "there is nothing to redo");
  return make(environment, backups, **last, &History::setRedone);
}

}  // namespace host
