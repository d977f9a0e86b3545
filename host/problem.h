#pragma once

#include <string>

namespace host {

// Where a problem arose.
enum class Source { Settings, Profiles, Log, Contacts, Sounds, Urls, Collation, Bus, Request };

enum class Severity {
  Warning,  // it was done all the same, only not as well
  Failure,  // it was not done
};

// What must be reported to the user. `path` is a platform path ("/var/mobile/…"), empty where no
// file is concerned; `words` is one human-readable sentence without the path's repetition.
struct Problem {
  Source source = Source::Request;
  Severity severity = Severity::Failure;
  std::string path{};
  std::string words{};

  bool operator==(const Problem&) const = default;

  std::string message() const { return path.empty() ? words : path + ": " + words; }
};

}  // namespace host
