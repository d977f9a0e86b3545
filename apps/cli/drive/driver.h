#pragma once

#include <string>

#include "apps/cli/drive/recorders.h"
#include "apps/cli/drive/request.h"
#include "host/device.h"
#include "host/notification_record.h"
#include "host/settings_application.h"
#include "services/lazy_services.h"

namespace cli {

// One Settings host that does what it is asked, request by request.
class Driver {
 public:
  Driver(const host::DeviceOptions& options, int viewport);

  // The answer to one line, without a newline.
  std::string answer(std::string_view line);
  static std::string requests();  // what can be asked, for people

 private:
  // What is answered besides "ok".
  using Answer = host::Outcome<Json>;
  struct Handler {
    const char* what;
    Answer (Driver::*run)(const Request&);
  };
  static const Handler kHandlers[];

  Answer dispatch(std::string_view line);
  Answer page() const;
  Answer donePage(const host::Outcome<host::Done>& done) const;

  Answer launch(const Request&);
  Answer open(const Request&);
  Answer back(const Request&);
  Answer shownPage(const Request&);
  Answer tap(const Request&);
  Answer set(const Request&);
  Answer choices(const Request&);
  Answer scroll(const Request&);
  Answer select(const Request&);
  Answer drag(const Request&);
  Answer bar(const Request&);
  Answer press(const Request&);
  Answer pick(const Request&);
  Answer alerts(const Request&);
  Answer activate(const Request&);
  Answer layout(const Request&);
  Answer advance(const Request&);
  Answer reload(const Request&);
  Answer call(const Request&);
  Answer notifications(const Request&);
  Answer prefs(const Request&);
  Answer schemes(const Request&);
  Answer opened(const Request&);
  Answer played(const Request&);

  services::SessionNotificationCenter bus_;
  services::DesktopUrls desktop_;
  host::NotificationRecord record_{bus_};
  RecordedUrls urls_{desktop_};
  RecordedSounds sounds_;
  foundation::ManualQueue* clock_;
  host::Device device_;
  host::SettingsApplication application_;
};

}  // namespace cli
