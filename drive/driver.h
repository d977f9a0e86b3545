#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "drive/fields.h"
#include "drive/json.h"
#include "host/application.h"
#include "host/recording_device.h"

namespace drive {

// One Settings application that does what it is asked, line by line.
class Driver {
 public:
  // `complain` is given what must be reported to the user besides the answers; it may be called
  // from another thread.
  Driver(const host::DeviceOptions& options, int viewport, host::Device::ProblemHandler complain);

  // The answer to one line, without a newline. No line can do more harm than a person with the
  // window can: one that is too long, too deep or no request is answered as a bad request.
  std::string answer(std::string_view line);
  static std::string requests();  // what can be asked, human-readable

 private:
  using Answer = host::Outcome<Json>;  // what is answered besides "ok"
  struct Handler {
    const char* what;
    // The request of the application, which comes first; null for what asks nothing of it.
    host::Outcome<host::Request> (*read)(const Fields&);
    // `result` is the application's.
    Answer (Driver::*answer)(const Fields&, const plist::Value& result);
  };
  static const Handler kHandlers[];

  Answer dispatch(std::string_view line);
  Answer run(const Handler& handler, const Fields& fields);

  Answer nothing(const Fields&, const plist::Value&);
  Answer page(const Fields&, const plist::Value&);
  Answer result(const Fields&, const plist::Value& result);
  Answer choices(const Fields& fields, const plist::Value&);
  Answer alerts(const Fields&, const plist::Value&);
  Answer advance(const Fields& fields, const plist::Value&);
  Answer notifications(const Fields&, const plist::Value&);
  Answer prefs(const Fields&, const plist::Value&);
  Answer schemes(const Fields& fields, const plist::Value&);
  Answer opened(const Fields&, const plist::Value&);
  Answer played(const Fields&, const plist::Value&);

  host::RecordingDevice device_;
  host::Application application_;
};

}  // namespace drive
