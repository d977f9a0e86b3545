#include "host/device.h"

#include <algorithm>
#include <utility>

#include "prefs/core/archive_file.h"
#include "prefs/core/names.h"
#include "prefs/resources/bundle.h"
#include "services/services.h"

namespace host {
namespace {

const foundation::FallbackFolder& desktopSounds() {
  static const foundation::FallbackFolder kSounds{platform::kSystemSoundPath,
                                                  services::kDesktopSounds};
  return kSounds;
}

// After a set; the flush may take as long again.
constexpr std::chrono::milliseconds kFinished{500};

}  // namespace

Device::Device(const DeviceOptions& options, std::unique_ptr<foundation::MainQueue> mainQueue,
               const Substitutes& substitutes)
    : options_(options),
      notifications_(substitutes.darwinCenter ? *substitutes.darwinCenter : darwinCenter_),
      collator_(reportOf(Source::Collation, Severity::Warning)),
      urls_(desktop_, reportOf(Source::Urls, Severity::Failure)),
      root_(options.root),
      contactsFolder_(options.contacts.value_or(options.root + services::kAddressBookPath)),
      addressBook_(root_, options.contacts, collator_,
                   reportOf(Source::Contacts, Severity::Warning)),
      sounds_(root_, desktopSounds(), reportOf(Source::Sounds, Severity::Failure)),
      preferences_(root_, options.lockPatience,
                   options.realTime ? foundation::Preferences::FailedSets::Keep
                                    : foundation::Preferences::FailedSets::Drop),
      mainQueue_(std::move(mainQueue)),
      environment_{
          .root = root_,
          .preferences = preferences_,
          .defaultCenter = center_,
          .mainQueue = *mainQueue_,
          .darwinCenter = notifications_,
          .collator = collator_,
          .urls = substitutes.urls ? *substitutes.urls : urls_,
          .addressBook = addressBook_,
          .sounds = substitutes.sounds ? *substitutes.sounds : sounds_,
          .xml = xml_,
          .bundle = prefs::bundle(),
          .idiom = options.idiom,
          .soundFallback = desktopSounds(),
          .screen = &screen_,
          .problemHandler = reportOf(Source::Profiles, Severity::Failure),
      } {
  preferences_.setXmlReader(prefs::readerOf(xml_));
  preferences_.setProblemHandler(reportOf(Source::Settings, Severity::Failure));
  preferences_.setRecoveryHandler(
      [this](const platform::Error& error) { withdraw(problemOf(Source::Settings, error)); });
  if (options.state) makeBackups(options);
  if (!options.realTime) return;
  preferences_.setUnfinishedHandler([this] { finishSoon(); });
  preferences_.setKeptHandler([this] {
    if (backups_) backups_->rememberKept();
    environment_.darwinCenter.post(prefs::kPrefsNotification);
  });
}

std::unique_ptr<Device> Device::another() const {
  return std::make_unique<Device>(
      DeviceOptions{.root = options_.root, .contacts = options_.contacts, .idiom = options_.idiom},
      std::make_unique<foundation::ManualQueue>());
}

void Device::makeBackups(const DeviceOptions& options) {
  const auto warn = reportOf(Source::Backups, Severity::Warning);
  if (options.state->empty()) {
    environment_.profileGuard = [warn](const preferences::ProfileStep&) {
      warn(
          {.what = "nothing is kept of what this changes: neither XDG_STATE_HOME nor HOME is set"});
      return nullptr;
    };
    return;
  }
  backups_ = std::make_unique<Backups>(environment_, *options.state, options.lockPatience, warn);
  preferences_.setChangeObserver(backups_.get());
  environment_.profileGuard = [this](const preferences::ProfileStep& step) {
    return backups_->guard(step);
  };
}

// Tasks that wait and alerts hold pages, and those need the device until they are gone.
Device::~Device() {
  screen_.dismissAll();
  mainQueue_.reset();
}

platform::Report Device::reportOf(Source source, Severity severity) {
  return [this, source, severity](const platform::Error& error) {
    Problem problem = problemOf(source, error);
    if (severity == Severity::Warning) problem.severity = severity;
    report(problem);
  };
}

// A lock that is held by then is not waited for: the next try is soon enough.
void Device::finishSoon() {
  if (std::exchange(finishing_, true)) return;
  mainQueue_->after(kFinished, [this] {
    finishing_ = false;
    (void)preferences_.finish(std::chrono::milliseconds(0));
    if (preferences_.unfinished()) finishSoon();
  });
}

Attempt<platform::Done> Device::finish() {
  const auto finished = preferences_.finish();
  if (!finished) return failureOf(Source::Settings, finished.error());
  return platform::Done{};
}

// The handler runs without the lock, so that it may make the device report again.
void Device::report(const Problem& problem) {
  std::shared_ptr<const ProblemHandler> handler;
  {
    const std::lock_guard lock(mutex_);
    if (!handler_) return kept_.push_back(problem);
    handler = handler_;
    ++calls_;
  }
  call(handler, problem);
}

// One that is kept and says that something failed stays: it did fail.
void Device::withdraw(const Problem& problem) {
  std::shared_ptr<const ProblemHandler> handler;
  {
    const std::lock_guard lock(mutex_);
    if (problem.severity == Severity::Warning) std::erase(kept_, problem);
    if (!gone_) return;
    handler = gone_;
    ++calls_;
  }
  call(handler, problem);
}

void Device::call(const std::shared_ptr<const ProblemHandler>& handler, const Problem& problem) {
  (*handler)(problem);
  const std::lock_guard lock(mutex_);
  --calls_;
  called_.notify_all();
}

void Device::setProblemHandler(ProblemHandler handler, ProblemHandler gone) {
  std::vector<Problem> kept;
  {
    std::unique_lock lock(mutex_);
    handler_ = handler ? std::make_shared<const ProblemHandler>(handler) : nullptr;
    gone_ = gone ? std::make_shared<const ProblemHandler>(gone) : nullptr;
    called_.wait(lock, [this] { return calls_ == 0; });
    if (handler_) kept = std::exchange(kept_, {});
  }
  for (const Problem& problem : kept) handler(problem);
}

std::vector<Problem> Device::takeProblems(Severity severity) {
  const std::lock_guard lock(mutex_);
  const auto wanted = std::stable_partition(
      kept_.begin(), kept_.end(),
      [severity](const Problem& problem) { return problem.severity != severity; });
  std::vector<Problem> taken(wanted, kept_.end());
  kept_.erase(wanted, kept_.end());
  return taken;
}

platform::Result<platform::Done> Device::watch(
    const std::vector<std::string>& names,
    const std::function<bool(std::string_view name)>& posted) {
  const auto& bus = services::find<services::Bus>();
  if (!bus) return bus.error();
  auto listener = (*bus)->listen({names.begin(), names.end()});
  if (!listener) return listener.error();
  for (bool wanted = true; wanted;) {
    const auto waited =
        (*listener)->wait([&](std::string_view name) { wanted = wanted && posted(name); });
    if (!waited) return waited.error();
  }
  return platform::Done{};
}

}  // namespace host
