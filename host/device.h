#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/backups.h"
#include "host/deferred_notifications.h"
#include "host/device_options.h"
#include "host/problem.h"
#include "host/reporting_urls.h"
#include "platform/preferences/environment.h"
#include "services/address_book.h"
#include "services/lazy_services.h"
#include "services/system_sounds.h"

namespace host {

// Services in place of the machine's own, which outlive the device; null: the machine's.
struct Substitutes {
  platform::DarwinNotificationCenter* darwinCenter = nullptr;
  platform::Urls* urls = nullptr;
  platform::SystemSounds* sounds = nullptr;
};

// The device and its services on this machine, put together for the settings bundle. Nothing is
// loaded or read before a page asks for it. Pages must be destroyed before the device is.
class Device {
 public:
  Device(const DeviceOptions& options, std::unique_ptr<foundation::MainQueue> mainQueue,
         const Substitutes& substitutes = {});
  ~Device();
  // Another one of the same root and contacts, for a thread of its own: its time stands still, and
  // it remembers nothing.
  std::unique_ptr<Device> another() const;
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;

  preferences::Environment& environment() { return environment_; }
  foundation::DeviceRoot& root() { return root_; }
  foundation::Preferences& preferences() { return preferences_; }

  DeferredNotifications& notifications() { return notifications_; }
  uikit::Screen& screen() { return screen_; }
  const std::string& contactsFolder() const { return contactsFolder_; }  // on this machine

  // Null where the options name no folder for it.
  Backups* backups() { return backups_.get(); }

  // What the pages ignore and must be reported to the user: a domain file that can't be read, a
  // write that failed, a URL that can't be opened; as a warning what was done all the same, only
  // not as well: text sorted by its bytes, contacts without those that can't be read. With a
  // handler each is given to it at once, a sound's from another thread; else they are kept until
  // they are taken. `gone` is called with a problem of the settings that was reported and has gone.
  // Returns once no call of an earlier handler runs any more; not to be called by a handler.
  using ProblemHandler = std::function<void(const Problem& problem)>;
  void setProblemHandler(ProblemHandler handler, ProblemHandler gone = {});
  std::vector<Problem> takeProblems(Severity severity);

  // Stores sets that were kept and flushes the settings: for the end of the program.
  Attempt<platform::Done> finish();

  // Calls `posted` with the name of each cross-process notification as it arrives, only of these
  // names if there are any, until it returns false. The error says why the bus can't be listened
  // to.
  static platform::Result<platform::Done> watch(
      const std::vector<std::string>& names,
      const std::function<bool(std::string_view name)>& posted);

 private:
  platform::Report reportOf(Source source, Severity severity);
  void makeBackups(const DeviceOptions& options);
  void report(const Problem& problem);
  void withdraw(const Problem& problem);
  void call(const std::shared_ptr<const ProblemHandler>& handler, const Problem& problem);
  void finishSoon();

  const DeviceOptions options_;
  std::mutex mutex_;  // of what follows: sounds report from threads of their own
  std::condition_variable called_;
  std::shared_ptr<const ProblemHandler> handler_, gone_;  // null: none
  int calls_ = 0;                                         // of handlers, running now
  std::vector<Problem> kept_;

  services::SessionNotificationCenter darwinCenter_;
  DeferredNotifications notifications_;
  services::UserCollator collator_;
  services::DesktopUrls desktop_;
  ReportingUrls urls_;
  services::LazyXml xml_;

  foundation::DeviceRoot root_;
  std::string contactsFolder_;
  services::MergedAddressBook addressBook_;
  services::DeviceSounds sounds_;
  uikit::Screen screen_;
  foundation::Preferences preferences_;
  foundation::NotificationCenter center_;
  std::unique_ptr<foundation::MainQueue> mainQueue_;
  preferences::Environment environment_;
  std::unique_ptr<Backups> backups_;
  bool finishing_ = false;  // a task that finishes the sets is in the main queue
};

}  // namespace host
