#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/problem.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/environment.h"

namespace host {

// What stands beside the list that this row leads to, in plain words: which profiles can't be read,
// that the battery log can't. Empty where all can be, and for other rows. Reads the files.
std::string unreadableIn(const preferences::PSSpecifier& row,
                         const preferences::Environment& environment);

// What is to be reported of the files that a listing of profiles has skipped; nothing where there
// are none.
std::optional<Problem> unreadableProfiles(const std::vector<platform::Error>& skipped);

// In place of the number of a list's entries where it can't be read.
inline constexpr const char* kCannotBeRead = "Can't be read";

// What would fill the list that this row leads to, in a sentence; empty where that isn't known.
std::string wayToFill(const preferences::PSSpecifier& row);
// What to say while that list is read.
std::string readingWords(const preferences::PSSpecifier& row);

// What is to be reported of the first change where there is no session bus.
Problem changesNotAnnounced();

}  // namespace host
