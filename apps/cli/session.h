#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "apps/cli/json.h"
#include "apps/cli/outcome.h"
#include "host/device.h"
#include "host/device_options.h"

namespace cli {

// What one run of the program works with: the options that every command has, the device, made when
// it is first asked for, and what the command prints, which goes out when it has been done.
class Session {
 public:
  host::DeviceOptions options;
  bool json = false;

  host::Device& device();
  foundation::ManualQueue& clock();  // the device's time

  // Failed with the first thing that went wrong with the store, if anything did.
  Outcome<Done> storeWorked();
  // What the user should hear of though the command was done.
  std::vector<std::string> warnings;
  std::vector<std::string> takeWarnings();  // those, and the device's

  void print(std::string_view line) { (output_ += line) += '\n'; }
  void printJson(const Json& document) { print(textOf(document)); }
  // Writes to stdout what was printed; the error is the system's.
  Outcome<Done> flush();

 private:
  foundation::ManualQueue* clock_ = nullptr;
  std::unique_ptr<host::Device> device_;
  std::string output_;
};

// One line on stderr: "quorvantis: " and the message.
void complain(std::string_view message);

}  // namespace cli
