#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/history.h"

namespace host {

// The sets that the store could not store at once and keeps (see Preferences), each with the user's
// change that it is of, so that it enters the history as a part of that one, whichever change finds
// it stored.
class KeptSets {
 public:
  // A change of the user's, by its number and in words.
  struct Of {
    int number = 0;
    std::string what{};
  };

  // These are kept from now on; without a change of the user's nobody's are.
  void keep(const foundation::KeyChanges& kept, const std::optional<Of>& change);

  // What a change of the domain does to its keys beyond the sets that were kept before it, but for
  // those of the user's change of that number, which are its own. The others are stored by now.
  foundation::KeyChanges without(const foundation::DomainChange& change, std::optional<int> number);

  // The changes whose sets have been stored since the last call, in their order, without a time.
  std::vector<Change> takeStored();

 private:
  std::map<std::string, Of, std::less<>> ofKeys_;
  std::map<int, Change> stored_;  // by their numbers
};

}  // namespace host
