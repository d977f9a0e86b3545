#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/listing.h"
#include "host/device.h"
#include "host/device_options.h"
#include "host/problem.h"
#include "host/settings.h"

namespace cli {

// The program's exit codes.
enum class ExitCode {
  Done = 0,
  Failed = 1,       // I/O, a damaged file
  WrongUse = 2,     // also a value that a setting can't take, and a row that is dimmed
  NotFound = 3,     // no such key, page, trigger or profile
  Exists = 4,       // refused without --overwrite
  Unconfirmed = 5,  // stored, but the disk didn't confirm it, or only a part is stored
};

// Why a command could not be done; nothing has changed then, unless it is Unconfirmed.
struct Failure {
  ExitCode code;
  std::string reason;
};

template <class T>
using Outcome = platform::Result<T, Failure>;
using Done = platform::Done;

Failure failureOf(const host::Failure& failure);
Failure failureOf(const platform::Error& error);

// What one run of the program works with: the options that every command has, the device, made when
// it is first asked for, and what the command prints, which is written when it has been done.
class Session {
 public:
  host::DeviceOptions options;
  bool json = false;

  host::Device& device();
  host::Settings settings();
  // Failed where there is no place for them.
  Outcome<host::Backups*> backups();

  // Failed with the first thing that went wrong with the store, if anything did.
  Outcome<Done> storeWorked();
  // What the user should know of though the command was done.
  std::vector<host::Problem> warnings;
  std::vector<host::Problem> takeWarnings();  // those, and the device's

  // Whether what is printed only says what has been changed: where it can't be written, the command
  // was done all the same.
  bool changed = false;

  // Flushes what the command has changed; done already where it flushed that itself.
  Outcome<Done> finish();

  void print(std::string_view line, Style style = Style::Plain);
  // Where it is empty, a terminal gets `whyEmpty` in its place.
  void print(const Listing& listing, const std::string& whyEmpty = {});
  void printJson(const Json& document) { print(drive::textOf(document)); }
  // A value as JSON where that is asked for, else text bare.
  void printValue(const plist::Value& value);
  // Writes to stdout what was printed; the error is the system's.
  Outcome<Done> flush();

 private:
  foundation::ManualQueue* clock_ = nullptr;  // the device's time
  std::unique_ptr<host::Device> device_;
  StyledText output_;
};

// One line on stderr: "quorvantis: " and the message.
void complain(std::string_view message);

}  // namespace cli
