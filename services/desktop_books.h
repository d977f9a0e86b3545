#pragma once

#include <optional>
#include <string>

#include "platform/error.h"

namespace services {

// The address books of the desktop: those of the Evolution Data Server that is running on the
// session bus. Neither it nor a bus is ever started.
class DesktopBooks {
 public:
  struct Cards {
    std::string text;                        // vCards, as services::VCards reads them
    std::optional<platform::Error> failure;  // why some are missing
  };

  virtual ~DesktopBooks() = default;

  // The cards of every address book that is enabled, in the order of the books' identifiers. None,
  // and no failure, where there is no bus or no server on it.
  //
  // One call at a time; once it is its turn it waits no longer than three seconds in all. After
  // such a wait it fails at once for as long as thirty; after any other failure the next call tries
  // again. May be called from any thread.
  virtual Cards cards() = 0;
};

}  // namespace services
