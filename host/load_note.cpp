#include "host/load_note.h"

#include <cerrno>
#include <new>

#include "host/history.h"
#include "platform/foundation/text.h"
#include "prefs/core/names.h"
#include "prefs/core/preference_store.h"
#include "prefs/keys.h"
#include "prefs/profiles/profile_snapshot.h"

namespace host {
namespace {

using platform::Done;
using platform::Error;
using platform::Result;

constexpr const char* kNote = "/load";
constexpr std::string_view kCalled = "the loading of profiles";
constexpr std::string_view kBefore = "before", kAfter = "after";

Result<foundation::Descriptor> lockLoads(foundation::DeviceRoot& state,
                                         std::chrono::milliseconds patience) {
  return lockRecord(state, kNote, patience, kCalled);
}

// What a load makes of the profile's switch at last.
plist::Value switched(const plist::Value& active) {
  return plist::Value(foundation::boolValue(active) ? 1.0f : 0.0f);
}

}  // namespace

// The values that a load's first change alters, and the switch, as they were and as it leaves them.
struct LoadNote::Noted {
  plist::Dictionary before, after;

  static Noted of(const plist::Dictionary& profile, const plist::Dictionary& domain) {
    Noted noted;
    const auto after = prefs::domainAfterFirstChange(profile, domain);
    for (const auto& [key, from, to] : foundation::changesBetween(domain, after)) {
      if (from) noted.before.set(key, *from);
      noted.after.set(key, *to);
    }
    constexpr std::string_view kSwitch = prefs::key::profileactive;
    if (const plist::Value* active = domain.find(kSwitch)) noted.before.set(kSwitch, *active);
    if (const plist::Value* active = after.find(kSwitch)) noted.after.set(kSwitch, *active);
    return noted;
  }
  static std::optional<Noted> read(const foundation::DeviceRoot& state) {
    const auto record = readRecord(state, kNote);
    if (!record) return std::nullopt;
    const plist::Value* before = record->find(kBefore);
    const plist::Value* after = record->find(kAfter);
    if (!before || !before->dictionary() || !after || !after->dictionary()) return std::nullopt;
    return Noted{*before->dictionary(), *after->dictionary()};
  }
};

// Other processes may have changed some of the values since; the rest show how far the load went.
LoadNote::Progress LoadNote::progressOf(const Noted& noted) {
  const plist::Dictionary domain = prefs::wholeDomainRead(store_);
  int after = 0, before = 0;
  for (const auto& [key, value] : noted.after) {
    after += foundation::isSame(domain.find(key), &value);
    before += foundation::isSame(domain.find(key), noted.before.find(key));
  }
  if (after <= before) return Progress::None;
  const plist::Value* active = noted.after.find(prefs::key::profileactive);
  const bool isHalf = active && *active != switched(*active) &&
                      foundation::isSame(active, domain.find(prefs::key::profileactive));
  return isHalf ? Progress::Half : Progress::Whole;
}

Result<std::shared_ptr<void>> LoadNote::begin(const std::string& profilePath,
                                              std::chrono::milliseconds patience) {
  const auto profile = prefs::readProfile(environment_, profilePath);
  if (!profile && profile.error().code != ENOENT) return std::shared_ptr<void>();
  if (const auto readable = store_.refresh(prefs::kDomain); !readable)
    return std::shared_ptr<void>();
  auto locked = lockLoads(state_, patience);
  if (!locked) return locked.error();
  Noted noted = Noted::of(profile ? *profile : plist::Dictionary(), prefs::wholeDomainRead(store_));
  const auto written = writeRecord(
      state_, kNote, {{std::string(kBefore), noted.before}, {std::string(kAfter), noted.after}});
  if (!written && !isUnconfirmed(written)) return written.error();
  // The lock is held until then, and by no one but a living process.
  return std::shared_ptr<void>(
      new Noted(std::move(noted)),
      [this, lock = std::make_shared<foundation::Descriptor>(std::move(*locked))](Noted* begun) {
        const std::unique_ptr<Noted> owned(begun);
        end(*owned);
      });
}

// Where the settings can't be read now, or without memory, the note stays, and the next process
// looks.
void LoadNote::end(const Noted& noted) noexcept try {
  if (store_.refresh(prefs::kDomain) && progressOf(noted) != Progress::Half)
    static_cast<void>(state_.remove(kNote));
} catch (const std::bad_alloc&) {
}

Result<Done> LoadNote::finish() {
  if (!state_.hasEntry(kNote)) return Done{};
  const auto locked = lockLoads(state_, std::chrono::milliseconds(0));
  if (!locked) return Done{};
  const auto noted = Noted::read(state_);
  if (noted) {
    if (const auto readable = store_.refresh(prefs::kDomain); !readable) return readable.error();
    const Progress progress = progressOf(*noted);
    if (progress == Progress::Half) {
      const plist::Value& active = *noted->after.find(prefs::key::profileactive);
      const auto finished = store_.exchange(
          {{std::string(prefs::key::profileactive), active, switched(active)}}, prefs::kDomain);
      if (!finished) return finished.error();
      if (const auto flushed = store_.finish(); !flushed) return flushed.error();
    }
    if (progress != Progress::None) environment_.darwinCenter.post(prefs::kPrefsNotification);
  }
  return state_.remove(kNote);
}

}  // namespace host
