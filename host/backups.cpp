#include "host/backups.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>

#include "host/change_making.h"
#include "host/triggers.h"
#include "platform/foundation/checksum.h"
#include "platform/foundation/text.h"
#include "platform/plist/hexadecimal.h"
#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/profiles/profile_file.h"

namespace host {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr const char* kDay = "/day";
constexpr std::string_view kDayNumber = "day";
constexpr std::chrono::seconds kReferenceDate{978307200};  // 2001-01-01, since 1970

// A folder for each root, whatever links lead to it.
Result<std::string> folderFor(const std::string& root) {
  std::error_code unresolved;
  const auto path = std::filesystem::weakly_canonical(root, unresolved).string();
  if (unresolved) return Error{root, unresolved.value()};
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(path.data());
  const std::uint64_t sum = foundation::checksumOf({bytes, path.size()});
  std::string name;
  for (int shift = 56; shift >= 0; shift -= 8)
    plist::appendHex(name, static_cast<std::uint8_t>(sum >> shift));
  return name;
}

// "55" of profile_55.qvx; another name as it is.
std::string idOf(const std::string& path) {
  constexpr std::string_view kPrefix = "profile_";
  std::string name(foundation::lastPathComponent(path));
  const std::size_t dot = name.rfind('.');
  if (!name.starts_with(kPrefix) || dot == std::string::npos) return name;
  return name.substr(kPrefix.size(), dot - kPrefix.size());
}

// "load Battery 20%"
std::string labelOf(const preferences::ProfileStep& step) {
  constexpr std::string_view kVerbs[] = {"load ", "save ", "import ", "delete "};
  const auto trigger = findTrigger(step.path);
  return std::string(kVerbs[step.what]) + (trigger ? trigger->title : idOf(step.path));
}

// Of two changes of a key the first one's beginning and the second one's end.
void merge(const foundation::KeyChanges& later, foundation::KeyChanges& changes) {
  for (const foundation::KeyChange& change : later) {
    const auto earlier = std::ranges::find(changes, change.key, &foundation::KeyChange::key);
    if (earlier == changes.end())
      changes.push_back(change);
    else
      earlier->to = change.to;
  }
}

}  // namespace

struct Backups::State {
  State(const std::string& directory, std::chrono::milliseconds patience)
      : folder(directory),
        snapshots(folder, patience),
        history(folder, patience),
        seenProfiles(folder, patience) {}

  foundation::DeviceRoot folder;
  Snapshots snapshots;
  History history;
  ChangeNote changeNote{folder};
  LastSeen lastSeen{folder};
  SeenProfiles seenProfiles;
  std::unique_ptr<LoadNote> load;
};

Backups::Backups(preferences::Environment& environment, std::string state,
                 std::chrono::milliseconds lockPatience, platform::Report warn, Clock clock)
    : environment_(environment),
      folder_(std::move(state)),
      lockPatience_(lockPatience),
      warn_(std::move(warn)),
      clock_(std::move(clock)),
      store_(environment.preferences, lockPatience) {
  store_.setChangeObserver(this);
}

Backups::~Backups() = default;

Result<Done> Backups::open() {
  if (state_) return Done{};
  const auto name = folderFor(environment_.root.directory());
  if (!name) return name.error();
  state_ = std::make_unique<State>(folder_ + "/" + *name, lockPatience_);
  state_->load = std::make_unique<LoadNote>(environment_, store_, state_->folder);
  return Done{};
}

bool Backups::isOpen() {
  const auto opened = open();
  if (!opened && !std::exchange(warned_, true))
    warn("nothing is kept of what this changes", opened.error());
  return static_cast<bool>(opened);
}

Backups::State& Backups::state() {
  static_cast<void>(open());
  return *state_;
}

Snapshots& Backups::snapshots() {
  return state().snapshots;
}

History& Backups::history() {
  return state().history;
}

ChangeNote& Backups::changeNote() {
  return state().changeNote;
}

LastSeen& Backups::lastSeen() {
  return state().lastSeen;
}

SeenProfiles& Backups::seenProfiles() {
  return state().seenProfiles;
}

plist::Date Backups::now() const {
  const std::chrono::duration<double> since = clock_().time_since_epoch() - kReferenceDate;
  return {since.count()};
}

void Backups::warn(std::string what, const Error& cause) const {
  if (warn_) warn_(Error{.what = std::move(what)}.because(cause));
}

std::uint64_t Backups::domainChecksum() const {
  const auto bytes = environment_.root.read(foundation::domainPath(prefs::kDomain));
  return foundation::checksumOf(bytes ? plist::Bytes(*bytes) : plist::Bytes());
}

Result<int> Backups::keep(const std::string& before) {
  if (const auto opened = open(); !opened) return opened.error();
  if (auto damage = store_.damage(prefs::kDomain)) return *damage;
  Snapshot snapshot{now(), before, {}, {}};
  const auto domain = environment_.root.read(foundation::domainPath(prefs::kDomain));
  if (!domain && domain.error().code != ENOENT) return domain.error();
  if (domain) snapshot.domain = *domain;
  auto profiles = readProfileFiles(environment_.root, domain ? domain->size() : 0);
  if (!profiles && profiles.error().code != EFBIG) return profiles.error();
  if (profiles) snapshot.profiles = std::move(*profiles);
  const auto added = state().snapshots.add(snapshot);
  if (added && !profiles)
    warn("the snapshot " + beforeWords(before) + " has no profiles", profiles.error());
  return added;
}

bool Backups::keepOrWarn(const std::string& before) {
  const auto kept = keep(before);
  if (kept) return true;
  const bool isThere = kept.error().kind == platform::ErrorKind::Unconfirmed;
  warn("the snapshot " + beforeWords(before) +
           (isThere ? " is not confirmed on disk" : " was not kept"),
       kept.error());
  return isThere;
}

void Backups::takeDailySnapshot() {
  using namespace std::chrono;
  const std::int64_t today = floor<days>(clock_()).time_since_epoch().count();
  if (day_ == today) return;
  const auto latest = readRecord(state().folder, kDay);
  const plist::Value* day = latest ? latest->find(kDayNumber) : nullptr;
  const bool taken = day && day->integer() == today;
  if (!taken && store_.damage(prefs::kDomain)) return;
  day_ = today;
  if (taken || !keepOrWarn(kBeforeChangesOfDay)) return;
  const auto noted =
      writeRecord(state().folder, kDay, plist::Dictionary{{std::string(kDayNumber), today}});
  if (!noted) warn("the day's snapshot will be taken again", noted.error());
}

// Finishing a load changes the settings, and so comes back here.
void Backups::prepare() {
  if (preparing_ || !isOpen()) return;
  preparing_ = prepared_ = true;
  takeDailySnapshot();
  const auto finished = state().load->finish();
  if (!finished) warn("a load that was stopped half-way is not finished", finished.error());
  finishChange(environment_, *this);
  preparing_ = false;
}

std::shared_ptr<void> Backups::guard(const preferences::ProfileStep& step) {
  using preferences::ProfileStep;
  const bool exists = environment_.root.hasEntry(step.path);
  if (step.what == ProfileStep::Delete && !exists) return nullptr;
  // A load's note takes the place of one that another process has left since.
  prepare();
  if (!isOpen()) return nullptr;
  if (change_ && label_ == Label::Default) change_->what = labelOf(step);
  const std::string id = idOf(step.path);
  switch (step.what) {
    case ProfileStep::Load: {
      keepOrWarn("load " + id);
      auto noted = state().load->begin(step.path, lockPatience_);
      if (noted) return *noted;
      warn("a load that is stopped half-way now would stay so", noted.error());
      return nullptr;
    }
    case ProfileStep::Save:
      if (exists) keepOrWarn("overwrite " + id);
      break;
    case ProfileStep::Import:
      keepOrWarn("import");
      break;
    case ProfileStep::Delete:
      keepOrWarn("delete " + id);
      break;
  }
  noteFile(step);
  return nullptr;
}

void Backups::noteFile(const preferences::ProfileStep& step) {
  const auto before = bytesOf(environment_.root, step.path);
  const bool deleted = step.what == preferences::ProfileStep::Delete;
  if (!before && deleted && change_)
    warn("\"" + change_->what + "\" can't be undone", before.error());
  if (!before) return;
  FileChange change{step.path, *before, {}};
  if (!deleted) change.to.emplace(step.written.begin(), step.written.end());
  // Without a note it is at worst said that another program has made this change.
  static_cast<void>(state().seenProfiles.willChange({&change, 1}));
  if (change_) change_->files.push_back(std::move(change));
}

void Backups::beginChange(std::string what, Label label, std::string snapshot) {
  endChange();
  snapshot_ = std::move(snapshot);
  change_ = Change{.what = std::move(what)};
  label_ = label;
  ++number_;
  prepared_ = false;
}

void Backups::endChange() noexcept try {
  if (change_) recordChange();
} catch (const std::bad_alloc&) {
  change_.reset();
}

void Backups::recordChange() {
  Change change = *std::exchange(change_, std::nullopt);
  // What failed, or was taken back, has not changed.
  std::erase_if(change.files, [&](const FileChange& each) {
    const auto now = bytesOf(environment_.root, each.path);
    return !now || *now != each.to || each.from == each.to;
  });
  remember(std::move(change), {});
}

void Backups::remember(Change change, const std::vector<std::string>& left) {
  const auto isLeft = [&](const std::string& name) {
    return std::ranges::find(left, name) != left.end();
  };
  std::erase_if(change.settings,
                [&](const auto& each) { return each.from == each.to || isLeft(each.key); });
  std::erase_if(change.files, [&](const auto& each) { return isLeft(each.path); });
  if (change.empty() || !isOpen()) return;
  change.time = now();
  const auto added = state().history.add(change);
  if (!added) return warn("\"" + change.what + "\" can't be undone", added.error());
  if (stepHandler_) stepHandler_(change.what);
}

void Backups::willChange(std::string_view domain) {
  // A change that takes back its own load must not find it finished.
  if (domain != prefs::kDomain) return;
  if (!(change_ && prepared_)) prepare();
  if (!change_ || preparing_ || snapshot_.empty()) return;
  keepOrWarn(std::exchange(snapshot_, {}));
}

// The lock of the file is held: the history is written later.
void Backups::didChange(std::string_view domain, const foundation::DomainChange& change) {
  if (domain != prefs::kDomain) return;
  const auto changes = kept_.without(change, change_ ? std::optional(number_) : std::nullopt);
  if (change_ && !preparing_) merge(changes, change_->settings);
  // Whoever reads it next is not misled: at worst it says that another program has changed it.
  const std::uint64_t before = change.before ? change.before->checksum : 0;
  if (isOpen()) static_cast<void>(state().lastSeen.changed(before, change.after->checksum, now()));
}

void Backups::didKeep(std::string_view domain, const foundation::KeyChanges& kept) {
  if (domain != prefs::kDomain) return;
  kept_.keep(kept, change_ ? std::optional(KeptSets::Of{number_, change_->what}) : std::nullopt);
}

void Backups::rememberKept() {
  for (Change& change : kept_.takeStored()) remember(std::move(change), {});
}

}  // namespace host
