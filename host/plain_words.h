#pragma once

#include <string>

#include "host/problem.h"

namespace host {

// What failed and why, as a sentence without the system's own terms: "The profile was not saved:
// the disk is full." An error of Backups that has a cause says itself what failed. Empty for an
// error without a system's error number: its words are plain.
std::string plainWords(Source source, const platform::Error& error);

// The platform path of the file that lies behind an error; empty where it is about none.
std::string fileOf(const platform::Error& error);

}  // namespace host
